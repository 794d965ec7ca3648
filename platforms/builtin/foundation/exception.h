// NSException, and how the platform raises one.
#pragma once

#include "foundation/string.h"
#include "runtime/exceptions.h"

namespace chroma::builtin {

struct Exception : Object {
    static ClassObject cls;

    constexpr Exception() = default;
    // Constant-initialised and never freed; its strings must never be freed either.
    constexpr Exception(String& constantName, String& constantReason)
        : Object(&cls, immortal), name(&constantName), reason(&constantReason) {}

    String* reasonText();

    Ref<String> name;
    Ref<String> reason;
    Ref<Object> userInfo;

    // Builds the reason at its first use, because most exceptions are dropped unread. Returns an autoreleased string.
    String* (*buildReason)(Object* subject, SEL selector) = nullptr;
    Ref<Object> subject;
    SEL selector = nullptr;
    LazyRef<String> builtReason;
};

ClassTable tableOfNSException();

namespace exceptionName {

extern String invalidArgument;
extern String malloc;
extern String range;

} // namespace exceptionName

// Throws a new exception. In 32 bits this is a jump: no object with a destructor may be alive in the frames between.
[[noreturn]] void raise(String& name, String* reason);

// The same, but `buildReason` builds the reason from the subject and the selector at its first use.
[[noreturn, gnu::always_inline]] inline void raise(String& name, String* (*buildReason)(Object*, SEL), Object* subject,
                                                   SEL selector) {
    auto* const exception = autorelease(make<Exception>());
    exception->name = &name;
    exception->buildReason = buildReason;
    exception->subject = subject;
    exception->selector = selector;
    throwObject(exception);
}

// Writes a line about an uncaught exception to standard error.
void reportUncaught(id thrown);

} // namespace chroma::builtin
