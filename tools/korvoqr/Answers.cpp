#include "Answers.h"

#include "LibraryInternals.h"
#include "RefusalCodes.h"
#include "RowHead.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <cstddef>
#include <utility>

namespace korvoqr {

namespace {

std::string exampleOf(const Request& request) {
    constexpr std::size_t longestExample = 4096;  // a QR code holds less
    korvo::JSONWriter json(korvo::JSONWriter::Layout::oneLine);
    json.beginObject();
    appendHead(json, request, {true, request.payload.size() <= longestExample});
    return json.endObject().takeText();
}

std::string faultOf(const Request& request, const RunOptions& options) {
    if (request.isTooLong) {
        return reasonForLength(options);
    }
    const auto explanation = korvo::QRCodeExplainer::describeQRData(request.payload);
    return explanation.fault() != nullptr ? std::string(explanation.fault()->kindText()) : "";
}

}  // namespace

void Answers::count(const Request& request, const std::vector<std::string>& codes,
                    const RunOptions& options) {
    const bool keepsExamples = options.summary == SummaryKind::json;
    const auto example = [&] { return keepsExamples ? exampleOf(request) : std::string(); };
    if (codes.empty()) {
        tally.accepted.note(example);
        return;
    }
    tally.rejected.note(example);
    for (const std::string& code : codes) {
        if (const auto* const entry = korvo::findErrorCatalogueEntry(code)) {
            tally.codes.at(static_cast<std::size_t>(entry - korvo::errorCatalogue.data())).note(example);
        }
    }
    if (isUnsplittable(codes) && keepsExamples) {
        tally.faults[faultOf(request, options)].note(example);
    }
    if (request.kind != nullptr) {
        hints.note(*request.kind, request.origin.file);
    } else if (!request.isTooLong) {
        hints.note(request.payload, isUnsplittable(codes));
    }
}

void Answers::begin(Format format) {
    text += isText(format) && !text.empty() ? "\n" : "";
}

void Answers::clear() {
    Answers none;
    none.text = std::move(text);
    none.text.clear();
    *this = std::move(none);
}

}  // namespace korvoqr
