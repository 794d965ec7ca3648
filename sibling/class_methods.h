// Adding class methods to a class of the platform: how plugins of this family find each other.
#pragma once

#include "platform/objc.h"

namespace chroma::sibling {

// Lets the class answer the message with a function of (id self, SEL message, arguments...), whose type encoding is `types`.
// Does nothing when the platform lacks the class or the class answers the message already.
void addClassMethod(id target, SEL message, IMP method, const char* types);

template <class Result, class... Arguments>
void addClassMethod(id target, Message<Result(Arguments...)>& message, Result (*method)(id, SEL, Arguments...)) {
    addClassMethod(target, message.get(), reinterpret_cast<IMP>(method), methodTypes<Result, Arguments...>.data());
}

} // namespace chroma::sibling
