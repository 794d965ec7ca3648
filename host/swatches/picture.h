// A drawing of a few kinds of shapes. Lengths are pixels, y points down, and what comes later covers what comes before.
#pragma once

#include "swatches/colorimetry.h"

#include <string>
#include <variant>
#include <vector>

namespace host::swatches {

struct Frame {
    double x, y, width, height;
    double radius; // of its corners
};

struct Box {
    Frame frame;
    ScreenColor fill;
};

// What shows through a translucent colour: white on the left, black on the right.
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
    double x, y; // of the baseline's left or right end
    double size; // of an em
    Typeface typeface;
    Align align;
    ScreenColor color;
    std::string text; // UTF-8
};

// A label for text of any length. Where the font is known, it is measured, and what does not fit the width is left out. In
// SVG, whose viewers have fonts of their own, it fades out, on the side away from x, into what lies behind the label.
struct BoundedLabel {
    Label label;
    double width;
    ScreenColor behind;
};

using Shape = std::variant<Box, Halves, Outline, Label, BoundedLabel>;

struct Picture {
    std::string title;
    double width, height;
    std::vector<Shape> shapes;
};

std::string svgOf(const Picture& picture);

// The picture as PNG, two pixels to a length of one unless it is too large for that. Throws std::invalid_argument where this
// build has no drawing of its own, and std::runtime_error when it fails.
std::string pngOf(const Picture& picture);

// What pngOf draws: each bounded label as one that fits, ending in "…" where something is left out. Throws as that does.
Picture measured(Picture picture);

} // namespace host::swatches
