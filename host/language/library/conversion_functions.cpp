#include "language/library/conversion_functions.h"

#include "language/presentation.h"

#include "model/conversions.h"
#include "text/literals.h"

#include <algorithm>
#include <cstdint>

namespace host::language::conversion {

String* textOfBoolean(HostBoolean value) { return newString(textOf(value != 0)); }
String* textOfInteger(HostInteger value) { return newString(textOf(value)); }
String* textOfDouble(double value) { return newString(textOf(value)); }
String* textOfColor(HostColor value) { return newString(literalOf(value)); }

String* hexOfInteger(HostInteger value, HostInteger digits) {
    constexpr HostInteger maxDigits = 64;
    const HostInteger shown = std::clamp(digits, HostInteger{0}, maxDigits);
    return newString(hexOf(static_cast<std::uintptr_t>(value), static_cast<std::size_t>(shown)));
}

String* hexOfColor(HostColor value, HostInteger digits) {
    return hexOfInteger(static_cast<HostInteger>(std::uintptr_t{value}), digits);
}

double number(String* text) {
    Slot value;
    readText(text, Type::plain(Kind::real), value);
    return value.real;
}

double numberOr(String* text, double otherwise) { return numberIn(TextOf(text).bytes()).value_or(otherwise); }

HostColor color(HostInteger red, HostInteger green, HostInteger blue, HostInteger alpha) {
    const auto channel = [](HostInteger value) {
        return static_cast<HostColor>(std::clamp(value, HostInteger{0}, HostInteger{255}));
    };
    return channel(alpha) << 24 | channel(red) << 16 | channel(green) << 8 | channel(blue);
}

HostInteger red(HostColor color) { return color >> 16 & 0xFF; }
HostInteger green(HostColor color) { return color >> 8 & 0xFF; }
HostInteger blue(HostColor color) { return color & 0xFF; }
HostInteger alpha(HostColor color) { return color >> 24; }

} // namespace host::language::conversion
