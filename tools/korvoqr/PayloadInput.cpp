#include "PayloadInput.h"

#include "Interruption.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace korvoqr {

namespace {

// Waits until a read gets something. False if an interruption comes first.
bool waitFor(int fileDescriptor) {
    std::array<pollfd, 2> ready{pollfd{fileDescriptor, POLLIN, 0},
                                pollfd{Interruption::descriptor(), POLLIN, 0}};
    ::poll(ready.data(), Interruption::descriptor() < 0 ? 1 : 2, -1);
    return Interruption::signal() == 0;
}

}  // namespace

int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle) {
    std::vector<char> buffer(std::size_t{64} * 1024);
    while (Interruption::descriptor() < 0 || waitFor(fileDescriptor)) {
        const ssize_t count = ::read(fileDescriptor, buffer.data(), buffer.size());
        if (count < 0 && errno == EAGAIN) {
            // Another process that shares the descriptor has set O_NONBLOCK.
            waitFor(fileDescriptor);
            continue;
        }
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return errno;
        }
        if (count == 0 || !handle({buffer.data(), static_cast<std::size_t>(count)})) {
            return 0;
        }
    }
    return 0;
}

bool isStandardInput(const std::string& name) noexcept {
    return name.empty() || name == "-";
}

InputFile::InputFile(const std::string& name)
    : isOwned_(!isStandardInput(name)),
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's own interface
      descriptor_(isOwned_ ? ::open(name.c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO) {}

InputFile::~InputFile() {
    if (isOwned_ && descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

}  // namespace korvoqr
