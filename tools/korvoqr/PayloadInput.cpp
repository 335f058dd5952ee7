#include "PayloadInput.h"

#include "Interruption.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
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

std::uint64_t sizeOfInput(const std::string& name) {
    struct stat status {};
    const int error = isStandardInput(name) ? ::fstat(STDIN_FILENO, &status) : ::stat(name.c_str(), &status);
    return error == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
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

void readInput(const std::string& name, const std::function<bool(std::string_view)>& handle) {
    const InputFile file(name);
    const int error = file.descriptor() < 0 ? errno : readChunks(file.descriptor(), handle);
    if (error != 0) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread reads
        throw InputError(std::string(std::strerror(error)) +
                         "; type --input FILE with a file of payloads, one per line");
    }
}

std::uint64_t sizeOfInputs(const std::vector<std::string>& names) {
    std::uint64_t size = 0;
    for (const std::string& name : names) {
        const std::uint64_t bytes = sizeOfInput(name);
        if (bytes == 0) {
            return 0;
        }
        size += bytes;
    }
    return size;
}

std::string headOfFile(const std::string& name, std::size_t most) {
    std::string head(most, '\0');
    std::ifstream file(name, std::ios::binary);
    file.read(head.data(), static_cast<std::streamsize>(most));
    head.resize(static_cast<std::size_t>(file.gcount()));
    return head;
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
