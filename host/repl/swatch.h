// Shows colours at the prompt.
#pragma once

#include "model/owned.h"
#include "swatches/terminal.h"

#include <string>
#include <vector>

namespace host::repl {

using swatches::ColorDepth;

// Returns four cells of a colour and a blank. The colour is converted to sRGB and, if it is translucent, laid over white
// and black, as in pictures. Returns "" if the terminal has no colours or the object is not a colour.
std::string swatch(HostColor color, ColorDepth depth);
std::string swatch(Object* object, ColorDepth depth); // `object` must not be null

// Returns the colours of a colour list in its order, or none for any other object. `object` must not be null.
struct ListedColor {
    std::string key;
    Owned<Object> color; // null: the colour is not available
};
std::vector<ListedColor> colorsOfList(Object* object);

} // namespace host::repl
