// The platform's side of the tests: messages, replaced methods, and a stand-in for the sibling plugin.
#pragma once

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/objc.h"
#include "platform/selectors.h"

#include <string>
#include <type_traits>

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

// How the runtime writes a type down in a method's encoding.
template <class T>
constexpr char typeCode() {
    if (std::is_void_v<T>) return 'v';
    if (std::is_same_v<T, SEL>) return ':';
    if (std::is_same_v<T, id>) return '@';
    if (std::is_same_v<T, BOOL>) return 'C';
    if (std::is_same_v<T, float>) return 'f';
    if (std::is_same_v<T, double>) return 'd';
    if (std::is_integral_v<T>) return std::is_signed_v<T> ? 'l' : 'L';
    return '?'; // of pointers no one asks more
}

// Lets the class itself answer the selector with `method`.
template <class Result, class... Arguments>
void replace(id cls, const char* selector, Result (*method)(Arguments...)) {
    const char types[] = {typeCode<Result>(), typeCode<Arguments>()..., '\0'};
    const auto implementation = reinterpret_cast<IMP>(method);
    // Where the class only inherits the method, some runtimes would replace its parent's.
    if (!class_addMethod(cls, sel_registerName(selector), implementation, types))
        class_replaceMethod(cls, sel_registerName(selector), implementation, types);
}

// Lets the instances of the object's class raise an NSException instead of answering.
void failOn(id object, const char* selector);

// The same for a class's own answers.
void failOnClass(const char* className, const char* selector);

// What the sibling plugin adds to NSException: the registry, and host exceptions of class "NSExceptionZRX" whose "Message" is
// the reason. It counts what it was asked.
struct Sibling {
    static void install();
    static CFMutableDictionaryRef registry();
    static int registryRequests, preparations;
};

} // namespace native
