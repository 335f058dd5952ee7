#include "Cases.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <new>

#include <benchmark/benchmark.h>

namespace {

std::atomic<std::size_t> allocations{0};

}  // namespace

// Counting adds the same cost to every allocation, in a parse and in its floor.
void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace korvo::bench {
namespace {

void measure(benchmark::State& state, const Work& work) {
    benchmark::DoNotOptimize(work.run());  // objects made on first use are not measured
    const std::size_t before = allocations;
    for (auto _ : state) {
        benchmark::DoNotOptimize(work.run());
    }
    const auto counted = static_cast<double>(allocations - before);
    state.counters["allocations"] = counted / static_cast<double>(state.iterations());
}

// Measures how the time of a parse grows with the payload, which is `head` and then copies of `unit` up to
// the wanted size.
void measureGrowth(benchmark::State& state, const std::string& head, const std::string& unit) {
    std::string payload = head;
    while (payload.size() < static_cast<std::size_t>(state.range(0))) {
        payload += unit;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(QRCodeParser::parseQRData(payload));
    }
    state.SetComplexityN(state.range(0));
}

void registerAll() {
    for (const Work& work : allWork()) {
        benchmark::RegisterBenchmark(work.name.c_str(), [work](benchmark::State& state) {
            measure(state, work);
        })->Repetitions(40);
    }
    const std::string& oneCharacter = findCase("one-character").payload;
    const std::string& twoDigit = findCase("two-digit, 101 characters").payload;
    struct Growth {
        std::string name;
        std::string head;
        std::string unit;
        benchmark::BigO fit;
    };
    const std::vector<Growth> growths{
        {"one character with ever more marks", oneCharacter + "81a", "\xCC\x81", benchmark::oN},
        {"ever more regional indicators", oneCharacter + "82", "\xF0\x9F\x87\xAE", benchmark::oN},
        {"ever more digits", "", "7", benchmark::o1},
        {"a wrong tail", twoDigit, "0", benchmark::o1},
    };
    for (const auto& [name, head, unit, fit] : growths) {
        benchmark::RegisterBenchmark(
            ("growth/" + name).c_str(),
            [head = head, unit = unit](benchmark::State& state) { measureGrowth(state, head, unit); })
            ->RangeMultiplier(8)
            ->Range(1 << 13, 1 << 26)
            ->Unit(benchmark::kMicrosecond)
            ->Complexity(fit);
    }
}

// Prints one table. It shows the least time of all repetitions, because that one was disturbed least, and
// below it the ratios of those times that the performance targets name.
class Table : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                Row& row = rows_[nameOf(run)];
                row.nanoseconds = std::min(
                    row.nanoseconds, 1e9 * run.real_accumulated_time / static_cast<double>(run.iterations));
                const auto counter = run.counters.find("allocations");
                row.allocations = counter != run.counters.end() ? counter->second.value : 0;
            } else if (run.report_rms) {
                fits_ += "fit of " + run.benchmark_name() + ": " +
                         std::to_string(100 * run.GetAdjustedRealTime()) + " % off\n";
            }
        }
    }

    void Finalize() override {
        std::printf("%-60s %14s %12s\n", "", "ns", "allocations");
        for (const auto& [name, row] : rows_) {
            std::printf("%-60s %14.1f %12.2f\n", name.c_str(), row.nanoseconds, row.allocations);
        }
        std::printf("%s\n%-60s %14s\n", fits_.c_str(), "", "ratio");
        for (const Case& one : cases()) {
            printRatio("parse/" + one.name, "floor/" + one.name);
        }
        printRatio("parse/two-digit, non-ASCII", "parse/two-digit, 307 characters");
        printRatio("parse/refused: fault in the last element", "parse/two-digit, 307 characters");
        printRatio("completion form/two-digit, 101 characters", "parse/two-digit, 101 characters");
    }

  private:
    // The name without the number of repetitions.
    static std::string nameOf(const Run& run) {
        return run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
    }

    struct Row {
        double nanoseconds = std::numeric_limits<double>::infinity();
        double allocations = 0;
    };

    void printRatio(const std::string& name, const std::string& base) const {
        const auto mine = rows_.find(name);
        const auto theirs = rows_.find(base);
        if (mine != rows_.end() && theirs != rows_.end()) {
            std::printf("%-60s %14.2f\n", (name + " to " + base.substr(0, base.find('/'))).c_str(),
                        mine->second.nanoseconds / theirs->second.nanoseconds);
        }
    }

    std::map<std::string, Row> rows_;
    std::string fits_;
};

}  // namespace
}  // namespace korvo::bench

int main(int argc, char** argv) {
    korvo::bench::registerAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    korvo::bench::Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
    return 0;
}
