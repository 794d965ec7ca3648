// Overload resolution, once per call in a program's text: selects one of the declared methods and determines how the
// arguments are passed to the bound function.
#pragma once

#include "model/classes.h"
#include "model/conversions.h"

#include <optional>

namespace host {

struct Argument {
    Type type;               // static
    bool assignable = false; // a variable or an array element: can be passed by reference
};

// The source of one parameter of the chosen method.
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
    const Method* method = nullptr; // null if `error` is set, or for a construction that calls no Constructor
    std::vector<Binding> bindings;  // one per parameter
    std::string error;              // empty on success; otherwise complete sentences that list the existing declarations
};

// `what` names the callee in messages, such as "NSColorZRX.getRGB".
Resolution resolveCall(const std::string& what, const OverloadSet& overloads, const std::vector<Argument>& arguments);

// New without arguments needs no declared Constructor: the class constructor initialises the object.
Resolution resolveConstruction(const ClassInfo& info, const std::vector<Argument>& arguments);

} // namespace host
