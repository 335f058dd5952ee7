#include "ImageReader.h"

#include "CodeFinder.h"
#include "Interruption.h"
#include "PayloadInput.h"
#include "PictureDecoder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvoqr {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostBytes = std::size_t{256} * 1024 * 1024;
// A picture made to harm keeps the search for codes busy for minutes; a photo takes about a second.
constexpr rlim_t mostSeconds = 20;
// The computer may be busy, but a pipe may never end.
constexpr unsigned mostSecondsOfReading = 20;
constexpr unsigned mostSecondsOfSearch = 60;
// The largest picture takes about half.
constexpr rlim_t mostMemory = rlim_t{2} * 1024 * 1024 * 1024;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif
#else
constexpr bool isSanitized = false;
#endif

std::string readWhole(int descriptor) {
    std::string bytes;
    const int error = descriptor < 0 ? errno : readChunks(descriptor, [&](std::string_view chunk) {
        bytes += chunk;
        return bytes.size() <= mostBytes;
    });
    if (error == EISDIR) {
        throw std::runtime_error("there is no picture in this folder");
    }
    if (error != 0) {
        throw std::runtime_error(std::strerror(error));  // NOLINT(concurrency-mt-unsafe): one thread
    }
    if (bytes.empty()) {
        throw std::runtime_error("the file is empty");
    }
    if (bytes.size() > mostBytes) {
        throw std::runtime_error("the file is too large for a picture");
    }
    return bytes;
}

bool hasPayload(const std::vector<ImageCode>& codes) {
    return std::any_of(codes.begin(), codes.end(),
                       [](const ImageCode& code) { return code.problem.empty(); });
}

std::vector<ImageCode> codesOf(const DecodedPicture& picture) {
    std::vector<ImageCode> codes = findCodes(picture.onPaper());
    if (!hasPayload(codes)) {
        std::vector<ImageCode> lightCodes = findCodes(picture.invertedOnScreen());
        if (codes.empty() || hasPayload(lightCodes)) {
            codes = std::move(lightCodes);
        }
    }
    return codes;
}

template <class Resource>
void limit(Resource resource, rlim_t most) {
    rlimit limits{};
    ::getrlimit(resource, &limits);
    limits.rlim_cur = limits.rlim_max = std::min(limits.rlim_max, most);
    ::setrlimit(resource, &limits);
}

// From here on the process can only read the files that are open, and compute.
void confine() {
    limit(RLIMIT_CPU, mostSeconds);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    // A sanitizer opens pipes, and reserves more memory than any machine has.
    if (!isSanitized) {
        limit(RLIMIT_NOFILE, 1);  // 0 would make poll fail
        limit(RLIMIT_AS, mostMemory);
    }
}

// A decoder's own messages would be further lines. A sanitizer's are wanted.
void silence() {
    const InputFile nothing("/dev/null");
    if (!isSanitized && nothing.descriptor() >= 0) {
        ::dup2(nothing.descriptor(), STDERR_FILENO);
    }
}

