#include "repl/signals.h"

namespace host::repl {
namespace {

volatile std::sig_atomic_t interruptSeen = 0;
volatile std::sig_atomic_t continueSeen = 0;

// Sets the handler without SA_RESTART, so that a signal ends a waiting read.
void handle(int signal, void (*handler)(int), struct sigaction& before) {
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(signal, &action, &before);
}

} // namespace

SignalScope::SignalScope() {
    forget();
    handle(
        SIGINT, [](int) { interruptSeen = 1; }, beforeInterrupt_);
    handle(
        SIGCONT, [](int) { continueSeen = 1; }, beforeContinue_);
}

SignalScope::~SignalScope() {
    sigaction(SIGINT, &beforeInterrupt_, nullptr);
    sigaction(SIGCONT, &beforeContinue_, nullptr);
}

void SignalScope::forget() const { interruptSeen = continueSeen = 0; }

bool interrupted() { return interruptSeen != 0; }

bool takeContinued() {
    const bool seen = continueSeen != 0;
    continueSeen = 0;
    return seen;
}

} // namespace host::repl
