// Messages to the platform under test, through the C interface that all platforms share.
#pragma once

#include "platform/corefoundation.h"
#include "platform/objc.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace chroma::test {

// Passes floating-point numbers as CGFloat.
template <class Argument>
using Passed = std::conditional_t<std::is_floating_point_v<Argument>, CGFloat, Argument>;

template <class R = id, class... Arguments>
R send(id receiver, const char* selectorName, Arguments... arguments) {
    if (!receiver) return R();
    const SEL selector = sel_registerName(selectorName);
    const auto function = reinterpret_cast<R (*)(id, SEL, Passed<Arguments>...)>(objc_msg_lookup(receiver, selector));
    return function(receiver, selector, static_cast<Passed<Arguments>>(arguments)...);
}

template <class R = id, class... Arguments>
R sendClass(const char* className, const char* selectorName, Arguments... arguments) {
    return send<R>(objc_getClass(className), selectorName, arguments...);
}

// Returns an autoreleased string of UTF-8 text.
inline id string(std::string_view text) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<CFIndex>(text.size());
    return send(CFStringCreateWithBytes(nullptr, bytes, length, kCFStringEncodingUTF8, 0), "autorelease");
}

// Returns the text of a string, the description of another object, or "(nil)" for nil.
inline std::string textOf(id object) {
    if (!object) return "(nil)";
    const bool isString = send<BOOL>(object, "isKindOfClass:", objc_getClass("NSString")) != 0;
    return send<const char*>(isString ? object : send(object, "description"), "UTF8String");
}

inline bool isEqual(id first, id second) { return send<BOOL>(first, "isEqual:", second) != 0; }

} // namespace chroma::test
