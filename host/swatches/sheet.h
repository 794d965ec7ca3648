// The contents of a page, independent of how it is drawn.
#pragma once

#include "swatches/program.h"

#include <optional>
#include <string>
#include <vector>

namespace host::swatches {

struct Background {
    std::string name;
    ScreenColor color;
    double contrast; // the contrast ratio of the text on it
};

struct Swatch {
    std::string name;
    std::string space; // the name of its space; "catalogue" or "pattern" for a colour without components
    ScreenColor shown;
    double outside = 0.0;                 // its distance() from `shown`; 0.0 if a screen can show it
    std::optional<Background> background; // for text colours only
    bool isPattern = false;
};

struct Component {
    std::string name;
    double value;
};

// A colour in one space.
struct Conversion {
    std::string member;                // the member that returns the space to a program
    Swatch swatch;                     // its name is the space's
    std::vector<Component> components; // empty: the colour cannot be converted
};

struct SwatchGroup {
    std::string title; // empty: the page has only one group
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

// Returns the colours that the system names. This function and the next two throw std::runtime_error like the functions of
// program.h.
SwatchSheet systemColors();

// Returns the colours of a list's file under these keys, or all of them if there are no keys. Throws std::runtime_error if
// the file is not a list or does not have a key.
SwatchSheet colorsOfList(const std::string& file, const std::vector<std::string>& keys);

// Returns the colour in every named space and in Display P3. `text` is in the notation of color_syntax.h.
ConversionSheet colorInSpaces(const std::string& text);

// Returns the mark that a colour outside sRGB has wherever it is shown.
std::string markOf(const Swatch& swatch); // "▲ ΔE 3.1"; empty for a colour inside sRGB

// Returns "#0080FF", or "pattern" for a pattern.
std::string valueOf(const Swatch& swatch);

// Returns "21.0 : 1".
std::string contrastOf(const Background& background);

} // namespace host::swatches
