// Adds class methods to a class of the platform: plugins of this family find each other through them.
#pragma once

#include "platform/objc.h"

namespace chroma::sibling {

// Adds a class method: a function of (id self, SEL message, arguments...), whose type encoding is `types`. Does nothing if
// the platform does not have the class or the class already responds to the message.
void addClassMethod(id target, SEL message, IMP method, const char* types);

template <class Result, class... Arguments>
void addClassMethod(id target, Message<Result(Arguments...)>& message, Result (*method)(id, SEL, Arguments...)) {
    addClassMethod(target, message.get(), reinterpret_cast<IMP>(method), methodTypes<Result, Arguments...>.data());
}

} // namespace chroma::sibling
