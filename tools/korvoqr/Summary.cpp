#include "Summary.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

#include <unistd.h>

namespace korvoqr {

namespace {

constexpr const char* clearToEndOfLine = "\x1B[K";

std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t i = digits.size(); i > 3; i -= 3) {
        digits.insert(i - 3, 1, ',');
    }
    return digits;
}

std::string formatted(const char* format, double number) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

double shareOf(std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

std::string barOf(double share, const Style& style) {
    constexpr int longest = 10;
    // Even the smallest share gets a mark.
    const int length = share > 0 ? std::max(1, static_cast<int>(std::lround(share * longest))) : 0;
    std::string bar;
    for (int i = 0; i < length; ++i) {
        bar += style.boxes ? "█" : "#";
    }
    return painted(style, Paint::fault, bar) + std::string(static_cast<std::size_t>(longest - length), ' ');
}

}  // namespace

void Tally::count(const korvo::QRCodeParserResponse& response) {
    const auto& error = response.qrCodeError();
    ++(error ? rejected : accepted);
    if (error) {
        for (const std::string& code : error->errorCodes()) {
            if (const auto* const entry = korvo::findErrorCatalogueEntry(code)) {
                ++codes.at(static_cast<std::size_t>(entry - korvo::errorCatalogue.data()));
            }
        }
    }
}

void Tally::add(const Tally& other) noexcept {
    accepted += other.accepted;
    rejected += other.rejected;
    unreadable += other.unreadable;
    std::transform(codes.begin(), codes.end(), other.codes.begin(), codes.begin(), std::plus<>());
}

std::string summaryText(const Tally& tally, std::chrono::duration<double> time, const Style& style) {
    const std::uint64_t payloads = tally.payloads();
    const std::size_t width = std::max<std::size_t>(grouped(payloads).size(), 7);
    const double seconds = time.count();
    std::string text =
        grouped(payloads) + (payloads == 1 ? " payload in " : " payloads in ") + formatted("%.2f s", seconds);
    if (seconds > 0) {
        text +=
            ", " + grouped(static_cast<std::uint64_t>(static_cast<double>(payloads) / seconds)) + " a second";
    }
    const auto line = [&](std::uint64_t count, std::uint64_t whole) {
        return rightAligned(grouped(count), width) + formatted(" %5.1f %%", 100 * shareOf(count, whole));
    };
    text += '\n' + line(tally.accepted, payloads) + ' ' + painted(style, Paint::good, "accepted");
    text += '\n' + line(tally.rejected, payloads) + ' ' + painted(style, Paint::fault, "rejected") + '\n';
    if (tally.unreadable > 0) {
        text += rightAligned(grouped(tally.unreadable), width) + "         " +
                painted(style, Paint::fault, "unreadable pictures and codes") + '\n';
    }
    if (tally.rejected == 0) {
        return text;
    }
    text += "Codes, with their share of the rejected payloads:\n";
    std::array<std::size_t, korvo::errorCatalogue.size()> order{};
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&tally](std::size_t left, std::size_t right) {
        return tally.codes.at(left) > tally.codes.at(right);
    });
    for (const std::size_t i : order) {
        if (const std::uint64_t count = tally.codes.at(i)) {
            const korvo::ErrorCatalogueEntry& entry = korvo::errorCatalogue.at(i);
            text += line(count, tally.rejected) + ' ' + barOf(shareOf(count, tally.rejected), style) + ' ' +
                    rightAligned(std::string(entry.code), 2) + ' ' + std::string(entry.name) + '\n';
        }
    }
    return text;
}

Progress::Progress(std::uint64_t size) : size_(isTerminal(STDERR_FILENO) ? size : 0) {}

void Progress::update(std::uint64_t bytes, std::uint64_t payloads) {
    constexpr std::chrono::milliseconds pause{100};
    const auto now = Clock::now();
    if (size_ == 0 || now - shown_ < pause) {
        return;
    }
    shown_ = now;
    isShown_ = true;
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    const double done = std::min(1.0, shareOf(bytes, size_));
    const auto left = static_cast<std::uint64_t>(done > 0 ? seconds / done - seconds : 0);
    constexpr double mega = 1e6;
    constexpr unsigned secondsPerMinute = 60;
    std::fprintf(stderr, "\r%.1f/%.1f MB (%.0f %%), %s payloads, %s a second, %llu:%02llu left%s",
                 static_cast<double>(bytes) / mega, static_cast<double>(size_) / mega, 100 * done,
                 grouped(payloads).c_str(),
                 grouped(static_cast<std::uint64_t>(static_cast<double>(payloads) / seconds)).c_str(),
                 static_cast<unsigned long long>(left / secondsPerMinute),
                 static_cast<unsigned long long>(left % secondsPerMinute), clearToEndOfLine);
}

void Progress::clear() {
    if (isShown_) {
        std::fprintf(stderr, "\r%s", clearToEndOfLine);
        isShown_ = false;
    }
}

}  // namespace korvoqr
