#include "calls.h"

#include "model/exceptions.h"
#include "model/leaks.h"
#include "model/platform.h"
#include "model/strings.h"
#include "platform/guard.h"
#include "runtime/native_object.h"

#include <algorithm>
#include <iterator>

extern "C" chroma::CFIndex CFDictionaryGetCount(chroma::CFMutableDictionaryRef);

namespace matrix {
namespace {

using host::Slot;

// A call in the making, its values and what came of it. Plain data, since native exceptions jump past it.
struct Call {
    const Function* function;
    Plan plan;
    Slot slots[host::maximumArguments + 2], outputs[host::maximumArguments], result;
    host::Object* receiver = nullptr;
    bool returned = false, escaped = false; // by a return, by a C++ exception
    chroma::id thrown = nullptr;            // by a native one
    Traces traces;
    std::string exceptionClass; // of the host exception
};

const host::Parameter& parameterOf(const Call& call, std::size_t i) { return call.function->signature.parameters[i]; }
std::size_t firstArgument(const Call& call) { return call.function->receiver ? 1 : 0; }

// A host that counts up or down alone loses what it counts, so its values get references to lose and nothing balances.
bool hostCountsReferences() {
    const char* const entries[] = {"REALLockObject", "REALUnlockObject", "REALLockString", "REALUnlockString"};
    return std::none_of(std::begin(entries), std::end(entries), [](auto entry) { return missingEntries.count(entry) > 0; });
}

void lockForEver(const host::Type& type, Slot value) {
    for (int i = 0; i < 8; ++i)
        host::lock(type, value);
}

void makeArguments(Call& call, const Choice& choice) {
    if (call.function->receiver) {
        call.receiver = newReceiver(*call.function->receiver, choice.receiver);
        call.slots[0] = Slot::ofObject(call.receiver);
    }
    for (std::size_t i = 0; i < call.function->signature.parameters.size(); ++i) {
        const host::Parameter& parameter = parameterOf(call, i);
        const std::size_t form = static_cast<int>(i) == choice.parameter ? choice.form : 0;
        Slot& slot = call.slots[firstArgument(call) + i];
        call.outputs[i] = Slot::ofReal(0.75);
        if (parameter.byRef)
            slot = Slot::ofReference(form == 0 ? &call.outputs[i] : nullptr);
        else
            slot = newArgument(parameter, form);
        if (!parameter.byRef && !hostCountsReferences()) lockForEver(parameter.type, slot);
    }
    if (!hostCountsReferences()) lockForEver(host::Type::object("Object"), Slot::ofObject(call.receiver));
}

// Throws in the end, since a guard that the function left open would catch that, in a frame that is gone.
void invoke(Call& call) {
    auto body = [&call] {
        try {
            call.function->invoke(call.function->address, call.slots, &call.result);
            call.returned = true;
        } catch (...) {
            call.escaped = true;
        }
        chroma::throwNative(testObject);
    };
    arm(call.plan, call.function->answersNumber());
    call.thrown = chroma::catchNative(body);
    call.traces = disarm();
    if (call.returned || call.escaped) call.thrown = nullptr;
    if (!call.returned) call.result = Slot();
    if (host::Object* const exception = host::takePendingException()) {
        call.exceptionClass = exception->info->name();
        host::unlock(exception);
    }
}

void giveUp(Call& call) {
    host::unlock(call.function->signature.result, call.result);
    for (std::size_t i = 0; i < call.function->signature.parameters.size(); ++i)
        if (!parameterOf(call, i).byRef) host::unlock(parameterOf(call, i).type, call.slots[firstArgument(call) + i]);
    host::unlock(call.receiver);
}

// Arrays are handed out as far as they were filled.
bool isNullResult(const Call& call) {
    const host::Type& type = call.function->signature.result;
    for (std::size_t i = 0; i < call.function->signature.parameters.size(); ++i)
        if (parameterOf(call, i).byRef && call.slots[firstArgument(call) + i].reference && call.outputs[i].real != 0)
            return false;
    return type.isArray || (call.function->answersNumber() ? call.result.real == 0 : call.result.integer == 0);
}

bool hostCanRaise() { return !missingEntries.count("PluginNewInstance") && !missingEntries.count("RuntimeRaiseException"); }

int promisedExceptions(const Call& call) {
    if (call.traces.struckBridging || call.function->isQuiet) return 0;
    return call.function->converts && call.plan.at == 1 ? 0 : 1;
}

// What the fault makes certain.
std::string judgeFault(const Call& call) {
    const int raised = call.traces.raised;
    if (!call.traces.struck) return "";
    if (call.plan.fault == Fault::Throw) {
        if (call.thrown != testObject) return "the thrown object did not arrive outside";
        if (raised != 0) return "an object that is no NSException became a host exception";
    }
    if (call.plan.fault == Fault::Raise && raised != promisedExceptions(call))
        return "raised " + std::to_string(raised) + " host exceptions for an NSException";
    return "";
}

std::string judgeOutcome(const Call& call, const Choice& choice) {
    const Fault fault = call.traces.struck ? call.plan.fault : Fault::None;
    if (call.escaped && fault != Fault::HostThrows) return "a C++ exception left the function";
    if (call.thrown && fault != Fault::Throw) return "a native exception left the function";
    const int most = fault == Fault::HostThrows ? 2 : 1; // building the message of the one is the other
    if (call.traces.raised > most) return "raised " + std::to_string(call.traces.raised) + " host exceptions";
    if (call.traces.raised > 0 && !isNullResult(call)) return "raised, and has a result";
    const bool hasReceiver = call.function->receiver != nullptr;
    if (hasReceiver && choice.receiver == nullReceiver && (!isNullResult(call) || call.traces.raised))
        return "null has a result, or raised";
    if (hasReceiver && choice.receiver == emptyReceiver && !isFilled(call.receiver) && !isNullResult(call))
        return "an empty object has a result";
    const char* const refused =
        choice.parameter < 0 ? nullptr : refusal(parameterOf(call, static_cast<std::size_t>(choice.parameter)), choice.form);
    if (refused && fault == Fault::None && hostCanRaise() && call.exceptionClass != refused)
        return "raised \"" + call.exceptionClass + "\" instead of " + refused;
    return judgeFault(call);
}

// Everything that a call may leave behind.
struct Balance {
    std::size_t objects, strings, entries, retains, retainsOfThrown, blocks;
};

Balance balance() {
    chroma::Selector retainCount{"retainCount"};
    const auto retains = [&](chroma::id object) { return chroma::send<chroma::NSUInteger>(object, retainCount); };
    const chroma::CFIndex entries = chroma::instances ? CFDictionaryGetCount(chroma::instances) : 0;
    return {host::liveObjectCount(),
            host::liveStringCount(),
            static_cast<std::size_t>(entries),
            retainsOfNatives(),
            retains(testException) + retains(testObject),
            liveBlocks()};
}

// Says what was left; empty when nothing was.
std::string difference(const Balance& before, const Balance& after) {
    constexpr struct {
        const char* what;
        std::size_t Balance::*count;
    } counts[] = {{"host objects", &Balance::objects},
                  {"host strings", &Balance::strings},
                  {"registry entries", &Balance::entries},
                  {"retains", &Balance::retains},
                  {"retains of what was thrown", &Balance::retainsOfThrown},
                  {"heap blocks", &Balance::blocks}};
    for (const auto& [what, count] : counts)
        if (before.*count != after.*count)
            return "left " + std::to_string(static_cast<std::ptrdiff_t>(after.*count - before.*count)) + " " + what;
    return "";
}

struct Outcome {
    Verdict verdict;
    std::string left;
};

Outcome callOnce(const Function& function, const Choice& choice, Plan plan) {
    Outcome outcome;
    outcome.verdict.complaint.reserve(200); // so that a complaint is no block of the call's
    const Balance before = balance();
    {
        const host::platform::AutoreleasePool pool;
        Call call = {};
        call.function = &function;
        call.plan = plan;
        makeArguments(call, choice);
        invoke(call);
        outcome.verdict.struck = call.traces.struck;
        outcome.verdict.complaint = judgeOutcome(call, choice);
        giveUp(call);
    }
    if (hostCountsReferences()) outcome.left = difference(before, balance());
    return outcome;
}

} // namespace

std::vector<Choice> choicesFor(const Function& function) {
    std::vector<Choice> choices;
    const std::size_t receivers = function.receiver ? receiverForms(*function.receiver) : 1;
    for (std::size_t receiver = 0; receiver < receivers; ++receiver)
        choices.push_back({receiver, -1, 0});
    const std::size_t first = function.receiver ? emptyReceiver : 0;
    const std::size_t last = function.receiver ? ordinaryReceiver : 0;
    const auto count = static_cast<int>(function.signature.parameters.size());
    for (int parameter = 0; parameter < count; ++parameter) {
        const std::size_t forms = argumentForms(function.signature.parameters[static_cast<std::size_t>(parameter)]);
        for (std::size_t receiver = first; receiver <= last; ++receiver)
            for (std::size_t form = 1; form < forms; ++form)
                choices.push_back({receiver, parameter, form});
    }
    return choices;
}

// What the platform makes once and keeps is kept once: only what is left a second time is lost.
Verdict call(const Function& function, const Choice& choice, Plan plan) {
    Outcome outcome = callOnce(function, choice, plan);
    if (!outcome.verdict.complaint.empty() || outcome.left.empty()) return outcome.verdict;
    outcome = callOnce(function, choice, plan);
    if (outcome.verdict.complaint.empty()) outcome.verdict.complaint = outcome.left;
    return outcome.verdict;
}

} // namespace matrix
