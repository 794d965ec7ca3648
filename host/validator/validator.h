// Checks a plugin against the contract, check by check.
#pragma once

#include "entries/entries.h"
#include "validator/child.h"

#include <string>
#include <vector>

namespace host::validator {

// The plugin to check, and another one that is loaded before it and not checked; empty: none.
struct Trial {
    std::string plugin;
    std::string sibling;
    Limits limits = {};
};

// The severity of a violated requirement. A breach violates host_abi.h. A warning means one of two things: the plugin
// depends on something that the contract does not promise, or it fails where only an incorrect host would notice.
enum class Severity { warning, breach };

struct Complaint {
    Severity severity;
    std::string text;               // one line
    std::vector<std::string> hosts; // the hosts that it occurred on; empty: the current one
};

struct Result {
    enum class State { passed, warned, failed, notTested };

    State state = State::notTested;
    std::string reason = {}; // why nothing was tested; empty for the other states
    std::vector<Complaint> complaints = {};
    std::vector<std::string> skipped = {}; // functions that were not called, since they hang
    std::string output = {};               // the standard output and error of the plugin's processes
};

class Run;

struct Check {
    const char* name;
    const char* requirement;
    Severity severity; // the severity of its complaints
    bool ofClasses;    // whether it tests the plugin's classes
    void (*perform)(Run& run);
};

// Returns the checks in the order in which their results should be read. The first checks that the library loads, which the
// others need.
const std::vector<Check>& checks();

// Performs the check, in child processes. Later calls do not call functions that hung in earlier ones.
Result perform(const Check& check, const Trial& trial);

// Calls the function of this name ("Class.member/0") with every value that its declaration admits, on a host with these
// options. The calls run in a child process or in this one, which can then check nothing else.
Result callFunction(const std::string& name, const Trial& trial, const HostOptions& host, bool inProcess);

} // namespace host::validator
