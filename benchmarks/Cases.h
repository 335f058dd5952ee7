#ifndef KORVOQR_BENCHMARKS_CASES_H
#define KORVOQR_BENCHMARKS_CASES_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvo::bench {

/// A payload that is measured.
struct Case {
    std::string name;
    std::string payload;
    bool isAccepted;
};

/// All measured payloads. Stops the program when one is not accepted or refused as it claims, so that nothing
/// but what its name says is ever measured.
const std::vector<Case>& cases();

const Case& findCase(const std::string& name);

/// A piece of work that can be done again and again, under its name; returns something of its result, so that
/// the compiler cannot leave it out.
struct Work {
    std::string name;
    std::function<std::size_t()> run;
};

/// What any implementation must do for an accepted payload: check the UTF-8, compute the checksum, create a
/// record, set the same values, destroy it.
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

/// Everything that is measured beside the growth: each payload's parse, the floors, the callback form, the
/// renderings, the checksum and the counting of characters.
std::vector<Work> allWork();

}  // namespace korvo::bench

#endif
