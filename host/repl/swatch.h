// Colours at the prompt.
#pragma once

#include "model/objects.h"
#include "swatches/terminal.h"

#include <string>

namespace host::repl {

using swatches::ColorDepth;

// Four cells of a colour and a blank, as pictures show it: converted to sRGB, and laid over white and black by its alpha.
// Empty without colours, and for an object that is no colour.
std::string swatch(HostColor color, ColorDepth depth);
std::string swatch(Object* object, ColorDepth depth); // not null

} // namespace host::repl
