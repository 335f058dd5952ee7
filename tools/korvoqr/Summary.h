#ifndef KORVOQR_SUMMARY_H
#define KORVOQR_SUMMARY_H

#include "Terminal.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace korvoqr {

/// How many payloads were accepted and refused, and how often each code came up.
struct Tally {
    std::uint64_t accepted = 0;
    std::uint64_t rejected = 0;
    std::array<std::uint64_t, korvo::errorCatalogue.size()> codes{};  ///< in the catalogue's order

    void count(const korvo::QRCodeParserResponse& response);
    void add(const Tally& other) noexcept;
    std::uint64_t payloads() const noexcept { return accepted + rejected; }
};

/// What happened to a run's payloads: numbers, rate, and the codes from the most frequent to the rarest with
/// their share of the rejected payloads and a bar. Ends with a line feed.
std::string summaryText(const Tally& tally, std::chrono::duration<double> time, const Style& style);

/// Shows on standard error how far a run through a file is: one line, which each update writes anew.
class Progress {
  public:
    /// Shows nothing where the size in bytes is 0 or standard error is no terminal.
    explicit Progress(std::uint64_t size);

    /// Tells how many bytes and payloads are done.
    void update(std::uint64_t bytes, std::uint64_t payloads);

    /// Takes the line away.
    void clear();

  private:
    using Clock = std::chrono::steady_clock;

    std::uint64_t size_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_ = begin_;
    bool isShown_ = false;
};

}  // namespace korvoqr

#endif
