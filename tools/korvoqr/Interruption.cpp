#include "Interruption.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace korvoqr {

namespace {

// A handler of signals can only reach what is global.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<int> received = 0;
std::array<int, 2> ends{-1, -1};  // of a pipe: a read that waits notices a signal only through a descriptor
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

void note(int signal) {
    const int error = errno;
    received = signal;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], "", 1);
    errno = error;
}

}  // namespace

void Interruption::expect() {
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        ends = {-1, -1};
        return;
    }
    // If standard input or output is closed, the pipe must not take its place.
    for (int& end : ends) {
        const int first = end;
        end =
            ::fcntl(first, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);  // NOLINT(cppcoreguidelines-pro-type-vararg)
        ::close(first);
    }
    for (const int signal : {SIGINT, SIGTERM}) {
        struct sigaction action {};
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN) {
            continue;  // as for a command in the background
        }
        action = {};
        action.sa_handler = note;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

void Interruption::forget() noexcept {
    for (int& end : ends) {
        ::close(std::exchange(end, -1));
    }
}

int Interruption::signal() noexcept {
    return received;
}

int Interruption::descriptor() noexcept {
    return ends[0];
}

void Interruption::endProcess() {
    if (received != 0) {
        std::signal(received, SIG_DFL);
        std::raise(received);
    }
}

}  // namespace korvoqr
