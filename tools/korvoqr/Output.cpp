#include "Output.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include <poll.h>
#include <unistd.h>

namespace korvoqr {

Output::Output() {
    std::signal(SIGPIPE, SIG_IGN);
}

void Output::write(std::string_view text) {
    constexpr std::size_t enough = std::size_t{64} * 1024;
    if (collected_.size() + text.size() >= enough) {
        flush();
        if (text.size() >= enough) {
            writeAll(text);
            return;
        }
    }
    collected_ += text;
}

void Output::flush() {
    writeAll(collected_);
    collected_.clear();
}

bool Output::reportFailure() const {
    if (errorNumber_ == 0 || errorNumber_ == EPIPE) {
        return true;
    }
    std::fprintf(stderr, "korvoqr: cannot write standard output: %s\n",
                 std::strerror(errorNumber_));  // NOLINT(concurrency-mt-unsafe): no thread is left
    return false;
}

void Output::writeAll(std::string_view text) {
    while (!text.empty() && errorNumber_ == 0) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            // Another process that shares the descriptor has set O_NONBLOCK.
            pollfd ready{STDOUT_FILENO, POLLOUT, 0};
            ::poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            errorNumber_ = errno;
        }
    }
}

}  // namespace korvoqr
