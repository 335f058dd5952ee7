#include "ExplanationRendering.h"

#include <nlohmann/json.hpp>

namespace korvoqr {

namespace {

using JSON = nlohmann::ordered_json;

JSON codesOf(const std::vector<const korvo::ErrorCatalogueEntry*>& entries) {
    JSON codes = JSON::array();
    for (const auto* const entry : entries) {
        codes.push_back({{"code", entry->code}, {"name", entry->name}, {"meaning", entry->meaning}});
    }
    return codes;
}

JSON elementOf(const ExplainedElement& element) {
    return {{"offset", element.offset},   {"tag", element.tag},
            {"length", element.length},   {"value", element.value.text()},
            {"meaning", element.meaning}, {"errors", codesOf(element.violations)}};
}

JSON elementsOf(const std::vector<ExplainedElement>& elements) {
    JSON list = JSON::array();
    for (const ExplainedElement& element : elements) {
        if (element.isInsideAdditionalData) {
            list.back()["elements"].push_back(elementOf(element));
        } else {
            list.push_back(elementOf(element));
        }
    }
    return list;
}

}  // namespace

std::string explanationJSON(const Explanation& explanation, const Origin& origin) {
    JSON object;
    if (origin.isPicture()) {
        object["file"] = origin.file;
        object["code"] = origin.code;
    }
    object["payload"] = explanation.payload;
    if (explanation.isTwoDigit) {
        object["format"] = *explanation.isTwoDigit ? "two-digit" : "one-character";
    } else {
        object["format"] = nullptr;
    }
    object["accepted"] = explanation.codes.empty();
    object["errorCodes"] = explanation.codes;
    object["elements"] = elementsOf(explanation.elements);
    object["absent"] = codesOf(explanation.absent);
    if (const auto& fault = explanation.fault) {
        object["fault"] = {{"error", fault->error},
                           {"offset", fault->offset},
                           {"reason", fault->reason},
                           {"before", fault->before},
                           {"after", fault->after}};
    }
    if (explanation.computedChecksum) {
        object["checksum"] = {{"found", explanation.elements.back().value.text()},
                              {"computed", *explanation.computedChecksum}};
    }
    return object.dump(-1, ' ', false, JSON::error_handler_t::replace) + '\n';
}

}  // namespace korvoqr
