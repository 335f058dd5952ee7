#include "ExplanationRendering.h"
#include "LibraryInternals.h"
#include "RefusalCodes.h"
#include "RowHead.h"

#include <algorithm>

namespace korvoqr {

namespace {

using korvo::QRCodeElement;
using korvo::QRCodeExplanation;
using korvo::QRCodeFault;
using korvo::QRCodeRepair;
using korvo::QRCodeViolation;

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

std::string headOf(const Request& request, const Style& style) {
    const std::string place = headingOf(request.origin);
    return place.empty() ? "" : painted(style, Paint::heading, place + ':') + '\n';
}

class Page {
  public:
    Page(const QRCodeExplanation& explanation, const Style& style)
        : explanation_(explanation), style_(style) {}

    std::string text() {
        addVerdict();
        if (!explanation_.causes().empty()) {
            text_ += '\n';
            addColumn(harmless(explanation_.causes().front()), 0, true);
        }
        if (!explanation_.elements().empty()) {
            addElements();
        }
        if (!explanation_.missing().empty()) {
            text_ += "\nMissing elements:\n";
            for (const QRCodeViolation& violation : explanation_.missing()) {
                addViolation(violation, 2);
            }
        }
        if (const QRCodeFault* const fault = explanation_.fault()) {
            addFault(*fault);
        }
        addRepair();
        return std::move(text_);
    }

  private:
    void addVerdict() {
        const auto& codes = explanation_.errorCodes();
        if (codes.empty()) {
            text_ += painted(style_, Paint::good, "Accepted");
        } else if (explanation_.fault() != nullptr) {
            text_ += painted(style_, Paint::fault,
                             "Refused with code " + codes.front() + ": it cannot be split into elements");
        } else {
            text_ += painted(
                style_, Paint::fault,
                "Refused with " + std::to_string(codes.size()) + (codes.size() == 1 ? " code" : " codes"));
        }
        if (const auto format = explanation_.format()) {
            const bool isTwoDigit = *format == korvo::QRCodeFormat::twoDigit;
            text_ += isTwoDigit ? " (two-digit format)" : " (one-character format)";
        }
        text_ += '\n';
    }

