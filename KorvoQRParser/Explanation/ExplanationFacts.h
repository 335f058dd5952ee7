#ifndef KORVOQRPARSER_EXPLANATION_EXPLANATIONFACTS_H
#define KORVOQRPARSER_EXPLANATION_EXPLANATIONFACTS_H

#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

struct QRCodeViolation::Facts {
    std::string code;
    const ErrorCatalogueEntry* entry;
    std::string fact;
};

struct QRCodeElement::Facts {
    std::size_t offset;
    std::string tag;
    std::string length;
    std::string value;
    std::string name;
    std::string_view meaning;
    std::vector<QRCodeViolation> violations;
    std::vector<QRCodeElement> elements;
};

struct QRCodeFault::Facts {
    QRCodeFaultKind kind;
    std::string_view error;
    std::size_t offset;
    std::optional<std::size_t> byteOffset;
    std::string tag;
    std::string reason;
    std::string before;
    std::string after;
};

struct QRCodeChecksum::Facts {
    std::string found;
    std::string computed;
    bool isMatching;
};

struct QRCodeEdit::Facts {
    std::size_t offset;
    std::string from;
    std::string to;
};

struct QRCodeRepair::Facts {
    std::string payload;
    std::vector<QRCodeEdit> edits;
    std::string caution;
};

struct QRCodeExplanation::Facts {
    std::string payload;
    std::optional<QRCodeFormat> format;
    std::vector<std::string> errorCodes;
    std::vector<QRCodeElement> elements;
    std::vector<QRCodeViolation> missing;
    std::optional<QRCodeFault> fault;
    std::optional<QRCodeChecksum> checksum;
    std::vector<std::string> causes;
    std::vector<QRCodeRepair> repairs;
    std::vector<QRCodeRepair> unverified;
};

}  // namespace korvo

#endif
