#include "InputRun.h"

#include "ImageReader.h"
#include "PayloadInput.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace korvoqr {

InputRun::InputRun(const InputOptions& options) : options_(options) {
    // When the reader has gone, the write fails instead, so the run ends with its ordinary status.
    std::signal(SIGPIPE, SIG_IGN);
}

void InputRun::reportProblem(const Origin& origin, const std::string& problem) {
    std::fprintf(stderr, "korvoqr: cannot read %s: %s; type --image FILE with pictures of QR codes\n",
                 origin.place().c_str(), visible(problem).c_str());
    someInputError_ = true;
}

bool InputRun::forEachArgument(const std::function<void(std::string_view, const Origin&)>& handle,
                               const std::function<void(const Origin&, std::string_view)>& handleProblem) {
    for (const std::string& payload : options_.payloads) {
        if (!output_.isClosed()) {
            handle(payload, {});
        }
    }
    const auto handleCode = [&](const ImageCode& code, const Origin& origin) {
        if (code.problem.empty()) {
            handle(code.payload, origin);
        } else {
            reportProblem(origin, code.problem);
            handleProblem(origin, code.problem);
        }
    };
    const auto handlePicture = [&](const std::string& file) {
        const ImageContent content = readQRCodes(file);
        if (!content.problem.empty()) {
            reportProblem({file}, content.problem);
            handleProblem({file}, content.problem);
        }
        for (std::size_t i = 0; i < content.codes.size(); ++i) {
            handleCode(content.codes[i], {file, i + 1, content.codes.size(), content.codes[i].place});
        }
    };
    for (const std::string& name : options_.images) {
        for (const std::string& file : picturesIn(name)) {
            if (!output_.isClosed()) {
                handlePicture(file);
            }
        }
    }
    return !options_.payloads.empty() || !options_.images.empty();
}

void InputRun::forEachBlock(const std::function<void(std::string)>& handle) {
    const InputFile input(options_.file);
    const int error =
        input.descriptor() < 0 ? errno : readBlocks(input.descriptor(), delimiter(), [&](std::string block) {
            handle(std::move(block));
            return !output_.isClosed();
        });
    if (error != 0) {
        readError_ = (isStandardInput(options_.file) ? "standard input" : visible(options_.file)) + ": " +
                     std::strerror(error);  // NOLINT(concurrency-mt-unsafe): one thread reads
    }
}

std::uint64_t InputRun::fileSize() const {
    struct stat status {};
    const int error = isStandardInput(options_.file) ? ::fstat(STDIN_FILENO, &status)
                                                     : ::stat(options_.file.c_str(), &status);
    return error == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

ExitStatus InputRun::finish() {
    output_.flush();
    if (output_.isClosed() && output_.errorNumber() != EPIPE) {
        std::fprintf(stderr, "korvoqr: cannot write standard output: %s\n",
                     std::strerror(output_.errorNumber()));  // NOLINT(concurrency-mt-unsafe)
        return usageOrInputError;
    }
    if (!readError_.empty()) {
        std::fprintf(stderr,
                     "korvoqr: cannot read %s; type --input FILE with a file of payloads, one per line\n",
                     readError_.c_str());
        someInputError_ = true;
    }
    return someInputError_ ? usageOrInputError : someRejected_ ? someRejected : allAccepted;
}

}  // namespace korvoqr
