#ifndef KORVOQRPARSER_EXPLANATION_DRAFT_H
#define KORVOQRPARSER_EXPLANATION_DRAFT_H

#include <KorvoQRParser/Explanation/Characters.h>
#include <KorvoQRParser/Explanation/QRCodeExplanation.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// A text that is made from an original by leaving out and inserting. It knows where each byte comes from, so
/// the edits can be read off at the end, however many steps led there.
class Draft {
  public:
    Draft() = default;
    /// The original itself.
    explicit Draft(std::string_view original);

    const std::string& text() const noexcept { return text_; }

    /// Appends bytes of another draft, which keep their origin. The parts of one original must be appended in
    /// their order.
    void append(const Draft& other, std::size_t begin, std::size_t end);
    /// Appends a text that the original does not have at this place.
    void insert(std::string_view text);

    /// The changes that make this text from the original, widened to whole characters of the original.
    std::vector<QRCodeEdit> editsOf(const Characters& original) const;

  private:
    std::string text_;
    std::vector<std::uint32_t> origins_;
};

}  // namespace korvo

#endif
