// The file of a colour list: lines of UTF-8 text.
//
//     chromabridge color list 1
//     space 0 standard genericRGB
//     space 1 profile 000002246c636d73...
//     "Sky" components 0 3e4ccccd 3f19999a 3f800000 3f800000
//     "Paper" catalog System textBackgroundColor
//     "Tiles" pattern 41800000 41800000
//     end 3
//
// Spaces are numbered from 0 and come before the colours that use them. The platform's own spaces are written by name,
// others by their profile in hexadecimal. A colour is its key and one of the following: its space's number with all
// components and alpha, a catalog and a name, or the width and height of a pattern's image. Numbers are the eight
// hexadecimal digits of a single-precision number's bits; a width or height that has no single-precision value takes the
// sixteen digits of a double-precision number. In a key, a backslash precedes a quotation mark and a backslash; control
// characters and unpaired surrogates are \u and four hexadecimal digits. The last line contains the number of colours: a
// file without this line is incomplete.
#pragma once

#include "appkit/color_list.h"

#include <string>
#include <string_view>

namespace chroma::builtin {

// Returns false if a colour is a pattern whose image is unknown.
bool writeEntries(const ColorList& list, std::string& text);

// Appends the colours to the list. Returns false if something is malformed; the list keeps the colours read before it.
bool readEntries(std::string_view text, ColorList& list);

} // namespace chroma::builtin
