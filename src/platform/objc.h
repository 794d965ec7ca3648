// The plugin's view of the Objective-C runtime: typed messages to objects and to classes that are looked up by name.
//
// All differences between the platforms' runtimes are in this folder and in platforms/. Code above it does not depend on
// the platform.
#pragma once

#include "platform/type_encoding.h"
#include "platform/types.h"

#include <cassert>
#include <cstddef>
#include <type_traits>

namespace chroma {

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

// Whether a message's result of type R is returned in the place where `messageFunction`'s function leaves it.
#if defined(__APPLE__) && defined(__i386__)
template <class R>
inline constexpr bool isReturned = std::is_void_v<R> || std::is_scalar_v<R>;
#elif defined(__APPLE__) && defined(__x86_64__)
template <class R>
inline constexpr bool isReturned = std::is_trivially_copyable_v<R> && sizeof(R) <= 2 * sizeof(void*);
template <>
inline constexpr bool isReturned<void> = true;
#else
template <class R>
inline constexpr bool isReturned = true;
#endif

// Returns the function to call for a message with a result of type R. The GNU family's runtimes look the method up. Apple's
// function looks it up itself and calls it with the same arguments.
template <class R>
IMP messageFunction([[maybe_unused]] id receiver, [[maybe_unused]] SEL selector) {
    static_assert(isReturned<R>, "the runtime has another function for this structure");
#if !defined(__APPLE__)
    return objc_msg_lookup(receiver, selector);
#elif defined(__i386__)
    return std::is_floating_point_v<R> ? &objc_msgSend_fpret : &objc_msgSend;
#else
    return &objc_msgSend;
#endif
}

// A class, looked up at its first use. A class that the platform does not have is nil, so messages to it return nil; it is
// looked up again at the next use.
class ClassName {
public:
    constexpr explicit ClassName(const char* name) : name_(name) {}

    id get() { return class_ ? class_ : find(); }
    operator id() { return get(); }

private:
    [[gnu::noinline]] id find() { return class_ = objc_getClass(name_); }

    const char* name_;
    id class_ = nullptr;
};

// A selector, registered with the runtime at its first use.
class Selector {
public:
    constexpr explicit Selector(const char* name) : name_(name) {}

    SEL get() {
        if (!selector_) selector_ = sel_registerName(name_);
        return selector_;
    }

protected:
    // Returns the selector for a message to the receiver, whose method should have the types.
    SEL get(id receiver, const char* types) { return selector_ ? selector_ : beforeFirstMessage(receiver, types); }

private:
    // Not inlined, because many places send messages.
    [[gnu::noinline]] SEL beforeFirstMessage([[maybe_unused]] id receiver, [[maybe_unused]] const char* types) {
        assert(methodHasTypes(receiver, get(), types));
        return get();
    }

    const char* name_;
    SEL selector_ = nullptr;
};

// Whether an argument's type fits a parameter without conversion; a pointer may gain a const.
template <class Parameter, class Argument>
inline constexpr bool isPassed = std::is_same_v<Parameter, Argument> ||
                                 (std::is_pointer_v<Parameter> &&
                                  (std::is_null_pointer_v<Argument> ||
                                   std::is_same_v<Parameter, const std::remove_pointer_t<Argument>*>));

template <class Signature>
class Message;

// A selector and the types of its methods, as in `inline Message<id(CGFloat)> shadowWithLevel_{"shadowWithLevel:"}`.
// Calling it with a receiver and the arguments sends the message; the plugin sends messages only in this way. A nil
// receiver returns R{}. May throw a native exception, in 32 bits a jump past this frame's callers: see guard.h.
template <class R, class... Parameters>
class Message<R(Parameters...)> : public Selector {
public:
    using Selector::Selector;

    template <class... Arguments, class = std::enable_if_t<(isPassed<Parameters, Arguments> && ...)>>
    R operator()(id receiver, Arguments... arguments) {
        if (!receiver) return R();
        const SEL selector = get(receiver, methodTypes<R, Parameters...>.data());
        const auto method = reinterpret_cast<R (*)(id, SEL, Parameters...)>(messageFunction<R>(receiver, selector));
        return method(receiver, selector, arguments...);
    }
};

} // namespace chroma
