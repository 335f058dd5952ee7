#include "Properties.h"

#include <cstddef>
#include <cstdint>

/// Parses the bytes of the fuzzer unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvo::fuzz::checkPromises({reinterpret_cast<const char*>(data), size});
    return 0;
}
