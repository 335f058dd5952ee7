#include "ParseCommand.h"

#include "Output.h"
#include "PayloadInput.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <unistd.h>

namespace korvoqr {

namespace {

// Parses payloads one after the other and remembers how the run is going.
class ParseRun {
  public:
    explicit ParseRun(Format format) : format_(format) {}

    // False when there is nobody left to read the answers.
    bool handle(std::string_view payload) {
        const auto response = korvo::QRCodeParser::parseQRData(payload);
        const std::string answer = render(response, format_);
        ++payloadNumber_;
        if (!response.qrCodeData()) {
            someRejected_ = true;
        } else if (answer == "\n") {
            std::fprintf(
                stderr,
                "korvoqr: payload %zu is accepted, but JSON output is empty for values outside ASCII; "
                "type --format jsonl to see it\n",
                payloadNumber_);
        }
        // The records and code lists of text output need something between them.
        if (format_ == Format::text && payloadNumber_ > 1) {
            output_.write("\n");
        }
        output_.write(answer);
        return !output_.isClosed();
    }

    void flush() { output_.flush(); }

    ExitStatus finish(int inputError) {
        output_.flush();
        if (output_.isClosed() && output_.errorNumber() != EPIPE) {
            std::fprintf(stderr, "korvoqr: cannot write standard output: %s\n",
                         std::strerror(output_.errorNumber()));
            return usageOrInputError;
        }
        if (inputError != 0) {
            std::fprintf(
                stderr,
                "korvoqr: cannot read standard input: %s; type korvoqr parse PAYLOAD, or give a file "
                "with < FILE\n",
                std::strerror(inputError));
            return usageOrInputError;
        }
        return someRejected_ ? someRejected : allAccepted;
    }

  private:
    Format format_;
    Output output_;
    std::size_t payloadNumber_ = 0;
    bool someRejected_ = false;
};

}  // namespace

ExitStatus runParse(const ParseOptions& options) {
    // A reader that has gone is told by the failed write, so that the run ends with its ordinary status.
    std::signal(SIGPIPE, SIG_IGN);
    ParseRun run(options.format);
    int inputError = 0;
    if (options.payloads.empty()) {
        inputError = forEachPayload(
            STDIN_FILENO, options.nullDelimited ? '\0' : '\n',
            [&run](std::string_view payload) { return run.handle(payload); }, [&run] { run.flush(); });
    }
    for (const std::string& payload : options.payloads) {
        if (!run.handle(payload)) {
            break;
        }
    }
    return run.finish(inputError);
}

}  // namespace korvoqr
