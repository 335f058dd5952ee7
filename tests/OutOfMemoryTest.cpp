// Lets each allocation of the C face fail in turn: the answer is null, nothing leaks, and the next answer is
// right. It is a program of its own, because it replaces the allocator.

#include "Payloads.h"
#include <KorvoQRParser/KorvoQRParserC.h>

#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

// NOLINTBEGIN(cppcoreguidelines-*): allocators are made of this
namespace {
long allocationsLeft = -1;  // negative is no limit
}

// Not inline, because the compiler would take malloc and delete, or new and free, for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    const bool fails = allocationsLeft == 0;
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    return fails ? nullptr : std::malloc(size);
}
[[gnu::noinline]] void* operator new(std::size_t size) {
    if (void* const memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-*)

namespace korvo::test {
namespace {

// Makes something with 0 allocations, with 1, and so on until it succeeds. `free` takes a success.
template <class Make, class Free>
void fails(Make make, Free free) {
    long failures = 0;
    for (;; ++failures) {
        allocationsLeft = failures;
        auto* const made = make();
        allocationsLeft = -1;
        if (made != nullptr) {
            free(made);
            break;
        }
        korvoqr_response* const next = korvoqr_parse("00", 2);
        ASSERT_EQ(korvoqr_response_error_code(next, 0), KORVOQR_ERROR_CODE_malformedTags);
        korvoqr_response_free(next);
    }
    EXPECT_GT(failures, 0);
}

template <class Handle>
void textFails(const char* (*getter)(const Handle*, std::size_t*), const Handle* handle) {
    std::size_t size = 1;
    fails([&] { return getter(handle, &size); }, [&](const char* text) { EXPECT_EQ(text[size], '\0'); });
}

class OutOfMemory : public testing::TestWithParam<std::string> {};

TEST_P(OutOfMemory, IsNull) {
    const std::string& payload = GetParam();
    // Everything that is made on first use is made while memory fails.
    fails([&] { return korvoqr_parse(payload.data(), payload.size()); }, korvoqr_response_free);
    fails([&] { return korvoqr_describe(payload.data(), payload.size()); }, korvoqr_explanation_free);
    fails([&] { return korvoqr_explain(payload.data(), payload.size()); }, korvoqr_explanation_free);
    korvoqr_response* const response = korvoqr_parse(payload.data(), payload.size());
    const auto cpp = QRCodeParser::parseQRData(payload);
    ASSERT_EQ(korvoqr_response_code_count(response), codesIn(cpp).size());
    if (cpp.qrCodeData()) {
        textFails(korvoqr_response_json, response);
        textFails(korvoqr_response_json_output, response);
        textFails(korvoqr_response_description, response);
    }
    korvoqr_response_free(response);
    korvoqr_explanation* const explanation = korvoqr_explain(payload.data(), payload.size());
    textFails(korvoqr_explanation_json, explanation);
    textFails(korvoqr_explanation_visible, explanation);
    EXPECT_EQ(korvoqr_explanation_json(explanation, nullptr),
              QRCodeExplainer::explainQRData(payload).utf8JSON());
    korvoqr_explanation_free(explanation);
}

INSTANTIATE_TEST_SUITE_P(
    Payloads, OutOfMemory,
    testing::Values(with(twoDigit, {{"62", element("01", "***")}}),
                    with(twoDigit,
                         {{"62", element("09", "AMX")}, {"54", "1a"}, {"58", "in"}, {"60", std::nullopt}}),
                    with(oneCharacter, {{"7", "?r"}, {"6", "1a"}}), "0g411111111111111112hi24581231M42IN5335",
                    "000201021041234567845204581253033565802IN5911KORVO CAFE6006MUMBAI63046803", "\xFF\xFF"));

}  // namespace
}  // namespace korvo::test
