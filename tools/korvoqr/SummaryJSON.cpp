#include "LibraryInternals.h"
#include "Summary.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace korvoqr {

namespace {

using korvo::JSONWriter;

void appendCount(JSONWriter& json, const Occurrences& count) {
    json.name("count").number(count.count);
    if (count.count > 0) {
        json.name("first").literal(count.first);
    }
}

// Something that was counted: its names and values, and the count.
struct Row {
    std::vector<std::pair<std::string_view, std::string_view>> members;
    const Occurrences* count;
};

void appendRows(JSONWriter& json, std::string_view name, std::vector<Row> rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
        return left.count->count > right.count->count;
    });
    json.name(name).beginArray();
    for (const Row& row : rows) {
        json.beginObject();
        for (const auto& [member, value] : row.members) {
            json.name(member).string(value);
        }
        appendCount(json, *row.count);
        json.endObject();
    }
    json.endArray();
}

std::vector<Row> codeRows(const Tally& tally) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < tally.codes.size(); ++i) {
        const korvo::ErrorCatalogueEntry& entry = korvo::errorCatalogue.at(i);
        if (tally.codes.at(i).count > 0) {
            rows.push_back({{{"code", entry.code}, {"name", entry.name}}, &tally.codes.at(i)});
        }
    }
    return rows;
}

}  // namespace

std::string summaryJSON(const Tally& tally, std::chrono::duration<double> time) {
    JSONWriter json(JSONWriter::Layout::oneLine);
    json.beginObject();
    json.name("payloads").number(tally.payloads());
    json.name("milliseconds").number(static_cast<std::uint64_t>(std::lround(time.count() * 1000)));
    appendCount(json.name("accepted").beginObject(), tally.accepted);
    appendCount(json.endObject().name("rejected").beginObject(), tally.rejected);
    json.endObject().name("unreadable").number(tally.unreadable);
    std::vector<Row> faults;
    for (const auto& [kind, count] : tally.faults) {
        faults.push_back({{{"kind", kind}}, &count});
    }
    appendRows(json, "codes", codeRows(tally));
    appendRows(json, "faults", std::move(faults));
    return json.endObject().takeText() + '\n';
}

}  // namespace korvoqr
