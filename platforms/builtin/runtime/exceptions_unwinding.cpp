// Native exceptions in 64 bits: C++ exceptions of one type, which unwind the stack.
#include "runtime/exceptions.h"

#include "runtime/export.h"

#include <cstdlib>
#include <exception>

namespace chroma::builtin {
namespace {

std::terminate_handler enclosingHandler = nullptr;

// Ends the process as for an uncaught native exception, if there is one; calls the previous handler for other reasons.
[[noreturn]] void endProcess() {
    try {
        if (std::current_exception()) throw;
    } catch (const ThrownObject thrown) {
        endUncaught(reinterpret_cast<id>(thrown));
    } catch (...) {
    }
    enclosingHandler();
    std::abort();
}

} // namespace

void watchForUncaught() { enclosingHandler = std::set_terminate(endProcess); }

} // namespace chroma::builtin

namespace chroma {

BUILTIN_EXPORT void objc_exception_throw(id exception) { builtin::throwObject(exception); }

} // namespace chroma
