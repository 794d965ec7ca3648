#include "language/running/call_stack.h"

namespace host::language {
namespace {

// Those that the exception has ended and those that go on around the Catch, with one more than is told: it names the
// procedure of the last place.
std::vector<ActiveCall> callsOf(const Raised& raised, const Execution& execution) {
    std::vector<ActiveCall> calls = raised.ended();
    for (const ActiveCall* call = execution.innermost; call && calls.size() <= Raised::maxCallsTold; call = call->caller)
        calls.push_back(*call);
    return calls;
}

// A place in the procedure that call `index` called; behind the last of them, in the program.
std::string placeIn(const std::vector<ActiveCall>& calls, std::size_t index, Offset offset, const Execution& execution) {
    const Source& source = *execution.source;
    if (index < calls.size()) return source.location(offset) + " in " + calls[index].procedure->signature.name + "\n";
    return source.location(offset) + (execution.presenter ? ": " + std::string(source.line(offset)) : "") + "\n";
}

std::string lines(const std::vector<ActiveCall>& calls, const Execution& execution) {
    std::string text;
    for (std::size_t i = 0; i < calls.size() && i < Raised::maxCallsTold; ++i)
        text += "called from " + placeIn(calls, i + 1, calls[i].offset, execution);
    return text;
}

} // namespace

std::string callsAround(const Raised& raised, const Execution& execution) {
    return lines(callsOf(raised, execution), execution);
}

std::string stackOf(const Raised& raised, const Execution& execution) {
    const std::vector<ActiveCall> calls = callsOf(raised, execution);
    std::string text = "raised at " + placeIn(calls, 0, raised.offset(), execution) + lines(calls, execution);
    text.pop_back(); // the last line's end
    return text;
}

} // namespace host::language
