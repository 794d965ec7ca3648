// Faults that strike: the messages and CoreFoundation calls of the plugin come through the linker's wrappers.
#include "driver.h"

#include "builtin/objc_runtime.h"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/selectors.h"

#include <string_view>

namespace matrix {

using namespace chroma;

int suspensions = 1; // the process begins unarmed

namespace {

Plan plan;
Traces traces;
int remaining = 0;
bool answersNumber = false;

} // namespace

void arm(Plan planned, bool number) {
    plan = planned;
    traces = {};
    remaining = planned.at;
    answersNumber = number;
    --suspensions;
}

Traces disarm() {
    ++suspensions;
    return traces;
}

bool strikes(Fault first, Fault last) {
    if (suspensions > 0 || plan.fault < first || plan.fault > last) return false;
    const bool lasts = plan.fault == Fault::ExhaustMemory || plan.fault == Fault::HostAlwaysThrows;
    if (--remaining > 0 || (traces.struck && !lasts)) return false;
    return traces.struck = true;
}

void countRaised() { ++traces.raised; }

namespace {

// The receivers of these belong to the platform, whatever comes of them.
bool consumesReceiver(std::string_view message) {
    return message.substr(0, 4) == "init" || message == "autorelease" || message == "release";
}

void fail() {
    if (plan.fault == Fault::Raise) throwNative(testException);
    if (plan.fault == Fault::Throw) throwNative(testObject);
}

// In place of a method that answers Result.
template <class Result>
Result failingMethod(id receiver, SEL selector) {
    ++suspensions;
    if (consumesReceiver(sel_getName(selector))) sel::release(receiver);
    --suspensions;
    fail();
    return Result();
}

bool strikesMessage() { return strikes(Fault::Raise, Fault::AnswerNil); }

// Guards ask what they caught for its class; that is no message of the function.
bool strikesMessage(id receiver, SEL selector) {
    if (suspensions > 0 || traces.struck) return false;
    ++suspensions;
    const bool isException = isNSException(receiver);
    const bool isGuards = (isException || receiver == testObject) && selector == sel::isKindOfClass_.get();
    --suspensions;
    if (isGuards) return false;
    traces.bridging = traces.bridging || isException || receiver == cls::NSException.get();
    return strikesMessage();
}

} // namespace
} // namespace matrix

// Visible, since the linker binds the shared libraries' references to these names too.
#pragma GCC visibility push(default)
extern "C" {

using namespace chroma;

IMP __real_objc_msg_lookup(id receiver, SEL selector);
IMP __wrap_objc_msg_lookup(id receiver, SEL selector) {
    if (!matrix::strikesMessage(receiver, selector)) return __real_objc_msg_lookup(receiver, selector);
    if (matrix::answersNumber) return reinterpret_cast<IMP>(matrix::failingMethod<CGFloat>);
    return reinterpret_cast<IMP>(matrix::failingMethod<id>);
}

#define CHROMA_WRAPPED(Result, name, parameters, ...)                                                                       \
    Result __real_##name parameters;                                                                                        \
    Result __wrap_##name parameters {                                                                                       \
        if (!matrix::strikesMessage()) return __real_##name(__VA_ARGS__);                                                   \
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
