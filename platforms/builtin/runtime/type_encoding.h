// Type encodings: the characters that describe a method's types in the runtime's interface, first the result, then the
// receiver, the selector and the arguments. A pointer's character is followed by that of the type it points to, which is
// 'v' unless it is a number.
#pragma once

#include "builtin/objc_runtime.h"

#include <array>
#include <cstddef>
#include <type_traits>

namespace chroma::builtin {

constexpr char characterOfInteger(std::size_t size, bool isSigned) {
    switch (size) {
    case 1: return isSigned ? 'c' : 'C';
    case 2: return isSigned ? 's' : 'S';
    case 4: return isSigned ? 'i' : 'I';
    default: return isSigned ? 'q' : 'Q';
    }
}

template <class T>
constexpr char characterOf() {
    if (std::is_same_v<T, id>) return '@';
    if (std::is_same_v<T, SEL>) return ':';
    if (std::is_pointer_v<T>) return '^';
    if (std::is_same_v<T, float>) return 'f';
    if (std::is_same_v<T, double>) return 'd';
    if constexpr (std::is_integral_v<T>) return characterOfInteger(sizeof(T), std::is_signed_v<T>);
    return std::is_class_v<T> ? '{' : 'v';
}

// The second character, or 0 if there is none.
template <class T>
constexpr char secondCharacterOf() {
    using Pointee = std::remove_cv_t<std::remove_pointer_t<T>>;
    if (characterOf<T>() == '{') return '}';
    if (characterOf<T>() != '^') return '\0';
    return std::is_arithmetic_v<Pointee> ? characterOf<Pointee>() : 'v';
}

// NUL-terminated.
template <class Result, class... Arguments>
constexpr auto encodedTypes() {
    std::array<char, 2 * sizeof...(Arguments) + 5> text{};
    std::size_t length = 0;
    const auto put = [&](char character) {
        if (character) text[length++] = character;
    };
    (put(characterOf<Result>()), put(secondCharacterOf<Result>()), put('@'), put(':'));
    ((put(characterOf<Arguments>()), put(secondCharacterOf<Arguments>())), ...);
    return text;
}

} // namespace chroma::builtin
