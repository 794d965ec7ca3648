// A drawing that consists of a few kinds of shapes. Lengths are in pixels, y points down, and later shapes cover earlier
// ones.
#pragma once

#include "swatches/colorimetry.h"

#include <string>
#include <variant>
#include <vector>

namespace host::swatches {

struct Frame {
    double x, y, width, height;
    double radius; // the radius of the corners
};

struct Box {
    Frame frame;
    ScreenColor fill;
};

// The background of a translucent colour: white on the left, black on the right.
struct Halves {
    Frame frame;
};

// A line around a frame.
struct Outline {
    Frame frame;
    ScreenColor color;
};

enum class Align { left, right };
enum class Typeface { plain, bold, monospaced };

struct Label {
    double x, y; // the left or right end of the baseline
    double size; // the font size
    Typeface typeface;
    Align align;
    ScreenColor color;
    std::string text; // UTF-8
};

// A label for text of any length. PNG measures the text in its font and shortens it to the width. An SVG viewer has its own
// fonts, so there the text fades into the colour of the background at the end that is away from x.
struct BoundedLabel {
    Label label;
    double width;
    ScreenColor background;
};

using Shape = std::variant<Box, Halves, Outline, Label, BoundedLabel>;

struct Picture {
    std::string title;
    double width, height;
    std::vector<Shape> shapes;
};

std::string svgOf(const Picture& picture);

// Returns the picture as PNG, with two pixels per unit of length unless that is too large. Throws std::invalid_argument if
// this build cannot draw, and std::runtime_error if drawing fails.
std::string pngOf(const Picture& picture);

// Returns the picture that pngOf draws: each bounded label becomes a label that fits, and ends in "…" if it is shortened.
// Throws like pngOf.
Picture measured(Picture picture);

} // namespace host::swatches
