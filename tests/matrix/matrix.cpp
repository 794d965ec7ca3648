// Every bound function, with every fault that can strike it, on hosts of every kind. What the plugin found out about its host lasts
// as long as the process, so each host is played in a process of its own.
#include "calls.h"

#include "model/entries.h"
#include "model/platform.h"
#include "start.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace matrix;

// What a process tells the one that waits for it, also when it dies.
struct Report {
    unsigned long cases;
    unsigned failures;
    char current[400];
};
Report* report = nullptr;

void describe(const Function& function, const Choice& choice, Plan plan) {
    std::snprintf(report->current, sizeof report->current, "%s, receiver %zu, parameter %d in form %zu, fault %d at %d",
                  function.name.c_str(), choice.receiver, choice.parameter, choice.form, static_cast<int>(plan.fault),
                  plan.at);
}

// Whether the planned fault struck.
bool check(const Function& function, const Choice& choice, Plan plan) {
    describe(function, choice, plan);
    const Verdict verdict = call(function, choice, plan);
    ++report->cases;
    if (!verdict.complaint.empty() && ++report->failures <= 20)
        std::printf("    %s: %s\n", report->current, verdict.complaint.c_str());
    return verdict.struck;
}

// Numbers make no difference to what a function sends, allocates and asks of its host.
bool changesTheWay(const Function& function, const Choice& choice) {
    return choice.parameter < 0 ||
           function.signature.parameters[static_cast<std::size_t>(choice.parameter)].type.isCounted();
}

void strike(const Function& function, const Choice& choice) {
    constexpr int most = 1000;
    for (int kind = static_cast<int>(Fault::Raise); kind < static_cast<int>(Fault::AfterTheLast); ++kind) {
        Plan plan{static_cast<Fault>(kind), 1};
        while (check(function, choice, plan) && plan.at < most)
            ++plan.at;
        if (plan.at == most) std::printf("    %s: struck for ever\n", report->current), ++report->failures;
    }
}

struct Configuration {
    std::string name;
    double version;
    bool hasSibling;
    bool withFaults;
    std::vector<std::string> missing;
};

void play(const Configuration& host) {
    const std::vector<Function> functions = start(host.version, host.missing, host.hasSibling);
    if (functions.size() < 140) std::printf("    only %zu functions\n", functions.size()), ++report->failures;
    for (const Function& function : functions)
        for (const Choice& choice : choicesFor(function)) {
            check(function, choice, {});
            if (host.withFaults && changesTheWay(function, choice)) strike(function, choice);
        }
}

bool runInProcess(const Configuration& host) {
    *report = {report->cases, 0, "starting"};
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        play(host);
        std::fflush(stdout);
        std::exit(report->failures > 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status == 0 && report->failures == 0) return true;
    std::printf("%s: %u failures; ended with status %#x at %s\n", host.name.c_str(), report->failures,
                static_cast<unsigned>(status), report->current);
    return false;
}

std::vector<Configuration> hostsOfAllVersions() {
    return {
        {"2021", 2021.0, true, true, {}},
        {"2021 without sibling", 2021.0, false, true, {}},
        {"2015", 2015.0, true, true, {}},
        {"2012", 2012.1, true, true, {}},
        {"2008, in the legacy layout", 2008.0, true, true, {}},
    };
}

std::vector<Configuration> hostsWithMissingEntries() {
    std::vector<Configuration> hosts;
    for (const std::string& entry : host::entryNames())
        hosts.push_back({"without " + entry, 2021.0, true, false, {entry}});
    hosts.push_back({"without any entry", 2021.0, true, false, host::entryNames()});
    return hosts;
}

} // namespace

int main(int count, char** arguments) {
    void* const shared = mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    report = static_cast<Report*>(shared);
    const bool missing = count > 1 && std::strcmp(arguments[1], "missing") == 0;
    int failures = 0;
    for (const Configuration& host : missing ? hostsWithMissingEntries() : hostsOfAllVersions())
        failures += !runInProcess(host);
    std::printf("matrix: %lu cases, %d hosts failed\n", report->cases, failures);
    return failures > 0;
}
