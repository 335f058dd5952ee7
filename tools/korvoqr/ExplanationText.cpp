#include "ExplanationRendering.h"

#include <algorithm>

namespace korvoqr {

namespace {

// The columns of the table begin here; the offset is in column 0.
constexpr std::size_t tagColumn = 8;
constexpr std::size_t lengthColumn = 15;
constexpr std::size_t meaningColumn = 20;
constexpr std::size_t valueColumn = 48;
constexpr std::size_t gap = 2;  // blanks between two columns

std::string blanks(std::size_t count) {
    std::string text(count, ' ');
    return text;
}

class Page {
  public:
    Page(const Explanation& explanation, const Style& style) : explanation_(explanation), style_(style) {}

    std::string text() {
        addVerdict();
        if (!explanation_.elements.empty()) {
            addElements();
        }
        if (!explanation_.absent.empty()) {
            text_ += "\nMissing elements:\n";
            for (const auto* const entry : explanation_.absent) {
                addViolation(*entry, 2);
            }
        }
        if (explanation_.fault) {
            addFault(*explanation_.fault);
        }
        return std::move(text_);
    }

  private:
    void addVerdict() {
        const auto& codes = explanation_.codes;
        if (codes.empty()) {
            text_ += painted(style_, Paint::good, "Accepted");
        } else if (explanation_.fault) {
            text_ += painted(style_, Paint::fault, "Refused with code 0: it cannot be split into elements");
        } else {
            text_ += painted(
                style_, Paint::fault,
                "Refused with " + std::to_string(codes.size()) + (codes.size() == 1 ? " code" : " codes"));
        }
        if (explanation_.isTwoDigit) {
            text_ += *explanation_.isTwoDigit ? " (two-digit format)" : " (one-character format)";
        }
        text_ += '\n';
    }

    void addElements() {
        text_ += '\n';
        addHeading();
        for (std::size_t i = 0; i < explanation_.elements.size(); ++i) {
            const auto& elements = explanation_.elements;
            addElement(elements[i], i + 1 < elements.size() && elements[i + 1].isInsideAdditionalData);
        }
    }

    void addHeading() {
        constexpr std::string_view lastHeading = "Value";
        text_ += painted(style_, Paint::heading,
                         padded("Offset", tagColumn) + padded("Tag", lengthColumn - tagColumn) +
                             padded("Len", meaningColumn - lengthColumn) +
                             padded("Meaning", valueColumn - meaningColumn) + std::string(lastHeading)) +
                 '\n';
        if (!style_.boxes) {
            return;
        }
        std::string rule;
        std::size_t begin = 0;
        for (const std::size_t next : {tagColumn, lengthColumn, meaningColumn, valueColumn}) {
            rule += lineOf(next - begin - gap) + blanks(gap);
            begin = next;
        }
        rule += lineOf(std::max(style_.width - valueColumn, lastHeading.size()));
        text_ += painted(style_, Paint::dim, rule) + '\n';
    }

    static std::string lineOf(std::size_t columns) {
        std::string line;
        for (std::size_t i = 0; i < columns; ++i) {
            line += "─";
        }
        return line;
    }

    void addElement(const ExplainedElement& element, bool isFollowedInside) {
        const std::string offset = rightAligned(std::to_string(element.offset), tagColumn - gap);
        text_ += painted(style_, Paint::dim, offset + blanks(gap));
        std::string tag = element.isInsideAdditionalData ? element.name : std::string(element.tag);
        if (element.isInsideAdditionalData && style_.boxes) {
            tag = (isFollowedInside ? "├─ " : "└─ ") + std::string(element.tag);
        }
        text_ += padded(tag, lengthColumn - tagColumn);
        text_ += padded(visible(element.length), meaningColumn - lengthColumn);
        text_ += padded(element.meaning, valueColumn - meaningColumn);
        // The elements inside follow as rows of their own.
        const bool isOpened = isFollowedInside && !element.isInsideAdditionalData;
        addColumn(isOpened ? "" : inQuotes(element.value.text()), valueColumn, false);
        for (const auto* const entry : element.violations) {
            addViolation(*entry, meaningColumn);
        }
    }

    // Continues the current line with the text, and aligns the text's further lines at the same column.
    void addColumn(const std::string& text, std::size_t column, bool atBlanks) {
        const auto lines = wrapped(text, style_.widthFrom(column), atBlanks);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            text_ += i == 0 ? "" : blanks(column);
            text_ += lines[i];
            text_ += '\n';
        }
        trimEnd();
    }

    void trimEnd() {
        const std::size_t last = text_.find_last_not_of(" \n");
        text_.erase(last == std::string::npos ? 0 : last + 1);
        text_ += '\n';
    }

    void addViolation(const korvo::ErrorCatalogueEntry& entry, std::size_t column) {
        std::string mark = style_.boxes ? "✗ " : "! ";
        const std::size_t textColumn = column + displayWidth(mark);
        const std::string code = std::string(entry.code) + ' ' + std::string(entry.name);
        for (const std::string_view line : wrapped(code, style_.widthFrom(textColumn), true)) {
            text_ += blanks(column) + painted(style_, Paint::fault, mark + std::string(line)) + '\n';
            mark = blanks(textColumn - column);
        }
        std::string meaning(entry.meaning);
        if (entry.code == korvo::KorvoErrorConstants::crcInvalidValue && explanation_.computedChecksum) {
            meaning += " Found: " + inQuotes(explanation_.elements.back().value.text()) +
                       "; the payload should end with " + std::string(checksumHead) +
                       *explanation_.computedChecksum + '.';
        }
        text_ += blanks(textColumn);
        addColumn(meaning, textColumn, true);
    }

    void addFault(const ExplainedFault& fault) {
        text_ += '\n';
        addColumn(
            std::string(fault.error) + " at offset " + std::to_string(fault.offset) + ": " + fault.reason, 0,
            true);
        const std::string_view before = fitting(fault.before, true);
        const std::string_view after = fitting(fault.after, false);
        const bool isBeginning = before.data() == explanation_.payload.data();
        const bool isEnd =
            after.data() + after.size() == explanation_.payload.data() + explanation_.payload.size();
        const std::string head = (isBeginning ? "  " : "  ...") + visible(before);
        text_ += head + visible(after) + (isEnd ? "\n" : "...\n");
        text_ += blanks(displayWidth(head)) + painted(style_, Paint::fault, "^") + '\n';
    }

    // As many code points from the end, or from the beginning, of a text as fit on one side of the caret.
    std::string_view fitting(std::string_view text, bool fromEnd) const {
        constexpr std::size_t aroundBoth = 10;  // blanks and dots
        const std::size_t limit = style_.width == 0 ? 40 : (style_.width - aroundBoth) / 2;
        const auto continues = [&text](std::size_t at) {
            return at < text.size() && isContinuationByte(text[at]);
        };
        while (displayWidth(visible(text)) > limit) {
            std::size_t at = fromEnd ? 1 : text.size() - 1;
            while (continues(at)) {
                at = fromEnd ? at + 1 : at - 1;
            }
            text = fromEnd ? text.substr(at) : text.substr(0, at);
        }
        return text;
    }

    const Explanation& explanation_;
    Style style_;
    std::string text_;
};

}  // namespace

std::string explanationText(const Explanation& explanation, const Style& style) {
    return Page(explanation, style).text();
}

}  // namespace korvoqr
