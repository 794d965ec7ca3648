// The file of a colour list: UTF-8 text, a line per thing.
//
//     chromabridge color list 1
//     space 0 standard genericRGB
//     space 1 profile 000002246c636d73...
//     "Sky" components 0 3e4ccccd 3f19999a 3f800000 3f800000
//     "Paper" catalog System textBackgroundColor
//     "Tiles" pattern 41800000 41800000
//     end 3
//
// Spaces are numbered from 0 and come before the colours that use them: the platform's own by name, others by their profile,
// in hexadecimal. A colour is its key and then its space's number with all components and alpha, a catalog and a name, or
// the width and height of a pattern's image. Numbers are the eight hexadecimal digits of a single-precision number's bits;
// a width or height that is none takes the sixteen of a double-precision number's.
// In a key, a quotation mark and a backslash follow a backslash; control characters and unpaired surrogates are \u and four
// hexadecimal digits. The last line holds the number of colours: a file that ends without it is not whole.
#pragma once

#include "appkit/color_list.h"

#include <string>
#include <string_view>

namespace chroma::builtin {

// False when a colour is a pattern whose image is not known.
bool writeEntries(const ColorList& list, std::string& text);

// Appends the colours to the list, which keeps what was read up to then when something is malformed: false.
bool readEntries(std::string_view text, ColorList& list);

} // namespace chroma::builtin
