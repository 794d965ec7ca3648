// Adding class methods to a class of the platform: how plugins of this family find each other.
#pragma once

#include "platform/objc.h"

namespace chroma::sibling {

// Lets the class answer the message with `method`, a function of (id self, SEL message, arguments...). `types` is the
// method's type encoding. Does nothing when the platform lacks the class or the class answers the message already.
void addClassMethod(ClassName& target, Selector& message, IMP method, const char* types);

template <class Result, class... Arguments>
void addClassMethod(ClassName& target, Selector& message, Result (*method)(id, SEL, Arguments...), const char* types) {
    addClassMethod(target, message, reinterpret_cast<IMP>(method), types);
}

} // namespace chroma::sibling
