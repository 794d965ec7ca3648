// The platform's side of the plugin's tests: replaced methods, and a stand-in for the sibling plugin.
#pragma once

#include "support/foreign_host.h"

#include "builtin/corefoundation.h"
#include "builtin/objc_runtime.h"
#include "messages.h"
#include "platform/guard.h"

#include <string>
#include <utility>

namespace native {

using namespace chroma;
using namespace chroma::test;

// The class whose methods are the named class's own.
inline id metaclass(const char* className) { return object_getClass(objc_getClass(className)); }
inline NSUInteger retainCount(id object) { return send<NSUInteger>(object, "retainCount"); }

// What the test itself asks is no part of a trace.
template <class Body>
auto untraced(Body body) {
    std::string* const trace = std::exchange(foreign::Host::instance().trace, nullptr);
    const auto result = body();
    foreign::Host::instance().trace = trace;
    return result;
}

// Throws a new autoreleased NSException.
[[noreturn]] inline void raise(const char* name, const char* reason) {
    throwNative(untraced(
        [=] { return sendClass("NSException", "exceptionWithName:reason:userInfo:", string(name), string(reason), id{}); }));
}

// Lets the class itself answer the selector with `method`.
template <class Result, class... Arguments>
void replace(id cls, const char* selector, Result (*method)(id, SEL, Arguments...)) {
    const auto implementation = reinterpret_cast<IMP>(method);
    const char* const types = methodTypes<Result, Arguments...>.data();
    // Where the class only inherits the method, some runtimes would replace its parent's.
    if (!class_addMethod(cls, sel_registerName(selector), implementation, types))
        class_replaceMethod(cls, sel_registerName(selector), implementation, types);
}

// Lets the class raise an NSException instead of answering.
inline void fail(id cls, const char* selector) {
    replace(
        cls, selector, +[](id, SEL) { raise("TestException", "made to fail"); });
}

// What the sibling plugin adds to NSException: the registry, and host exceptions of class "NSExceptionZRX" whose "Message"
// is the reason. It counts what it was asked.
struct Sibling {
    static inline int registryRequests = 0, preparations = 0;

    static CFMutableDictionaryRef registry() {
        static const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
        return dictionary;
    }

    static void install() {
        const id cls = metaclass("NSException");
        replace(
            cls, "PrepareNSExceptionZRX", +[](id, SEL) { ++preparations; });
        replace(
            cls, "GetInstancesDictionaryZRX", +[](id, SEL) {
                ++registryRequests;
                return registry();
            });
        replace(
            cls, "NewNSExceptionZRX:", +[](id, SEL, id exception) {
                return untraced([=] {
                    return foreign::plain("NSExceptionZRX", {{"Message", textOf(send(exception, "reason"))}});
                });
            });
    }
};

} // namespace native
