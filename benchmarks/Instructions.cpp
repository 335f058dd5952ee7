#include "Cases.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

std::size_t repeat(const korvo::bench::Work& work, long count) {
    std::size_t sum = 0;
    for (long left = count; left > 0; --left) {
        sum += work.run();
    }
    return sum;
}

// Each of the threads repeats the work.
bool repeat(const korvo::bench::Work& work, long count, long threads) {
    std::vector<std::thread> others;
    for (long i = 1; i < threads; ++i) {
        others.emplace_back([&work, count] { repeat(work, count); });
    }
    const bool hasWorked = repeat(work, count) > 0;
    for (std::thread& other : others) {
        other.join();
    }
    return hasWorked;
}

}  // namespace

/// Repeats one piece of work, for a tool that counts instructions or takes the time: korvo_instructions NAME
/// COUNT [THREADS]. Prints the names when it has no arguments, and the first payload when the argument is
/// --payload.
int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 1 && arguments[0] == "--payload") {
        std::puts(korvo::bench::cases().front().payload.c_str());
        return 0;
    }
    const bool isCounting = arguments.size() == 2 || arguments.size() == 3;
    for (const korvo::bench::Work& work : korvo::bench::allWork()) {
        if (!isCounting) {
            std::puts(work.name.c_str());
        } else if (work.name == arguments[0]) {
            const long threads = arguments.size() == 3 ? std::strtol(arguments[2].c_str(), nullptr, 10) : 1;
            return repeat(work, std::strtol(arguments[1].c_str(), nullptr, 10), threads) ? 0 : 1;
        }
    }
    return isCounting ? 1 : 0;
}
