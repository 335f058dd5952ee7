// Parses a stream of payloads on several threads. Reads one payload a line from standard input and prints one
// answer a line on standard output, in the order of the payloads, each as soon as the answers before it are
// printed. Usage: serve [THREADS]

#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <functional>
#include <future>
#include <iostream>
#include <mutex>
#include <optional>
#include <queue>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <unistd.h>

namespace {

// Hands values from thread to thread in their order. Its capacity is small, so that memory stays flat however
// long the stream is.
template <class Value>
class Channel {
  public:
    // Waits for room. False once the channel is closed, because nobody will take the value.
    bool push(Value value) {
        std::unique_lock lock(mutex_);
        roomMade_.wait(lock, [this] { return isClosed_ || values_.size() < capacity; });
        if (isClosed_) {
            return false;
        }
        values_.push(std::move(value));
        valueCame_.notify_one();
        return true;
    }

    // Waits for a value. Absent once the channel is closed and empty.
    std::optional<Value> pop() {
        std::unique_lock lock(mutex_);
        valueCame_.wait(lock, [this] { return isClosed_ || !values_.empty(); });
        if (values_.empty()) {
            return std::nullopt;
        }
        std::optional<Value> value = std::move(values_.front());
        values_.pop();
        roomMade_.notify_one();
        return value;
    }

    void close() {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        valueCame_.notify_all();
        roomMade_.notify_all();
    }

  private:
    static constexpr std::size_t capacity = 64;

    std::mutex mutex_;
    std::condition_variable valueCame_;
    std::condition_variable roomMade_;
    std::queue<Value> values_;
    bool isClosed_ = false;
};

std::string answerTo(std::string_view payload) {
    const auto response = korvo::QRCodeParser::parseQRData(payload);
    if (const auto& data = response.qrCodeData()) {
        return "accepted " + *data->korvoMerchantPAN() + ' ' + data->transactionAmount().value_or("-") + '\n';
    }
    return "refused " + response.qrCodeError()->description() + '\n';
}

std::string answerToLines(std::string_view lines) {
    std::string answers;
    while (!lines.empty()) {
        const std::string_view payload = lines.substr(0, lines.find('\n'));
        answers += answerTo(payload);
        lines.remove_prefix(std::min(payload.size() + 1, lines.size()));
    }
    return answers;
}

// A job parses some lines and returns the answers to them.
using Job = std::packaged_task<std::string()>;
using Answers = std::future<std::string>;

void work(Channel<Job>& jobs) {
    while (std::optional<Job> job = jobs.pop()) {
        (*job)();
    }
}

// Prints the answers in the order of their jobs. Ends early when standard output fails or memory runs out,
// which is the only error of a parse.
void print(Channel<Answers>& channel) {
    while (std::optional<Answers> answers = channel.pop()) {
        try {
            std::cout << answers->get() << std::flush;
        } catch (const std::exception& error) {
            std::cerr << "serve: " << error.what() << '\n';
            std::cout.setstate(std::ios::failbit);
        }
        if (!std::cout) {
            channel.close();
        }
    }
}

// Submits the complete lines of every read at once, so that no answer waits for the next payload. False when
// standard input cannot be read.
bool readLines(Channel<Job>& jobs, Channel<Answers>& answers) {
    const auto submit = [&](std::string lines) {
        Job job([lines = std::move(lines)] { return answerToLines(lines); });
        return answers.push(job.get_future()) && jobs.push(std::move(job));
    };
    std::vector<char> buffer(std::size_t{1} << 16U);
    std::string beginning;  // of a line that is not complete yet
    for (;;) {
        const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            if (count == 0 && !beginning.empty()) {
                submit(std::move(beginning));
            }
            return count == 0;
        }
        const std::string_view text(buffer.data(), static_cast<std::size_t>(count));
        const std::size_t complete = text.rfind('\n') + 1;  // 0 when there is none
        beginning += text.substr(0, complete);
        if (complete == 0) {
            beginning += text;
        } else if (!submit(std::exchange(beginning, std::string(text.substr(complete))))) {
            return true;
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const unsigned long wanted =
        argc > 1 ? std::strtoul(argv[1], nullptr, 10) : std::thread::hardware_concurrency();

    Channel<Job> jobs;
    Channel<Answers> answers;
    std::vector<std::thread> workers;
    for (unsigned long i = 0; i < std::clamp(wanted, 1UL, 64UL); ++i) {
        workers.emplace_back(work, std::ref(jobs));
    }
    std::thread printer(print, std::ref(answers));

    const bool couldRead = readLines(jobs, answers);

    jobs.close();
    for (std::thread& worker : workers) {
        worker.join();
    }
    answers.close();
    printer.join();
    if (!couldRead || !std::cout) {
        std::cerr << "serve: cannot " << (couldRead ? "write standard output\n" : "read standard input\n");
        return 1;
    }
    return 0;
}
