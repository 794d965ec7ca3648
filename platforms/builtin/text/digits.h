// Numbers as digits. Reads hexadecimal digits in either case and writes lower case.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace chroma::builtin {

// Reads the complete text as one number. Returns false if the text has another character, no digit or too many.
template <class Number>
bool readDigits(std::string_view digits, Number& value, int base) {
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    return error == std::errc() && end == digits.data() + digits.size();
}

template <class Number>
bool readHex(std::string_view digits, Number& value) {
    return readDigits(digits, value, 16);
}

inline void writeHex(std::uint64_t value, int digits, std::string& text) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text.push_back("0123456789abcdef"[value >> shift & 0xF]);
}

} // namespace chroma::builtin
