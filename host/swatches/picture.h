// A drawing of a few kinds of shapes, made once and written in several forms. Lengths are pixels, y points down, and what
// comes later covers what comes before.
#pragma once

#include "swatches/program.h"

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

// What shows through a transparent colour.
struct Checkerboard {
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

using Shape = std::variant<Box, Checkerboard, Outline, Label>;

struct Picture {
    std::string title;
    double width, height;
    std::vector<Shape> shapes;
};

constexpr double checkerSize = 6.0;
constexpr ScreenColor checkerLight = {1.0, 1.0, 1.0, 1.0};
constexpr ScreenColor checkerDark = {0.85, 0.85, 0.86, 1.0};

// Writes the picture to the file, as its name ends: .svg or .png. Throws std::runtime_error when the file cannot be written
// and std::invalid_argument when this build does not write that form.
void writePicture(const Picture& picture, const std::string& file);

// The forms.
std::string svgOf(const Picture& picture);
void writePNG(const Picture& picture, const std::string& file); // where the build has it: see png_writer.cpp

} // namespace host::swatches
