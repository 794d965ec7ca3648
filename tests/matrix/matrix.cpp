// Every bound function, with every fault that can strike it, on hosts of every kind. What the plugin found out about its
// host lasts as long as the process, so each host is played in a process of its own.
#include "driver.h"

#include "model/entries.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace matrix;

// What a process tells the one that waits for it, also when it dies.
struct Report {
    unsigned long cases = 0;
    unsigned failures = 0;
    char current[200] = "start";
};
Report* report = nullptr;

Verdict check(const Function& function, const Choice& choice, Plan plan, const Verdict* plain = nullptr) {
    std::snprintf(report->current, sizeof report->current, "%s, receiver %zu, argument %d in form %zu, fault %d at %d",
                  function.name.c_str(), choice.receiver, choice.argument, choice.form, static_cast<int>(plan.fault),
                  plan.at);
    const Verdict verdict = call(function, choice, plan, plain);
    report->cases += plan.fault == Fault::none || verdict.struck;
    if (!verdict.complaint.empty() && ++report->failures <= 20)
        std::printf("    %s: %s\n", report->current, verdict.complaint.c_str());
    return verdict;
}

struct Configuration {
    std::string name;
    double version;
    bool hasSibling = true;
    std::vector<std::string> missing = {};
    Plan first = {}; // a fault in the first call of all; None: all faults in all calls
};

// With each fault at the first event, the second, and so on until there is none. A missing entry is a fault in itself;
// messages raise all the same.
void play(const Configuration& host) {
    const Fault last = host.missing.empty() ? Fault::hostAlwaysThrows : Fault::raise;
    const std::vector<Function> functions = start(host.version, host.missing, host.hasSibling);
    if (host.first.fault != Fault::none) {
        check(functions.front(), {}, host.first);
        return;
    }
    for (const Function& function : functions)
        for (const Choice& choice : choicesFor(function)) {
            const Verdict plain = check(function, choice, {});
            for (int kind = 1; kind <= static_cast<int>(last); ++kind)
                for (Plan plan{static_cast<Fault>(kind), 1}; check(function, choice, plan, &plain).struck;)
                    ++plan.at;
        }
}

bool passes(const Configuration& host) {
    *report = {report->cases};
    const unsigned long before = report->cases;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        play(host);
        std::exit(report->failures > 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const bool isComplete = status == 0 && (host.first.fault != Fault::none || report->cases - before > 2000);
    if (!isComplete)
        std::printf("%s: status %#x, at %s\n", host.name.c_str(), static_cast<unsigned>(status), report->current);
    return isComplete;
}

} // namespace

int main(int count, char** arguments) {
    report = static_cast<Report*>(mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    std::vector<Configuration> hosts = {{"2021", 2021.0}, {"2021 without sibling", 2021.0, false},
                                        {"2017", 2017.0}, {"2016", 2016.99},
                                        {"2012", 2012.0}, {"2008, in the legacy layout", 2008.0}};
    for (int kind = 1; kind <= static_cast<int>(Fault::hostAlwaysThrows); ++kind)
        for (int at = 1; at <= 6; ++at)
            hosts.push_back({"2021, first call", 2021.0, true, {}, {static_cast<Fault>(kind), at}});
    if (count > 1 && std::strcmp(arguments[1], "missing") == 0) {
        hosts = {{"without any entry", 2021.0, true, host::entryNames()}};
        for (const std::string& entry : host::entryNames())
            hosts.push_back({"without " + entry, 2021.0, true, {entry}});
    }
    int failures = 0;
    for (const Configuration& host : hosts)
        failures += !passes(host);
    std::printf("matrix: %lu cases, %d of %zu hosts failed\n", report->cases, failures, hosts.size());
    return failures > 0;
}
