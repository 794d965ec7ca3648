// What stops a program that would not stop by itself: the user's interrupt key, and the end of the stack.
#pragma once

#include "language/source.h"

#include <csignal>

namespace host::language {

// The user's wish that the program stops. No Catch takes it and no Finally runs on its way.
struct Interrupted {
    Offset offset; // of the loop or call that was reached
};

namespace detail {
extern volatile std::sig_atomic_t interruptWanted;
}

// While one lives, SIGINT interrupts the program that runs instead of ending the process; what was there before comes back.
class InterruptScope {
public:
    InterruptScope();
    ~InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;

private:
    struct sigaction before_;
};

// Called in every round of a loop and every call of a procedure.
inline void checkInterrupt(Offset offset) {
    if (detail::interruptWanted) throw Interrupted{offset};
}

// Whether so little of this thread's stack is left that no further call of a procedure is safe. The reserve suffices for the
// deepest expression and for what bound functions need.
bool isStackLow();

constexpr unsigned deepestCall = 10000;

} // namespace host::language
