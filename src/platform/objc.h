// The Objective-C runtime as the plugin uses it: typed messages to objects and classes that are found by name.
//
// Everything that differs between the platforms' runtimes is in this folder and in platforms/; nothing above it asks which
// platform it runs on.
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

// Whether a message's result of type R comes back where the function of `messageFunction` leaves it.
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

// The function to call for a message with a result of type R. The GNU family's runtimes look the method up, Apple's call it
// themselves, with the arguments they find.
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

// A class, looked up when it is first needed. A class that the platform lacks is nil, so that messages to it answer nil; it
// is asked for again at the next use.
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

// A selector, registered with the runtime when it is first needed.
class Selector {
public:
    constexpr explicit Selector(const char* name) : name_(name) {}

    SEL get() {
        if (!selector_) selector_ = sel_registerName(name_);
        return selector_;
    }

protected:
    // For a message to the receiver, whose method has the types.
    SEL get(id receiver, const char* types) { return selector_ ? selector_ : beforeFirstMessage(receiver, types); }

private:
    // Kept out of the many places that send.
    [[gnu::noinline]] SEL beforeFirstMessage([[maybe_unused]] id receiver, [[maybe_unused]] const char* types) {
        assert(methodHasTypes(receiver, get(), types));
        return get();
    }

    const char* name_;
    SEL selector_ = nullptr;
};

// Whether an argument goes for a parameter as it is: nothing is converted on the way, but that a pointer may gain a const.
template <class Parameter, class Argument>
inline constexpr bool isPassed = std::is_same_v<Parameter, Argument> ||
                                 (std::is_pointer_v<Parameter> &&
                                  (std::is_null_pointer_v<Argument> ||
                                   std::is_same_v<Parameter, const std::remove_pointer_t<Argument>*>));

template <class Signature>
class Message;

// A selector and the types of its methods, as in `inline Message<id(CGFloat)> shadowWithLevel_{"shadowWithLevel:"}`. Called
// with a receiver and the arguments it sends the message: the only way in which one leaves the plugin. A nil receiver
// answers R{}. May throw a native exception, in 32 bits a jump past this frame's callers: see guard.h.
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
