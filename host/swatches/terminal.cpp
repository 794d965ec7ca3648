#include "swatches/terminal.h"

#include "text/terminal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace host::swatches {

namespace {

using Bytes = std::array<int, 3>; // red, green, blue

Bytes bytesOf(const ScreenColor& color) {
    const auto byte = [](double value) { return static_cast<int>(std::lround(255.0 * value)); };
    return {byte(color.red), byte(color.green), byte(color.blue)};
}

// Returns the nearest of the 256 colours: 16 to 231 are a cube with six steps to a side, 232 to 255 are greys.
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

// Returns the escape sequence for a layer: 40 is the background, 30 the text.
std::string escape(int layer, const ScreenColor& color, ColorDepth depth) {
    const Bytes bytes = bytesOf(color);
    const std::string start = "\x1B[" + std::to_string(layer + 8);
    if (depth == ColorDepth::indexed) return start + ";5;" + std::to_string(indexOf(bytes)) + "m";
    return start + ";2;" + std::to_string(bytes[0]) + ";" + std::to_string(bytes[1]) + ";" + std::to_string(bytes[2]) + "m";
}

} // namespace

ColorDepth outputColorDepth() {
    if (!showsColors(STDOUT_FILENO)) return ColorDepth::none;
    const char* const variable = std::getenv("COLORTERM");
    const std::string_view depth = variable ? variable : "";
    return depth == "truecolor" || depth == "24bit" ? ColorDepth::direct : ColorDepth::indexed;
}

std::string cells(const ScreenColor& color, ColorDepth depth) {
    if (depth == ColorDepth::none) return "";
    const std::string left = escape(40, composed(color, {1, 1, 1, 1}), depth);
    const std::string right = escape(40, composed(color, {0, 0, 0, 1}), depth);
    return left + (left == right ? "    " : "  " + right + "  ") + "\x1B[0m ";
}

std::string cells(const ScreenColor& text, const ScreenColor& background, ColorDepth depth) {
    if (depth == ColorDepth::none) return "";
    return escape(40, background, depth) + escape(30, composed(text, background), depth) + "Text\x1B[0m ";
}

} // namespace host::swatches
