#include "Progress.h"

#include "Terminal.h"

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace korvoqr {

namespace {

constexpr const char* clearToEndOfLine = "\x1B[K";

}  // namespace

Progress::Progress(bool isWanted, std::uint64_t size)
    : isWanted_(isWanted && isTerminal(STDERR_FILENO)), size_(size) {}

void Progress::update(std::uint64_t bytes, std::uint64_t payloads) {
    constexpr std::chrono::milliseconds pause{100};
    const auto now = Clock::now();
    if (!isWanted_ || now - shown_ < pause) {
        return;
    }
    shown_ = now;
    isShown_ = true;
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    const auto rate = static_cast<std::uint64_t>(static_cast<double>(payloads) / seconds);
    const std::string count = grouped(payloads) + " payloads, " + grouped(rate) + " a second";
    if (size_ == 0) {
        std::fprintf(stderr, "\r%s%s", count.c_str(), clearToEndOfLine);
        return;
    }
    const double done = std::min(1.0, static_cast<double>(bytes) / static_cast<double>(size_));
    const auto left = static_cast<std::uint64_t>(done > 0 ? seconds / done - seconds : 0);
    constexpr double mega = 1e6;
    constexpr unsigned secondsPerMinute = 60;
    std::fprintf(stderr, "\r%.1f/%.1f MB (%.0f %%), %s, %llu:%02llu left%s",
                 static_cast<double>(bytes) / mega, static_cast<double>(size_) / mega, 100 * done,
                 count.c_str(), static_cast<unsigned long long>(left / secondsPerMinute),
                 static_cast<unsigned long long>(left % secondsPerMinute), clearToEndOfLine);
}

void Progress::clear() {
    if (isShown_) {
        std::fprintf(stderr, "\r%s", clearToEndOfLine);
        isShown_ = false;
    }
}

}  // namespace korvoqr
