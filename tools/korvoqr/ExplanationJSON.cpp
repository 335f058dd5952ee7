#include "ExplanationRendering.h"
#include "LibraryInternals.h"

#include <algorithm>
#include <span>

namespace korvoqr {

namespace {

using korvo::JSONWriter;
using Entries = std::vector<const korvo::ErrorCatalogueEntry*>;

void appendCodes(JSONWriter& json, const Entries& entries) {
    json.beginArray();
    for (const auto* const entry : entries) {
        json.beginObject();
        json.name("code").string(entry->code);
        json.name("name").string(entry->name);
        json.name("meaning").string(entry->meaning);
        json.endObject();
    }
    json.endArray();
}

void appendFacts(JSONWriter& json, const ExplainedElement& element) {
    json.name("offset").number(element.offset);
    json.name("tag").string(element.tag);
    json.name("length").string(element.length);
    json.name("value").string(element.value.text());
    json.name("meaning").string(element.meaning);
    appendCodes(json.name("errors"), element.violations);
}

// An element; its object holds the elements inside it.
void appendElement(JSONWriter& json, const ExplainedElement& element,
                   std::span<const ExplainedElement> inside) {
    appendFacts(json.beginObject(), element);
    if (!inside.empty()) {
        json.name("elements").beginArray();
        for (const ExplainedElement& inner : inside) {
            appendFacts(json.beginObject(), inner);
            json.endObject();
        }
        json.endArray();
    }
    json.endObject();
}

void appendElements(JSONWriter& json, const std::vector<ExplainedElement>& elements) {
    json.beginArray();
    for (auto element = elements.begin(); element != elements.end();) {
        const auto next = std::find_if_not(element + 1, elements.end(), [](const ExplainedElement& other) {
            return other.isInsideAdditionalData;
        });
        appendElement(json, *element, {element + 1, next});
        element = next;
    }
    json.endArray();
}

void appendFault(JSONWriter& json, const ExplainedFault& fault) {
    json.name("fault").beginObject();
    json.name("error").string(fault.error);
    json.name("offset").number(fault.offset);
    json.name("reason").string(fault.reason);
    json.name("before").string(fault.before);
    json.name("after").string(fault.after);
    json.endObject();
}

void appendFormat(JSONWriter& json, std::optional<bool> isTwoDigit) {
    json.name("format");
    if (isTwoDigit) {
        json.string(*isTwoDigit ? "two-digit" : "one-character");
    } else {
        json.null();
    }
}

void appendErrorCodes(JSONWriter& json, const std::vector<std::string>& codes) {
    json.name("errorCodes").beginArray();
    for (const std::string& code : codes) {
        json.string(code);
    }
    json.endArray();
}

}  // namespace

std::string explanationJSON(const Explanation& explanation, const Origin& origin) {
    JSONWriter json(JSONWriter::Layout::oneLine);
    json.beginObject();
    if (origin.isPicture()) {
        json.name("file").string(origin.file);
        json.name("code").number(origin.code);
    }
    json.name("payload").string(explanation.payload);
    appendFormat(json, explanation.isTwoDigit);
    json.name("accepted").boolean(explanation.codes.empty());
    appendErrorCodes(json, explanation.codes);
    appendElements(json.name("elements"), explanation.elements);
    appendCodes(json.name("absent"), explanation.absent);
    if (explanation.fault) {
        appendFault(json, *explanation.fault);
    }
    if (explanation.computedChecksum) {
        json.name("checksum").beginObject();
        json.name("found").string(explanation.elements.back().value.text());
        json.name("computed").string(*explanation.computedChecksum);
        json.endObject();
    }
    json.endObject();
    return json.text() + '\n';
}

}  // namespace korvoqr
