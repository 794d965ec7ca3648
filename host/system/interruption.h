// The user's request to stop a program, for loops that take long.
#pragma once

#include <csignal>
#include <new>

namespace host {

// Set by the SIGINT handler of the code that runs a program; 0 while no program runs.
inline volatile std::sig_atomic_t interruptWanted = 0;

// Thrown to leave a loop of the library. Code that catches std::bad_alloc around a step of a program must check
// interruptWanted first.
struct Interruption : std::bad_alloc {};

inline void checkInterruption() {
    if (interruptWanted) throw Interruption();
}

} // namespace host
