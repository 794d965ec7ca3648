// Injects faults into a call. This host injects its own faults; a program that observes messages and allocations injects
// the others.
#pragma once

#include <cstddef>
#include <string>

namespace host::validator {

enum class Fault {
    none,
    raise,            // a message raises an NSException
    throwOther,       // a message throws an object that is not an NSException
    returnNil,        // a message returns nil or zero and does nothing
    failAllocation,   // one allocation fails
    exhaustMemory,    // that allocation and all later ones fail
    hostReturnsNull,  // an entry point returns null
    hostThrows,       // an entry point throws a C++ exception
    hostAlwaysThrows, // that entry point and all later ones throw
};

// Injects the fault at message, allocation or host call number `at`, counted from 1.
struct Plan {
    Fault fault = Fault::none;
    int at = 0;
    bool documented = false; // return null only where host_abi.h permits it
};

// The events during a call.
struct Traces {
    bool injected = false;
    int raised = 0;              // the number of host exceptions, including those that the host dropped
    const char* entry = nullptr; // the entry point that failed last
};

// Events are counted between arm() and disarm().
void arm(Plan plan);
Traces disarm();

// Nothing is counted while a Suspension lives, or before the first arm(). No fault is injected inside the host.
extern int suspensions;
struct Suspension {
    Suspension() { ++suspensions; }
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
    ~Suspension() { --suspensions; }
};

// Returns whether the plan injects one of these faults at the current event.
bool injects(Fault first, Fault last);
Fault plannedFault();
bool hasInjected();

// Returns the reference host's entry point, wrapped in a function that may return null or throw instead of it. Returns null
// if the host does not provide the entry point. An entry point that releases something does so even if it throws.
void* observedEntry(const char* name);

} // namespace host::validator
