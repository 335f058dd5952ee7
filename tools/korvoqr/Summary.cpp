#include "Summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace korvoqr {

namespace {

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
    text += '\n' + line(tally.accepted.count, payloads) + ' ' + painted(style, Paint::good, "accepted");
    text +=
        '\n' + line(tally.rejected.count, payloads) + ' ' + painted(style, Paint::fault, "rejected") + '\n';
    if (tally.unreadable > 0) {
        text += rightAligned(grouped(tally.unreadable), width) + "         " +
                painted(style, Paint::fault, "unreadable pictures and codes") + '\n';
    }
    if (tally.rejected.count == 0) {
        return text;
    }
    text += "Codes, with their share of the rejected payloads:\n";
    std::array<std::size_t, korvo::errorCatalogue.size()> order{};
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&tally](std::size_t left, std::size_t right) {
        return tally.codes.at(left).count > tally.codes.at(right).count;
    });
    for (const std::size_t i : order) {
        if (const std::uint64_t count = tally.codes.at(i).count) {
            const korvo::ErrorCatalogueEntry& entry = korvo::errorCatalogue.at(i);
            text += line(count, tally.rejected.count) + ' ' +
                    barOf(shareOf(count, tally.rejected.count), style) + ' ' +
                    rightAligned(std::string(entry.code), 2) + ' ' + std::string(entry.name) + '\n';
        }
    }
    return text;
}

}  // namespace korvoqr
