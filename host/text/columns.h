// Text in the columns of a terminal, of which Chinese characters and emoji take two and combining characters none.
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

// Returns the text, or its first characters and "…" when it is wider.
std::string shortened(std::string_view text, std::size_t width);

// Writes the label as it is and the text after it, broken into lines at words. All lines but the first are indented. A word
// that is longer than a line has its own.
void writeParagraph(std::ostream& out, std::size_t width, std::string_view label, std::string_view text, std::size_t indent);

} // namespace host
