// Every function that the plugin's records bind, with what it promises.
#pragma once

#include "model/classes.h"

#include <string>
#include <vector>

namespace matrix {

struct Function {
    std::string name;
    REALfunction address;
    host::Invoker invoke;
    host::Signature signature;       // of a property: no parameters
    const host::ClassInfo* receiver; // null: a shared method
    bool takesParameterWord;         // a property's getter
    bool isQuiet;                    // drops NSExceptions
    bool converts;                   // drops the first message's, and asks another colour

    bool answersNumber() const { return signature.result.kind == host::Kind::Double && !signature.result.isArray; }
};

// Puts into the host's registry what the plugin did not register itself, and lists the functions in the records' order.
std::vector<Function> boundFunctions();

} // namespace matrix
