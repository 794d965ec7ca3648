// The platform's side of the tests: messages, replaced methods, and a stand-in for the sibling plugin.
#pragma once

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/objc.h"
#include "platform/selectors.h"

#include <string>

namespace native {

using namespace chroma;

extern "C" {
BOOL class_addMethod(id cls, SEL name, IMP implementation, const char* types);
IMP class_replaceMethod(id cls, SEL name, IMP implementation, const char* types);
id object_getClass(id object);
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex capacity, const void* keys, const void* values);
CFIndex CFDictionaryGetCount(CFMutableDictionaryRef);
}

// Sends a message that the plugin itself does not send.
template <class R = id, class... Arguments>
R tell(id receiver, const char* selector, Arguments... arguments) {
    Selector message{selector};
    return send<R>(receiver, message, arguments...);
}

inline id classNamed(const char* name) { return objc_getClass(name); }
inline NSUInteger retainCount(id object) { return tell<NSUInteger>(object, "retainCount"); }

// A new string, which the caller releases.
id string(const std::string& utf8);
std::string textOf(id string);

// Throws a new autoreleased NSException.
[[noreturn]] void raise(const char* name, const char* reason);

// Lets the class answer the selector with `method`, a function of (id, SEL, ...).
template <class Method>
void replace(id cls, const char* selector, Method* method) {
    class_replaceMethod(cls, sel_registerName(selector), reinterpret_cast<IMP>(method), "");
}

// Lets the instances of a class, or with `onClass` the class itself, raise an NSException instead of answering.
void failOn(const char* className, const char* selector, bool onClass = false);

// What the sibling plugin adds to NSException: the registry, and host exceptions of class "NSExceptionZRX" whose "Message" is
// the reason. It counts what it was asked.
struct Sibling {
    static void install();
    static CFMutableDictionaryRef registry();
    static int registryRequests, preparations;
};

} // namespace native
