#ifndef KORVOQR_REFUSALHINTS_H
#define KORVOQR_REFUSALHINTS_H

#include "Commands.h"
#include "FileKind.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvoqr {

/// Notices when the refusals of a run have a common cause in the form of the input, such as a carriage return
/// at the end of every line.
class RefusalHints {
  public:
    /// Takes a refused payload.
    void note(std::string_view payload, bool isUnsplittable);

    /// Takes a refusal, or a line without the columns, from a file of a kind that holds no lines. The name is
    /// empty if it need not be told.
    void note(const FileKind& kind, std::string_view file);

    /// Takes those of another part of the run, which comes later.
    void add(const RefusalHints& other);

    /// A sentence without a full stop, which names the cause that at least nine of ten refusals share, and
    /// the remedy. Empty if there is none, or if there are fewer than three refusals.
    std::string sentence(std::uint64_t accepted, const RunOptions& options) const;

  private:
    enum class Cause : unsigned char {
        file,
        columns,
        carriageReturn,
        byteOrderMark,
        quotes,
        blanks,
        count,  // of the causes
    };

    std::string sentenceOf(Cause cause, const std::string& lines, const RunOptions& options) const;
    void noteSurroundings(std::string_view payload);
    void noteColumns(std::string_view payload);
    std::uint64_t& countOf(Cause cause) { return counts_.at(static_cast<std::size_t>(cause)); }

    std::uint64_t refused_ = 0;
    std::array<std::uint64_t, static_cast<std::size_t>(Cause::count)> counts_{};
    std::optional<FileKind> kind_;  // of the first file that holds no lines
    std::string file_;
    std::size_t column_ = 0;  // of the first payload among columns, from 1
    char delimiter_ = 0;
};

}  // namespace korvoqr

#endif
