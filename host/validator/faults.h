// Faults that strike a call: those of the host here, others where a program's messages and allocations are heard.
#pragma once

#include <cstddef>
#include <string>

namespace host::validator {

enum class Fault {
    none,
    raise,            // a message raises an NSException
    throwOther,       // a message throws an object that is none
    answerNil,        // a message answers nil or zero and does nothing
    failAllocation,   // one allocation fails
    exhaustMemory,    // that allocation and all later ones fail
    hostAnswersNull,  // an entry of the host answers null
    hostThrows,       // an entry of the host throws a C++ exception
    hostAlwaysThrows, // so do all later ones
};

// The fault strikes at the n-th message, allocation or call of the host, from 1.
struct Plan {
    Fault fault = Fault::none;
    int at = 0;
    bool documented = false; // null only where host_abi.h permits it
};

// What a call met.
struct Traces {
    bool struck = false;
    int raised = 0;              // host exceptions, those included that the host dropped
    const char* entry = nullptr; // of the host, which failed last
};

// Between the two a call is counted.
void arm(Plan plan);
Traces disarm();

// Nothing is counted while one lives, nor before the first call is armed. Faults do not strike inside the host.
extern int suspensions;
struct Suspension {
    Suspension() { ++suspensions; }
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
    ~Suspension() { --suspensions; }
};

// Whether the present event is the one that one of these faults waits for.
bool strikes(Fault first, Fault last);
Fault plannedFault();
bool hasStruck();

// The reference host's entry as a plugin gets it, behind a function that may answer null or throw in the host's place. Null
// where the host lacks it. What gives something up does so even if it throws.
void* heardEntry(const char* name);

} // namespace host::validator
