#include <KorvoQRParser/Validation/DecimalText.h>

#include <algorithm>
#include <cstddef>

namespace korvo {

namespace {

// The middle between 0.01 as a double and the next smaller one, and between 99.99 and the next larger one.
// The middle itself is rounded away from both limits.
constexpr std::string_view belowPercentages =
    "0.009999999999999999340805079128813304123468697071075439453125";
constexpr std::string_view abovePercentages = "99.99000000000000198951966012828052043914794921875";

// 2^-1075 is the largest number that rounds to 0: these digits, after this many zeros behind the point.
constexpr std::size_t zerosOfSmallest = 323;
constexpr std::string_view digitsOfSmallest =
    "24703282292062327208828439643411068618252990130716238221279284125033775363510437593264991818081799618989"
    "82823477228588654633283551779698981993873980053909390631503565951557022639229085839244910518443593180284"
    "99365361525003193704576782492193656236698636584807570015857692699037063119282795585513329278343384093519"
    "78015531246597263579574622766465272827220056374006485499977096599470454020828166226237857393450736339007"
    "96776193057750674017632467360096895134053553745851666113422376667860416215968046191446729184030053005753"
    "08490487653917113865916462395249126236538818796362393732804238910186723484976682350898633885879256283027"
    "55995657524455507255189313690836254779186948667994968324049705821028513185451396213837722826145437693412"
    "532098591327667236328125";

bool isNumber(std::string_view text) noexcept {
    std::size_t points = 0;
    for (const char c : text) {
        if (c == '.') {
            ++points;
        } else if (c < '0' || c > '9') {
            return false;
        }
    }
    return points <= 1 && text.size() > points;
}

std::string_view withoutLeadingZeros(std::string_view digits) noexcept {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

std::string_view wholePart(std::string_view number) noexcept {
    return withoutLeadingZeros(number.substr(0, number.find('.')));
}

std::string_view fraction(std::string_view number) noexcept {
    const std::size_t point = number.find('.');
    return point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
}

// Whether a fraction's digits make a larger number than another's.
bool isLargerFraction(std::string_view digits, std::string_view than) noexcept {
    const std::size_t common = std::min(digits.size(), than.size());
    const int order = digits.substr(0, common).compare(than.substr(0, common));
    return order > 0 || (order == 0 && !withoutLeadingZeros(digits.substr(common)).empty());
}

bool isLarger(std::string_view number, std::string_view than) noexcept {
    const std::string_view whole = wholePart(number);
    const std::string_view wholeThan = wholePart(than);
    if (whole.size() != wholeThan.size()) {
        return whole.size() > wholeThan.size();
    }
    return whole != wholeThan ? whole > wholeThan : isLargerFraction(fraction(number), fraction(than));
}

}  // namespace

bool isAboveZero(std::string_view text) noexcept {
    if (!isNumber(text)) {
        return false;
    }
    std::size_t digit = 0;
    while (digit < text.size() && text[digit] <= '0') {
        ++digit;
    }
    if (digit <= zerosOfSmallest) {
        return digit < text.size();
    }
    // No honest amount has so many zeros.
    const std::string_view digits = fraction(text);
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
    return !wholePart(text).empty() || zeros < std::min(digits.size(), zerosOfSmallest) ||
           (zeros == zerosOfSmallest && isLargerFraction(digits.substr(zeros), digitsOfSmallest));
}

bool isPercentage(std::string_view text) noexcept {
    return isNumber(text) && isLarger(text, belowPercentages) && isLarger(abovePercentages, text);
}

}  // namespace korvo
