// NSException, and how the platform raises one.
#pragma once

#include "foundation/string.h"

namespace chroma::builtin {

struct Exception : Object {
    static ClassObject cls;

    constexpr Exception() = default;
    // Constant-initialised and never freed, of strings that never are.
    constexpr Exception(String& constantName, String& constantReason)
        : Object(&cls, immortal), name(&constantName), reason(&constantReason) {}

    Ref<String> name;
    Ref<String> reason;
    Ref<Object> userInfo;
};

ClassTable tableOfNSException();

namespace exceptionName {

extern String invalidArgument;
extern String malloc;
extern String range;

} // namespace exceptionName

// Throws a new exception, in 32 bits by a jump: nothing with a destructor may be alive in the frames between.
[[noreturn]] void raise(String& name, String* reason);

// Writes a line on what nothing caught to the standard error.
void reportUncaught(id thrown);

} // namespace chroma::builtin
