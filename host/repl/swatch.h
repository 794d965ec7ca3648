// Colours on a terminal.
#pragma once

#include "model/objects.h"

#include <string>

namespace host::repl {

enum class ColorDepth { none, indexed, direct }; // no colours, 256 of them, 24 bits each

// Of stdout: none without a terminal, on one without colours, and where the user forbids them by NO_COLOR; 24 bits where
// COLORTERM says so.
ColorDepth outputColorDepth();

// Four cells of a colour and a blank, as pictures show it: converted to sRGB, and laid over a checkerboard by its alpha.
// Empty without colours, and for an object that is no colour.
std::string swatch(HostColor color, ColorDepth depth);
std::string swatch(Object* object, ColorDepth depth); // not null

} // namespace host::repl
