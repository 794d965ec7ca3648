// NSAutoreleasePool: an entry of the thread's stack of autoreleased objects, from init until drain.
#include "foundation/autorelease_pool.h"

#include "foundation/exception.h"
#include "runtime/autorelease.h"

namespace chroma::builtin {

ClassObject AutoreleasePool::cls;

namespace {

AutoreleasePool* init(AutoreleasePool* self, SEL) {
    self->height = autoreleaseHeight();
    pushAutoreleased(self);
    return self;
}

// Destroys the pool before it releases the contents: if a release throws, the enclosing pool releases the rest.
void dealloc(AutoreleasePool* self, SEL) {
    const std::size_t height = self->height;
    const bool isOpen = takeAutoreleased(height, self);
    deallocate(self);
    if (isOpen) drainAutoreleased(height);
}

void drain(AutoreleasePool* self, SEL) { release(self); }

id refuse(AutoreleasePool* self, SEL selector) {
    raise(exceptionName::invalidArgument, formatted("-[NSAutoreleasePool %s]: a pool cannot be shared: %p",
                                                    sel_getName(selector), static_cast<void*>(self)));
}

} // namespace

ClassTable tableOfNSAutoreleasePool() {
    static const MethodEntry methods[] = {
        method<init>("init"),     method<dealloc>("dealloc"),    method<drain>("drain"),
        method<refuse>("retain"), method<refuse>("autorelease"),
    };
    return classTable<AutoreleasePool>("NSAutoreleasePool", &NSObject::cls, methods);
}

} // namespace chroma::builtin
