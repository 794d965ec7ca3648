#include "sibling/class_methods.h"

namespace chroma::sibling {

extern "C" {
id object_getClass(id object);
BOOL class_addMethod(id target, SEL message, IMP method, const char* types);
}

void addClassMethod(ClassName& target, Selector& message, IMP method, const char* types) {
    if (target.get()) class_addMethod(object_getClass(target.get()), message.get(), method, types);
}

} // namespace chroma::sibling
