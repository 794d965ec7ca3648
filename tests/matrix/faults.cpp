#include "faults.h"

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/selectors.h"

#include <string_view>

namespace matrix {

using namespace chroma;

id testException = nullptr;
id testObject = nullptr;

namespace {

Plan plan;
Traces traces;
int remaining = 0;
int suspensions = 1; // the process begins unarmed
bool answersNumber = false;

extern "C" const char* sel_getName(SEL selector);

id newString(const char* text) {
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(text),
                                   static_cast<CFIndex>(std::string_view(text).size()), kCFStringEncodingUTF8, false);
}

} // namespace

void prepareThrownObjects() {
    Selector initWithName{"initWithName:reason:userInfo:"};
    testObject = newString("no exception");
    testException = send<id>(send<id>(cls::NSException, sel::alloc), initWithName, newString("TestException"),
                             newString("made to fail"), id{});
}

void arm(Plan planned, bool numbers) {
    plan = planned;
    traces = {};
    remaining = planned.at;
    answersNumber = numbers;
    --suspensions;
}

Traces disarm() {
    ++suspensions;
    return traces;
}

Suspension::Suspension() { ++suspensions; }
Suspension::~Suspension() { --suspensions; }

bool strikes(Fault first, Fault last) {
    if (suspensions > 0 || plan.fault < first || plan.fault > last) return false;
    if (--remaining > 0) return false;
    if (remaining < 0 && plan.fault != Fault::ExhaustMemory) return false;
    traces.struck = true;
    return true;
}

void countRaised() { ++traces.raised; }

namespace {

// A message whose receiver belongs to the platform from then on, whatever comes of it.
bool consumesReceiver(std::string_view name) {
    return name.substr(0, 4) == "init" || name == "autorelease" || name == "release";
}

// In place of the method.
id fail(id receiver, SEL selector) {
    const Suspension suspension;
    if (consumesReceiver(sel_getName(selector))) send<void>(receiver, sel::release);
    return nullptr;
}

void throwWhatIsPlanned() {
    if (plan.fault == Fault::Raise) throwNative(testException);
    if (plan.fault == Fault::Throw) throwNative(testObject);
}

id failWithWord(id receiver, SEL selector) {
    fail(receiver, selector);
    throwWhatIsPlanned();
    return nullptr;
}

CGFloat failWithNumber(id receiver, SEL selector) {
    failWithWord(receiver, selector);
    return 0;
}

bool strikesMessage() { return strikes(Fault::Raise, Fault::AnswerNil); }

// Notes where a message that is about to fail belongs. False for the question that guards ask of what they caught.
bool isCounted(id receiver, SEL selector) {
    const Suspension suspension;
    const bool isException = isNSException(receiver);
    if ((isException || receiver == testObject) && selector == sel::isKindOfClass_.get()) return false;
    traces.struckBridging = isException || receiver == cls::NSException.get();
    return true;
}

} // namespace
} // namespace matrix

// Visible, since the linker binds the shared libraries' references to these names too.
#pragma GCC visibility push(default)
extern "C" {

using namespace chroma;
using namespace matrix;

IMP __real_objc_msg_lookup(id receiver, SEL selector);
IMP __wrap_objc_msg_lookup(id receiver, SEL selector) {
    if (suspensions > 0 || plan.fault > Fault::AnswerNil || plan.fault == Fault::None || traces.struck ||
        !isCounted(receiver, selector) || !strikesMessage())
        return __real_objc_msg_lookup(receiver, selector);
    return answersNumber ? reinterpret_cast<IMP>(failWithNumber) : reinterpret_cast<IMP>(failWithWord);
}

// The CoreFoundation functions that may throw count as messages.
#define CHROMA_WRAPPED(Result, name, parameters, arguments)                                                                 \
    Result __real_##name parameters;                                                                                        \
    Result __wrap_##name parameters {                                                                                       \
        if (!strikesMessage()) return __real_##name arguments;                                                              \
        throwWhatIsPlanned();                                                                                               \
        return Result();                                                                                                    \
    }
CHROMA_WRAPPED(CFStringRef, CFStringCreateWithBytes,
               (CFAllocatorRef allocator, const std::uint8_t* bytes, CFIndex count, CFStringEncoding encoding,
                Boolean external),
               (allocator, bytes, count, encoding, external))
CHROMA_WRAPPED(CFStringRef, CFStringCreateWithCharacters, (CFAllocatorRef allocator, const UniChar* units, CFIndex count),
               (allocator, units, count))
CHROMA_WRAPPED(CFIndex, CFStringGetLength, (CFStringRef string), (string))
CHROMA_WRAPPED(Boolean, CFStringGetCString, (CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding),
               (string, buffer, capacity, encoding))
CHROMA_WRAPPED(CFURLRef, CFURLCreateWithFileSystemPath,
               (CFAllocatorRef allocator, CFStringRef path, CFURLPathStyle style, Boolean isDirectory),
               (allocator, path, style, isDirectory))
CHROMA_WRAPPED(CFURLRef, CFURLCreateWithString, (CFAllocatorRef allocator, CFStringRef text, CFURLRef base),
               (allocator, text, base))
CHROMA_WRAPPED(CFStringRef, CFURLCopyFileSystemPath, (CFURLRef url, CFURLPathStyle style), (url, style))
}
#pragma GCC visibility pop
