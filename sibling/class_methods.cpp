#include "sibling/class_methods.h"

namespace chroma {

extern "C" {
id object_getClass(id object);
BOOL class_addMethod(id cls, SEL selector, IMP implementation, const char* types);
}

} // namespace chroma

namespace chroma::sibling {

void addClassMethod(id target, SEL message, IMP method, const char* types) {
    if (target) class_addMethod(object_getClass(target), message, method, types);
}

} // namespace chroma::sibling
