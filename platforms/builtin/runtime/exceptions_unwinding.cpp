// Native exceptions in 64 bits: C++ exceptions of one type, which unwind the stack.
#include "runtime/exceptions.h"

#include "runtime/export.h"

#include <cstdlib>
#include <exception>

namespace chroma::builtin {
namespace {

std::terminate_handler enclosingHandler = nullptr;

// Aborts the process as for an uncaught native exception, if there is one. Otherwise calls the previous handler.
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
