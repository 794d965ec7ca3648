// Handles the signals that a prompt gets from the terminal.
#pragma once

#include <csignal>

namespace host::repl {

// While a SignalScope lives, Ctrl-C (SIGINT) cancels the line that is being read instead of ending the process. The
// destructor restores the previous handlers. A running statement temporarily has its own handler.
class SignalScope {
public:
    SignalScope();
    ~SignalScope();
    SignalScope(const SignalScope&) = delete;
    SignalScope& operator=(const SignalScope&) = delete;

    void forget() const; // forgets all signals so far

private:
    struct sigaction beforeInterrupt_ = {};
    struct sigaction beforeContinue_ = {};
};

bool interrupted();   // whether Ctrl-C was pressed since the last forget()
bool takeContinued(); // whether the process continued after a stop (SIGCONT) since the last call

} // namespace host::repl
