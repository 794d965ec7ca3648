// The user's wish that a program stops, for loops that take long.
#pragma once

#include <csignal>
#include <new>

namespace host {

// Set by the SIGINT handler of whoever runs a program; 0 while none runs.
inline volatile std::sig_atomic_t interruptWanted = 0;

// Ends a loop of the library. Whoever catches std::bad_alloc around a step of a program looks at interruptWanted first.
struct Interruption : std::bad_alloc {};

inline void checkInterruption() {
    if (interruptWanted) throw Interruption();
}

} // namespace host
