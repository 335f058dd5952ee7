#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Explanation/Caution.h>
#include <KorvoQRParser/Explanation/Draft.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Mending.h>
#include <KorvoQRParser/Explanation/ReadingCauses.h>
#include <KorvoQRParser/Explanation/Repairs.h>
#include <KorvoQRParser/Explanation/Variants.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace korvo {

namespace {

// An accepted payload, made from the refused one.
struct Candidate {
    Mended mended;
    double cost;
    std::string cause;
    MoneyChange money;
    bool isOpenEnded;  // the text may be cut
    bool isGuessed;    // other repairs are nearly as likely
    bool isVouchedFor = false;
};

// The codes of a payload; none if it is accepted.
std::vector<std::string> codesOf(std::string_view payload) {
    const auto error = QRCodeParser::parseQRData(payload).qrCodeError();
    return error ? error->errorCodes() : std::vector<std::string>();
}

class Doctor {
  public:
    Doctor(std::string_view payload, const PayloadWalk& walk, bool isMatching,
           const std::vector<std::string>& codes)
        : payload_(payload), original_(payload), walk_(walk), isMatching_(isMatching), codes_(codes) {}

    Diagnosis diagnosis() {
        const Variant asItIs{Draft(payload_), 0, ""};
        if (walk_.fault) {
            examineFault(asItIs);
        } else {
            examineSplit(asItIs);
        }
        return conclude();
    }

  private:
    // A payload that can be split, but violates rules.
    void examineSplit(const Variant& asItIs) {
        read(asItIs, 0);
        const bool isOnlyChecksum = codes_ == std::vector<std::string>{std::string(checksumCode)};
        if (isSure()) {
            return;
        }
        // A wrong length can swallow an element, so that the rest can be split all the same.
        const bool isIncomplete = anyOf(codes_, isAboutMissingElement);
        tryInsertions(asItIs);
        if (isIncomplete) {
            readInUnits(asItIs);
        }
        if (!isOnlyChecksum) {
            Variant suspect = asItIs;
            suspect.needsChecksum = !isIncomplete;
            read(suspect, 1);
        }
    }

    void examineFault(const Variant& asItIs) {
        const std::vector<Variant> variants = unwrappedVariants(payload_);
        for (const Variant& variant : variants) {
            read(variant, 0);
        }
        tryInsertions(asItIs);
        for (const Variant& variant : variants) {
            tryInsertions(variant);
        }
        if (isSure()) {
            return;
        }
        readInUnits(asItIs);
        read(asItIs, 1);
        for (const Variant& variant : variants) {
            readInUnits(variant);
            read(variant, 1);
        }
        if (candidates_.empty() && causes_.empty()) {
            read(asItIs, 2);
        }
    }

    bool isSure() const {
        return anyOf(candidates_, [](const Candidate& candidate) {
            return candidate.mended.keepsChecksum && !candidate.money.isChanged;
        });
    }

    void tryInsertions(const Variant& variant) {
        constexpr int mostInsertions = 64;
        const std::string& whole = variant.draft.text();
        const bool isPossible =
            isTwoDigitPayload(whole).value_or(false) && whole.find(checksumHead) != std::string::npos;
        if (isSure() || !isPossible) {
            return;
        }
        const Characters wholeText(whole);
        for (const Insertions& insertions : insertionsIn(wholeText)) {
            if (++insertions_ > mostInsertions) {
                break;
            }
            Variant shorter = withoutInsertions(variant.draft, wholeText, insertions);
            shorter.cost += variant.cost;
            const Characters text(shorter.draft.text());
            for (const Reading& reading : findReadings(text, true, 0)) {
                // Even if the checksum does not confirm it, no other explanation is certain.
                rivals_.push_back(shorter.cost);
                add(shorter, text, reading, true);
                noteCause(shorter.cost, shorter.cause);
            }
        }
    }

    void read(const Variant& variant, int mistakes) {
        const Characters text(variant.draft.text());
        const bool isTwoDigit = isTwoDigitPayload(text.text()).value_or(false);
        for (const Reading& reading : findReadings(text, isTwoDigit, mistakes)) {
            add(variant, text, reading, isTwoDigit);
        }
        if (!isTwoDigit && mistakes == 1) {
            for (const Reading& reading : findReadings(text, true, mistakes)) {
                if (reading.isFormatMoved || reading.isFormatMissing) {
                    add(variant, text, reading, true);
                }
            }
        }
    }

    void readInUnits(const Variant& variant) {
        const Characters text(variant.draft.text());
        const bool isTwoDigit = isTwoDigitPayload(text.text()).value_or(false);
        for (const LengthUnit unit :
             {LengthUnit::utf8Bytes, LengthUnit::utf16Units, LengthUnit::codePoints}) {
            for (const Reading& reading : findReadingsInUnit(text, isTwoDigit, unit)) {
                add(variant, text, reading, isTwoDigit);
            }
        }
    }

