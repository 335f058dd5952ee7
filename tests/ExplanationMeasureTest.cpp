// Measures how well faults are explained and undone. KORVOQR_MEASURE_COUNT payloads of each kind, from
// KORVOQR_MEASURE_SEED; if the count is set, a table is printed, and with KORVOQR_MEASURE_FAILURES the
// payloads that are not undone, wrongly vouched for, or not named.

#include "FaultyPayloads.h"
#include <KorvoQRParser/Explanation/QRCodeExplainer.h>

#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

unsigned long setting(const char* name, unsigned long otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
}

// Whether a sentence in small letters has an element in it, such as "tag 59".
bool namesElement(const std::string& sentence, const std::string& element) {
    const std::string tag = "tag " + lowerCase(element);
    const std::size_t at = sentence.find(tag);
    const std::size_t end = at == std::string::npos ? 0 : at + tag.size();
    return !element.empty() && end > 0 &&
           (end == sentence.size() || std::isalnum(static_cast<unsigned char>(sentence[end])) == 0);
}

// The payload with the edits applied; empty if they do not ascend or do not fit.
std::string edited(const std::string& payload, const std::vector<QRCodeEdit>& edits) {
    const auto characters = charactersOf(payload);
    auto next = characters.begin();
    const auto upTo = [&](std::size_t end) {
        const auto start = std::exchange(next, characters.begin() + static_cast<std::ptrdiff_t>(end));
        return std::accumulate(start, next, std::string());
    };
    std::string text;
    for (const QRCodeEdit& edit : edits) {
        const std::size_t end = edit.offset() + characterCount(edit.from());
        if (edit.offset() < static_cast<std::size_t>(next - characters.begin()) || end > characters.size()) {
            return "";
        }
        text += upTo(edit.offset());
        if (upTo(end) != edit.from()) {
            return "";
        }
        text += edit.to();
    }
    return text + upTo(characters.size());
}

// Whether an identifier, amount or fee of the explained payload reads otherwise in the repaired one.
bool readsOtherwise(const QRCodeExplanation& explained, const QRCodeExplanation& repaired) {
    const auto& before = explained.elements();
    const auto& after = repaired.elements();
    return explained.format() == repaired.format() &&
           std::any_of(before.begin(), before.end(), [&](const QRCodeElement& element) {
               return isGuarded(element.name()) &&
                      std::none_of(after.begin(), after.end(), [&](const QRCodeElement& other) {
                          return other.name() == element.name() && other.value() == element.value();
                      });
           });
}

// The first promise that a repair breaks; empty if it keeps all.
std::string brokenPromise(const QRCodeExplanation& explanation, const FaultyPayload& faulty,
                          const QRCodeRepair& repair, bool isVouchedFor) {
    const std::string& text = faulty.text;
    const std::string& payload = repair.payload();
    const bool matchesText = text.size() > 4 && text.ends_with(checksum(text.substr(0, text.size() - 4)));
    const bool keepsChecksum =
        payload.size() > 4 && faulty.checksum.find(payload.substr(payload.size() - 4)) != std::string::npos;
    const std::vector<std::pair<bool, std::string>> promises{
        {codesIn(QRCodeParser::parseQRData(payload)).empty(), "it is accepted"},
        {payload != text, "it differs"},
        {edited(text, repair.edits()) == payload, "the edits make it"},
        {repair.caution().empty() == isVouchedFor, "it has a caution unless it is vouched for"},
        {!isVouchedFor || matchesText || keepsChecksum, "the written checksum vouches for it"},
        {!isVouchedFor || !readsOtherwise(explanation, QRCodeExplainer::explainQRData(payload)),
         "what is paid to whom reads alike"}};
    const auto broken =
        std::find_if(promises.begin(), promises.end(), [](const auto& kept) { return !kept.first; });
    return broken == promises.end() ? "" : broken->second;
}

struct Tally {
    double count = 0, repairable = 0, undone = 0, vouchedWrongly = 0, named = 0, withElement = 0,
           elementNamed = 0;

    std::string row(std::string_view name) const {
        std::ostringstream row;
        row << std::fixed << std::setprecision(2) << "| " << name;
        for (const auto& [part, whole] :
             std::vector<std::pair<double, double>>{{undone, repairable},
                                                    {vouchedWrongly, count},
                                                    {named, count},
                                                    {elementNamed, withElement}}) {
            row << " | ";
            (whole > 0 ? row << 100 * part / whole : row << "-");
        }
        return row.str() + " |\n";
    }
};

