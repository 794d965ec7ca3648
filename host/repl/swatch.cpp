#include "repl/swatch.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "model/platform.h"
#include "swatches/picture.h"
#include "text/terminal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include <unistd.h>

namespace host::repl {
namespace {

using swatches::ScreenColor;
using Bytes = std::array<int, 3>; // red, green, blue

Bytes bytesOf(const ScreenColor& color, const ScreenColor& below) {
    const auto mixed = [&](double above, double under) {
        return static_cast<int>(std::lround(255.0 * (above * color.alpha + under * (1.0 - color.alpha))));
    };
    return {mixed(color.red, below.red), mixed(color.green, below.green), mixed(color.blue, below.blue)};
}

// The nearest of the 256 colours: 16 to 231 are a cube with six steps to a side, 232 to 255 are greys.
int indexOf(const Bytes& color) {
    constexpr std::array<int, 6> steps = {0, 95, 135, 175, 215, 255};
    constexpr int greys = 24;
    const auto distance = [&](const Bytes& other) {
        int sum = 0;
        for (std::size_t i = 0; i < color.size(); ++i)
            sum += (color[i] - other[i]) * (color[i] - other[i]);
        return sum;
    };
    Bytes cube = {};
    int cubeIndex = 16;
    for (std::size_t i = 0; i < color.size(); ++i) {
        const auto nearest = std::min_element(steps.begin(), steps.end(),
                                              [&](int a, int b) { return std::abs(a - color[i]) < std::abs(b - color[i]); });
        cube[i] = *nearest;
        cubeIndex += static_cast<int>(nearest - steps.begin()) * (i == 0 ? 36 : i == 1 ? 6 : 1);
    }
    const int grey = std::clamp((color[0] + color[1] + color[2]) / 3 - 3, 0, 10 * (greys - 1)) / 10;
    const int level = 8 + 10 * grey;
    return distance({level, level, level}) < distance(cube) ? 232 + grey : cubeIndex;
}

std::string background(const Bytes& color, ColorDepth depth) {
    if (depth == ColorDepth::indexed) return "\x1B[48;5;" + std::to_string(indexOf(color)) + "m";
    return "\x1B[48;2;" + std::to_string(color[0]) + ";" + std::to_string(color[1]) + ";" + std::to_string(color[2]) + "m";
}

ScreenColor opaque(HostColor color) {
    const auto channel = [color](unsigned shift) { return (color >> shift & 0xFF) / 255.0; };
    return {channel(16), channel(8), channel(0), 1.0};
}

// Of a platform without sRGB, the generic RGB that it has.
ScreenColor shown(Object* color) {
    try {
        lock(color);
        return swatches::onScreen(swatches::Reference(color));
    } catch (const std::runtime_error&) {
    }
    const Property* const value = color->info->findProperty("colorValue");
    const HostColor found = value ? readProperty(*value, color).color : 0;
    unlock(takePendingException());
    return opaque(found);
}

std::string cells(const ScreenColor& color, ColorDepth depth) {
    const std::string light = background(bytesOf(color, swatches::checkerLight), depth);
    const std::string dark = background(bytesOf(color, swatches::checkerDark), depth);
    return light + (light == dark ? "    " : " " + dark + " " + light + " " + dark + " ") + "\x1B[0m ";
}

} // namespace

ColorDepth outputColorDepth() {
    if (!showsColors(STDOUT_FILENO)) return ColorDepth::none;
    const char* const told = std::getenv("COLORTERM");
    const std::string_view depth = told ? told : "";
    return depth == "truecolor" || depth == "24bit" ? ColorDepth::direct : ColorDepth::indexed;
}

std::string swatch(HostColor color, ColorDepth depth) {
    if (depth == ColorDepth::none) return {};
    ScreenColor shown = opaque(color);
    shown.alpha = (color >> 24) / 255.0;
    return cells(shown, depth);
}

std::string swatch(Object* object, ColorDepth depth) {
    const ClassInfo* const colors = registry().find("NSColorZRX");
    if (depth == ColorDepth::none || !colors || !object->info->isOrDescendsFrom(*colors)) return {};
    const platform::AutoreleasePool pool;
    return cells(shown(object), depth);
}

} // namespace host::repl
