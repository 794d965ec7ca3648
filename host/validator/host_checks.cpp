// Checks on other hosts: older ones, ones that do not provide every entry point, and ones whose entry points fail.
#include "validator/checks.h"

#include "entries/plugin.h"
#include "validator/calls.h"

#include <stdexcept>

namespace host::validator {

namespace {

constexpr const char* noFunctions = "no class has a function";

void callAll(Run& run, const HostOptions& options) {
    run.functions(options, noFunctions, [](const Function& function) {
        for (const Choice& choice : ordinaryChoicesFor(function)) {
            const Outcome outcome = call(function, choice);
            if (!outcome.exception.empty())
                complain(outcome.call + ": an exception left the function: " + outcome.exception);
        }
        tested();
    });
}

// Calls REALPluginMain with the planned fault. Calls flag() if the fault was injected.
void startWith(const Run& run, Plan plan) {
    startCheckedHost();
    const REALPluginMainProc main = openPlugin(run.trial().plugin);
    step("REALPluginMain");
    arm(plan);
    try {
        main(watchedEntry);
    } catch (const std::exception&) { // the host threw it
    }
    if (disarm().injected) flag();
}

// Injects the fault at the first call of the host, at the second, and so on until none is left. It does so while the plugin
// starts, each time in a new process, and in each call.
void checkFault(Run& run, Fault fault) {
    Plan first{fault, 1, true};
    while (run.child("", [&] { startWith(run, first); }))
        ++first.at;
    const bool isTheHosts = fault != Fault::hostReturnsNull; // an exception that the host threw may propagate back to it
    run.functions({}, noFunctions, [=](const Function& function) {
        for (const Choice& choice : ordinaryChoicesFor(function)) {
            bool injected = true;
            for (Plan plan{fault, 1, true}; injected; ++plan.at) {
                const Outcome outcome = call(function, choice, plan);
                injected = outcome.injected;
                if (!outcome.exception.empty() && !isTheHosts)
                    complain(outcome.call + ": an exception left the function: " + outcome.exception);
                if (!outcome.leaked.empty()) complain(outcome.call + ": each call leaks " + outcome.leaked);
            }
        }
        tested();
    });
}

} // namespace

void servesVersions(Run& run) {
    for (const double version : {0.0, 2011.0, 2012.0, 2013.0, 2017.0, 2021.0, 2099.0})
        callAll(run, {version, {}});
}

void servesMissingEntries(Run& run) {
    for (const double version : {2011.0, 2021.0}) {
        for (const std::string& entry : entryNames())
            callAll(run, {version, {entry}});
    }
}

void acceptsNulls(Run& run) { checkFault(run, Fault::hostReturnsNull); }

void survivesHostExceptions(Run& run) {
    checkFault(run, Fault::hostThrows);
    checkFault(run, Fault::hostAlwaysThrows);
}

} // namespace host::validator
