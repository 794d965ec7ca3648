// Checks on other hosts: older, without entries, and with entries that fail.
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

// Calls REALPluginMain with the fault at the n-th call of the host.
void startWith(const Run& run, Plan plan) {
    startCheckedHost();
    const REALPluginMainProc main = openPlugin(run.trial().plugin);
    step("REALPluginMain");
    arm(plan);
    try {
        main(watchedEntry);
    } catch (const std::exception&) { // the host's own
    }
    if (disarm().struck) flag();
}

// With the fault at the first call of the host, at the second, and so on until none is left: while the plugin starts, each
// time in a process of its own, and in each call.
void checkFault(Run& run, Fault fault) {
    Plan first{fault, 1, true};
    while (run.child("", [&] { startWith(run, first); }))
        ++first.at;
    const bool isTheHosts = fault != Fault::hostAnswersNull; // an exception of its own may come back to it
    run.functions({}, noFunctions, [=](const Function& function) {
        for (const Choice& choice : ordinaryChoicesFor(function)) {
            bool struck = true;
            for (Plan plan{fault, 1, true}; struck; ++plan.at) {
                const Outcome outcome = call(function, choice, plan);
                struck = outcome.struck;
                if (!outcome.exception.empty() && !isTheHosts)
                    complain(outcome.call + ": an exception left the function: " + outcome.exception);
                if (!outcome.left.empty()) complain(outcome.call + ": each call leaves behind " + outcome.left);
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

void acceptsNulls(Run& run) { checkFault(run, Fault::hostAnswersNull); }

void survivesHostExceptions(Run& run) {
    checkFault(run, Fault::hostThrows);
    checkFault(run, Fault::hostAlwaysThrows);
}

} // namespace host::validator
