// Says why a payload is refused: the likeliest cause, the violated rules, and whether it can be repaired.
// Usage: explain PAYLOAD

#include <KorvoQRParser/KorvoQRParser.h>

#include <iostream>
#include <string>

namespace {

void show(const korvo::QRCodeViolation& violation, const std::string& tag) {
    std::cout << "  " << tag << "code " << violation.code() << ": " << violation.meaning();
    if (!violation.fact().empty()) {
        std::cout << " Here: " << violation.fact() << '.';
    }
    std::cout << '\n';
}

void show(const korvo::QRCodeElement& element) {
    for (const auto& violation : element.violations()) {
        show(violation, "tag " + element.name() + ", ");
    }
}

}  // namespace

int main(int argc, char** argv) {
    const auto explanation = korvo::QRCodeExplainer::explainQRData(argc > 1 ? argv[1] : "");
    if (explanation.isAccepted()) {
        std::cout << "Accepted: every rule is kept.\n";
        return 0;
    }
    std::cout << "Refused. " << explanation.causes().front() << '\n';
    for (const auto& element : explanation.elements()) {
        show(element);
        for (const auto& inside : element.elements()) {
            show(inside);
        }
    }
    for (const auto& violation : explanation.missing()) {
        show(violation, "");
    }
    if (!explanation.repairs().empty()) {
        std::cout << "It can be repaired, and the checksum vouches for the repair.\n";
    } else if (!explanation.unverified().empty()) {
        std::cout << "It could be repaired. " << explanation.unverified().front().caution() << '\n';
    }
    return 1;
}
