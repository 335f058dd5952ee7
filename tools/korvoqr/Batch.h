#ifndef KORVOQR_BATCH_H
#define KORVOQR_BATCH_H

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace korvoqr {

/// Answers blocks of input on several threads and delivers the answers in the order of the blocks. With one
/// job, or if no thread can be started, everything happens in the caller's thread, during `add`.
///
/// `answer` turns a block into an `Answer`, on any thread. The `Answer` that it gets is new or has been
/// delivered already; answers are large, so reuse its memory. `deliver` gets one answer at a time, as soon as
/// that answer and all before it are ready. At most four blocks per thread are in memory at once.
template <class Block, class Answer>
class Batch {
  public:
    Batch(std::size_t jobs, std::function<void(const Block&, Answer&)> answer,
          std::function<void(const Answer&)> deliver)
        : answer_(std::move(answer)), deliver_(std::move(deliver)), most_(blocksPerThread * jobs) {
        // If the machine refuses a thread, those that have started do the work.
        try {
            for (std::size_t i = 0; jobs > 1 && i < jobs; ++i) {
                workers_.emplace_back([this] { work(); });
            }
        } catch (const std::exception&) {
            most_ = blocksPerThread * (workers_.size() + 1);
        }
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    ~Batch() { stop(); }

    /// Takes a block; waits while too many are in progress. False if a thread has failed, which `finish`
    /// reports: then no more blocks are needed.
    bool add(Block block) {
        if (workers_.empty()) {
            answer_(block, own_);
            deliver_(own_);
            return true;
        }
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return tasks_.size() < most_ || failure_; });
        if (failure_) {
            return false;
        }
        tasks_.push_back({std::move(block), {}, false});
        changed_.notify_all();
        return true;
    }

    /// Waits until every answer has been delivered. Rethrows an exception of a thread.
    void finish() {
        stop();
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }

  private:
    static constexpr std::size_t blocksPerThread = 4;

    struct Task {
        Block block;
        Answer answer;
        bool isDone = false;
    };

    void work() {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return started_ < tasks_.size() || isEnding_ || failure_; });
            // The blocks that wait are answered before the end.
            if (started_ == tasks_.size() || failure_) {
                return;
            }
            // The reference stays valid: other threads change the deque only at its ends.
            Task& task = tasks_[started_++];
            try {
                Answer answer = takeSpare();
                lock.unlock();
                answer_(task.block, answer);
                lock.lock();
                task.answer = std::move(answer);
                task.isDone = true;
                deliverDone(lock);
            } catch (...) {
                if (!lock.owns_lock()) {
                    lock.lock();
                }
                failure_ = std::current_exception();
                changed_.notify_all();
            }
        }
    }

    void deliverDone(std::unique_lock<std::mutex>& lock) {
        while (!isDelivering_ && !tasks_.empty() && tasks_.front().isDone) {
            Answer answer = std::move(tasks_.front().answer);
            isDelivering_ = true;
            lock.unlock();
            deliver_(answer);
            lock.lock();
            isDelivering_ = false;
            spares_.push_back(std::move(answer));
            tasks_.pop_front();
            --started_;
            changed_.notify_all();
        }
    }

    Answer takeSpare() {
        if (spares_.empty()) {
            return {};
        }
        Answer spare = std::move(spares_.back());
        spares_.pop_back();
        return spare;
    }

    void stop() {
        {
            const std::lock_guard lock(mutex_);
            isEnding_ = true;
        }
        changed_.notify_all();
        for (std::thread& worker : workers_) {
            worker.join();
        }
        workers_.clear();
    }

    std::function<void(const Block&, Answer&)> answer_;
    std::function<void(const Answer&)> deliver_;
    std::size_t most_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Task> tasks_;
    std::vector<Answer> spares_;
    Answer own_;  // for the caller's thread, if there are no others
    std::size_t started_ = 0;
    bool isDelivering_ = false;
    bool isEnding_ = false;
    std::exception_ptr failure_;
    std::vector<std::thread> workers_;
};

}  // namespace korvoqr

#endif
