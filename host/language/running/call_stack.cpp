#include "language/running/call_stack.h"

namespace host::language {
namespace {

using Calls = std::vector<ActiveCall>;

// Returns the calls that the exception has ended, followed by the calls around the Catch, which continue.
Calls callsOf(const Raised& raised, const Execution& execution) {
    Calls calls = raised.ended();
    for (const ActiveCall* call = execution.innermost; call; call = call->caller)
        calls.push_back(*call);
    return calls;
}

// Consecutive calls, and how often the same calls follow again.
struct Run {
    std::size_t first, count, repetitions;
};

// Returns how often the `count` calls from `first` on are repeated directly after them.
std::size_t repetitionsOf(const Calls& calls, std::size_t first, std::size_t count) {
    std::size_t same = 0;
    while (first + count + same < calls.size() && calls[first + same].offset == calls[first + count + same].offset)
        ++same;
    return same / count;
}

// Folds repeated calls. A procedure that calls itself repeats one call, and procedures that call each other repeat a few.
std::vector<Run> folded(const Calls& calls) {
    constexpr std::size_t maxPeriod = 4, fewestRepetitions = 3;
    std::vector<Run> runs;
    for (std::size_t i = 0; i < calls.size(); i += runs.back().count * (runs.back().repetitions + 1)) {
        runs.push_back({i, 1, 0});
        for (std::size_t period = 1; period <= maxPeriod && runs.back().repetitions == 0; ++period) {
            const std::size_t repetitions = repetitionsOf(calls, i, period);
            if (repetitions >= fewestRepetitions) runs.back() = {i, period, repetitions};
        }
    }
    return runs;
}

// Returns a place in the procedure that call `index` called. If the index is past the last call, the place is in the
// program.
std::string placeIn(const Calls& calls, std::size_t index, Offset offset, const Execution& execution) {
    const Source& source = *execution.source;
    if (index < calls.size()) return source.location(offset) + " in " + calls[index].procedure->signature.name + "\n";
    return source.location(offset) + (execution.presenter ? ": " + std::string(source.line(offset)) : "") + "\n";
}

std::string lines(const Calls& calls, const Execution& execution) {
    constexpr std::size_t maxShown = 20;
    const std::vector<Run> runs = folded(calls);
    const std::size_t dropped = runs.size() > maxShown ? runs.size() - maxShown : 0;
    std::string text;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (dropped > 0 && i == maxShown / 2) {
            text += "... " + std::to_string(dropped) + " more lines\n";
            i += dropped;
        }
        const Run& run = runs[i];
        for (std::size_t call = run.first; call < run.first + run.count; ++call)
            text += "called from " + placeIn(calls, call + 1, calls[call].offset, execution);
        if (run.repetitions == 0) continue;
        text += "... the same " + (run.count == 1 ? "call" : std::to_string(run.count) + " calls") + " " +
                std::to_string(run.repetitions) + " more times\n";
    }
    return text;
}

} // namespace

std::string callsAround(const Raised& raised, const Execution& execution) {
    return lines(callsOf(raised, execution), execution);
}

std::string stackOf(const Raised& raised, const Execution& execution) {
    const Calls calls = callsOf(raised, execution);
    std::string text = "raised at " + placeIn(calls, 0, raised.offset(), execution) + lines(calls, execution);
    text.pop_back(); // the end of the last line
    return text;
}

} // namespace host::language
