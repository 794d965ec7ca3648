#include "foundation/array.h"

#include "foundation/exception.h"

#include <algorithm>
#include <cstdint>

namespace chroma::builtin {

ClassObject Array::cls;
ClassObject Enumerator::cls;

namespace {

Array* emptyArray(ClassObject*, SEL) { return autorelease(make<Array>()); }

Array* arrayWithObjects(ClassObject*, SEL, const id* objects, std::uintptr_t count) {
    if (std::find(objects, objects + count, nullptr) != objects + count)
        raise(exceptionName::invalidArgument, formatted("+[NSArray arrayWithObjects:count:]: an object is nil"));
    Array* const array = autorelease(make<Array>());
    for (std::uintptr_t i = 0; i < count; ++i)
        array->append(objects[i]);
    return array;
}

std::uintptr_t count(Array* self, SEL) { return self->elements.size(); }

id objectAtIndex(Array* self, SEL, std::uintptr_t index) {
    if (index >= self->elements.size()) {
        raise(exceptionName::range, formatted("-[NSArray objectAtIndex:]: index %zu beyond count %zu",
                                              static_cast<std::size_t>(index), self->elements.size()));
    }
    return self->elements[index];
}

Enumerator* objectEnumerator(Array* self, SEL) {
    auto* const enumerator = autorelease(make<Enumerator>());
    enumerator->array = self;
    return enumerator;
}

id nextObject(Enumerator* self, SEL) {
    if (self->array && self->next < self->array->elements.size()) return self->array->elements[self->next++];
    self->array = nullptr;
    return nullptr;
}

} // namespace

ClassTable tableOfNSArray() {
    static const MethodEntry methods[] = {
        method<count>("count"),
        method<objectAtIndex>("objectAtIndex:"),
        method<objectEnumerator>("objectEnumerator"),
    };
    static const MethodEntry classMethods[] = {
        method<emptyArray>("array"),
        method<arrayWithObjects>("arrayWithObjects:count:"),
    };
    return classTable<Array>("NSArray", &NSObject::cls, methods, classMethods);
}

ClassTable tableOfNSEnumerator() {
    static const MethodEntry methods[] = {method<nextObject>("nextObject")};
    return classTable<Enumerator>("NSEnumerator", &NSObject::cls, methods);
}

} // namespace chroma::builtin
