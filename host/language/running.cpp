#include "language/running.h"

#include "language/limits.h"

#include "model/classes.h"
#include "model/platform.h"

#include <ostream>

namespace host::language {
namespace {

std::string describe(const Raised& raised) {
    const std::string message = exceptionMessage(raised.exception());
    return "uncaught " + raised.exception()->info->name() + (message.empty() ? "" : ": " + message);
}

} // namespace

std::string runCode(const Source& source, const Action& code, Execution& execution) {
    const platform::AutoreleasePool pool;
    const InterruptScope interruptible;
    Frame frame(execution);
    std::string report;
    try {
        code.execute(frame);
    } catch (const Raised& raised) {
        report = source.report(raised.offset(), describe(raised));
    } catch (const Interrupted& interrupted) {
        report = source.location(interrupted.offset) + ": interrupted\n";
    }
    execution.output.flush();
    return report;
}

} // namespace host::language
