// Text in the columns of a terminal. Chinese characters and emoji take two columns, combining characters none.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace host {

// Bytes that are not UTF-8 and control characters count as one column each.
std::size_t columnsOf(std::string_view text);

// Appends blanks up to the width.
std::string padded(std::string text, std::size_t width);

// Returns the text, or its first characters and "…" if it is wider.
std::string shortened(std::string_view text, std::size_t width);

// Writes the label unchanged and then the text, broken into lines at words. All lines except the first are indented. A word
// that is longer than a line has a line to itself.
void writeParagraph(std::ostream& out, std::size_t width, std::string_view label, std::string_view text, std::size_t indent);

} // namespace host
