// C++ exceptions that propagate out of a plugin's function, which violates the contract.
#pragma once

#include "language/reading/source.h"

#include "model/classes.h"

#include <exception>
#include <new>
#include <string>

namespace host::language {

// Ends the program: no Catch catches it and no Finally runs while it propagates.
struct Escaped {
    Offset offset;    // of the call
    std::string text; // the function and the exception
};

// Runs a call of a member of the class; `owner` is null for the language's own functions. Exhausted memory is an exception
// of the program, and propagates unchanged.
template <class Body>
auto callMember(const ClassInfo* owner, const std::string& member, Offset offset, Body body) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (!owner || owner->isBuiltIn()) throw;
        const char* const what = error.what();
        throw Escaped{offset, "a C++ exception left the plugin's function " + owner->name() + "." + member +
                                  (what && *what ? ": " + std::string(what) : "")};
    }
}

} // namespace host::language
