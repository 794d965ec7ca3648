// Platform helpers for the plugin's tests: replaced methods, and a substitute for the sibling plugin.
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

// Returns the class that holds the named class's shared methods.
inline id metaclass(const char* className) { return object_getClass(objc_getClass(className)); }
inline NSUInteger retainCount(id object) { return send<NSUInteger>(object, "retainCount"); }

// Runs the body without recording the test's own calls in the trace.
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

// Makes `method` the class's own method for the selector.
template <class Result, class... Arguments>
void replace(id cls, const char* selector, Result (*method)(id, SEL, Arguments...)) {
    const auto implementation = reinterpret_cast<IMP>(method);
    const char* const types = methodTypes<Result, Arguments...>.data();
    // If the class only inherits the method, some runtimes would replace its parent's.
    if (!class_addMethod(cls, sel_registerName(selector), implementation, types))
        class_replaceMethod(cls, sel_registerName(selector), implementation, types);
}

// Makes the class raise an NSException for the selector.
inline void fail(id cls, const char* selector) {
    replace(
        cls, selector, +[](id, SEL) { raise("TestException", "made to fail"); });
}

// Adds the sibling plugin's methods to NSException: the registry, and host exceptions of class "NSExceptionZRX" whose
// "Message" is the reason. Counts their calls.
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
