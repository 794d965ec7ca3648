// Injects faults into the plugin's messages and CoreFoundation calls through the linker's wrappers.
#include "driver.h"

#include "builtin/objc_runtime.h"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/selectors.h"

#include <cstdint>
#include <string_view>

namespace matrix {

using namespace chroma;

using host::validator::hasInjected;
using host::validator::injects;
using host::validator::plannedFault;
using host::validator::suspensions;

namespace {

bool returnsNumber = false;
bool bridging = false;

} // namespace

void expectNumber(bool isNumber) {
    returnsNumber = isNumber;
    bridging = false;
}

bool wasBridging() { return bridging; }

namespace {

// Returns whether the message consumes its receiver, even if it fails.
bool consumesReceiver(std::string_view message) {
    return message.substr(0, 4) == "init" || message == "autorelease" || message == "release";
}

void fail() {
    if (plannedFault() == Fault::raise) throwNative(testException);
    if (plannedFault() == Fault::throwOther) throwNative(testObject);
}

// Replaces a method that returns Result.
template <class Result>
Result failingMethod(id receiver, SEL selector) {
    if (consumesReceiver(sel_getName(selector))) {
        const Suspension suspension;
        sel::release(receiver);
    }
    fail();
    return Result();
}

bool injectsIntoMessage() { return injects(Fault::raise, Fault::returnNil); }

// Guards query the class of a caught object. That is not a message of the function.
bool injectsIntoMessage(id receiver, SEL selector) {
    if (suspensions > 0 || hasInjected()) return false;
    {
        const Suspension suspension;
        const bool isException = isNSException(receiver);
        if ((isException || receiver == testObject) && selector == sel::isKindOfClass_.get()) return false;
        bridging = bridging || isException || receiver == cls::NSException.get();
    }
    return injectsIntoMessage();
}

} // namespace
} // namespace matrix

// Visible, because the linker binds the shared libraries' references to these names too.
#pragma GCC visibility push(default)
extern "C" {

using namespace chroma;

IMP __real_objc_msg_lookup(id receiver, SEL selector);
IMP __wrap_objc_msg_lookup(id receiver, SEL selector) {
    if (!matrix::injectsIntoMessage(receiver, selector)) return __real_objc_msg_lookup(receiver, selector);
    if (matrix::returnsNumber) return reinterpret_cast<IMP>(matrix::failingMethod<CGFloat>);
    return reinterpret_cast<IMP>(matrix::failingMethod<id>);
}

#define CHROMA_WRAPPED(Result, name, parameters, ...)                                                                       \
    Result __real_##name parameters;                                                                                        \
    Result __wrap_##name parameters {                                                                                       \
        if (!matrix::injectsIntoMessage()) return __real_##name(__VA_ARGS__);                                               \
        matrix::fail();                                                                                                     \
        return Result();                                                                                                    \
    }
CHROMA_WRAPPED(id, CFStringCreateWithBytes, (const void* a, const std::uint8_t* b, CFIndex c, std::uint32_t d, Boolean e), a,
               b, c, d, e)
CHROMA_WRAPPED(id, CFStringCreateWithCharacters, (const void* a, const UniChar* b, CFIndex c), a, b, c)
CHROMA_WRAPPED(CFIndex, CFStringGetLength, (id a), a)
CHROMA_WRAPPED(Boolean, CFStringGetCString, (id a, char* b, CFIndex c, CFStringEncoding d), a, b, c, d)
CHROMA_WRAPPED(id, CFURLCreateWithFileSystemPath, (const void* a, id b, CFIndex c, Boolean d), a, b, c, d)
CHROMA_WRAPPED(id, CFURLCreateWithString, (const void* a, id b, id c), a, b, c)
CHROMA_WRAPPED(id, CFURLCopyFileSystemPath, (id a, CFIndex b), a, b)
}
#pragma GCC visibility pop
