#include "PayloadInput.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <vector>

#include <unistd.h>

namespace korvoqr {

namespace {

ssize_t readSome(int fileDescriptor, std::vector<char>& buffer) {
    ssize_t count = 0;
    do {
        count = ::read(fileDescriptor, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    return count;
}

}  // namespace

int forEachPayload(int fileDescriptor, char delimiter, const std::function<bool(std::string_view)>& handle,
                   const std::function<void()>& beforeWaiting) {
    std::vector<char> buffer(std::size_t{64} * 1024);
    std::string begun;
    while (true) {
        const ssize_t count = readSome(fileDescriptor, buffer);
        if (count < 0) {
            return errno;
        }
        if (count == 0) {
            break;
        }
        std::string_view arrived(buffer.data(), static_cast<std::size_t>(count));
        for (std::size_t end = 0; (end = arrived.find(delimiter)) != std::string_view::npos;) {
            std::string_view payload = arrived.substr(0, end);
            if (!begun.empty()) {
                begun += payload;
                payload = begun;
            }
            if (!handle(payload)) {
                return 0;
            }
            begun.clear();
            arrived.remove_prefix(end + 1);
        }
        begun += arrived;
        beforeWaiting();
    }
    if (!begun.empty()) {
        handle(begun);
    }
    return 0;
}

}  // namespace korvoqr
