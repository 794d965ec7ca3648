// What the terminal tells a prompt by signals.
#pragma once

#include <csignal>

namespace host::repl {

// While one lives, Ctrl-C (SIGINT) gives up the line that is read instead of ending the process. What was there before comes
// back at its end. A statement that runs has a handler of its own meanwhile.
class SignalScope {
public:
    SignalScope();
    ~SignalScope();
    SignalScope(const SignalScope&) = delete;
    SignalScope& operator=(const SignalScope&) = delete;

    void forget() const; // what was signalled so far

private:
    struct sigaction beforeInterrupt_ = {};
    struct sigaction beforeContinue_ = {};
};

bool interrupted();   // since the last forget
bool takeContinued(); // whether the process went on after a stop (SIGCONT) since it was last asked

} // namespace host::repl
