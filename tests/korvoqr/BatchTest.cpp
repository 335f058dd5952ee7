#include "korvoqr/Batch.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace korvoqr::test {
namespace {

constexpr std::size_t never = 1000;

// The run of a batch whose blocks are numbers. Answering one number, and delivering another, throws.
struct BatchRun {
    std::vector<std::size_t> delivered;
    std::size_t taken = 0;
    std::size_t mostInMemory = 0;
    bool isRefused = false;
    std::string error;

    BatchRun(std::size_t jobs, std::size_t badAnswer, std::size_t badDelivery) {
        std::atomic<std::size_t> count = 0;
        Batch<std::size_t, std::vector<std::size_t>> batch(
            jobs,
            [&](std::size_t block, std::vector<std::size_t>& answer) {
                // The first is the slowest, so the others wait for it.
                std::this_thread::sleep_for(std::chrono::milliseconds(block == 0 ? 20 : block % 7 / 6));
                if (block == badAnswer) {
                    throw std::runtime_error("answer");
                }
                answer.assign(1, block);
            },
            [&](const std::vector<std::size_t>& answer) {
                if (answer.front() == badDelivery) {
                    throw std::runtime_error("delivery");
                }
                delivered.push_back(answer.front());
                ++count;
            });
        try {
            while (taken < never && !isRefused) {
                isRefused = !batch.add(taken);
                ++taken;
                mostInMemory = std::max(mostInMemory, taken - count);
            }
            batch.finish();
        } catch (const std::runtime_error& problem) {
            error = problem.what();
        }
    }
};

TEST(ThreadsOfABatch, KeepTheOrderAndPassErrorsOn) {
    for (const std::size_t jobs : {1U, 2U, 5U}) {
        const BatchRun good(jobs, never, never);
        EXPECT_EQ(good.error, "");
        EXPECT_EQ(good.delivered.size(), never);
        EXPECT_LE(good.mostInMemory, jobs == 1 ? 0 : 4 * jobs);
        const BatchRun badAnswer(jobs, 50, never);
        EXPECT_EQ(badAnswer.error, "answer");
        const BatchRun badDelivery(jobs, never, 50);
        EXPECT_EQ(badDelivery.error, "delivery");
        EXPECT_EQ(badDelivery.delivered.size(), 50U);
        for (const BatchRun* const run : {&good, &badAnswer, &badDelivery}) {
            for (std::size_t i = 0; i < run->delivered.size(); ++i) {
                ASSERT_EQ(run->delivered[i], i);
            }
        }
        for (const BatchRun* const run : {&badAnswer, &badDelivery}) {
            EXPECT_LE(run->delivered.size(), 50U);
            EXPECT_EQ(run->isRefused, jobs > 1);
            EXPECT_LT(run->taken, never);
        }
    }
}

}  // namespace
}  // namespace korvoqr::test
