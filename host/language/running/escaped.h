// C++ exceptions that leave a plugin's function, which the contract forbids.
#pragma once

#include "language/reading/source.h"

#include "model/classes.h"

#include <exception>
#include <new>
#include <string>

namespace host::language {

// Ends the program: no Catch takes it and no Finally runs on its way.
struct Escaped {
    Offset offset;    // of the call
    std::string text; // which function, and the exception
};

// Runs a call of a member of the class; null for the language's own functions. Exhausted memory is an exception of the
// program, and stays as it is.
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
