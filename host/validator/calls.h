// Calls of a plugin's functions, and what may not come of them.
#pragma once

#include "validator/faults.h"
#include "validator/functions.h"
#include "validator/watch.h"

#include <string>
#include <vector>

namespace host::validator {

struct Outcome {
    std::string call;           // what was called, with what, and which entry failed
    bool struck = false;        // by the fault
    bool isNull = true;         // the result
    bool isCounted = false;     // the result is an object or a string
    bool raised = false;        // a host exception, which is released
    std::string exception = {}; // in words, one that left the function; empty: none
    std::string left = {};      // in words, what each such call leaves behind; empty: nothing
    std::vector<MisuseNote> misuses = {};
};

// Creates the arguments, calls the function and releases everything. A call that leaves something behind is made once more,
// since what a plugin creates once and keeps is not lost.
Outcome call(const Function& function, const Choice& choice, Plan plan = {});

// Calls the function twice with the same arguments and releases each result.
Outcome callTwice(const Function& function, const Choice& choice);

// Calls a setter with a property to read and reads the value back. Returns in words how it differs; empty if it does not or
// if the setter raises an exception.
std::string setAndRead(const Function& setter, const Choice& choice);

// The exception that is being handled: its type and its message.
std::string describeException();

} // namespace host::validator
