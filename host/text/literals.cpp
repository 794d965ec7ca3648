#include "text/literals.h"

#include "text/characters.h"

#include <charconv>
#include <cstdint>
#include <limits>

namespace host {
namespace {

char at(std::string_view text, std::size_t i) { return i < text.size() ? text[i] : '\0'; }

std::size_t skipDigits(std::string_view text, std::size_t i) {
    while (isDigit(at(text, i)))
        ++i;
    return i;
}

ScannedLiteral scanString(std::string_view text) {
    std::string value;
    for (std::size_t i = 1; i < text.size() && !isLineEnd(text[i]); ++i) {
        if (text[i] == '"' && at(text, ++i) != '"') return {i, std::move(value)};
        value += text[i];
    }
    throw LiteralError{0, "this text has no closing quote on its line"};
}

[[noreturn]] void failTooLarge() {
    constexpr int bits = std::numeric_limits<HostInteger>::digits + 1;
    throw LiteralError{0, "this number does not fit an Integer of " + std::to_string(bits) +
                              " bits; write it with a decimal point"};
}

ScannedLiteral scanDecimal(std::string_view text, bool negative) {
    std::size_t end = skipDigits(text, 0);
    bool real = false;
    if (at(text, end) == '.' && isDigit(at(text, end + 1))) {
        real = true;
        end = skipDigits(text, end + 1);
    }
    if (lower(at(text, end)) == 'e') {
        const std::size_t sign = at(text, end + 1) == '+' || at(text, end + 1) == '-' ? 1 : 0;
        if (isDigit(at(text, end + 1 + sign))) {
            real = true;
            end = skipDigits(text, end + 1 + sign);
        }
    }
    if (isNamePart(at(text, end))) throw LiteralError{end, "a name cannot follow a number directly"};
    if (real) {
        double value = 0;
        if (std::from_chars(text.data(), text.data() + end, value).ec == std::errc::result_out_of_range)
            throw LiteralError{0, "this number is outside the range of a Double"};
        return {end, negative ? -value : value};
    }
    std::uintptr_t value = 0;
    const bool fits = std::from_chars(text.data(), text.data() + end, value).ec == std::errc();
    if (!fits || value > static_cast<std::uintptr_t>(std::numeric_limits<HostInteger>::max()) + (negative ? 1 : 0))
        failTooLarge();
    return {end, static_cast<HostInteger>(negative ? 0 - value : value)};
}

ScannedLiteral scanPrefixed(std::string_view text, bool negative) {
    const char letter = lower(at(text, 1));
    if (letter == 'c') throw LiteralError{0, "a colour is written #RRGGBB or #RRGGBBAA"};
    const int base = letter == 'b' ? 2 : letter == 'o' ? 8 : letter == 'h' ? 16 : 0;
    if (base == 0) throw LiteralError{0, "a number after '&' is written &hFF, &o17 or &b101"};
    std::uintptr_t value = 0;
    const char* const digits = text.data() + 2;
    const auto [stop, error] = std::from_chars(digits, text.data() + text.size(), value, base);
    if (error == std::errc::result_out_of_range)
        throw LiteralError{0, "this number has more digits than an Integer can hold"};
    const auto end = static_cast<std::size_t>(stop - text.data());
    if (stop == digits || isNamePart(at(text, end)))
        throw LiteralError{end, "a digit of base " + std::to_string(base) + " is expected here"};
    return {end, static_cast<HostInteger>(negative ? 0 - value : value)};
}

} // namespace

bool startsLiteral(char first, char next) {
    return isDigit(first) || first == '"' || first == '#' || (first == '.' && isDigit(next)) ||
           (first == '&' && isNameStart(next));
}

ScannedLiteral scanLiteral(std::string_view text, bool negative) {
    switch (text.front()) {
    case '"': return scanString(text);
    case '&': return scanPrefixed(text, negative);
    case '#': {
        std::size_t end = 1;
        while (isNamePart(at(text, end)))
            ++end;
        if (const auto color = colorOfHex(text.substr(1, end - 1))) return {end, *color};
        throw LiteralError{0, "a colour is written #RRGGBB, #RRGGBBAA, #RGB or #RGBA"};
    }
    default: return scanDecimal(text, negative);
    }
}

std::optional<HostColor> colorOfHex(std::string_view digits) {
    std::string full;
    for (const char digit : digits)
        full.append(digits.size() <= 4 ? 2 : 1, digit);
    if (full.size() == 6) full += "FF";
    const char* const end = full.data() + full.size();
    std::uint32_t value = 0;
    const auto [stop, error] = std::from_chars(full.data(), end, value, 16);
    if (full.size() != 8 || stop != end || error != std::errc()) return std::nullopt;
    return value >> 8 | value << 24;
}

std::string literalOf(HostColor color) {
    const std::string opaque = "#" + hexOf(color & 0xFFFFFF, 6);
    return color >> 24 == 0xFF ? opaque : opaque + hexOf(color >> 24, 2);
}

std::string hexOf(std::uintptr_t value, std::size_t digits) {
    std::string text;
    for (; value != 0 || text.empty(); value >>= 4)
        text.insert(text.begin(), "0123456789ABCDEF"[value & 15]);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

} // namespace host
