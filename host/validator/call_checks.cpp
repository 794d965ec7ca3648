// Checks of calls on the current host.
#include "validator/checks.h"

#include "validator/calls.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

namespace host::validator {

namespace {

constexpr const char* noFunctions = "no class has a function";

void complainOfException(const Outcome& outcome) {
    if (!outcome.exception.empty()) complain(outcome.call + ": an exception left the function: " + outcome.exception);
}

// Performs every call of every function and complains of each misuse of this kind.
void checkMisuse(Run& run, Misuse kind) {
    run.functions({}, noFunctions, [kind](const Function& function) {
        for (const Choice& choice : choicesFor(function)) {
            const Outcome outcome = call(function, choice);
            for (const MisuseNote& misuse : outcome.misuses)
                if (misuse.kind == kind) complain(outcome.call + ": " + misuse.text);
        }
        tested();
    });
}

} // namespace

void acceptsNullReceivers(Run& run) {
    run.functions({}, "no function has a receiver", [](const Function& function) {
        if (!function.hasReceiver()) return;
        const Outcome outcome = call(function, {nullReceiver});
        if (!outcome.isNull) complain(outcome.call + ": the result is not null");
        if (outcome.raised) complain(outcome.call + ": it raises an exception");
        complainOfException(outcome);
        tested();
    });
}

void acceptsEmptyReceivers(Run& run) {
    run.functions({}, "no function has a receiver", [](const Function& function) {
        if (!function.hasReceiver()) return;
        complainOfException(call(function, {emptyReceiver}));
        tested();
    });
}

void acceptsArguments(Run& run) {
    run.functions({}, noFunctions, [](const Function& function) {
        for (const Choice& choice : choicesFor(function))
            complainOfException(call(function, choice));
        tested();
    });
}

// A setter may refuse or change unusual values, but the first two of each type are ordinary.
void settersStore(Run& run) {
    run.functions({}, "no property has a setter that is a function", [](const Function& function) {
        if (!function.isSetter) return;
        for (const Choice& choice : choicesFor(function)) {
            complainOfException(call(function, choice));
            if (!function.property || choice.form > 1) continue;
            const std::string difference = setAndRead(function, choice);
            if (!difference.empty()) warn(describe(function, choice) + ": " + difference);
        }
        tested();
    });
}

void exceptionsHaveNullResults(Run& run) {
    run.functions({}, "no call raised an exception", [](const Function& function) {
        for (const Choice& choice : choicesFor(function)) {
            const Outcome outcome = call(function, choice);
            if (!outcome.raised) continue;
            if (!outcome.isNull) complain(outcome.call + ": it raises an exception and returns a result");
            tested();
        }
    });
}

void callsBalance(Run& run) {
    run.functions({}, noFunctions, [](const Function& function) {
        for (const Choice& choice : choicesFor(function)) {
            const Outcome outcome = call(function, choice);
            if (!outcome.leaked.empty()) complain(outcome.call + ": each call leaks " + outcome.leaked);
        }
        tested();
    });
}

// Each function is called twice with the same arguments. The host releases the first result. A function that keeps this
// result without a reference then returns it again, or releases it when its object is destroyed.
void resultsAreOwned(Run& run) {
    run.functions({}, "no call returned an object or a string", [](const Function& function) {
        for (const Choice& choice : choicesFor(function)) {
            const Outcome outcome = callTwice(function, choice);
            if (outcome.isCounted) tested();
            for (const MisuseNote& misuse : outcome.misuses)
                if (misuse.kind == Misuse::unownedResult) complain(outcome.call + ": " + misuse.text);
        }
    });
}

void destroyedValuesAreUnused(Run& run) { checkMisuse(run, Misuse::destroyedValue); }

void instanceDataIsBounded(Run& run) { checkMisuse(run, Misuse::instanceData); }

void textIsLocked(Run& run) {
    for (const HostOptions& options : {HostOptions(), HostOptions{2021.0, {"REALGetStringCFString"}}}) {
        bool isHidden = false;
        run.functions(options, "no function takes text", [&isHidden](const Function& function) {
            if (!isHidden) hideUnlockedText();
            isHidden = true;
            const std::vector<Parameter>& parameters = function.signature.parameters;
            const auto isText = [](const Parameter& parameter) { return parameter.type.is(Kind::string); };
            if (std::none_of(parameters.begin(), parameters.end(), isText)) return;
            for (const Choice& choice : choicesFor(function))
                call(function, choice);
            tested();
        });
    }
}

std::ptrdiff_t threadCount() {
    std::error_code error;
    return std::distance(std::filesystem::directory_iterator("/proc/self/task", error), {});
}

// Waits a moment for a thread that a function started, since that thread may call an entry point.
void usesOneThread(Run& run) {
    run.functions({}, noFunctions, [](const Function& function) {
        for (const Choice& choice : ordinaryChoicesFor(function)) {
            const std::ptrdiff_t threads = threadCount();
            Outcome outcome = call(function, choice);
            if (threadCount() > threads) std::this_thread::sleep_for(std::chrono::milliseconds(50));
            const std::vector<MisuseNote> later = takeMisuses();
            outcome.misuses.insert(outcome.misuses.end(), later.begin(), later.end());
            for (const MisuseNote& misuse : outcome.misuses)
                if (misuse.kind == Misuse::otherThread) complain(outcome.call + ": " + misuse.text);
        }
        tested();
    });
}

} // namespace host::validator
