// Compares each function of the C face with the C++ one that it is made from, also with null handles and with
// numbers that are out of range.

#include "Payloads.h"
#include <KorvoQRParser/KorvoQRParserC.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>

#include <algorithm>
#include <climits>
#include <limits>
#include <thread>
#include <type_traits>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

constexpr std::size_t beyond = std::numeric_limits<std::size_t>::max();

// The text that a getter passes; the size is optional, NUL follows, and null has no text.
template <class Getter, class Handle, class... Arguments>
std::optional<std::string> textOf(Getter* getter, Handle handle, Arguments... arguments) {
    std::size_t size = beyond;
    const char* const text = getter(handle, arguments..., &size);
    EXPECT_EQ(getter(handle, arguments..., nullptr), text);
    if constexpr (std::is_pointer_v<Handle>) {
        std::size_t nothing = beyond;
        EXPECT_EQ(getter(nullptr, arguments..., &nothing), nullptr);
        EXPECT_EQ(nothing, 0U);
    }
    if (text == nullptr) {
        EXPECT_EQ(size, 0U);
        return std::nullopt;
    }
    EXPECT_EQ(text[size], '\0');
    return std::string(text, size);
}

// The value that a getter returns, after a look at that of null.
template <class Handle, class Value>
Value valueOf(Value (*getter)(const Handle*), const Handle* handle, Value ofNull = {}) {
    EXPECT_EQ(getter(nullptr), ofNull);
    return getter(handle);
}

// Compares a list; `compare` compares one part.
template <class Handle, class Part, class Cpp>
void compareAll(std::size_t (*count)(const Handle*), const Part* (*at)(const Handle*, std::size_t),
                const Handle* handle, const std::vector<Cpp>& parts,
                void (*compare)(const Part*, const Cpp&)) {
    ASSERT_EQ(valueOf(count, handle), parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        compare(at(handle, i), parts[i]);
    }
    for (const std::size_t index : {parts.size(), beyond}) {
        EXPECT_EQ(at(handle, index), nullptr);
        EXPECT_EQ(at(nullptr, index), nullptr);
    }
}

template <class Handle>
void compareCodes(std::size_t (*count)(const Handle*),
                  const char* (*code)(const Handle*, std::size_t, std::size_t*),
                  int (*number)(const Handle*, std::size_t), const Handle* handle, const Codes& codes) {
    ASSERT_EQ(valueOf(count, handle), codes.size());
    for (std::size_t i = 0; i < codes.size(); ++i) {
        EXPECT_EQ(textOf(code, handle, i), codes[i]);
        EXPECT_EQ(number(handle, i), std::stoi(codes[i]));
    }
    for (const std::size_t index : {codes.size(), beyond}) {
        EXPECT_EQ(textOf(code, handle, index), std::nullopt);
        EXPECT_EQ(number(handle, index), KORVOQR_ERROR_CODE_unknown);
    }
    EXPECT_EQ(number(nullptr, 0), KORVOQR_ERROR_CODE_unknown);
}

void compare(const korvoqr_response* c, const QRCodeParserResponse& cpp) {
    const QRCodeData* const data = cpp.qrCodeData().get();
    EXPECT_EQ(valueOf(korvoqr_response_is_accepted, c), data != nullptr);
    compareCodes(korvoqr_response_code_count, korvoqr_response_code, korvoqr_response_error_code, c,
                 codesIn(cpp));
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        const auto property = static_cast<int>(row.index);
        EXPECT_EQ(textOf(korvoqr_response_text, c, property),
                  data == nullptr ? std::nullopt : data->text(row.index));
        EXPECT_EQ(korvoqr_response_flag(c, property), data != nullptr && data->flag(row.index));
        EXPECT_FALSE(korvoqr_response_flag(nullptr, property));
    }
    for (const int property : {-1, korvoqr_property_count(), 255, 256, INT_MIN, INT_MAX}) {
        EXPECT_EQ(textOf(korvoqr_response_text, c, property), std::nullopt);
        EXPECT_FALSE(korvoqr_response_flag(c, property));
    }
    const auto rendered = [data](std::string (QRCodeData::*render)() const) {
        return data == nullptr ? std::nullopt : std::optional((data->*render)());
    };
    EXPECT_EQ(textOf(korvoqr_response_json, c), rendered(&QRCodeData::utf8JSON));
    EXPECT_EQ(textOf(korvoqr_response_json_output, c), rendered(&QRCodeData::jsonOutput));
    EXPECT_EQ(textOf(korvoqr_response_description, c),
              data == nullptr ? cpp.qrCodeError()->description() : data->description());
}

