// Calls of all that a plugin's records bind.
#pragma once

#include "model/classes.h"

#include <string>
#include <vector>

namespace host::validator {

struct Bound {
    std::string name; // "NSColorZRX.getRGB"
    const ClassInfo* owner;
    REALfunction function;
    Invoker invoke;
    Signature signature;
    bool hasReceiver;
    bool isGetter; // called with the parameter word in place of arguments
    REALword parameter;
};

// The methods and getters of the classes; what the host itself reads is not among them.
std::vector<Bound> functionsOf(const std::vector<const ClassInfo*>& classes);

enum class Receiver {
    null,
    empty,  // as the class constructor leaves a new object
    filled, // one that a shared method without parameters hands out, or null when there is none
};

// Which argument is not the ordinary one (none: of all), and which form it has. Null counts for an address too.
struct Choice {
    Receiver receiver;
    std::size_t argument;
    std::size_t form;
};

// All that the declaration admits, one argument at a time.
std::vector<Choice> choicesFor(const Bound& function);

// The ordinary arguments on each receiver alone.
std::vector<Choice> ordinaryChoicesFor(const Bound& function);

struct Outcome {
    bool isNull = true;
    bool raised = false; // a host exception, which is gone
    bool threw = false;  // a C++ exception left the function
};

// Makes the arguments, calls, and gives all up again.
Outcome call(const Bound& function, const Choice& choice);

} // namespace host::validator
