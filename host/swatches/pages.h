// Draws sheets as pictures or writes them as lines of text.
#pragma once

#include "swatches/picture.h"
#include "swatches/sheet.h"
#include "swatches/terminal.h"

namespace host::swatches {

struct Theme {
    ScreenColor paper, card, ink, softInk, hairline;
};

constexpr Theme lightTheme = {
    {0.98, 0.98, 0.985, 1}, {1, 1, 1, 1}, {0.11, 0.12, 0.15, 1}, {0.42, 0.44, 0.49, 1}, {0, 0, 0, 0.14}};
constexpr Theme darkTheme = {
    {0.09, 0.095, 0.11, 1}, {0.14, 0.145, 0.165, 1}, {0.93, 0.935, 0.95, 1}, {0.64, 0.655, 0.7, 1}, {1, 1, 1, 0.18}};

Picture drawn(const SwatchSheet& sheet, const Theme& theme);
Picture drawn(const ConversionSheet& sheet, const Theme& theme);

// Returns the lines for a terminal with this number of columns. Each line shows the colour before its name if the terminal
// has colours. 0 columns: lines of any length.
std::string written(const SwatchSheet& sheet, ColorDepth depth, std::size_t columns);
std::string written(const ConversionSheet& sheet, ColorDepth depth, std::size_t columns);

} // namespace host::swatches
