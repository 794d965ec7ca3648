#include "validator/calls.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/leaks.h"
#include "model/owned.h"
#include "model/platform.h"
#include "validator/child.h"

#include <array>

namespace host::validator {

namespace {

using Balance = std::array<std::size_t, 3>;

Balance balance() { return {liveObjectCount(), liveStringCount(), platform::registeredObjectCount()}; }

bool isNullValue(const Type& type, Slot value) {
    if (type.is(Kind::nothing)) return true;
    if (type.isArray) return !value.object || upperBound(asArray(value.object)) < 0;
    return type.is(Kind::real) ? value.real == 0 : value.integer == 0;
}

Outcome callOnce(const Function& function, const Choice& choice, Plan plan) {
    const platform::AutoreleasePool pool;
    Outcome outcome;
    Slot result;
    try {
        const Arguments arguments(function, choice);
        arm(plan);
        try {
            arguments.invoke(result);
        } catch (...) {
            outcome.threw = true;
            result = {};
        }
        outcome.struck = disarm().struck;
        outcome.raised = Owned<Object>(takePendingException()).get() != nullptr;
        outcome.isNull = isNullValue(function.signature.result, result);
        unlock(function.signature.result, result);
    } catch (...) { // out of what makes a filled object
        outcome.threw = true;
    }
    return outcome;
}

} // namespace

Outcome call(const Function& function, const Choice& choice, Plan plan) {
    step(function.name + (function.hasReceiver() && choice.receiver == nullReceiver ? " of null" : ""));
    Balance before = balance();
    Outcome outcome = callOnce(function, choice, plan);
    if (balance() == before) return outcome;
    before = balance();
    const std::string alive = describeLeaks();
    callOnce(function, choice, plan);
    const Balance after = balance();
    if (after == before) return outcome;
    const auto text = [](const std::string& left) { return left.empty() ? "nothing" : left; };
    outcome.left = text(alive) + " is left before, " + text(describeLeaks()) + " after";
    if (after[2] != before[2])
        outcome.left += ", and " + std::to_string(after[2]) + " registry entries, not " + std::to_string(before[2]);
    return outcome;
}

} // namespace host::validator
