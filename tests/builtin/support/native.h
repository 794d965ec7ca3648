// Messages and exceptions for the tests of the builtin platform, over its C interface alone.
#pragma once

#include "builtin/constants.h"
#include "builtin/corefoundation.h"
#include "builtin/introspection.h"
#include "builtin/objc_runtime.h"

#include <array>
#include <csetjmp>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace chroma::test {

template <class R = id, class... Arguments>
R send(id receiver, const char* selectorName, Arguments... arguments) {
    if (!receiver) return R();
    const SEL selector = sel_registerName(selectorName);
    const auto function = reinterpret_cast<R (*)(id, SEL, Arguments...)>(objc_msg_lookup(receiver, selector));
    return function(receiver, selector, arguments...);
}

template <class R = id, class... Arguments>
R sendClass(const char* className, const char* selectorName, Arguments... arguments) {
    return send<R>(objc_getClass(className), selectorName, arguments...);
}

// A function as an IMP. It takes the receiver, the selector and the arguments.
template <class R, class... Arguments>
IMP implementation(R (*function)(id, SEL, Arguments...)) {
    return reinterpret_cast<IMP>(function);
}

// What an exception guard looks like to the runtime.
struct Guard {
    std::jmp_buf buffer;
    void* runtimeWords[4];
};

// The object that the body throws, nil when it throws none. The body must not keep anything with a destructor alive while it
// sends messages.
template <class Body>
id caught(Body body) {
    Guard guard;
    objc_exception_try_enter(&guard);
    if (_setjmp(guard.buffer) != 0) return objc_exception_extract(&guard);
    body();
    objc_exception_try_exit(&guard);
    return nullptr;
}

// An autorelease pool for a scope.
class Pool {
public:
    Pool() : pool_(sendClass("NSAutoreleasePool", "new")) {}
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { drain(); }

    void drain() {
        send<void>(pool_, "drain");
        pool_ = nullptr;
    }

private:
    id pool_;
};

// An autoreleased string of UTF-8 text, and back: "(nil)" for nil.
id string(std::string_view text);
std::string textOf(id string);

// What the body raises, as "name: reason", and "" when it raises nothing.
template <class Body>
std::string raised(Body body) {
    const id exception = caught(body);
    return exception ? textOf(send(exception, "name")) + ": " + textOf(send(exception, "reason")) : "";
}

// Whether the body raises an exception of the name.
template <class Body>
bool raises(const char* name, Body body) {
    return textOf(send(caught(body), "name")) == name;
}

// Colours and spaces.
id calibratedRGB(float red, float green, float blue, float alpha = 1);
id standardSpace(const char* message);
id colorIn(id space, std::initializer_list<float> components);
std::vector<float> componentsOf(id color);

} // namespace chroma::test
