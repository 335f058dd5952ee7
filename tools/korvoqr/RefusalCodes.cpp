#include "RefusalCodes.h"

namespace korvoqr {

const std::vector<std::string>& codesOf(const korvo::QRCodeParserResponse& response) {
    static const std::vector<std::string> none;
    const auto& error = response.qrCodeError();
    return error != nullptr ? error->errorCodes() : none;
}

bool isUnsplittable(const std::vector<std::string>& codes) {
    return codes == codesOfTooLong();
}

const std::vector<std::string>& codesOfTooLong() {
    static const std::vector<std::string> codes{std::string(korvo::KorvoErrorConstants::malformedTags)};
    return codes;
}

}  // namespace korvoqr
