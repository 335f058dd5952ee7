#include <KorvoQRParser/C/Text.h>
#include <KorvoQRParser/KorvoQRParserC.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

using namespace korvo;

struct korvoqr_response {
    QRCodeParserResponse response;
    c::KeptText json;
    c::KeptText jsonOutput;
    c::KeptText description;
};

namespace {

const QRCodeData* dataOf(const korvoqr_response* response) {
    return response == nullptr ? nullptr : response->response.qrCodeData().get();
}

const QRCodeError* errorOf(const korvoqr_response* response) {
    return response == nullptr ? nullptr : response->response.qrCodeError().get();
}

std::string_view codeAt(const korvoqr_response* response, std::size_t index) {
    const QRCodeError* const error = errorOf(response);
    return error == nullptr ? std::string_view() : c::textAt(error->errorCodes(), index);
}

}  // namespace

korvoqr_response* korvoqr_parse(const char* payload, size_t payload_size) {
    if (!c::isText(payload, payload_size)) {
        return nullptr;
    }
    try {
        return new korvoqr_response{QRCodeParser::parseQRData({payload, payload_size}), {}, {}, {}};
    } catch (...) {
        return nullptr;
    }
}

void korvoqr_response_free(korvoqr_response* response) {
    const std::unique_ptr<korvoqr_response> owned(response);
}

bool korvoqr_response_is_accepted(const korvoqr_response* response) {
    return dataOf(response) != nullptr;
}

size_t korvoqr_response_code_count(const korvoqr_response* response) {
    const QRCodeError* const error = errorOf(response);
    return error == nullptr ? 0 : error->errorCodes().size();
}

const char* korvoqr_response_code(const korvoqr_response* response, size_t index, size_t* size) {
    return c::pass(codeAt(response, index), size);
}

int korvoqr_response_error_code(const korvoqr_response* response, size_t index) {
    const std::string_view code = codeAt(response, index);
    return korvoqr_error_code_from_text(code.data(), code.size());
}

const char* korvoqr_response_text(const korvoqr_response* response, int property, size_t* size) {
    const QRCodeData* const data = dataOf(response);
    const QRCodeDataPropertyRow* const row = c::propertyRowAt(property);
    const auto text = data != nullptr && row != nullptr ? data->text(row->index) : std::nullopt;
    return c::pass(text.value_or(std::string_view()), size);
}

bool korvoqr_response_flag(const korvoqr_response* response, int property) {
    const QRCodeData* const data = dataOf(response);
    const QRCodeDataPropertyRow* const row = c::propertyRowAt(property);
    return data != nullptr && row != nullptr && data->flag(row->index);
}

const char* korvoqr_response_json(const korvoqr_response* response, size_t* size) {
    const QRCodeData* const data = dataOf(response);
    return c::pass(
        data == nullptr ? std::string_view() : response->json.get([data] { return data->utf8JSON(); }), size);
}

const char* korvoqr_response_json_output(const korvoqr_response* response, size_t* size) {
    const QRCodeData* const data = dataOf(response);
    return c::pass(data == nullptr ? std::string_view()
                                   : response->jsonOutput.get([data] { return data->jsonOutput(); }),
                   size);
}

const char* korvoqr_response_description(const korvoqr_response* response, size_t* size) {
    if (response == nullptr) {
        return c::pass({}, size);
    }
    return c::pass(response->description.get([response] {
        const QRCodeData* const data = dataOf(response);
        return data == nullptr ? errorOf(response)->description() : data->description();
    }),
                   size);
}