void compare(const korvoqr_violation* c, const QRCodeViolation& cpp) {
    EXPECT_EQ(textOf(korvoqr_violation_code, c), cpp.code());
    EXPECT_EQ(valueOf(korvoqr_violation_error_code, c, -1), std::stoi(cpp.code()));
    EXPECT_EQ(textOf(korvoqr_violation_name, c), cpp.name());
    EXPECT_EQ(textOf(korvoqr_violation_meaning, c), cpp.meaning());
    EXPECT_EQ(textOf(korvoqr_violation_fact, c), cpp.fact());
}

void compare(const korvoqr_element* c, const QRCodeElement& cpp) {
    EXPECT_EQ(valueOf(korvoqr_element_offset, c), cpp.offset());
    EXPECT_EQ(textOf(korvoqr_element_tag, c), cpp.tag());
    EXPECT_EQ(textOf(korvoqr_element_length, c), cpp.length());
    EXPECT_EQ(textOf(korvoqr_element_value, c), cpp.value());
    EXPECT_EQ(textOf(korvoqr_element_name, c), cpp.name());
    EXPECT_EQ(textOf(korvoqr_element_meaning, c), cpp.meaning());
    compareAll(korvoqr_element_violation_count, korvoqr_element_violation, c, cpp.violations(), compare);
    compareAll(korvoqr_element_element_count, korvoqr_element_element, c, cpp.elements(), compare);
}

void compare(const korvoqr_edit* c, const QRCodeEdit& cpp) {
    EXPECT_EQ(valueOf(korvoqr_edit_offset, c), cpp.offset());
    EXPECT_EQ(textOf(korvoqr_edit_from, c), cpp.from());
    EXPECT_EQ(textOf(korvoqr_edit_to, c), cpp.to());
}

void compare(const korvoqr_repair* c, const QRCodeRepair& cpp) {
    EXPECT_EQ(textOf(korvoqr_repair_payload, c), cpp.payload());
    EXPECT_EQ(textOf(korvoqr_repair_caution, c), cpp.caution());
    compareAll(korvoqr_repair_edit_count, korvoqr_repair_edit, c, cpp.edits(), compare);
}

void compare(const korvoqr_fault* c, const QRCodeFault* cpp) {
    ASSERT_EQ(c == nullptr, cpp == nullptr);
    std::size_t bytes = beyond;
    EXPECT_FALSE(korvoqr_fault_byte_offset(nullptr, &bytes) || bytes != 0);
    EXPECT_EQ(valueOf(korvoqr_fault_fault_kind, c, -1), cpp == nullptr ? -1 : static_cast<int>(cpp->kind()));
    if (cpp == nullptr) {
        return;
    }
    EXPECT_EQ(textOf(korvoqr_fault_kind_text, c), cpp->kindText());
    EXPECT_EQ(textOf(korvoqr_fault_error, c), cpp->error());
    EXPECT_EQ(valueOf(korvoqr_fault_offset, c), cpp->offset());
    EXPECT_EQ(korvoqr_fault_byte_offset(c, nullptr), cpp->byteOffset().has_value());
    korvoqr_fault_byte_offset(c, &bytes);
    EXPECT_EQ(bytes, cpp->byteOffset().value_or(0));
    EXPECT_EQ(textOf(korvoqr_fault_tag, c), cpp->tag());
    EXPECT_EQ(textOf(korvoqr_fault_reason, c), cpp->reason());
    EXPECT_EQ(textOf(korvoqr_fault_before, c), cpp->before());
    EXPECT_EQ(textOf(korvoqr_fault_after, c), cpp->after());
}

void compare(const korvoqr_checksum* c, const QRCodeChecksum* cpp) {
    ASSERT_EQ(c == nullptr, cpp == nullptr);
    if (cpp != nullptr) {
        EXPECT_EQ(textOf(korvoqr_checksum_found, c), cpp->found());
        EXPECT_EQ(textOf(korvoqr_checksum_computed, c), cpp->computed());
        EXPECT_EQ(valueOf(korvoqr_checksum_is_matching, c), cpp->isMatching());
    }
}

// At the byte of each place, the payload has what the explanation says of it.
void comparePlaces(const korvoqr_explanation* c, const QRCodeExplanation& cpp) {
    const auto expectAt = [&](std::size_t offset, const std::string& text) {
        EXPECT_EQ(cpp.payload().compare(korvoqr_explanation_byte_offset(c, offset), text.size(), text), 0)
            << text << " at " << offset;
    };
    const auto expectElement = [&](const QRCodeElement& element) {
        expectAt(element.offset(), element.tag() + element.length() + element.value());
    };
    for (const QRCodeElement& element : cpp.elements()) {
        expectElement(element);
        std::for_each(element.elements().begin(), element.elements().end(), expectElement);
    }
    for (const auto* const repairs : {&cpp.repairs(), &cpp.unverified()}) {
        for (const QRCodeRepair& repair : *repairs) {
            for (const QRCodeEdit& edit : repair.edits()) {
                expectAt(edit.offset(), edit.from());
            }
        }
    }
    std::size_t end = cpp.payload().size();
    if (const QRCodeFault* const fault = cpp.fault()) {
        expectAt(fault->offset(), fault->after());
        end = fault->byteOffset().value_or(end);
    }
    EXPECT_EQ(korvoqr_explanation_byte_offset(c, beyond), end);
}

