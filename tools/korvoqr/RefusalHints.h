#ifndef KORVOQR_REFUSALHINTS_H
#define KORVOQR_REFUSALHINTS_H

#include "FileKind.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvoqr {

/// Notices when the refusals of a run have a common cause in the form of the input, such as a carriage return
/// at the end of every line.
class RefusalHints {
  public:
    /// Takes a refused payload, and the kind of the file that it is from, if that has one.
    void note(std::string_view payload, bool isUnsplittable, const FileKind* kind);

    /// Takes those of another part of the run, which comes later.
    void add(const RefusalHints& other);

    /// A sentence without a full stop, which names the cause that at least nine of ten refusals share, and
    /// the remedy. Empty if there is none, or if there are less than three. `isTrimmed`: --trim has been
    /// tried.
    std::string sentence(std::uint64_t accepted, bool isTrimmed) const;

  private:
    enum class Cause : unsigned char {
        file,
        utf16,
        columns,
        carriageReturn,
        byteOrderMark,
        quotes,
        blanks,
        count,  // of the causes
    };

    std::string sentenceOf(Cause cause, const std::string& lines) const;
    void noteSurroundings(std::string_view payload);
    void noteColumns(std::string_view payload);
    std::uint64_t& countOf(Cause cause) { return counts_.at(static_cast<std::size_t>(cause)); }

    std::uint64_t refused_ = 0;
    std::array<std::uint64_t, static_cast<std::size_t>(Cause::count)> counts_{};
    const FileKind* kind_ = nullptr;  // of the first such file
    std::size_t column_ = 0;          // of the first payload among columns, from 1
    char delimiter_ = 0;
};

}  // namespace korvoqr

#endif