    void addElements() {
        text_ += '\n';
        addHeading();
        for (const QRCodeElement& element : explanation_.elements()) {
            const auto& inside = element.elements();
            // The elements inside follow as rows of their own, in place of the value.
            addElement(element, std::string(element.tag()), inside.empty());
            for (const QRCodeElement& inner : inside) {
                const std::string branch = &inner == &inside.back() ? "└─ " : "├─ ";
                addElement(inner, style_.boxes ? branch + inner.tag() : inner.name(), true);
            }
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

    void addElement(const QRCodeElement& element, const std::string& tag, bool hasValue) {
        const std::string offset = rightAligned(std::to_string(element.offset()), tagColumn - gap);
        text_ += painted(style_, Paint::dim, offset + blanks(gap));
        text_ += padded(tag, lengthColumn - tagColumn);
        text_ += padded(visible(element.length()), meaningColumn - lengthColumn);
        text_ += padded(element.meaning(), valueColumn - meaningColumn);
        addColumn(hasValue ? inQuotes(element.value()) : "", valueColumn, false);
        for (const QRCodeViolation& violation : element.violations()) {
            addViolation(violation, meaningColumn);
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

    void addViolation(const QRCodeViolation& violation, std::size_t column) {
        std::string mark = style_.boxes ? "✗ " : "! ";
        const std::size_t textColumn = column + displayWidth(mark);
        const std::string code = violation.code() + ' ' + std::string(violation.name());
        for (const std::string_view line : wrapped(code, style_.widthFrom(textColumn), true)) {
            text_ += blanks(column) + painted(style_, Paint::fault, mark + std::string(line)) + '\n';
            mark = blanks(textColumn - column);
        }
        std::string meaning(violation.meaning());
        if (!violation.fact().empty()) {
            meaning += " Here: " + harmless(violation.fact()) + '.';
        }
        text_ += blanks(textColumn);
        addColumn(meaning, textColumn, true);
    }

    void addFault(const QRCodeFault& fault) {
        text_ += '\n';
        std::string kind(fault.kindText());
        kind[0] = korvo::asciiUpperCase(kind[0]);
        addColumn(kind + " at offset " + std::to_string(fault.offset()) + ": " + harmless(fault.reason()), 0,
                  true);
        const std::string_view payload = explanation_.payload();
        const std::size_t place = explanation_.byteOffset(fault.offset());
        const std::string_view before = fitting(fault.before(), true);
        const std::string_view after = fitting(fault.after(), false);
        const std::string head = (place == before.size() ? "  " : "  ...") + visible(before);
        text_ += head + visible(after) + (place + after.size() == payload.size() ? "\n" : "...\n");
        text_ += blanks(displayWidth(head)) + painted(style_, Paint::fault, "^") + '\n';
    }

    // The likeliest repair. Its payload is shown on one line of its own, so that it can be copied.
    void addRepair() {
        const bool isVouched = !explanation_.repairs().empty();
        const auto& repairs = isVouched ? explanation_.repairs() : explanation_.unverified();
        if (repairs.empty()) {
            return;
        }
        text_ += isVouched ? "\nRepaired; the checksum vouches for it:\n"
                           : "\nPerhaps it was this, but that is not verified:\n";
        const QRCodeRepair& repair = repairs.front();
        if (!repair.caution().empty()) {
            text_ += "  ";
            addColumn(harmless(repair.caution()), 2, true);
        }
        text_ += "  " + visible(repair.payload()) + '\n';
        for (const korvo::QRCodeEdit& edit : repair.edits()) {
            text_ += "  ";
            addColumn(sentenceOf(edit), 2, true);
        }
    }

    static std::string sentenceOf(const korvo::QRCodeEdit& edit) {
        const std::string place = "offset " + std::to_string(edit.offset()) + ": ";
        if (edit.from().empty()) {
            return place + inQuotes(edit.to()) + " is inserted";
        }
        return place + inQuotes(edit.from()) +
               (edit.to().empty() ? " is left out" : " becomes " + inQuotes(edit.to()));
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

    const QRCodeExplanation& explanation_;
    Style style_;
    std::string text_;
};

}  // namespace

std::string explanationText(const QRCodeExplanation& explanation, const Request& request,
                            const Style& style) {
    return headOf(request, style) + Page(explanation, style).text();
}

std::string explanationJSON(const QRCodeExplanation& explanation, const Request& request,
                            const RunOptions& options) {
    const std::string json = explanation.utf8JSON() + '\n';
    korvo::JSONWriter head(korvo::JSONWriter::Layout::oneLine);
    head.beginObject();
    appendHead(head, request, HeadParts::of(options));
    const bool isEmpty = head.text().size() == 1;
    return isEmpty ? json : head.text() + ',' + json.substr(1);
}

std::string textForTooLong(const Request& request, const RunOptions& options, const Style& style) {
    return headOf(request, style) +
           painted(style, Paint::fault,
                   "Refused with code " + codesOfTooLong().front() + ": the line is " +
                       reasonForLength(options)) +
           '\n';
}

std::string jsonForTooLong(const Request& request, const RunOptions& options) {
    const std::string reason = reasonForLength(options);
    korvo::JSONWriter json(korvo::JSONWriter::Layout::oneLine);
    appendHead(json.beginObject(), request, HeadParts::of(options));
    json.name("payload").null().name("format").null().name("accepted").boolean(false);
    json.name("errorCodes").beginArray().string(codesOfTooLong().front()).endArray();
    json.name("elements").beginArray().endArray().name("absent").beginArray().endArray();
    json.name("fault").beginObject().name("error").null().name("kind").string("the line is too long");
    json.name("offset").number(0).name("tag").string("").name("reason").string(reason);
    json.name("before").string("").name("after").string("").endObject();
    json.name("causes").beginArray().string("The line is " + reason + '.').endArray();
    json.name("repairs").beginArray().endArray().name("unverified").beginArray().endArray();
    return json.endObject().takeText() + '\n';
}

}  // namespace korvoqr
