#include "validator/run.h"

#include "entries/plugin.h"
#include "validator/calls.h"
#include "validator/forms.h"
#include "values/checked_memory.h"
#include "values/platform.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>

namespace host::validator {

namespace {

constexpr const char* entryPoint = "REALPluginMain";
constexpr std::size_t noFunction = static_cast<std::size_t>(-1);

// Functions that hung, which are not called again. The second text is the reason why the plugin cannot be started; empty:
// it can.
std::set<std::string> hung;
std::string startFailure;

// The first word of a step names the function.
std::string functionIn(const std::string& step) { return step.substr(0, step.find_first_of(" ,")); }

std::vector<Function> functionsOf(const std::vector<const ClassInfo*>& classes) {
    std::vector<Function> all;
    for (const ClassInfo* const info : classes) {
        for (Function& function : functionsOf(*info, declaredForms))
            all.push_back(std::move(function));
    }
    return all;
}

bool isOrdinary(const HostOptions& options) { return options.version == HostOptions().version && options.without.empty(); }

} // namespace

// ---- In the child

void complain(const std::string& text) { send("!" + text); }
void warn(const std::string& text) { send("?" + text); }
void tested() { send("+"); }
void untested(const std::string& reason) { send("-" + reason); }
void flag() { send("*"); }

void startCheckedHost(const HostOptions& options) {
    step("starting the host");
    memory::beginChecking();
    startHost(options);
}

std::vector<const ClassInfo*> start(const Trial& trial, const HostOptions& options) {
    startCheckedHost(options);
    REALPluginMainProc main = nullptr;
    try {
        if (!trial.sibling.empty()) loadPlugin(trial.sibling);
        main = openPlugin(trial.plugin);
    } catch (const std::runtime_error& error) {
        untested(error.what());
        return {};
    }
    const std::size_t before = registry().classes().size();
    {
        const platform::AutoreleasePool pool;
        step(entryPoint);
        main(watchedEntry);
        step("the host, after REALPluginMain");
    }
    std::vector<const ClassInfo*> own;
    for (std::size_t i = before; i < registry().classes().size(); ++i)
        own.push_back(registry().classes()[i].get());
    if (own.empty()) untested("the plugin registers no class");
    return own;
}

void complainOfExceptions(const std::function<void()>& body) {
    try {
        body();
    } catch (...) {
        complain(currentStep() + ": an exception left the function: " + describeException());
    }
}

std::string describe(const HostOptions& options) {
    std::ostringstream text;
    text << "version " << options.version;
    for (const std::string& entry : options.without)
        text << " without " << entry;
    return text.str();
}

// ---- In the parent

Ending Run::run(const std::string& host, const std::function<void()>& body) {
    const auto receiver = [&](const std::string& message) { receive(host, message); };
    const auto guarded = [&] {
        setPlace(noFunction);
        complainOfExceptions(body);
    };
    if (inProcess_) {
        runHere(guarded, receiver);
        return {};
    }
    if (Limits::Clock::now() >= trial_.limits.end) {
        if (result_.reason.empty()) result_.reason = "the time for one plugin is over";
        return {Ending::Kind::overdue, {}, {}, noFunction, {}};
    }
    Ending ending = runChild(guarded, receiver, trial_.limits, Output::captured);
    if (!ending.output.empty() && result_.output.find(ending.output) == std::string::npos) result_.output += ending.output;
    if (!ending.finished()) add(severity_, host, ending.step + ": the process " + ending.words);
    if (ending.kind == Ending::Kind::hung) hung.insert(functionIn(ending.step));
    return ending;
}

bool Run::child(const std::string& host, const std::function<void()>& body) {
    flagged_ = false;
    run(host, body);
    return flagged_;
}

bool Run::canStart() {
    if (!startFailure.empty()) result_.reason = startFailure;
    return startFailure.empty();
}

void Run::classes(const std::function<void(const std::vector<const ClassInfo*>&)>& body) {
    if (!canStart()) return;
    const Ending ending = run("", [&] { body(start(trial_)); });
    if (!ending.finished() && functionIn(ending.step) == entryPoint) startFailure = "REALPluginMain does not return";
}

void Run::functions(const HostOptions& options, const std::string& reason, const Visit& visit) {
    if (!canStart()) return;
    const std::string host = isOrdinary(options) ? "" : describe(options);
    for (std::size_t next = 0;;) {
        const Ending ending = run(host, [&] {
            const std::vector<Function> functions = functionsOf(start(trial_, options));
            if (!functions.empty()) untested(reason);
            for (std::size_t i = next; i < functions.size(); ++i) {
                setPlace(i);
                if (hung.count(functions[i].name) != 0) {
                    send("~" + functions[i].name);
                } else {
                    complainOfExceptions([&] { visit(functions[i]); });
                }
            }
        });
        if (ending.finished() || ending.kind == Ending::Kind::overdue) return;
        const std::string function = functionIn(ending.step);
        if (ending.place == noFunction) {
            if (function == entryPoint && isOrdinary(options)) startFailure = "REALPluginMain does not return";
            return;
        }
        // A function that was called for an argument is no longer called for any argument, and the same function is tried
        // again.
        const bool isForArgument = ending.step.find(", called for an argument") != std::string::npos;
        const bool isNew =
            (isForArgument || ending.kind == Ending::Kind::hung) && unusableFunctions().insert(function).second;
        next = isForArgument && isNew ? ending.place : ending.place + 1;
    }
}

void Run::receive(const std::string& host, const std::string& message) {
    const std::string text = message.substr(1);
    switch (message[0]) {
    case '!': add(severity_, host, text); break;
    case '?': add(Severity::warning, host, text); break;
    case '+': tested_ = true; break;
    case '-':
        if (result_.reason.empty()) result_.reason = text;
        break;
    case '~':
        if (std::count(result_.skipped.begin(), result_.skipped.end(), text) == 0) result_.skipped.push_back(text);
        break;
    default: flagged_ = true;
    }
}

void Run::add(Severity severity, const std::string& host, const std::string& text) {
    std::string line = text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    const auto [found, isNew] = places_.emplace(line, result_.complaints.size());
    if (isNew) result_.complaints.push_back({severity, line, {}});
    std::vector<std::string>& hosts = result_.complaints[found->second].hosts;
    if (!host.empty() && std::count(hosts.begin(), hosts.end(), host) == 0) hosts.push_back(host);
}

Result Run::take() {
    const auto isBreach = [](const Complaint& complaint) { return complaint.severity == Severity::breach; };
    const std::vector<Complaint>& complaints = result_.complaints;
    const bool hasFailed = std::any_of(complaints.begin(), complaints.end(), isBreach);
    result_.state = hasFailed             ? Result::State::failed
                    : !complaints.empty() ? Result::State::warned
                    : tested_             ? Result::State::passed
                                          : Result::State::notTested;
    if (result_.state != Result::State::notTested) result_.reason.clear();
    return std::move(result_);
}

} // namespace host::validator
