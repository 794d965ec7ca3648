#include "foundation/nsobject.h"

#include "foundation/exception.h"
#include "foundation/string.h"
#include "runtime/autorelease.h"

#include <cstdint>

namespace chroma::builtin {

ClassObject NSObject::cls;

namespace {

NSObject* init(NSObject* self, SEL) { return self; }

void dealloc(NSObject* self, SEL) { deallocate(self); }

Object* retainObject(Object* self, SEL) { return retain(self); }

void releaseObject(Object* self, SEL) { release(self); }

Object* autoreleaseObject(Object* self, SEL) {
    if (self->retainCount.load(std::memory_order_relaxed) != immortal) pushAutoreleased(self);
    return self;
}

std::uintptr_t retainCount(Object* self, SEL) {
    const std::int32_t count = self->retainCount.load(std::memory_order_relaxed);
    return count == immortal ? UINTPTR_MAX : static_cast<std::uintptr_t>(count);
}

Object* identity(Object* self, SEL) { return self; }

ClassObject* classOfObject(Object* self, SEL) { return self->isa; }

ClassObject* superclassOfObject(Object* self, SEL) { return self->isa->superclass; }

BOOL isEqual(Object* self, SEL, id other) { return self == other; }

std::uintptr_t hash(Object* self, SEL) { return reinterpret_cast<std::uintptr_t>(self) >> 4; }

String* describeObject(Object* self, SEL) { return formatted("<%s: %p>", self->isa->name, static_cast<void*>(self)); }

BOOL respondsToSelector(Object* self, SEL, SEL selector) {
    return selector && findImplementation(*self->isa, selector) ? 1 : 0;
}

BOOL isKindOfClass(Object* self, SEL, id cls) {
    const ClassObject* const expected = asClass(cls);
    return expected && isKindOf(self, *expected);
}

void doesNotRecognizeSelector(Object* self, SEL, SEL selector) {
    const ClassObject* const cls = asClass(self);
    raise(exceptionName::invalidArgument,
          formatted("%c[%s %s]: unrecognized selector sent to %s %p", cls ? '+' : '-', cls ? cls->name : self->isa->name,
                    sel_getName(selector), cls ? "class" : "instance", static_cast<void*>(self)));
}

Object* alloc(ClassObject* self, SEL) { return allocate(*self); }

Object* newObject(ClassObject* self, SEL) {
    static const Message allocMessage{"alloc"};
    return send<id>(send<id>(self, allocMessage), msg::init);
}

ClassObject* classOfClass(ClassObject* self, SEL) { return self; }

ClassObject* superclassOfClass(ClassObject* self, SEL) { return self->superclass; }

String* describeClass(ClassObject* self, SEL) { return formatted("%s", self->name); }

BOOL instancesRespondToSelector(ClassObject* self, SEL, SEL selector) {
    return selector && findImplementation(*self, selector) ? 1 : 0;
}

BOOL isSubclassOfClass(ClassObject* self, SEL, id cls) { return cls && descendsFrom(self, asClass(cls)); }

} // namespace

ClassTable tableOfNSObject() {
    static const MethodEntry methods[] = {
        method<init>("init"),
        method<dealloc>("dealloc"),
        method<retainObject>("retain"),
        method<releaseObject>("release"),
        method<autoreleaseObject>("autorelease"),
        method<retainCount>("retainCount"),
        method<identity>("self"),
        method<classOfObject>("class"),
        method<superclassOfObject>("superclass"),
        method<isEqual>("isEqual:"),
        method<hash>("hash"),
        method<describeObject>("description"),
        method<respondsToSelector>("respondsToSelector:"),
        method<isKindOfClass>("isKindOfClass:"),
        method<doesNotRecognizeSelector>("doesNotRecognizeSelector:"),
    };
    static const MethodEntry classMethods[] = {
        method<alloc>("alloc"),
        method<newObject>("new"),
        method<classOfClass>("class"),
        method<superclassOfClass>("superclass"),
        method<describeClass>("description"),
        method<instancesRespondToSelector>("instancesRespondToSelector:"),
        method<isSubclassOfClass>("isSubclassOfClass:"),
    };
    return classTable<NSObject>("NSObject", nullptr, methods, classMethods);
}

} // namespace chroma::builtin
