#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Validation/KorvoBaseConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/Lifetimes.h>
#include <KorvoQRParser/Validation/SharedRules.h>

namespace korvo {

namespace {

const CharacterSet& letters() {
    static const NeverDestroyed<CharacterSet> set(CharacterSet::letterCharacterSet);
    return *set;
}

const CharacterSet& amountCharacters() {
    static const NeverDestroyed<CharacterSet> set([] {
        return CharacterSet::characterSetWithCharactersInString(KorvoBaseConstants::periodCharacter)
            .formUnionWith(decimalDigits());
    });
    return *set;
}

}  // namespace

const CharacterSet& decimalDigits() {
    static const NeverDestroyed<CharacterSet> set(CharacterSet::decimalDigitCharacterSet);
    return *set;
}

void KorvoPayMerchantTLVValidator::validateAmountText(const CountedText& amount, const AmountRule& rule) {
    if (isLengthOutside(amount, rule.length)) {
        addErrorCode(rule.invalidLength);
    }
    if (!consistsOfCharactersOf(amount.text(), amountCharacters())) {
        const bool holdsLetter = containsCharacterOf(amount.text(), letters());
        addErrorCode(holdsLetter ? rule.invalidLength : rule.specialCharacters);
    } else if (!rule.isCorrect(amount.text())) {
        addErrorCode(rule.incorrectValue);
    }
    if (amount.empty()) {
        addErrorCode(rule.withoutValue);
    }
}

void KorvoPayMerchantTLVValidator::validateIdentifier(const Value& identifier, const IdentifierRule& rule) {
    if (!identifier) {
        return;
    }
    if (isLengthOutside(*identifier, Limits::identifier)) {
        addErrorCode(rule.invalidLength);
    }
    if (identifier->empty()) {
        addErrorCode(rule.withoutValue);
    }
    if (!beginsWith(*identifier, '?')) {
        return;
    }
    if (isLengthOutside(*identifier, Limits::placeholder)) {
        addErrorCode(rule.invalidLength);
    }
    if (identifier->characterCount() > 1 && !matchesRegex(identifier->text().substr(1), rule.pattern)) {
        addErrorCode(rule.invalidFormat);
    }
}

}  // namespace korvo