// These signals end the process, whatever the parent does with them, except if it ignores them.
void endBySignals() {
    Interruption::forget();
    for (const int number : {SIGALRM, SIGINT, SIGTERM, SIGXCPU}) {
        if (std::signal(number, SIG_DFL) == SIG_IGN && number != SIGALRM && number != SIGXCPU) {
            std::signal(number, SIG_IGN);
        }
    }
    sigset_t none{};
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Writes a text to a pipe: its length, then its bytes. False if the write fails.
[[nodiscard]] bool send(int pipe, std::string_view text) {
    const std::uint64_t length = text.size();
    std::string message(reinterpret_cast<const char*>(&length), sizeof length);
    message += text;
    for (std::size_t sent = 0; sent < message.size();) {
        const ssize_t count = ::write(pipe, message.data() + sent, message.size() - sent);
        if (count < 0) {
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

[[nodiscard]] bool send(int pipe, const ImageContent& content) {
    bool isSent = send(pipe, content.problem);
    for (const ImageCode& code : content.codes) {
        const std::string_view place(reinterpret_cast<const char*>(&code.place), sizeof code.place);
        isSent = isSent && send(pipe, place) && send(pipe, code.problem) && send(pipe, code.payload);
    }
    return isSent;
}

// Reads the file, sends an empty text, and finds the codes.
ImageContent contentOf(const std::string& file, int pipe) {
    ::alarm(mostSecondsOfReading);
    const InputFile input(file);
    const int error = errno;
    confine();
    errno = error;
    const std::string bytes = readWhole(input.descriptor());
    if (!send(pipe, "")) {
        throw std::runtime_error("it is not wanted any more");
    }
    ::alarm(mostSecondsOfSearch);
    if (!needsThread(bytes)) {
        limit(RLIMIT_NPROC, 0);
    }
    const DecodedPicture picture = decodePicture(bytes);
    limit(RLIMIT_NPROC, 0);
    std::vector<ImageCode> codes = codesOf(picture);
    if (codes.empty()) {
        throw std::runtime_error("there is no QR code in this picture");
    }
    return {std::move(codes), {}};
}

// The child process: sends the content of the picture.
[[noreturn]] void readInChild(const std::string& file, int pipe) {
    endBySignals();
    // If the caller has closed standard error, its number may be the pipe's.
    const int out =
        ::fcntl(pipe, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);  // NOLINT(cppcoreguidelines-pro-type-vararg)
    silence();
    ImageContent content;
    try {
        content = contentOf(file, out);
    } catch (const std::bad_alloc&) {
        content.problem = "there is not enough memory for this picture";
    } catch (const std::exception& problem) {
        content.problem = problem.what();
    }
    ::_exit(send(out, content) ? 0 : 1);
}

std::vector<std::string> received(std::string_view bytes) {
    std::vector<std::string> texts;
    std::uint64_t length = 0;
    while (bytes.size() >= sizeof length) {
        std::memcpy(&length, bytes.data(), sizeof length);
        bytes.remove_prefix(sizeof length);
        texts.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(std::min<std::size_t>(length, bytes.size()));
    }
    return texts;
}

// Why the child failed; empty if it sent all.
std::string failureOf(int waitStatus, bool hasReadFile) {
    const int signal = WIFSIGNALED(waitStatus) ? WTERMSIG(waitStatus) : 0;
    if (signal == SIGALRM && !hasReadFile) {
        return "it does not end within " + std::to_string(mostSecondsOfReading) + " seconds";
    }
    if (signal == SIGALRM || signal == SIGXCPU || signal == SIGKILL) {
        return "the search for codes in this picture takes too long";
    }
    return WIFEXITED(waitStatus) && WEXITSTATUS(waitStatus) == 0 ? "" : "the picture cannot be read";
}

// The content that the child sent, or a problem if the child failed.
ImageContent contentFrom(std::string_view message, int waitStatus) {
    std::vector<std::string> texts = received(message);
    ImageContent content{{}, failureOf(waitStatus, !texts.empty())};
    if (!content.problem.empty()) {
        return content;
    }
    // The first text is empty if the file was read. The problem comes next.
    const std::size_t first = texts.size() > 1 && texts.front().empty() ? 1 : 0;
    content.problem = texts.at(first);
    for (std::size_t i = first + 1; i + 2 < texts.size(); i += 3) {
        ImageCode code{texts[i + 2], texts[i + 1], {}};
        std::memcpy(&code.place, texts[i].data(), std::min(texts[i].size(), sizeof code.place));
        content.codes.push_back(std::move(code));
    }
    return content;
}

ImageContent noProcess() {
    return {{},
            std::string("no process can be started: ") +
                std::strerror(errno)};  // NOLINT(concurrency-mt-unsafe): one thread
}

// The entries of a folder that are not hidden, sorted.
std::vector<fs::path> entriesOf(const fs::path& folder, std::error_code& error) {
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().string().front() != '.') {
            entries.push_back(entry->path());
        }
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

}  // namespace

// A process of its own reads the picture, so that neither a crash in a third-party decoder nor an endless
// search ends the run.
ImageContent readQRCodes(const std::string& file) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return noProcess();
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        readInChild(file, ends[1]);
    }
    ImageContent content = child < 0 ? noProcess() : ImageContent{};
    ::close(ends[1]);
    std::string message;
    const int error = readChunks(ends[0], [&message](std::string_view chunk) {
        message += chunk;
        return true;
    });
    ::close(ends[0]);
    if (child < 0) {
        return content;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return contentFrom(error == 0 ? message : "", status);
}

std::vector<std::string> picturesIn(const std::string& name) {
    std::error_code error;
    if (!fs::is_directory(name, error)) {
        return {name};
    }
    std::vector<std::string> pictures;
    const std::vector<fs::path> entries = entriesOf(name, error);
    std::deque<fs::path> left(entries.begin(), entries.end());
    while (!left.empty()) {
        const fs::path entry = left.front();
        left.pop_front();
        if (fs::is_directory(fs::symlink_status(entry, error))) {
            const std::vector<fs::path> inside = entriesOf(entry, error);
            left.insert(left.begin(), inside.begin(), inside.end());
            if (error) {
                pictures.push_back(entry);  // its turn brings the message
            }
        } else if (fs::is_regular_file(entry, error) &&
                   looksLikePicture(entry.string(), headOfFile(entry, leadingBytes))) {
            pictures.push_back(entry);
        }
    }
    return pictures.empty() ? std::vector{name} : pictures;
}

}  // namespace korvoqr
