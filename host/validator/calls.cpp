#include "validator/calls.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "validator/child.h"
#include "values/checked_memory.h"
#include "values/platform.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <cxxabi.h>
#include <map>
#include <memory>
#include <sstream>

namespace host::validator {

namespace {

// ---- Leaks

using Balance = std::array<std::size_t, 3>;

Balance balance() { return {liveObjectCount(), liveStringCount(), platform::registeredObjectCount()}; }

using Census = std::map<std::string, long>;

Census census() {
    Census counts;
    std::size_t others = liveObjectCount();
    for (const auto& info : registry().classes()) {
        counts[info->name()] = static_cast<long>(info->liveObjects);
        others -= info->liveObjects;
    }
    counts["array or variant"] = static_cast<long>(others);
    counts["String"] = static_cast<long>(liveStringCount());
    counts["registry entry"] = static_cast<long>(platform::registeredObjectCount());
    return counts;
}

std::string difference(const Census& before, const Census& after) {
    std::string leaked, lost;
    for (const auto& [name, count] : after) {
        const auto found = before.find(name);
        const long more = count - (found == before.end() ? 0 : found->second);
        std::string& text = more > 0 ? leaked : lost;
        if (more != 0) text += (text.empty() ? "" : ", ") + std::to_string(std::labs(more)) + " x " + name;
    }
    if (!lost.empty()) leaked += (leaked.empty() ? "" : ", and ") + ("releases too many: " + lost);
    return leaked;
}

// ---- Calling

bool isNullValue(const Type& type, Slot value) {
    if (type.is(Kind::nothing)) return true;
    if (type.isArray) return !value.object || upperBound(asArray(value.object)) < 0;
    return type.is(Kind::real) ? value.real == 0 : value.integer == 0;
}

// Replaces the result by null if the host must not release it.
void checkReference(const Function& function, const Arguments& arguments, Slot& result) {
    const Type& type = function.signature.result;
    const bool isString = type.is(Kind::string);
    if (!(isString || type.isObjectReference()) || !result.address || !memory::isChecking()) return;
    const char* const what = isString ? "a string" : "an object";
    const auto refuse = [&](const std::string& text) {
        note(Misuse::unownedResult, text);
        result = {};
    };
    if (!memory::isAlive(result.address)) {
        refuse("it returned " + std::string(what) + " that is already destroyed");
        return;
    }
    const int held = arguments.referencesTo(result.address);
    const std::int32_t references = isString ? referencesOf(result.string) : result.object->references;
    if (held > 0 && references <= held) refuse("it returned its argument without a new reference");
}

void invoke(const Function& function, const Arguments& arguments, Plan plan, Outcome& outcome) {
    Slot result;
    arm(plan);
    try {
        arguments.invoke(result);
    } catch (...) {
        outcome.exception = describeException();
        result = {};
    }
    const Traces traces = disarm();
    showAllText();
    checkMemory("it");
    outcome.injected = traces.injected;
    if (traces.injected && traces.entry) outcome.call += std::string(", where ") + traces.entry + " failed";
    outcome.raised = Owned<Object>(takePendingException()).get() != nullptr;
    const Type& type = function.signature.result;
    checkReference(function, arguments, result);
    outcome.isNull = isNullValue(type, result);
    outcome.isCounted = !outcome.isNull && (type.isObjectReference() || type.is(Kind::string));
    unlock(type, result);
}

void hideArguments(const Function& function, const Arguments& arguments) {
    for (std::size_t i = 0; i < function.arguments.size(); ++i)
        if (function.signature.parameters[i].type.is(Kind::string)) hideText(arguments.argument(i).string);
}

Outcome callOnce(const Function& function, const Choice& choice, Plan plan, int times = 1) {
    const platform::AutoreleasePool pool;
    Outcome outcome{describe(function, choice)};
    try {
        const Arguments arguments(function, choice);
        step(outcome.call);
        for (; times > 0; --times) {
            hideArguments(function, arguments);
            invoke(function, arguments, plan, outcome);
        }
        step(outcome.call + ", while the host releases the arguments");
    } catch (...) { // from the functions that create a filled object
        outcome.exception = describeException() + " (while the arguments were created)";
    }
    checkMemory("it");
    outcome.misuses = takeMisuses();
    return outcome;
}

// ---- Reading back

std::string wordsFor(const Type& type, Slot value) {
    std::ostringstream text;
    if (type.is(Kind::real)) {
        text << value.real;
    } else if (type.is(Kind::string)) {
        text << '"' << utf8Of(value.string) << '"';
    } else if (type.isObjectReference()) {
        text << (value.object ? "an object" : "null");
    } else {
        text << value.integer;
    }
    return text.str();
}

bool isSame(const Type& type, Slot a, Slot b) {
    if (type.is(Kind::string)) return utf8Of(a.string) == utf8Of(b.string);
    if (type.is(Kind::real)) return a.real == b.real || (std::isnan(a.real) && std::isnan(b.real));
    if (type.isObjectReference()) return (a.object == nullptr) == (b.object == nullptr);
    return a.integer == b.integer;
}

} // namespace

Outcome call(const Function& function, const Choice& choice, Plan plan) {
    const Balance before = balance();
    Outcome outcome = callOnce(function, choice, plan);
    if (balance() == before) return outcome;
    const Census between = census();
    callOnce(function, choice, plan);
    outcome.leaked = difference(between, census());
    return outcome;
}

Outcome callTwice(const Function& function, const Choice& choice) { return callOnce(function, choice, {}, 2); }

std::string setAndRead(const Function& setter, const Choice& choice) {
    const platform::AutoreleasePool pool;
    const Arguments arguments(setter, choice);
    if (!arguments.receiver()) return "";
    step(describe(setter, choice));
    Slot none;
    arguments.invoke(none);
    if (Owned<Object>(takePendingException())) return "";
    step(setter.property->owner->name() + "." + setter.property->name + "/0, after " + describe(setter, choice));
    const Type& type = setter.property->type;
    const Slot expected = arguments.argument(0), found = readProperty(*setter.property, arguments.receiver());
    const bool isReadable = !Owned<Object>(takePendingException());
    std::string text = !isReadable                     ? "reading the property raises an exception"
                       : isSame(type, expected, found) ? ""
                                                       : "reading the property returns " + wordsFor(type, found);
    unlock(type, found);
    return text;
}

std::string describeException() {
    const std::type_info* const type = abi::__cxa_current_exception_type();
    std::string name = "an exception of another language";
    if (type) {
        int status = 0;
        const std::unique_ptr<char, void (*)(void*)> words(abi::__cxa_demangle(type->name(), nullptr, nullptr, &status),
                                                           std::free);
        name = words ? words.get() : type->name();
    }
    try {
        throw;
    } catch (const std::exception& error) {
        const char* const what = error.what();
        return name + (what && *what ? ": " + std::string(what) : "");
    } catch (...) {
        return name;
    }
}

} // namespace host::validator
