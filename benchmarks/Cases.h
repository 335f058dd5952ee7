#ifndef KORVOQR_BENCHMARKS_CASES_H
#define KORVOQR_BENCHMARKS_CASES_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvo::bench {

/// A payload to measure.
struct Case {
    std::string name;
    std::string payload;
    bool isAccepted;
};

/// All measured payloads. Stops the program if the library does not accept or refuse a payload as its row
/// says, so that every name tells what is measured.
const std::vector<Case>& cases();

/// The payload with this name. Stops the program when there is none.
const Case& findCase(const std::string& name);

/// A named piece of work that can be repeated. It returns a number from its result, so that the compiler
/// cannot remove it.
struct Work {
    std::string name;
    std::function<std::size_t()> run;
};

/// The work that any implementation must do for an accepted payload: check the UTF-8, compute the checksum,
/// create a record, set the same values, destroy the record.
class Floor {
  public:
    explicit Floor(const Case& accepted);
    std::size_t run() const;

  private:
    using TextSetter = void (QRCodeData::*)(std::optional<std::string>) noexcept;
    using FlagSetter = void (QRCodeData::*)(bool) noexcept;

    std::string payload_;
    std::vector<std::pair<TextSetter, std::string>> texts_;
    std::vector<FlagSetter> flags_;
};

/// All work that is measured, except how it grows: the parse of each payload, the floors, the callback form,
/// the renderings, the checksum and the counting of characters.
std::vector<Work> allWork();

}  // namespace korvo::bench

#endif
