// Overload resolution, once per call in a program's text: which of the declared methods a call means, and how its arguments
// become those of the bound function.
#pragma once

#include "model/classes.h"
#include "model/conversions.h"

#include <optional>

namespace host {

struct Argument {
    Type type;               // static
    bool assignable = false; // a variable or an array element: can be passed by reference
};

// Where one parameter of the chosen method gets its value.
struct Binding {
    enum class Source : unsigned char {
        argument,     // argument `first`, converted by conversions[0]
        byReference,  // the address of argument `first`, whose type is exactly the parameter's
        defaultValue, // parameter->defaultValue
        paramArray,   // a new array of parameter->type with the arguments from `first` on, each converted by its conversion
    };
    Source source;
    const Parameter* parameter;
    std::size_t first = 0;
    std::vector<Conversion> conversions;
};

struct Resolution {
    const Method* method = nullptr; // null when `error` says why, or for a construction that calls no Constructor
    std::vector<Binding> bindings;  // one for each parameter
    std::string error;              // empty on success; else complete sentences that list the declarations that exist
};

// `what` names the thing called in messages, such as "NSColorZRX.getRGB".
Resolution resolveCall(const std::string& what, const OverloadSet& overloads, const std::vector<Argument>& arguments);

// New without arguments needs no declared Constructor: the class constructor alone makes the object.
Resolution resolveConstruction(const ClassInfo& info, const std::vector<Argument>& arguments);

} // namespace host