void measure(const Kind& kind, const FaultyPayload& faulty, const std::vector<Tally*>& tallies) {
    EXPECT_EQ(codesIn(QRCodeParser::parseQRData(faulty.right)), Codes{})
        << testing::PrintToString(faulty.right);
    const auto explanation = QRCodeExplainer::explainQRData(faulty.text);
    const std::string json = explanation.utf8JSON();
    EXPECT_EQ(QRCodeExplainer::describeQRData(faulty.text).utf8JSON(),
              json.substr(0, json.find(",\"causes\":")) + R"(,"causes":[],"repairs":[],"unverified":[]})");
    const std::size_t vouchedFor = explanation.repairs().size();
    auto repairs = explanation.repairs();
    repairs.insert(repairs.end(), explanation.unverified().begin(), explanation.unverified().end());
    bool isWrong = false;
    for (std::size_t i = 0; i < repairs.size(); ++i) {
        EXPECT_EQ(brokenPromise(explanation, faulty, repairs[i], i < vouchedFor), "")
            << kind.name << ": " << testing::PrintToString(faulty.text) << " -> "
            << testing::PrintToString(repairs[i].payload());
        isWrong |= i < vouchedFor && (kind.group != Group::undoable || repairs[i].payload() != faulty.right);
    }
    const bool isRepairable = kind.group == Group::undoable || kind.group == Group::guarded;
    const bool isUndone = isRepairable && !repairs.empty() && repairs[0].payload() == faulty.right;
    const std::string cause = explanation.causes().empty() ? "" : lowerCase(explanation.causes()[0]);
    const bool isElementNamed = namesElement(cause, faulty.element);
    const bool isNamed =
        isElementNamed || std::any_of(kind.words.begin(), kind.words.end(), [&](std::string_view words) {
            return cause.find(words) != std::string::npos;
        });
    for (Tally* const tally : tallies) {
        tally->count += 1;
        tally->repairable += isRepairable ? 1 : 0;
        tally->undone += isUndone ? 1 : 0;
        tally->vouchedWrongly += isWrong ? 1 : 0;
        tally->named += isNamed ? 1 : 0;
        tally->withElement += faulty.element.empty() ? 0 : 1;
        tally->elementNamed += isElementNamed ? 1 : 0;
    }
    if (setting("KORVOQR_MEASURE_FAILURES", 0) != 0 &&
        (isWrong || !isNamed || (kind.group == Group::undoable && !isUndone))) {
        std::cout << kind.name << (faulty.isCovered ? ", checksum over it" : "")
                  << (isWrong ? ", vouched for wrongly" : "")
                  << (isUndone || !isRepairable ? "" : ", not undone") << (isNamed ? "" : ", not named")
                  << "\n  text:   " << testing::PrintToString(faulty.text)
                  << "\n  right:  " << testing::PrintToString(faulty.right) << " (" << faulty.element
                  << ")\n  cause:  " << testing::PrintToString(cause)
                  << "\n  repair: " << (repairs.empty() ? "-" : testing::PrintToString(repairs[0].payload()))
                  << (vouchedFor > 0 ? " (vouched for)" : "") << "\n";
    }
}

TEST(ExplanationMeasure, FaultsAreNamedAndUndone) {
    const unsigned long count = setting("KORVOQR_MEASURE_COUNT", 150);
    const unsigned long seed = setting("KORVOQR_MEASURE_SEED", 1);
    std::map<Group, Tally> groups;
    Tally all;
    std::uint64_t number = 0;
    std::string table;
    for (const Kind& kind : faultKinds()) {
        for (const char sum : {'R', 'F'}) {
            if (kind.variants.find(sum) == std::string::npos) {
                continue;
            }
            std::mt19937_64 random(1000 * seed + ++number);
            const bool isVariant = sum == 'F' && kind.variants[0] == 'R';
            const std::string name = std::string(kind.name) + (isVariant ? ", checksum over it" : "");
            Tally own;
            for (unsigned long left = count; left > 0; --left) {
                measure(kind, faultyPayload(kind, sum == 'F', random), {&own, &groups[kind.group], &all});
            }
            table += own.row(name);
            EXPECT_GE(own.undone, kind.group == Group::undoable ? 0.9 * own.count : 0) << name;
        }
    }
    if (setting("KORVOQR_MEASURE_COUNT", 0) != 0) {
        std::cout << "| Fault | Undone, % | Vouched for wrongly, % | Named, % | Element named, % |\n"
                  << "|---|---|---|---|---|\n"
                  << table << groups[Group::undoable].row("all that can be undone")
                  << groups[Group::unrepairable].row("all without a right repair") << all.row("everything");
    }
    EXPECT_GE(groups[Group::undoable].undone, 0.97 * groups[Group::undoable].count);
    EXPECT_LT(groups[Group::unrepairable].vouchedWrongly, 0.001 * groups[Group::unrepairable].count);
    EXPECT_LT(all.vouchedWrongly, 0.001 * all.count);
    EXPECT_GE(all.named, 0.97 * all.count);
}

}  // namespace
}  // namespace korvo::test
