// NSException, and how the platform raises one.
#pragma once

#include "foundation/string.h"
#include "runtime/exceptions.h"

namespace chroma::builtin {

struct Exception : Object {
    static ClassObject cls;

    constexpr Exception() = default;
    // Constant-initialised and never freed, of strings that never are.
    constexpr Exception(String& constantName, String& constantReason)
        : Object(&cls, immortal), name(&constantName), reason(&constantReason) {}

    String* tellReason();

    Ref<String> name;
    Ref<String> reason;
    Ref<Object> userInfo;

    // A reason that is put together when it is first asked for: most exceptions are dropped unread.
    String* (*wordReason)(Object* subject, SEL selector) = nullptr; // autoreleased
    Ref<Object> subject;
    SEL selector = nullptr;
    LazyRef<String> wordedReason;
};

ClassTable tableOfNSException();

namespace exceptionName {

extern String invalidArgument;
extern String malloc;
extern String range;

} // namespace exceptionName

// Throws a new exception, in 32 bits by a jump: nothing with a destructor may be alive in the frames between.
[[noreturn]] void raise(String& name, String* reason);

// The same, with a reason that `wordReason` puts together from the two when it is asked for.
[[noreturn, gnu::always_inline]] inline void raise(String& name, String* (*wordReason)(Object*, SEL), Object* subject,
                                                   SEL selector) {
    auto* const exception = autorelease(make<Exception>());
    exception->name = &name;
    exception->wordReason = wordReason;
    exception->subject = subject;
    exception->selector = selector;
    throwObject(exception);
}

// Writes a line on what nothing caught to the standard error.
void reportUncaught(id thrown);

} // namespace chroma::builtin
