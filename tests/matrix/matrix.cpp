// Calls every bound function with every possible fault on hosts of every kind. The plugin caches properties of its
// host for the life of the process, so each host runs in a separate process.
#include "driver.h"

#include "entries/entries.h"
#include "validator/child.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" int __lsan_do_recoverable_leak_check() __attribute__((weak)); // null without a sanitizer

namespace {

using namespace matrix;

struct Configuration {
    std::string name;
    double version;
    bool hasSibling = true;
    std::vector<std::string> missing = {};
    Plan first = {}; // a fault in the very first call; none: all faults in all calls
};

// Injects each fault at the first event, the second, and so on until the call has no more. A missing entry is also a fault,
// but messages still raise. Returns the number of cases, or the complaints.
std::string runCases(const Configuration& host) {
    std::string complaints;
    unsigned cases = 0;
    const auto check = [&](const Function& function, const Choice& choice, Plan plan, const Verdict* plain = nullptr) {
        char what[200];
        std::snprintf(what, sizeof what, "%s, receiver %zu, argument %d in form %zu, fault %d at %d", function.name.c_str(),
                      choice.receiver, choice.argument, choice.form, static_cast<int>(plan.fault), plan.at);
        host::validator::step(what);
        const Verdict verdict = call(function, choice, plan, plain);
        cases += plan.fault == Fault::none || verdict.injected;
        if (!verdict.complaint.empty()) complaints += "\n    " + (what + (": " + verdict.complaint));
        return verdict;
    };
    const bool isFirstCall = host.first.fault != Fault::none;
    const Fault last = host.missing.empty() ? Fault::hostAlwaysThrows : Fault::raise;
    std::vector<Function> functions = start(host.version, host.missing, host.hasSibling);
    if (isFirstCall) {
        check(functions.front(), {}, host.first);
        functions.clear();
    }
    for (const Function& function : functions)
        for (const Choice& choice : choicesFor(function)) {
            const Verdict plain = check(function, choice, {});
            for (int kind = 1; kind <= static_cast<int>(last); ++kind)
                for (Plan plan{static_cast<Fault>(kind), 1}; check(function, choice, plan, &plain).injected;)
                    ++plan.at;
        }
    if (!isFirstCall && cases < 2000) complaints += "\n    too few cases";
    if (__lsan_do_recoverable_leak_check && hostCounts() && __lsan_do_recoverable_leak_check() != 0)
        complaints += "\n    memory is leaked";
    return complaints.empty() ? std::to_string(cases) : complaints;
}

} // namespace

int main(int count, char** arguments) {
    std::vector<Configuration> hosts = {{"2021", 2021.0}, {"2021 without sibling", 2021.0, false},
                                        {"2017", 2017.0}, {"2016", 2016.99},
                                        {"2012", 2012.0}, {"2008, in the legacy layout", 2008.0}};
    for (int kind = 1; kind <= static_cast<int>(Fault::hostAlwaysThrows); ++kind)
        for (int at = 1; at <= 6; ++at)
            hosts.push_back({"2021, first call", 2021.0, true, {}, {static_cast<Fault>(kind), at}});
    if (count > 1 && std::strcmp(arguments[1], "missing") == 0) {
        hosts = {{"without any entry", 2021.0, true, host::entryNames()}};
        for (const std::string& entry : host::entryNames())
            for (const bool sibling : {true, false})
                hosts.push_back({"without " + entry + (sibling ? "" : " and sibling"), 2021.0, sibling, {entry}});
    }
    unsigned long cases = 0;
    int failures = 0;
    for (const Configuration& host : hosts) {
        const std::string result = host::validator::inChild([&] { return runCases(host); });
        char* rest = nullptr;
        cases += std::strtoul(result.c_str(), &rest, 10);
        if (!result.empty() && *rest == '\0') continue;
        std::printf("%s: %s\n", host.name.c_str(), result.c_str());
        ++failures;
    }
    std::printf("matrix: %lu cases, %d of %zu hosts failed\n", cases, failures, hosts.size());
    return failures > 0;
}