    // Adds the repaired payload of a reading, or only its cause.
    void add(const Variant& variant, const Characters& text, const Reading& reading, bool isTwoDigit) {
        Mended mended = mend(variant.draft, text, reading, isTwoDigit);
        constexpr double replaced = 0.4;
        const double cost = variant.cost + reading.cost + mended.cost +
                            (mended.replacesChecksum && !isMatching_ ? replaced : 0);
        std::string cause =
            causeOf(variant, causesOf(text, reading, isTwoDigit, mended.keepsChecksum), mended);
        MoneyChange money = compareMoney(payload_, walk_, mended.draft.text(), reading.changedNames);
        const auto isCut = [&text](const Piece& piece) {
            return piece.isBroken && text.count() - piece.tag < checksumHead.size() + checksumLength;
        };
        const bool isOpenEnded = reading.isChecksumMissing || anyOf(reading.pieces, isCut);
        const bool isGuessed = reading.isGuessed || mended.isAmbiguous || reading.mistakes > 1;
        Candidate candidate{std::move(mended), cost,        std::move(cause),
                            std::move(money),  isOpenEnded, isGuessed};
        if (isOffered(candidate, reading, variant.needsChecksum)) {
            insert(std::move(candidate));
        }
    }

    static std::string causeOf(const Variant& variant, std::vector<std::string> sentences,
                               const Mended& mended) {
        sentences.insert(sentences.end(), mended.causes.begin(), mended.causes.end());
        std::string cause = variant.cause;
        for (const std::string& sentence : sentences) {
            cause += cause.empty() ? "" : " ";
            cause += sentence;
        }
        return cause;
    }

    // Whether a reading's payload is accepted and may be offered. If not, it can be a cause still, and a
    // rival.
    bool isOffered(const Candidate& candidate, const Reading& reading, bool needsChecksum) {
        const Mended& mended = candidate.mended;
        if (reading.isDoubtful && !mended.keepsChecksum) {
            rivals_.push_back(candidate.cost);
            return false;
        }
        const auto codes = codesOf(mended.draft.text());
        if (codes.empty() && mended.draft.text() != payload_) {
            // Two lost digits look like two wrong lengths, and there is nothing to hold them against.
            const bool isForbidden =
                reading.isForbidden || (reading.mistakes > 1 && candidate.money.isChanged);
            if (isForbidden) {
                // A mistake whose undoing the parser would accept is worth saying.
                rivals_.push_back(candidate.cost);
                noteCause(std::min(candidate.cost, highestCost), candidate.cause);
            }
            return !isForbidden && (mended.keepsChecksum || !needsChecksum);
        }
        // A reading without all the elements that a payload must have is probably wrong.
        const bool isComplete = !anyOf(codes, isAboutMissingElement);
        if (isComplete) {
            rivals_.push_back(candidate.cost);
        }
        if (!needsChecksum && (isComplete || reading.isFormatMissing)) {
            noteCause(candidate.cost, candidate.cause);
        }
        return false;
    }

    // Keeps the likelier one of two candidates with the same text.
    void insert(Candidate candidate) {
        const auto same = findIf(candidates_, [&](const Candidate& other) {
            return other.mended.draft.text() == candidate.mended.draft.text();
        });
        if (same == candidates_.end()) {
            candidates_.push_back(std::move(candidate));
        } else if (candidate.cost < same->cost) {
            *same = std::move(candidate);
        }
    }

    void noteCause(double cost, const std::string& cause) {
        if (!cause.empty()) {
            causes_.emplace_back(cost, cause);
        }
    }

    // Whether the written checksum is right for the repaired text, which no accident makes it.
    static bool isConfirmed(const Candidate& candidate) {
        return candidate.mended.isTwoDigit && candidate.mended.keepsChecksum && !candidate.money.isChanged &&
               !candidate.isOpenEnded;
    }

    // Whether the written checksum is right for the text as it stands. That only says that nothing happened
    // to it since, so the repair must be obvious, and nothing else may explain the text nearly as well.
    bool isOnlyExplanation(const Candidate& candidate) const {
        constexpr double clearly = 0.5;
        const auto isRival = [&](double cost) { return cost < candidate.cost + clearly; };
        const bool isOnly = !anyOf(rivals_, isRival) && !anyOf(candidates_, [&](const Candidate& other) {
            return &other != &candidate && isRival(other.cost);
        });
        return candidate.mended.isTwoDigit && isMatching_ && isOnly && !candidate.isGuessed &&
               !candidate.money.isChanged && !candidate.isOpenEnded;
    }

