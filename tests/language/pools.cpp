#include "pools.h"

extern "C" {
struct objc_object;
struct objc_selector;
using Implementation = void (*)();

objc_object* objc_getClass(const char* name);
objc_object* objc_allocateClassPair(objc_object* superclass, const char* name, unsigned long extraBytes);
void objc_registerClassPair(objc_object* cls);
const objc_selector* sel_registerName(const char* name);
Implementation objc_msg_lookup(objc_object* receiver, const objc_selector* selector);
Implementation class_getMethodImplementation(objc_object* cls, const objc_selector* selector);
unsigned char class_addMethod(objc_object* cls, const objc_selector* selector, Implementation method, const char* types);
}

namespace {

using Method = objc_object* (*)(objc_object*, const objc_selector*);

int gone = 0;

void countAndDeallocate(objc_object* object, const objc_selector* selector) {
    ++gone;
    const Implementation inherited = class_getMethodImplementation(objc_getClass("NSObject"), selector);
    reinterpret_cast<void (*)(objc_object*, const objc_selector*)>(inherited)(object, selector);
}

objc_object* send(objc_object* receiver, const char* name) {
    const objc_selector* const selector = sel_registerName(name);
    return reinterpret_cast<Method>(objc_msg_lookup(receiver, selector))(receiver, selector);
}

objc_object* countingClass() {
    objc_object* const made = objc_allocateClassPair(objc_getClass("NSObject"), "CountingObject", 0);
    const auto method = reinterpret_cast<Implementation>(countAndDeallocate);
    class_addMethod(made, sel_registerName("dealloc"), method, "v@:");
    objc_registerClassPair(made);
    return made;
}

} // namespace

void autoreleaseNative() {
    static objc_object* const counting = countingClass();
    send(send(send(counting, "alloc"), "init"), "autorelease");
}

int nativesGone() { return gone; }
