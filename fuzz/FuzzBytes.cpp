#include "Properties.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Parses and explains the bytes of the fuzzer unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view payload(reinterpret_cast<const char*>(data), size);
    korvo::fuzz::checkPromises(payload);
    korvo::fuzz::checkExplanation(payload);
    return 0;
}
