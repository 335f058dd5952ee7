#include "PayloadInput.h"

#include <cerrno>
#include <cstddef>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace korvoqr {

int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle) {
    std::vector<char> buffer(std::size_t{64} * 1024);
    while (true) {
        const ssize_t count = ::read(fileDescriptor, buffer.data(), buffer.size());
        if (count < 0 && errno == EAGAIN) {
            // Another process that shares the descriptor has set O_NONBLOCK.
            pollfd ready{fileDescriptor, POLLIN, 0};
            ::poll(&ready, 1, -1);
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
}

int readBlocks(int fileDescriptor, char delimiter, const std::function<bool(std::string)>& handle) {
    std::string begun;
    bool isWanted = true;
    const int error = readChunks(fileDescriptor, [&](std::string_view chunk) {
        const std::size_t last = chunk.rfind(delimiter);
        if (last == std::string_view::npos) {
            begun += chunk;
            return true;
        }
        begun += chunk.substr(0, last + 1);
        isWanted = handle(std::exchange(begun, std::string(chunk.substr(last + 1))));
        return isWanted;
    });
    if (error == 0 && isWanted && !begun.empty()) {
        handle(std::move(begun));
    }
    return error;
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
