#ifndef KORVOQR_PROGRESS_H
#define KORVOQR_PROGRESS_H

#include <chrono>
#include <cstdint>

namespace korvoqr {

/// Shows on standard error how far a run has come: one line, which each update rewrites. Shows nothing if
/// standard error is not a terminal.
class Progress {
  public:
    /// The size of the input in bytes; 0 if it is unknown, as that of a pipe. Then the line has no share and
    /// no time left.
    Progress(bool isWanted, std::uint64_t size);

    /// The bytes and payloads processed so far.
    void update(std::uint64_t bytes, std::uint64_t payloads);

    /// Removes the line.
    void clear();

  private:
    using Clock = std::chrono::steady_clock;

    bool isWanted_;
    std::uint64_t size_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_{};
    bool isShown_ = false;
};

}  // namespace korvoqr

#endif
