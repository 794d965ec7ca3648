// Measures the cases with Google Benchmark and prints their ratios as one JSON object.
//
// The repetitions of all works are interleaved, and the fastest of each counts: what else the machine does at the time makes
// some repetitions slower, and none faster.
#include "cases.h"
#include "session.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>

namespace bench {
namespace {

constexpr int repetitions = 25;
constexpr double secondsEach = 0.02;

// Collects the fastest repetition of each work, in nanoseconds.
class Fastest : public benchmark::BenchmarkReporter {
public:
    std::map<std::string, double> nanoseconds;

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const auto [known, isNew] = nanoseconds.emplace(run.run_name.function_name, run.GetAdjustedCPUTime());
            if (!isNew) known->second = std::min(known->second, run.GetAdjustedCPUTime());
        }
    }
};

void enlist(const Side& side) {
    const auto body = [&side](benchmark::State& state) {
        while (state.KeepRunningBatch(batch))
            side.work(batch);
    };
    benchmark::RegisterBenchmark(side.name.c_str(), body)->Repetitions(repetitions)->MinTime(secondsEach);
}

// Runs the works that want so many live colours.
void runWith(std::size_t liveColors, const std::vector<Case>& cases, Fastest& fastest) {
    benchmark::ClearRegisteredBenchmarks();
    for (const Case& c : cases)
        for (const Side* const side : {&c.bound, &c.bare})
            if (side->liveColors == liveColors) enlist(*side);
    benchmark::RunSpecifiedBenchmarks(&fastest);
}

void run() {
    char program[] = "time_cases", interleaving[] = "--benchmark_enable_random_interleaving=true";
    char* arguments[] = {program, interleaving, nullptr};
    int count = 2;
    benchmark::Initialize(&count, arguments);

    loadPlugins();
    const std::vector<Case> cases = makeCases();
    LiveColors live;
    Fastest fastest;
    for (const std::size_t liveColors : {fewColors, manyColors}) {
        live.growTo(liveColors);
        runWith(liveColors, cases, fastest);
    }

    nlohmann::ordered_json figures;
    for (const Case& c : cases) {
        const double bound = fastest.nanoseconds.at(c.bound.name), bare = fastest.nanoseconds.at(c.bare.name);
        std::fprintf(stderr, "%-15s %8.1f ns, bare %8.1f ns\n", c.key.c_str(), bound, bare);
        figures[c.key] = bound / bare;
    }
    std::puts(figures.dump().c_str());
}

} // namespace
} // namespace bench

int main() {
    try {
        bench::run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "time_cases: %s\n", error.what());
        return 1;
    }
}
