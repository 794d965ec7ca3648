// One check of a plugin: its child processes and what they find.
#pragma once

#include "model/classes.h"
#include "validator/functions.h"
#include "validator/validator.h"

#include <functional>
#include <map>

namespace host::validator {

// Runs in the parent process.
class Run {
public:
    Run(const Trial& trial, Severity severity, bool inProcess = false)
        : trial_(trial), severity_(severity), inProcess_(inProcess) {}

    const Trial& trial() const { return trial_; }

    // Runs the body in a child process. Returns whether the body called flag(). `host` describes the host; empty: an
    // ordinary one.
    bool child(const std::string& host, const std::function<void()>& body);

    // Starts an ordinary host with the plugin in a child process and passes the plugin's classes to the body.
    void classes(const std::function<void(const std::vector<const ClassInfo*>&)>& body);

    // Starts a host with these options and passes each function of the plugin's classes to `visit`. If one crashes or
    // hangs, another child process continues with the next. `reason` is the result's reason if nothing was tested.
    using Visit = std::function<void(const Function& function)>;
    void functions(const HostOptions& options, const std::string& reason, const Visit& visit);

    Result take();

private:
    Ending run(const std::string& host, const std::function<void()>& body);
    bool canStart();
    void receive(const std::string& host, const std::string& message);
    void add(Severity severity, const std::string& host, const std::string& text);

    const Trial& trial_;
    const Severity severity_;
    const bool inProcess_;
    bool tested_ = false, flagged_ = false;
    Result result_;
    std::map<std::string, std::size_t> places_; // the indices of complaints by their text
};

// For the child. complain() reports a complaint of the check's severity, warn() a warning. tested() records that the
// requirement was tested, untested() why it was not.
void complain(const std::string& text);
void warn(const std::string& text);
void tested();
void untested(const std::string& reason);
void flag();

// Calls the body. If it throws, complains of the exception and names the latest step.
void complainOfExceptions(const std::function<void()>& body);

// Starts a host with these options and loads the plugin. Returns the plugin's classes.
std::vector<const ClassInfo*> start(const Trial& trial, const HostOptions& options = {});
void startCheckedHost(const HostOptions& options = {});

std::string describe(const HostOptions& options);

} // namespace host::validator
