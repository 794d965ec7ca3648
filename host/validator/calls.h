// Calls a plugin's functions and records their outcomes.
#pragma once

#include "validator/faults.h"
#include "validator/functions.h"
#include "validator/watch.h"

#include <string>
#include <vector>

namespace host::validator {

struct Outcome {
    std::string call;           // the function, its arguments, and the entry point that failed
    bool injected = false;      // whether the fault was injected
    bool isNull = true;         // whether the result is null
    bool isCounted = false;     // whether the result is an object or a string
    bool raised = false;        // whether it raised a host exception, which is released
    std::string exception = {}; // describes the exception that left the function; empty: none
    std::string leaked = {};    // describes what each such call leaks; empty: nothing
    std::vector<MisuseNote> misuses = {};
};

// Creates the arguments, calls the function and releases everything. If something is left over, repeats the call, because
// what a plugin creates once and keeps is not a leak.
Outcome call(const Function& function, const Choice& choice, Plan plan = {});

// Calls the function twice with the same arguments and releases each result.
Outcome callTwice(const Function& function, const Choice& choice);

// Calls a setter whose property can be read and reads the value back. Returns a description of the difference. It is empty
// if the value is the same or the setter raises an exception.
std::string setAndRead(const Function& setter, const Choice& choice);

// Returns the type and the message of the exception that is being handled.
std::string describeException();

} // namespace host::validator
