// How the checker gives up on a statement: the first error in it is reported, and checking goes on behind it.
#pragma once

#include "language/source.h"

#include <string>

namespace host::language {

struct CheckError {
    Offset offset;
    std::string message; // empty: an echo of an error that is reported already
};

[[noreturn]] inline void failCheck(Offset offset, std::string message) { throw CheckError{offset, std::move(message)}; }

} // namespace host::language
