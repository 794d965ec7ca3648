#include "sibling/class_methods.h"

#include "builtin/objc_runtime.h"

namespace chroma::sibling {

void addClassMethod(ClassName& target, Selector& message, IMP method, const char* types) {
    if (target.get()) class_addMethod(object_getClass(target.get()), message.get(), method, types);
}

} // namespace chroma::sibling
