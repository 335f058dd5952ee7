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

/// The number of accepted and of rejected payloads, and how often each code occurred.
struct Tally {
    std::uint64_t accepted = 0;
    std::uint64_t rejected = 0;
    std::uint64_t unreadable = 0;                                     ///< pictures, and codes in pictures
    std::array<std::uint64_t, korvo::errorCatalogue.size()> codes{};  ///< in the catalogue's order

    void count(const korvo::QRCodeParserResponse& response);
    void add(const Tally& other) noexcept;
    std::uint64_t payloads() const noexcept { return accepted + rejected; }
};

/// The summary of a run: the numbers, the rate, and the codes from the most frequent to the rarest, each with
/// its share of the rejected payloads and a bar. Ends with a line feed.
std::string summaryText(const Tally& tally, std::chrono::duration<double> time, const Style& style);

/// Shows on standard error how much of a file has been read: one line, which each update rewrites.
class Progress {
  public:
    /// Shows nothing if the size in bytes is 0 or standard error is not a terminal.
    explicit Progress(std::uint64_t size);

    /// The bytes and payloads processed so far.
    void update(std::uint64_t bytes, std::uint64_t payloads);

    /// Removes the line.
    void clear();

  private:
    using Clock = std::chrono::steady_clock;

    std::uint64_t size_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_{};
    bool isShown_ = false;
};

}  // namespace korvoqr

#endif
