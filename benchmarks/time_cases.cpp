// Measures the cases with Google Benchmark and prints the nanoseconds of each work as one JSON object.
//
// time_cases REPETITIONS
//
// The repetitions of all works are interleaved, and the fastest of each counts: other work on the machine slows some
// repetitions down and speeds none up.
#include "cases.h"
#include "session.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>

namespace bench {
namespace {

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

void enlist(const Side& side, int repetitions) {
    const auto body = [&side](benchmark::State& state) {
        while (state.KeepRunningBatch(batch))
            side.work(batch);
    };
    benchmark::RegisterBenchmark(side.name.c_str(), body)->Repetitions(repetitions)->MinTime(secondsEach);
}

// Runs the works that require this number of live colours.
void runWith(std::size_t liveColors, const std::vector<Case>& cases, int repetitions, Fastest& fastest) {
    benchmark::ClearRegisteredBenchmarks();
    for (const Case& c : cases)
        for (const Side* const side : {&c.bound, &c.baseline})
            if (side->work && side->liveColors == liveColors) enlist(*side, repetitions);
    benchmark::RunSpecifiedBenchmarks(&fastest);
}

void run(int repetitions) {
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
        runWith(liveColors, cases, repetitions, fastest);
    }

    std::puts(nlohmann::json(fastest.nanoseconds).dump().c_str());
}

} // namespace
} // namespace bench

int main(int count, char** arguments) {
    const int repetitions = count == 2 ? std::atoi(arguments[1]) : 0;
    if (repetitions < 1) {
        std::fputs("usage: time_cases REPETITIONS\n", stderr);
        return 2;
    }
    try {
        bench::run(repetitions);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "time_cases: %s\n", error.what());
        return 1;
    }
}
