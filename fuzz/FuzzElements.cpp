#include "../tests/GeneratedPayloads.h"
#include "Properties.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvo::fuzz {
namespace {

// Takes decisions and texts from the fuzzer's bytes. When these are used up, decisions are zero and texts are
// empty.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

    bool atEnd() const { return bytes_.empty(); }

    unsigned below(unsigned limit) {
        const std::string_view byte = text(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]) % limit;
    }

    std::string_view text(std::size_t length) {
        const std::string_view taken = bytes_.substr(0, length);
        bytes_.remove_prefix(taken.size());
        return taken;
    }

  private:
    std::string_view bytes_;
};

}  // namespace
}  // namespace korvo::fuzz

/// Parses and explains payloads made of elements with right or slightly wrong lengths, values and checksums,
/// so that the fuzzer reaches the rules and the record and not only the decoder.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvo::fuzz::Choices choices(data, size);
    const std::string payload = korvo::test::generatedPayload(choices);
    korvo::fuzz::checkPromises(payload);
    korvo::fuzz::checkExplanation(payload);
    return 0;
}
