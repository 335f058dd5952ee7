#include "Commands.h"
#include "PayloadRun.h"
#include "RefusalCodes.h"
#include "Rendering.h"
#include "RowHead.h"
#include "Trimming.h"

#include <memory>
#include <string>
#include <string_view>

#include <unistd.h>

namespace korvoqr {

namespace {

// With `trim`, a refused payload is tried without the white space and quotes around it. That answer counts if
// the payload is then accepted, or can at least be split into elements.
korvo::QRCodeParserResponse parse(std::string_view payload, bool trim, bool& isTrimmed) {
    auto response = korvo::QRCodeParser::parseQRData(payload);
    isTrimmed = false;
    if (!trim || response.qrCodeData() != nullptr) {
        return response;
    }
    const std::string_view inner = trimmed(payload);
    if (inner.size() == payload.size()) {
        return response;
    }
    auto second = korvo::QRCodeParser::parseQRData(inner);
    isTrimmed = second.qrCodeData() != nullptr ||
                (isUnsplittable(codesOf(response)) && !isUnsplittable(codesOf(second)));
    return isTrimmed ? second : response;
}

void answer(const Request& request, const RunOptions& options, bool isForPerson, Answers& answers) {
    ParsedPayload parsed{request, {nullptr, nullptr}};
    if (request.isTooLong) {
        parsed.response = {nullptr, std::make_shared<korvo::QRCodeError>(codesOfTooLong())};
    } else {
        parsed.response = parse(request.payload, options.input.trim, parsed.isTrimmed);
    }
    answers.count(request, codesOf(parsed.response), options);
    if (parsed.response.qrCodeData() != nullptr && options.refusedOnly) {
        return;
    }
    answers.begin(options.format);
    const std::size_t begin = answers.text.size();
    if (!appendAnswer(answers.text, parsed, options)) {
        answers.unprintable.note([&request] { return placeOf(request.origin); });
    }
    if (isForPerson) {
        const std::string harmless = harmlessAnswer(answers.text.substr(begin), options.format);
        answers.text.resize(begin);
        answers.text += harmless;
    }
}

}  // namespace

ExitStatus runParse(const RunOptions& options) {
    // A program gets a record's values unchanged.
    const bool isForPerson = isTerminal(STDOUT_FILENO);
    return runPayloads(options, [&options, isForPerson](const Request& request, Answers& answers) {
        answer(request, options, isForPerson, answers);
    });
}

}  // namespace korvoqr
