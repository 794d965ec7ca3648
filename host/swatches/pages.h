// The pages: colours side by side with their names and values.
#pragma once

#include "swatches/picture.h"

namespace host::swatches {

// The colours that the system names. These and the next throw std::runtime_error as program.h says.
Picture systemColorPage();

// The colours under the keys of a list's file. Throws std::runtime_error when it is not a list or has no such key.
Picture colorListPage(const std::string& file, const std::vector<std::string>& keys);

// One colour in every named space.
Picture spacesPage(const ScreenColor& color);

// "#0080FF", and "#0080FF80" for a colour that is not opaque.
std::string hexOf(const ScreenColor& color);

// The reverse; the "#" may be left out. Throws std::invalid_argument.
ScreenColor colorOfHex(const std::string& text);

} // namespace host::swatches
