// Method type encodings as runtimes write them: one character per type, first the result, then receiver, selector and
// arguments.
#pragma once

#include "platform/types.h"

#include <array>
#include <cstddef>
#include <type_traits>

namespace chroma {

constexpr char integerCode(std::size_t size, bool isSigned) {
    const char* const codes = isSigned ? "csiq" : "CSIQ";
    return codes[size == 1 ? 0 : size == 2 ? 1 : size == 4 ? 2 : 3];
}

// The character of one type. A pointer's is followed by that of the type it points to, which is 'v' unless it is a number.
template <class T>
constexpr char typeCode() {
    if (std::is_same_v<T, id>) return '@';
    if (std::is_same_v<T, SEL>) return ':';
    if (std::is_pointer_v<T>) return '^';
    if (std::is_class_v<T>) return '{';
    if (std::is_same_v<T, float>) return 'f';
    if (std::is_same_v<T, double>) return 'd';
    if (std::is_same_v<T, bool>) return 'B';
    if constexpr (std::is_integral_v<T>) return integerCode(sizeof(T), std::is_signed_v<T>);
    return 'v';
}

template <class T>
constexpr char pointeeCode() {
    using Pointee = std::remove_cv_t<std::remove_pointer_t<T>>;
    if (typeCode<T>() == '{') return '}';
    if (typeCode<T>() != '^') return '\0';
    return std::is_arithmetic_v<Pointee> ? typeCode<Pointee>() : 'v';
}

// The encoding of a method, NUL-terminated.
template <class... Types>
constexpr auto encode() {
    std::array<char, 2 * sizeof...(Types) + 1> text{};
    std::size_t length = 0;
    const auto put = [&](char code) {
        if (code) text[length++] = code;
    };
    ((put(typeCode<Types>()), put(pointeeCode<Types>())), ...);
    return text;
}
template <class Result, class... Arguments>
inline constexpr auto methodTypes = encode<Result, id, SEL, Arguments...>();

// Returns whether the receiver's method has the types; true if the runtime has recorded none and if the receiver has no
// such method. Logs differences on standard error. For assertions; other builds do not have this function.
bool methodHasTypes(id receiver, SEL selector, const char* types);

} // namespace chroma
