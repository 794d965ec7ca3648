// Calls of a plugin's functions, and what they may not leave behind.
#pragma once

#include "validator/faults.h"
#include "validator/functions.h"

#include <string>

namespace host::validator {

struct Outcome {
    bool struck = false; // by the fault
    bool isNull = true;
    bool raised = false;   // a host exception, which is gone
    bool threw = false;    // an exception, of whatever language, left the function
    std::string left = {}; // what the call leaves behind each time, in words; empty: nothing
};

// Makes the arguments, calls, and gives all up again. A call that leaves something behind is made once more: what is made
// once and kept is kept once.
Outcome call(const Function& function, const Choice& choice, Plan plan = {});

} // namespace host::validator
