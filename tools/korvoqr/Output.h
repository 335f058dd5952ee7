#ifndef KORVOQR_OUTPUT_H
#define KORVOQR_OUTPUT_H

#include <atomic>
#include <string>
#include <string_view>

namespace korvoqr {

/// Standard output, collected into large writes. After a failed write nothing more is written. One thread at
/// a time may write; any thread may ask whether it is closed.
class Output {
  public:
    /// From now on, a write fails when the reader has gone, instead of ending the process.
    Output();

    /// Adds a text; writes the collected texts once they are large.
    void write(std::string_view text);

    /// Writes the collected texts.
    void flush();

    /// Whether the reader has gone or a write has failed, so that the run can stop.
    bool isClosed() const noexcept { return errorNumber_ != 0; }

    /// Prints a message if a write has failed, unless the reader has gone. False if there is a message.
    [[nodiscard]] bool reportFailure() const;

  private:
    void writeAll(std::string_view text);

    std::string collected_;
    std::atomic<int> errorNumber_ = 0;
};

}  // namespace korvoqr

#endif
