// Performs one call of one bound function and checks its outcome.
#include "driver.h"

#include "bridge/strings.h"
#include "builtin/corefoundation.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "platform/guard.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"
#include "values/platform.h"
#include "values/strings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <iterator>

namespace matrix {
namespace {

using host::Slot;

using host::validator::emptyReceiver;
using host::validator::nullReceiver;

// A call and its outcome.
struct Call {
    const Function& function;
    const Choice& choice;
    Plan plan;
    const Verdict* plain;
    const host::validator::Arguments arguments{function, choice, hostCounts() ? 0 : 8};
    Slot result = {};
    bool returned = false, escaped = false; // whether it ended with a return or a C++ exception
    chroma::id thrown = nullptr;            // the native exception that ended it
    host::validator::Traces traces = {};
    std::string exceptionClass = {}; // the class of the host exception

    bool raisesAnyway() const { return plain && plain->raised; }
    bool hasReceiver(std::size_t form) const { return function.hasReceiver() && choice.receiver == form; }
};

bool hasAll(std::initializer_list<const char*> entries) {
    return std::none_of(entries.begin(), entries.end(), [](auto entry) { return missingEntries.count(entry) > 0; });
}

// Host exceptions are objects. The sibling registers the class of those that represent the platform's exceptions.
bool hostCanRaise() {
    return hasAll({"PluginNewInstance", "RuntimeRaiseException"}) && (!hasSibling || hasAll({"PluginRegisterClass"}));
}

const host::Type number = host::Type::plain(host::Kind::real);

// Throws after the call. A guard that the function left open would catch this exception in a frame that no longer exists.
void invoke(Call& call) {
    auto body = [&call] {
        try {
            call.arguments.invoke(call.result);
            call.returned = true;
        } catch (const std::exception&) { // native exceptions may be foreign C++ exceptions
            call.escaped = true;
        }
        chroma::throwNative(testObject);
    };
    expectNumber(call.function.signature.result == number);
    host::validator::arm(call.plan);
    call.thrown = chroma::catchNative(body);
    call.traces = host::validator::disarm();
    if (call.returned || call.escaped) call.thrown = nullptr;
    if (!call.returned) call.result = Slot();
    if (host::Object* const exception = host::takePendingException()) {
        call.exceptionClass = exception->info->name();
        host::unlock(exception);
    }
}

chroma::Message<chroma::id()> description{"description"}, localizedName{"localizedName"};

// Describes an object by its class. A colour or a space adds its own description.
std::string described(const host::Object* object) {
    if (!object) return "";
    std::string text = object->info->name();
    chroma::Message<chroma::id()>* const message = text == "NSColorZRX"        ? &description
                                                   : text == "NSColorSpaceZRX" ? &localizedName
                                                                               : nullptr;
    if (!message) return text;
    host::String* const words = chroma::NSStringRB((*message)(chroma::nativeObject(object)));
    if (words) text += host::bytesOf(words);
    host::unlock(words);
    return text;
}

std::string described(const host::Type& type, Slot slot) {
    if (type.isObjectReference()) return described(slot.object);
    switch (type.kind) {
    case host::Kind::nothing: return "";
    case host::Kind::real: return slot.real == 0 ? "" : std::to_string(slot.real);
    case host::Kind::string: return slot.string ? std::string(host::bytesOf(slot.string)) : "";
    default: return slot.integer == 0 ? "" : std::to_string(slot.integer);
    }
}

void appendOutcome(const Call& call, std::string& outcome) {
    const host::Type& type = call.function.signature.result;
    if (const host::Array* const array = type.isArray ? host::asArray(call.result.object) : nullptr) {
        for (std::int32_t i = 0; i <= host::upperBound(array); ++i)
            outcome += described(type.element(), host::elementAt(array, i)) + '\n';
    } else if (!type.isArray) {
        outcome += described(type, call.result) + '\n';
    }
    for (std::size_t i = 0; i < call.function.arguments.size(); ++i)
        if (const Slot* const output = call.arguments.output(i)) outcome += described(number, *output) + '\n';
}

bool isNull(std::string_view outcome) { return outcome.find_first_not_of('\n') == std::string_view::npos; }

std::string_view takeWord(std::string_view& words) {
    const std::string_view word = words.substr(0, words.find('\n'));
    words.remove_prefix(std::min(word.size() + 1, words.size()));
    return word;
}

// Returns whether the outcome matches the expected one or is null. An array may miss elements. Outputs are all set or all
// zero.
bool matches(const Call& call, std::string_view words, std::string_view expectedWords) {
    if (!call.function.signature.result.isArray) return isNull(words) || words == expectedWords;
    while (!words.empty()) {
        if (expectedWords.empty()) return false;
        const std::string_view word = takeWord(words), expectedWord = takeWord(expectedWords);
        if (!word.empty() && word != expectedWord) return false;
    }
    return true;
}

// Returns the number of host exceptions that an NSException from a message must cause.
int expectedExceptions(const Call& call) {
    const bool isDropped = wasBridging() || call.function.isQuiet || !hostCanRaise();
    if (!isDropped && call.function.converts && call.plan.at == 1) return call.raisesAnyway() ? 1 : 0;
    // A constructor's first use also sends NSException the message for the registry.
    return isDropped && call.function.signature.name != "constructor" ? 0 : 1;
}

const char* refusalOf(const Call& call) {
    const bool canRaise = !missingEntries.count("PluginNewInstance") && !missingEntries.count("RuntimeRaiseException");
    return canRaise && call.choice.argument >= 0
               ? call.arguments.form(static_cast<std::size_t>(call.choice.argument)).refusal
               : nullptr;
}

const char* complaintOf(const Call& call, const std::string& outcome) {
    const bool isArray = call.function.signature.result.isArray, isNullResult = isArray || isNull(outcome);
    const Fault fault = call.traces.injected ? call.plan.fault : Fault::none;
    const int raised = call.traces.raised;
    if (std::current_exception()) return "a handler of a C++ exception was left open";
    if (call.escaped && fault < Fault::hostThrows) return "a C++ exception left the function";
    if (call.thrown && fault != Fault::throwOther) return "a native exception left the function";
    if (fault == Fault::throwOther && (call.thrown != testObject || raised))
        return "an object that is not an NSException did not propagate";
    if (fault == Fault::raise && raised != expectedExceptions(call))
        return "the wrong number of host exceptions for an NSException";
    // A failure while an exception's message is built raises another exception.
    if (raised > (fault >= Fault::hostThrows ? 2 : 1)) return "too many host exceptions";
    if (raised && !isNullResult) return "a host exception and a result";
    if (call.hasReceiver(nullReceiver) && (!isNullResult || (raised && fault == Fault::none)))
        return "null has a result, or raises";
    if (call.hasReceiver(emptyReceiver) && !chroma::nativeObject(call.arguments.receiver()) && !isNullResult)
        return "an empty object has a result";
    const bool isSpared = fault == Fault::none && call.plan.fault != Fault::none; // the fault came after the last event
    if (isSpared && (raised > 0) != call.raisesAnyway()) return "an earlier fault has a lasting effect";
    // The platform's result for nil, which a string may become if memory is exhausted, and for another colour is not
    // checked here.
    const bool isPlatforms =
        (fault >= Fault::returnNil && fault <= Fault::exhaustMemory) || (fault == Fault::raise && call.function.converts);
    if (call.plain && !isPlatforms && !matches(call, outcome, call.plain->outcome))
        return "an outcome that is neither null nor correct";
    const char* const refusal = fault == Fault::none ? refusalOf(call) : nullptr;
    return refusal && call.exceptionClass != refusal ? "an argument was not refused" : "";
}

// The things that a call may leak.
constexpr const char* counted[] = {"host objects", "host strings", "registry entries", "retains", "heap blocks"};
using Balance = std::array<std::size_t, std::size(counted)>;

Balance balance() {
    const chroma::CFIndex entries = chroma::instances ? CFDictionaryGetCount(chroma::instances) : 0;
    return {host::liveObjectCount(), host::liveStringCount(), static_cast<std::size_t>(entries), retainsOfNatives(),
            liveBlocks()};
}

Verdict callOnce(const Function& function, const Choice& choice, Plan plan, const Verdict* plain, const char*& leaked) {
    Verdict verdict;
    verdict.complaint.reserve(100); // so that these texts do not count as the call's blocks
    verdict.outcome.reserve(100);
    const Balance before = balance();
    {
        const host::platform::AutoreleasePool pool;
        {
            Call call{function, choice, plan, plain};
            invoke(call);
            verdict.injected = call.traces.injected;
            verdict.raised = call.traces.raised > 0;
            appendOutcome(call, verdict.outcome);
            verdict.complaint = complaintOf(call, verdict.outcome);
            host::unlock(function.signature.result, call.result);
        }
        settle();
    }
    const Balance after = balance();
    const auto different = std::mismatch(before.begin(), before.end(), after.begin()).first - before.begin();
    leaked = hostCounts() && before != after ? counted[different] : nullptr;
    return verdict;
}

} // namespace

bool hostCounts() { return hasAll({"REALLockObject", "REALUnlockObject", "REALLockString", "REALUnlockString"}); }

// The platform may create and keep objects once. Only what a second, identical call leaks too counts as a leak.
Verdict call(const Function& function, const Choice& choice, Plan plan, const Verdict* plain) {
    const char* leaked = nullptr;
    Verdict verdict = callOnce(function, choice, plan, plain, leaked);
    if (!verdict.complaint.empty() || !leaked) return verdict;
    verdict = callOnce(function, choice, plan, plain, leaked);
    if (leaked) verdict.complaint += std::string("leaked ") + leaked;
    return verdict;
}

} // namespace matrix
