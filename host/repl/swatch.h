// Colours at the prompt.
#pragma once

#include "model/owned.h"
#include "swatches/terminal.h"

#include <string>
#include <vector>

namespace host::repl {

using swatches::ColorDepth;

// Four cells of a colour and a blank, as pictures show it: converted to sRGB, and laid over white and black by its alpha.
// Empty without colours, and for an object that is no colour.
std::string swatch(HostColor color, ColorDepth depth);
std::string swatch(Object* object, ColorDepth depth); // not null

// The colours of a list of colours in its order; none of any other object, which is not null.
struct ListedColor {
    std::string key;
    Owned<Object> color; // null: it cannot be had
};
std::vector<ListedColor> colorsOfList(Object* object);

} // namespace host::repl
