#include "CommandLine.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <variant>
#include <vector>

namespace {

int print(const std::string& text) {
    const bool isWritten = std::fputs(text.c_str(), stdout) >= 0;
    if (std::fflush(stdout) == 0 && isWritten) {
        return korvoqr::allAccepted;
    }
    std::fputs("korvoqr: cannot write standard output\n", stderr);
    return korvoqr::usageOrInputError;
}

struct Runner {
    int operator()(const korvoqr::Help& help) const { return print(help.text); }
    int operator()(const korvoqr::ParseCommand& command) const { return korvoqr::runParse(command.options); }
    int operator()(const korvoqr::ExplainCommand& command) const {
        return korvoqr::runExplain(command.options);
    }
    int operator()(const korvoqr::CodesCommand& command) const { return korvoqr::runCodes(command.options); }
};

}  // namespace

int main(int argc, char** argv) {
    try {
        return std::visit(Runner(), korvoqr::commandFrom({argv + std::min(argc, 1), argv + argc}));
    } catch (const std::bad_alloc&) {
        std::fputs("korvoqr: there is not enough memory for the longest payload and its answer\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "korvoqr: %s\n", error.what());
    }
    return korvoqr::usageOrInputError;
}
