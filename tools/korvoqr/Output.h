#ifndef KORVOQR_OUTPUT_H
#define KORVOQR_OUTPUT_H

#include <atomic>
#include <string>
#include <string_view>

namespace korvoqr {

/// Standard output, collected into large writes. After a write has failed nothing more is written. One thread
/// at a time may write; any may ask whether it is closed.
class Output {
  public:
    /// Adds a text; writes what has been collected once that is 64 KiB or more.
    void write(std::string_view text);

    /// Writes what has been collected.
    void flush();

    /// Whether the reader has gone or a write has failed, so that going on is of no use.
    bool isClosed() const noexcept { return errorNumber_ != 0; }

    /// The errno of the failed write; 0 while none has failed, EPIPE when the reader has gone.
    int errorNumber() const noexcept { return errorNumber_; }

  private:
    void writeAll(std::string_view text);

    std::string collected_;
    std::atomic<int> errorNumber_ = 0;
};

}  // namespace korvoqr

#endif
