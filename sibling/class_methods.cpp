#include "sibling/class_methods.h"

#include "builtin/objc_runtime.h"

namespace chroma::sibling {

void addClassMethod(id target, SEL message, IMP method, const char* types) {
    if (target) class_addMethod(object_getClass(target), message, method, types);
}

} // namespace chroma::sibling
