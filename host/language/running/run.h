// Runs checked code, reports how it ended, and stops code that does not end.
#pragma once

#include "language/reading/source.h"
#include "language/running/code.h"
#include "language/running/frame.h"

#include "system/interruption.h"

#include <string>

namespace host::language {

// Runs the code and returns the report of the uncaught exception or of the interruption, or "" if the code ran to its end.
// SIGINT interrupts the code while it runs; afterwards the previous handler is restored. Throws std::system_error if the
// output cannot be written.
std::string runCode(const Source& source, const Action& code, Execution& execution);

// The user's request to stop the program. No Catch catches it and no Finally runs while it propagates.
struct Interrupted {
    Offset offset; // of the loop or call where it was noticed
};

// The program's request to quit, which propagates in the same way.
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

// Returns whether too little of this thread's stack is left for another call of a procedure. The reserve suffices for the
// deepest expression and for bound functions.
bool isStackLow();

constexpr unsigned maxCallDepth = 10000;

} // namespace host::language
