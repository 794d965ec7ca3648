// Native exceptions in 64 bits: C++ exceptions of one type, which unwind the stack.
#include "runtime/uncaught.h"

#include "runtime/export.h"

#include <cstdlib>
#include <exception>

namespace chroma::builtin {
namespace {

std::terminate_handler enclosingHandler = nullptr;

// Ends the process as an uncaught native exception does, if it is one; leaves other reasons to the handler before.
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
} // namespace chroma::builtin

namespace chroma {

BUILTIN_EXPORT void objc_exception_throw(id exception) {
    [[maybe_unused]] static const bool isInstalled = [] {
        builtin::enclosingHandler = std::set_terminate(builtin::endProcess);
        return true;
    }();
    throw static_cast<ThrownObject>(reinterpret_cast<std::uintptr_t>(exception));
}

} // namespace chroma
