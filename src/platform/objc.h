// The Objective-C runtime as the plugin uses it: typed messages to objects and classes that are found by name.
//
// Our own declarations, no vendor header. Everything that differs between the platforms' runtimes is in this folder and in
// platforms/; nothing above it asks which platform it runs on.
#pragma once

#include <cstdint>
#include <type_traits>

namespace chroma {

struct Object;
using id = Object*;

struct SelectorEntry;
using SEL = const SelectorEntry*;

using IMP = void (*)();

// The platform's component type. The plugin narrows every double of the host to single precision first, whatever this is.
#if defined(__LP64__)
using CGFloat = double;
#else
using CGFloat = float;
#endif

using NSInteger = std::intptr_t;
using NSUInteger = std::uintptr_t;

// The integers of colour spaces, and positions in colour lists: not every platform declares them as NSInteger.
#if defined(CHROMA_NARROW_INTEGERS)
using SpaceInteger = int;
using ListIndex = unsigned;
#else
using SpaceInteger = NSInteger;
using ListIndex = NSInteger;
#endif

// A byte, 0 for NO.
#if defined(__APPLE__) && defined(__arm64__)
using BOOL = bool;
#elif defined(__APPLE__)
using BOOL = signed char;
#else
using BOOL = unsigned char;
#endif

extern "C" {
id objc_getClass(const char* name);
SEL sel_registerName(const char* name);
#if defined(__APPLE__)
void objc_msgSend();
void objc_msgSend_fpret(); // for results that i386 returns on the floating-point stack
#else
IMP objc_msg_lookup(id receiver, SEL selector);
#endif
}

// The function to call for a message with a result of type R. The GNU family's runtimes look the method up, Apple's call it
// themselves, with the arguments they find.
template <class R>
IMP messageFunction([[maybe_unused]] id receiver, [[maybe_unused]] SEL selector) {
#if !defined(__APPLE__)
    return objc_msg_lookup(receiver, selector);
#elif defined(__i386__)
    static_assert(std::is_void_v<R> || std::is_scalar_v<R>, "structures are returned in other ways");
    return std::is_floating_point_v<R> ? &objc_msgSend_fpret : &objc_msgSend;
#else
    return &objc_msgSend;
#endif
}

// A selector, registered with the runtime when it is first sent.
class Selector {
public:
    constexpr explicit Selector(const char* name) : name_(name) {}

    SEL get() {
        if (!selector_) selector_ = sel_registerName(name_);
        return selector_;
    }

private:
    const char* name_;
    SEL selector_ = nullptr;
};

// A class, looked up when it is first needed. A class that the platform lacks is nil, so that messages to it answer nil; it
// is asked for again at the next use.
class ClassName {
public:
    constexpr explicit ClassName(const char* name) : name_(name) {}

    id get() {
        if (!class_) class_ = objc_getClass(name_);
        return class_;
    }

private:
    const char* name_;
    id class_ = nullptr;
};

// Sends `selector` to `receiver`: the only way in which a message leaves the plugin. A nil receiver answers R{}. The
// argument types must be exactly those of the platform's method; nothing is converted on the way. May throw a native
// exception, in 32 bits a jump past this frame's callers: see guard.h.
template <class R, class... Args>
R send(id receiver, Selector& selector, Args... arguments) {
    if (!receiver) return R();
    const SEL registered = selector.get();
    const auto method = reinterpret_cast<R (*)(id, SEL, Args...)>(messageFunction<R>(receiver, registered));
    return method(receiver, registered, arguments...);
}

template <class R, class... Args>
R send(ClassName& receiver, Selector& selector, Args... arguments) {
    return send<R>(receiver.get(), selector, arguments...);
}

} // namespace chroma
