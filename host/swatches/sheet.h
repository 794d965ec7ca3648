// What a page shows, before anyone draws it.
#pragma once

#include "swatches/program.h"

#include <optional>
#include <string>
#include <vector>

namespace host::swatches {

struct Background {
    std::string name;
    ScreenColor color;
    double contrast; // of the text on it
};

struct Swatch {
    std::string name;
    std::string space; // its own name; "catalogue" or "pattern" for a colour that has no components of its own
    ScreenColor shown;
    double outside = 0.0; // how far from `shown` the colour lies, as distance() tells; 0.0 for one that a screen can show
    std::optional<Background> background; // of a colour that text is written in
    bool isPattern = false;
};

struct Component {
    std::string name;
    double value;
};

// A colour in one space.
struct Conversion {
    std::string member;                // how a program gets the space
    Swatch swatch;                     // under the space's name
    std::vector<Component> components; // none: it cannot be converted
};

struct SwatchGroup {
    std::string title; // empty: the page has one group
    std::vector<Swatch> swatches;
};

struct SwatchSheet {
    std::string title, subtitle;
    std::vector<SwatchGroup> groups;
};

struct ConversionSheet {
    std::string title, subtitle;
    std::vector<Conversion> rows;
};

// The colours that the system names. These and the next throw std::runtime_error as program.h says.
SwatchSheet systemColors();

// The colours under the keys of a list's file, without keys all of them. Throws std::runtime_error when it is not a list or
// has no such key.
SwatchSheet colorsOfList(const std::string& file, const std::vector<std::string>& keys);

// The colour, written as color_syntax.h says, in every named space and in Display P3.
ConversionSheet colorInSpaces(const std::string& text);

// A colour outside sRGB is marked so wherever it is shown.
std::string markOf(const Swatch& swatch); // "▲ ΔE 3.1"; empty for one inside

// "#0080FF"; "pattern" for one.
std::string valueOf(const Swatch& swatch);

// "21.0 : 1"
std::string contrastOf(const Background& background);

} // namespace host::swatches
