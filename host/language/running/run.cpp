#include "language/running/run.h"

#include "language/running/call_stack.h"
#include "language/running/escaped.h"

#include "model/classes.h"
#include "values/platform.h"

#include <pthread.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <ostream>

namespace host::language {

namespace detail {
bool lastWasInterrupted = false;
} // namespace detail

namespace {

void want(int) { interruptWanted = 1; }

// While an object of this class exists, SIGINT interrupts the running program instead of ending the process. A closed pipe
// makes the write fail.
class InterruptScope {
public:
    InterruptScope() {
        interruptWanted = 0;
        struct sigaction action = {};
        action.sa_handler = want;
        sigaction(SIGINT, &action, &before_);
        action.sa_handler = SIG_IGN;
        sigaction(SIGPIPE, &action, &beforePipe_);
    }
    // Clears the request, so that it does not interrupt the next check, above all that of constants.
    ~InterruptScope() {
        sigaction(SIGINT, &before_, nullptr);
        sigaction(SIGPIPE, &beforePipe_, nullptr);
        detail::lastWasInterrupted = interruptWanted != 0;
        interruptWanted = 0;
    }
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;

private:
    struct sigaction before_;
    struct sigaction beforePipe_;
};

std::string describe(const Raised& raised) {
    const std::string message = exceptionMessage(raised.exception());
    return "uncaught " + raised.exception()->info->name() + (message.empty() ? "" : ": " + message);
}

// Returns the lowest address that procedures may reach. If the stack is unknown, this is 4 MB below the first call of this
// function.
std::uintptr_t lowestAddress() {
    constexpr std::size_t maxUsed = std::size_t{8} << 20;
    constexpr std::size_t assumed = std::size_t{4} << 20;
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return here - assumed;
    void* bottom = nullptr;
    std::size_t size = 0;
    const bool known = pthread_attr_getstack(&attributes, &bottom, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!known || size == 0) return here - assumed;
    const std::size_t used = std::min(size, maxUsed);
    return reinterpret_cast<std::uintptr_t>(bottom) + size - used + used / 4;
}

} // namespace

std::string runCode(const Source& source, const Action& code, Execution& execution) {
    const platform::AutoreleasePool pool;
    const InterruptScope interruptible;
    Frame frame(execution);
    execution.source = &source;
    std::string report;
    try {
        code.execute(frame);
    } catch (const Raised& raised) {
        report = source.report(raised.offset(), describe(raised)) + callsAround(raised, execution);
    } catch (const Escaped& escaped) {
        report = source.report(escaped.offset, escaped.text);
    } catch (const Interrupted& interrupted) {
        report = source.location(interrupted.offset) + ": interrupted\n";
    } catch (const Quit& quit) {
        execution.exitCode = quit.code;
    }
    execution.output.flush();
    return report;
}

bool isStackLow() {
    static const thread_local std::uintptr_t lowest = lowestAddress();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < lowest;
}

} // namespace host::language
