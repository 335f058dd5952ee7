#include "Output.h"

#include <cerrno>
#include <cstddef>

#include <poll.h>
#include <unistd.h>

namespace korvoqr {

void Output::write(std::string_view text) {
    constexpr std::size_t enough = std::size_t{64} * 1024;
    collected_ += text;
    if (collected_.size() >= enough) {
        flush();
    }
}

void Output::flush() {
    std::string_view left = collected_;
    while (!left.empty() && errorNumber_ == 0) {
        const ssize_t written = ::write(STDOUT_FILENO, left.data(), left.size());
        if (written >= 0) {
            left.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            // Whoever shares the descriptor has made it one that does not wait.
            pollfd ready{STDOUT_FILENO, POLLOUT, 0};
            ::poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            errorNumber_ = errno;
        }
    }
    collected_.clear();
}

}  // namespace korvoqr