void compare(const korvoqr_explanation* c, const QRCodeExplanation& cpp) {
    comparePlaces(c, cpp);
    EXPECT_EQ(korvoqr_explanation_byte_offset(nullptr, 1), 0U);
    EXPECT_EQ(textOf(korvoqr_explanation_json, c), cpp.utf8JSON());
    EXPECT_EQ(textOf(korvoqr_explanation_payload, c), cpp.payload());
    EXPECT_EQ(textOf(korvoqr_explanation_visible, c), cpp.visible());
    EXPECT_EQ(valueOf(korvoqr_explanation_format, c, -1),
              cpp.format() ? static_cast<int>(*cpp.format()) : -1);
    EXPECT_EQ(valueOf(korvoqr_explanation_is_accepted, c), cpp.isAccepted());
    compareCodes(korvoqr_explanation_code_count, korvoqr_explanation_code, korvoqr_explanation_error_code, c,
                 cpp.errorCodes());
    compareAll(korvoqr_explanation_element_count, korvoqr_explanation_element, c, cpp.elements(), compare);
    compareAll(korvoqr_explanation_missing_count, korvoqr_explanation_missing, c, cpp.missing(), compare);
    compare(valueOf(korvoqr_explanation_fault, c), cpp.fault());
    compare(valueOf(korvoqr_explanation_checksum, c), cpp.checksum());
    EXPECT_EQ(valueOf(korvoqr_explanation_cause_count, c), cpp.causes().size());
    for (std::size_t i = 0; i < cpp.causes().size(); ++i) {
        EXPECT_EQ(textOf(korvoqr_explanation_cause, c, i), cpp.causes()[i]);
    }
    EXPECT_EQ(textOf(korvoqr_explanation_cause, c, cpp.causes().size()), std::nullopt);
    compareAll(korvoqr_explanation_repair_count, korvoqr_explanation_repair, c, cpp.repairs(), compare);
    compareAll(korvoqr_explanation_unverified_count, korvoqr_explanation_unverified, c, cpp.unverified(),
               compare);
}

// Payloads of all kinds: accepted ones, each explained one, and texts with NUL and without UTF-8.
std::vector<std::string> payloads() {
    std::vector<std::string> payloads{"", "\xFF", with(oneCharacter, {{"1", std::string("a\0b", 3)}}),
                                      with(oneCharacter, {{"1", "caf\\\xC3\xA9"}}),
                                      with(oneCharacter, {{"1", "\xC3("}})};
    for (const char* file : {"full.payload", "placeholders.payload", "explained.payloads"}) {
        std::istringstream lines(readData(file));
        for (std::string line; std::getline(lines, line);) {
            payloads.push_back(expanded(line));
        }
    }
    return payloads;
}

TEST(CFace, AnswersAsCppDoes) {
    for (const std::string& payload : payloads()) {
        SCOPED_TRACE(payload);
        // The text is gone when the answer is read.
        auto copy = std::make_unique<const ExactCopy>(payload);
        korvoqr_response* const response = korvoqr_parse(copy->view().data(), payload.size());
        korvoqr_explanation* const explanation = korvoqr_explain(copy->view().data(), payload.size());
        korvoqr_explanation* const described = korvoqr_describe(copy->view().data(), payload.size());
        copy.reset();
        compare(response, QRCodeParser::parseQRData(payload));
        compare(explanation, QRCodeExplainer::explainQRData(payload));
        compare(described, QRCodeExplainer::describeQRData(payload));
        korvoqr_response_free(response);
        korvoqr_explanation_free(explanation);
        korvoqr_explanation_free(described);
    }
    korvoqr_response_free(nullptr);
    korvoqr_explanation_free(nullptr);
}

