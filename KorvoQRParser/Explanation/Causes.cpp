#include <KorvoQRParser/Explanation/Causes.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/ReadingCauses.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace korvo {

namespace {

using Facts = QRCodeExplanation::Facts;

// The meaning of a violated rule, with the tag and the fact.
std::string causeOf(const QRCodeViolation& violation, std::string_view tag) {
    std::string sentence(violation.meaning());
    sentence.pop_back();
    sentence += joined({" (tag ", tag});
    sentence += violation.fact().empty() ? "" : ": " + violation.fact();
    return sentence += ").";
}

// Whether another sentence is about the same: that on the checksum, or the diagnosis of a country or
// currency.
bool isSaidOtherwise(std::string_view code, bool isDiagnosed) {
    return code == KorvoErrorConstants::crcInvalidValue ||
           (isDiagnosed && (code == KorvoErrorConstants::countryCodeInvalidLengthOrCharacters ||
                            code == KorvoErrorConstants::currencyCodeInvaidLength));
}

// Appends the causes of the rules that the elements violate.
void appendViolations(const std::vector<QRCodeElement>& elements, bool hasCauses,
                      std::vector<std::string>& causes) {
    for (const QRCodeElement& element : elements) {
        for (const QRCodeViolation& violation : element.violations()) {
            if (!isSaidOtherwise(violation.code(), hasCauses)) {
                causes.push_back(causeOf(violation, element.name()));
            }
        }
        appendViolations(element.elements(), hasCauses, causes);
    }
}

bool isOtherAccount(std::string_view tag) {
    return tag >= "04" && tag <= "07";
}

// What a payload of another scheme has instead of the merchant identifier.
std::string accountsInstead(const std::vector<QRCodeElement>& elements) {
    std::string list;
    for (const QRCodeElement& element : elements) {
        if (isOtherAccount(element.name()) || isTemplateTag(element.name())) {
            list += (list.empty() ? "" : ", ") + element.name();
        }
    }
    return list.empty() ? ""
                        : joined({" The payload has tag ", list,
                                  " instead, which names an account of another scheme."});
}

std::string causeOfMissing(const Facts& facts) {
    std::string sentence;
    bool isIdentifierMissing = false;
    const bool isTwoDigit = facts.format == QRCodeFormat::twoDigit;
    for (const QRCodeViolation& violation : facts.missing) {
        const ErrorCatalogueEntry& entry = *findErrorCatalogueEntry(violation.code());
        sentence += sentence.empty() ? "" : " ";
        sentence += violation.meaning();
        sentence.pop_back();
        sentence += joined({" (tag ", isTwoDigit ? entry.twoDigitTag : entry.oneCharacterTag, ")."});
        isIdentifierMissing =
            isIdentifierMissing || violation.code() == KorvoErrorConstants::merchantIdNotPresent;
    }
    return sentence + (isIdentifierMissing && isTwoDigit ? accountsInstead(facts.elements) : "");
}

// Whether a one-character payload lacks just the elements that would follow its last one, so that it may be
// cut between two elements.
bool mayBeCut(const Facts& facts) {
    if (facts.format != QRCodeFormat::oneCharacter || facts.missing.empty() || facts.elements.empty()) {
        return false;
    }
    const std::string& last = facts.elements.back().name();
    return allOf(facts.missing, [&last](const QRCodeViolation& violation) {
        return isAboutMissingElement(violation.code()) &&
               findErrorCatalogueEntry(violation.code())->oneCharacterTag > last;
    });
}

std::vector<std::string> causesOfRules(const Facts& facts, const Diagnosis& diagnosis) {
    std::vector<std::string> causes;
    if (mayBeCut(facts)) {
        causes.push_back(joined({"The text ends after ",
                                 namedTag(facts.elements.back().name(), facts.elements.back().meaning()),
                                 "; it may be cut. ", causeOfMissing(facts)}));
    }
    appendViolations(facts.elements, !diagnosis.causes.empty(), causes);
    if (!facts.missing.empty() && !mayBeCut(facts)) {
        causes.push_back(causeOfMissing(facts));
    }
    const bool isChecksumWrong =
        !facts.errorCodes.empty() && facts.errorCodes.back() == KorvoErrorConstants::crcInvalidValue;
    if (isChecksumWrong && diagnosis.repairs.empty()) {
        causes.emplace_back(
            "The checksum does not match the text: some character was changed, or the checksum "
            "was computed wrongly; check the values first.");
    }
    return causes;
}

// How far the text goes, if it ends inside an element. Absent for every other fault.
std::optional<std::string> causeOfCut(std::string_view payload, const PayloadWalk& walk) {
    const auto& [error, format, isInside, element, rest] = *walk.fault;
    const bool isTwoDigit = format.fieldWidth == twoDigitFormat.fieldWidth;
    const std::string consequence(isTwoDigit ? consequenceOfCut : "It is cut.");
    if (error == TLVDecodingError::InvalidLength) {
        return payload.empty() ? "The text is empty." : "The text has only one character. It is cut.";
    }
    if (error != TLVDecodingError::InvalidTagLength || isInside) {
        return std::nullopt;
    }
    if (element.tag.empty()) {
        return joined({"The text ends inside a tag, after ",
                       namedTag(walk.elements.back().name, walk.elements.back().meaning), ". ", consequence});
    }
    const bool isKnown = isTwoDigit ? payMerchantValidTLV01(element.tag).has_value()
                                    : payMerchantValidTLV00InEitherCase(element.tag).has_value();
    if (!isKnown) {
        return std::nullopt;
    }
    if (element.length.empty()) {
        return joined({"The text ends inside the length of ", namedTag(element.tag), ". ", consequence});
    }
    const std::int64_t announced = format.readLength(element.length);
    const std::size_t left = characterCount(rest);
    return announced <= static_cast<std::int64_t>(left)
               ? std::nullopt
               : std::optional(causeOfCutValue(element.tag, left, static_cast<std::size_t>(announced)) + ' ' +
                               consequence);
}

void removeRepetitions(std::vector<std::string>& causes) {
    for (std::size_t i = 0; i < causes.size(); ++i) {
        const auto rest = causes.begin() + static_cast<std::ptrdiff_t>(i) + 1;
        causes.erase(std::remove(rest, causes.end(), causes[i]), causes.end());
    }
}

// The fault as a sentence, for a text of which nothing better is known.
std::string causeOfFault(const QRCodeFault& fault) {
    if (fault.kind() == QRCodeFaultKind::missingChecksum) {
        return std::string(causeOfMissingChecksum);
    }
    return joined({capitalised(std::string(fault.kindText())), ": ", fault.reason(), " (offset ",
                   std::to_string(fault.offset()), ")."});
}

}  // namespace

std::vector<std::string> orderedCauses(const Facts& facts, const PayloadWalk& walk,
                                       const Diagnosis& diagnosis) {
    std::vector<std::string> causes = diagnosis.causes;
    if (!walk.fault) {
        const auto others = causesOfRules(facts, diagnosis);
        causes.insert(causes.end(), others.begin(), others.end());
        return causes;
    }
    constexpr double costOfCut = 1.25;
    if (const auto cut = causeOfCut(facts.payload, walk)) {
        const bool isMatching = facts.checksum && facts.checksum->isMatching();
        const bool isLikelier = !isMatching && diagnosis.repairs.empty() && diagnosis.leastCost > costOfCut;
        causes.insert(isLikelier ? causes.begin() : causes.end(), *cut);
    }
    if (causes.empty()) {
        causes.push_back(causeOfFault(*facts.fault));
    }
    removeRepetitions(causes);
    return causes;
}

}  // namespace korvo
