// Runs the cases for counting, and prints the counts that need no clock as one JSON object: heap allocations and resolver
// calls per call.
//
// Under callgrind, started with --collect-atstart=no, each work writes its own profile, which is named after the work. The
// program needs no library that i386 does not have, so it counts in both widths.
#include "allocations.h"
#include "cases.h"
#include "session.h"

#include <nlohmann/json.hpp>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <exception>

namespace bench {
namespace {

void profile(const Side& side) {
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    side.work(batch);
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(side.name.c_str());
}

// Returns the count per call of a batch. It subtracts the count of an empty batch, because the autorelease pool around the
// batch belongs to the host.
template <class Count>
double perCall(const Work& work, Count count) {
    const auto during = [&](std::size_t times) {
        const std::size_t before = count();
        work(times);
        return count() - before;
    };
    const std::size_t empty = during(0);
    return static_cast<double>(during(batch) - empty) / static_cast<double>(batch);
}

void run() {
    loadPlugins();
    const std::vector<Case> cases = makeCases();
    LiveColors live;
    for (const std::size_t liveColors : {fewColors, manyColors}) {
        live.growTo(liveColors);
        for (const Case& c : cases)
            for (const Side* const side : {&c.bound, &c.baseline})
                if (side->work && side->liveColors == liveColors) profile(*side);
    }

    double allocated = 0, resolved = 0;
    for (const Case& c : cases) {
        resolved = std::max(resolved, perCall(c.bound.work, resolverCalls));
        if (c.isAllocationFree) allocated = std::max(allocated, perCall(c.bound.work, allocations));
    }
    std::puts(nlohmann::ordered_json{{"allocations", allocated}, {"entry_lookup", resolved}}.dump().c_str());
}

} // namespace
} // namespace bench

int main() {
    try {
        bench::run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "count_cases: %s\n", error.what());
        return 1;
    }
}