TEST(CFace, TakesNullForTheEmptyTextOnly) {
    EXPECT_EQ(korvoqr_parse(nullptr, 1), nullptr);
    EXPECT_EQ(korvoqr_explain(nullptr, 1), nullptr);
    EXPECT_EQ(korvoqr_describe(nullptr, beyond), nullptr);
    EXPECT_EQ(korvoqr_property_named(nullptr, 1), KORVOQR_PROPERTY_none);
    EXPECT_EQ(korvoqr_property_named(nullptr, 0), KORVOQR_PROPERTY_none);
    EXPECT_EQ(korvoqr_error_code_from_text(nullptr, 1), KORVOQR_ERROR_CODE_unknown);
    korvoqr_response* const response = korvoqr_parse(nullptr, 0);
    compare(response, QRCodeParser::parseQRData(""));
    korvoqr_response_free(response);
}

TEST(CFace, NamesPropertiesAndCodes) {
    EXPECT_EQ(korvoqr_property_count(), static_cast<int>(qrCodeDataProperties.size()));
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        const auto property = static_cast<int>(row.index);
        EXPECT_EQ(textOf(korvoqr_property_name, property), row.name);
        EXPECT_EQ(korvoqr_property_named(row.name.data(), row.name.size()), property);
        EXPECT_EQ(korvoqr_property_named(row.name.data(), row.name.size() - 1) == property, false)
            << row.name;
        EXPECT_EQ(korvoqr_property_is_flag(property), row.isFlag);
    }
    ASSERT_EQ(korvoqr_error_code_count(), errorCatalogue.size());
    for (std::size_t i = 0; i < errorCatalogue.size(); ++i) {
        const auto& [text, name, twoDigitTag, oneCharacterTag, meaning] = errorCatalogue.at(i);
        const int code = korvoqr_error_code_at(i);
        EXPECT_EQ(textOf(korvoqr_error_code_text, code), text);
        EXPECT_EQ(korvoqr_error_code_from_text(text.data(), text.size()), code);
        EXPECT_EQ(textOf(korvoqr_error_code_name, code), name);
        EXPECT_EQ(textOf(korvoqr_error_code_meaning, code), meaning);
        EXPECT_EQ(textOf(korvoqr_error_code_two_digit_tag, code), twoDigitTag);
        EXPECT_EQ(textOf(korvoqr_error_code_one_character_tag, code), oneCharacterTag);
    }
    EXPECT_EQ(korvoqr_error_code_at(errorCatalogue.size()), KORVOQR_ERROR_CODE_unknown);
    EXPECT_EQ(korvoqr_error_code_from_text("22", 2), KORVOQR_ERROR_CODE_unknown);
    for (const int number : {-1, korvoqr_property_count(), 256, 22 + 256, INT_MIN, INT_MAX}) {
        EXPECT_EQ(textOf(korvoqr_property_name, number), std::nullopt);
        EXPECT_FALSE(korvoqr_property_is_flag(number));
        EXPECT_EQ(textOf(korvoqr_error_code_name, number), std::nullopt);
    }
}

TEST(CFace, KnowsTheLettersOfCurrencies) {
    for (int number = 0; number < 1000; ++number) {
        const std::string text = std::to_string(1000 + number).substr(1);
        const auto letters = textOf(korvoqr_currency_alphabetic_code, text.data(), text.size());
        const auto* const currency = ISOCountryCodes::findCurrency(number);
        EXPECT_EQ(letters,
                  currency == nullptr ? std::nullopt : std::optional<std::string>(currency->letters()));
    }
    for (const std::string_view text : {"", "8", "08", "+36", "0356", "3\0006", "\xD9\xA3\xD9", "INR"}) {
        EXPECT_EQ(alphabeticCurrencyCode(text), "") << text;
    }
}

// Texts are made on demand. All threads must get the same one, and ThreadSanitizer must find nothing. A
// thread that is behind catches up, because it finds the texts made, so the threads meet at many handles.
TEST(Threads, ReadTheHandlesOfC) {
    const std::string payload = with(twoDigit, {});
    std::vector<std::pair<korvoqr_response*, korvoqr_explanation*>> handles(300);
    for (auto& [response, explanation] : handles) {
        response = korvoqr_parse(payload.data(), payload.size());
        explanation = korvoqr_describe(payload.data(), payload.size());
    }
    std::vector<std::vector<const char*>> seen(4);
    std::vector<std::thread> threads;
    threads.reserve(seen.size());
    for (auto& texts : seen) {
        threads.emplace_back([&] {
            for (const auto& [response, explanation] : handles) {
                texts.push_back(korvoqr_response_json(response, nullptr));
                texts.push_back(korvoqr_explanation_json(explanation, nullptr));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), seen.front()), 4);
    EXPECT_EQ(std::count(seen[0].begin(), seen[0].end(), nullptr), 0);
    for (const auto& [response, explanation] : handles) {
        korvoqr_response_free(response);
        korvoqr_explanation_free(explanation);
    }
}

}  // namespace
}  // namespace korvo::test
