#include "swatches/pages.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace host::swatches {

std::string hexOf(const ScreenColor& color) {
    const auto byte = [](double value) { return static_cast<unsigned>(std::lround(value * 255.0)); };
    char text[16];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", byte(color.red), byte(color.green), byte(color.blue));
    const std::string opaque = text;
    if (byte(color.alpha) == 255) return opaque;
    std::snprintf(text, sizeof text, "%02X", byte(color.alpha));
    return opaque + text;
}

ScreenColor colorOfHex(const std::string& text) {
    const std::string digits = text.substr(!text.empty() && text[0] == '#' ? 1 : 0);
    const bool isHex = digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    if (!isHex || (digits.size() != 6 && digits.size() != 8))
        throw std::invalid_argument("\"" + text + "\" is no colour: write #RRGGBB or #RRGGBBAA in hexadecimal");
    const auto channel = [&](std::size_t place) {
        return place < digits.size() ? static_cast<double>(std::stoi(digits.substr(place, 2), nullptr, 16)) / 255.0 : 1.0;
    };
    return {channel(0), channel(2), channel(4), channel(6)};
}

} // namespace host::swatches
