#include "swatches/color_syntax.h"

#include "text/characters.h"
#include "text/css_colors.h"
#include "text/literals.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace host::swatches {

namespace {

Reference colorOfValue(HostColor color) {
    const auto channel = [color](int shift) { return (color >> shift & 0xFF) / 255.0; };
    return sRGBColor({channel(16), channel(8), channel(0), channel(24)});
}

// One argument of a CSS function: a number and its unit.
struct Quantity {
    double value;
    bool isPercent;

    double share(double whole) const { return isPercent ? value / 100.0 : value / whole; }
    double of(double whole) const { return isPercent ? value / 100.0 * whole : value; }
};

// "name(arguments)", where commas, slashes or blanks separate the arguments.
struct Function {
    std::string name, space; // space: the first argument of color()
    std::vector<Quantity> arguments;
};

std::optional<Function> function(const std::string& text) {
    const std::size_t open = text.find('(');
    if (open == std::string::npos || text.back() != ')') return std::nullopt;
    std::string inside = text.substr(open + 1, text.size() - open - 2);
    std::replace_if(
        inside.begin(), inside.end(), [](char c) { return c == ',' || c == '/'; }, ' ');
    Function parsed = {text.substr(0, open), "", {}};
    std::istringstream words(inside);
    for (std::string word; words >> word;) {
        char* end = nullptr;
        const double value = std::strtod(word.c_str(), &end);
        const std::string unit = end;
        if (end == word.c_str() && parsed.name == "color" && parsed.space.empty()) {
            parsed.space = word;
        } else if (end == word.c_str() || !std::isfinite(value) || (!unit.empty() && unit != "%" && unit != "deg")) {
            return std::nullopt;
        } else {
            parsed.arguments.push_back({value, unit == "%"});
        }
    }
    if (parsed.arguments.size() == 3) parsed.arguments.push_back({1.0, false});
    if (parsed.arguments.size() != 4) return std::nullopt;
    return parsed;
}

// Converts a colour. The hue is in degrees; the others are from 0.0 to 1.0.
ScreenColor fromHSL(double hue, double saturation, double lightness, double alpha) {
    const double reach = saturation * std::min(lightness, 1.0 - lightness);
    const auto component = [&](double offset) {
        const double k = std::fmod(std::fmod(offset + hue / 30.0, 12.0) + 12.0, 12.0);
        return lightness - reach * std::max(-1.0, std::min({k - 3.0, 9.0 - k, 1.0}));
    };
    return {component(0), component(8), component(4), alpha};
}

// Returns the colour of a function, or null for an unknown function. Values out of range are clamped as in CSS, except
// those of color().
Reference colorOfFunction(const Function& f) {
    const std::vector<Quantity>& a = f.arguments;
    const double alpha = std::clamp(a[3].share(1.0), 0.0, 1.0);
    if (f.name == "rgb" || f.name == "rgba")
        return sRGBColor(clipped({a[0].share(255.0), a[1].share(255.0), a[2].share(255.0), alpha}));
    if (f.name == "hsl" || f.name == "hsla") {
        const auto within = [](double share) { return std::clamp(share, 0.0, 1.0); };
        return sRGBColor(fromHSL(a[0].value, within(a[1].share(100.0)), within(a[2].share(100.0)), alpha));
    }
    const std::vector<double> components = {a[0].share(1.0), a[1].share(1.0), a[2].share(1.0), alpha};
    if (f.name == "lab" || f.name == "lch" || f.name == "oklab" || f.name == "oklch") {
        const bool isOk = f.name.rfind("ok", 0) == 0, isPolar = f.name.back() == 'h';
        const double white = isOk ? 1.0 : 100.0, reach = isOk ? 0.4 : isPolar ? 150.0 : 125.0; // the value of 100%
        const double lightness = std::clamp(a[0].of(white), 0.0, white), first = a[1].of(reach);
        const Lab lab =
            isPolar ? labOfPolar(lightness, std::max(first, 0.0), a[2].value) : Lab{lightness, first, a[2].of(reach)};
        return colorOfXYZ(isOk ? xyzOfOklab(lab) : xyzOfLab(lab), alpha);
    }
    if (f.space == "srgb") return colorInSpace(namedSpace("sRGBColorSpace"), components);
    if (f.space == "display-p3") return colorInSpace(displayP3Space(), components);
    if (f.space == "a98-rgb") return colorInSpace(namedSpace("adobeRGB1998ColorSpace"), components);
    return {};
}

} // namespace

std::string hexOf(const ScreenColor& color) {
    const auto byte = [](double value) { return static_cast<HostColor>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0)); };
    return literalOf(byte(color.alpha) << 24 | byte(color.red) << 16 | byte(color.green) << 8 | byte(color.blue));
}

Reference colorOfText(const std::string& text) {
    std::string name = text;
    std::transform(name.begin(), name.end(), name.begin(), lower);
    // Names come before hexadecimal digits. No name of CSS is hexadecimal, and a user who means digits can write "#".
    if (name == "transparent") return sRGBColor({0, 0, 0, 0});
    if (const auto color = cssColor(name)) return colorOfValue(*color);
    if (const auto color = colorOfHex(name.substr(!name.empty() && name[0] == '#' ? 1 : 0))) return colorOfValue(*color);
    if (const auto parsed = function(name))
        if (Reference color = colorOfFunction(*parsed)) return color;
    for (const std::string& member : sharedMakers("NSColorZRX")) {
        if (!equalIgnoringCase(member, text)) continue;
        if (Reference color = namedColor(member)) return color;
    }
    throw std::invalid_argument(
        "\"" + text +
        "\" is not a colour: write #F80 or #FF8000, a colour of CSS such as orange or rgb(255 128 0), "
        "or a member of NSColorZRX such as redColor");
}

} // namespace host::swatches