    // Decides before any candidate is dropped, because each is another explanation.
    void vouch() {
        for (Candidate& candidate : candidates_) {
            candidate.isVouchedFor = isConfirmed(candidate) || isOnlyExplanation(candidate);
        }
    }

    // A repair that changes how money reads is only offered if there is no other. It is still a cause.
    void dropDoubtful() {
        if (candidates_.size() == 1) {
            return;
        }
        std::erase_if(candidates_, [this](const Candidate& candidate) {
            if (candidate.money.isChanged) {
                noteCause(candidate.cost, candidate.cause);
            }
            return candidate.money.isChanged;
        });
    }

    // Those that the checksum confirms come first, then the likeliest.
    std::vector<const Candidate*> orderedCandidates() const {
        std::vector<const Candidate*> ordered;
        for (const Candidate& candidate : candidates_) {
            const bool isFirst = isConfirmed(candidate);
            const auto place = findIf(ordered, [&](const Candidate* other) {
                return isFirst != isConfirmed(*other) ? isFirst : candidate.cost < other->cost;
            });
            ordered.insert(place, &candidate);
        }
        return ordered;
    }

    Diagnosis conclude() {
        constexpr std::size_t mostUnverified = 4;
        vouch();
        dropDoubtful();
        const std::vector<const Candidate*> ordered = orderedCandidates();
        Diagnosis result;
        result.leastCost = ordered.empty() ? Diagnosis().leastCost : ordered.front()->cost;
        for (const Candidate* const each : ordered) {
            const Candidate& candidate = *each;
            const bool isVouched = result.unverified.empty() && candidate.isVouchedFor;
            if (isVouched) {
                result.repairs.push_back(repairOf(candidate, ""));
            } else if (result.repairs.empty() && result.unverified.size() < mostUnverified) {
                result.unverified.push_back(repairOf(candidate, cautionOf(candidate)));
            } else {
                break;
            }
            if (!candidate.cause.empty()) {
                result.causes.push_back(candidate.cause + evidenceOf(candidate));
            }
        }
        addOtherCauses(result);
        return result;
    }

    // Says where the mistake was made, if the checksum tells.
    std::string evidenceOf(const Candidate& candidate) const {
        if (isConfirmed(candidate)) {
            return " Without that the checksum matches, so it happened after the checksum was computed.";
        }
        if (isMatching_) {
            return " The checksum matches the text as it stands, so the mistake was there before the "
                   "checksum was "
                   "computed.";
        }
        return "";
    }

    // Adds the likeliest cause that has no repair.
    void addOtherCauses(Diagnosis& result) {
        const auto likeliest = std::min_element(causes_.begin(), causes_.end(),
                                                [](auto& a, auto& b) { return a.first < b.first; });
        if (likeliest == causes_.end() || !result.repairs.empty()) {
            return;
        }
        const auto& [cost, cause] = *likeliest;
        if (cost <= highestCost && cost < result.leastCost) {
            result.causes.insert(result.causes.begin(), cause);
            result.leastCost = cost;
        }
    }

    std::string cautionOf(const Candidate& candidate) const {
        const std::string reason =
            !candidate.mended.isTwoDigit ? "This format has no checksum, so nothing confirms the repair."
            : candidate.isOpenEnded      ? "The text may be cut: elements may be missing at its end."
            : candidate.money.isChanged  ? "It changes how an identifier, an amount or a fee reads."
            : isMatching_
                ? "The checksum was computed over the faulty text, so it does not confirm the repair."
            : candidate.mended.keepsChecksum ? "The checksum matches, but other readings are possible."
                                             : "The checksum is replaced, so nothing confirms the values.";
        return reason + ' ' + candidate.money.sentence;
    }

    QRCodeRepair repairOf(const Candidate& candidate, std::string caution) const {
        const Draft& draft = candidate.mended.draft;
        return QRCodeRepair(std::make_shared<QRCodeRepair::Facts>(
            QRCodeRepair::Facts{draft.text(), draft.editsOf(original_), std::move(caution)}));
    }

    static constexpr double highestCost = 1.75;  // of a cause that is worth saying without a repair
    static constexpr std::string_view checksumCode = KorvoErrorConstants::crcInvalidValue;

    std::string_view payload_;
    Characters original_;
    const PayloadWalk& walk_;
    bool isMatching_;
    const std::vector<std::string>& codes_;
    std::vector<Candidate> candidates_;
    std::vector<std::pair<double, std::string>> causes_;
    std::vector<double> rivals_;  // the costs of explanations that have no repair
    int insertions_ = 0;          // that were tried
};

}  // namespace

Diagnosis diagnose(std::string_view payload, const PayloadWalk& walk, bool isMatching,
                   const std::vector<std::string>& codes) {
    return Doctor(payload, walk, isMatching, codes).diagnosis();
}

}  // namespace korvo
