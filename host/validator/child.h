// Child processes, which isolate the effects of a plugin on its process.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace host::validator {

// How long the parent waits for a child process.
struct Limits {
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds forStep = std::chrono::seconds(120); // between two calls of step()
    Clock::time_point end = Clock::time_point::max();              // for all steps
};

// How a child process ended.
struct Ending {
    enum class Kind { finished, died, hung, overdue }; // overdue: stopped at Limits::end

    Kind kind = Kind::finished;
    std::string words;     // "crashed with SIGSEGV"; empty when it finished
    std::string step;      // the latest step
    std::size_t place = 0; // the latest place
    std::string output;    // the child's standard output and error, if they were captured

    bool finished() const { return kind == Kind::finished; }
};

enum class Output { inherited, captured };

// Runs the body in a child process, in an empty folder that is also its home. Passes each text that the child sends to
// `receive` immediately, so that a crash loses none. A child that exits before its body returns has not finished. Kills the
// child, and every process that it started, at a limit or when this process is interrupted. In the second case this process
// then ends by the same signal. Throws std::runtime_error if no child can be started.
Ending runChild(const std::function<void()>& body, const std::function<void(const std::string&)>& receive,
                const Limits& limits, Output output);

// Runs the body in this process, for a debugger.
void runHere(const std::function<void()>& body, const std::function<void(const std::string&)>& receive);

// For the child. send() passes a text to the parent. step() names what the child does next and restarts the time limit of a
// step. setPlace() records a number. noteCrash() adds words to the description of a crash; a signal handler may call it.
void send(const std::string& text);
void step(const std::string& text);
std::string currentStep();
void setPlace(std::size_t place);
void noteCrash(const char* words);

// Runs the body in a child process and returns what the body returns. If the child does not finish, returns the latest step
// and how the child ended.
std::string inChild(const std::function<std::string()>& body);

} // namespace host::validator
