// Runs checked code, says how it ended, and stops what would not stop by itself.
#pragma once

#include "language/reading/source.h"
#include "language/running/code.h"
#include "language/running/frame.h"

#include "system/interruption.h"

#include <string>

namespace host::language {

// The report of the exception that nobody caught, or of the interruption; empty when the code ran to its end. SIGINT
// interrupts the code while it runs; what was there before comes back. Throws std::system_error when the output cannot be
// written.
std::string runCode(const Source& source, const Action& code, Execution& execution);

// The user's wish that the program stops. No Catch takes it and no Finally runs on its way.
struct Interrupted {
    Offset offset; // of the loop or call that was reached
};

// The program's own wish, which goes the same way.
struct Quit {
    int code;
};

namespace detail {
extern bool lastWasInterrupted;
} // namespace detail

// Called in every round of a loop and every call of a procedure.
inline void checkInterrupt(Offset offset) {
    if (interruptWanted) throw Interrupted{offset};
}

// Whether so little of this thread's stack is left that no further call of a procedure is safe. The reserve suffices for the
// deepest expression and for what bound functions need.
bool isStackLow();

constexpr unsigned maxCallDepth = 10000;

} // namespace host::language
