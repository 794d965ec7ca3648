#include "text/columns.h"

#include "text/utf8.h"

#include <algorithm>
#include <ostream>

namespace host {
namespace {

// Removes and returns the first character of the text.
std::string_view takeCharacter(std::string_view& text) {
    std::size_t size = 1;
    while (size < text.size() && !utf8::startsCharacter(text[size]))
        ++size;
    const std::string_view character = text.substr(0, size);
    text.remove_prefix(size);
    return character;
}

std::size_t columnsOfCharacter(std::string_view character) {
    const auto code = utf8::firstOf(character);
    return code ? utf8::columnsOf(*code).value_or(1) : 1;
}

} // namespace

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty())
        columns += columnsOfCharacter(takeCharacter(text));
    return columns;
}

std::string padded(std::string text, std::size_t width) {
    const std::size_t columns = columnsOf(text);
    if (columns < width) text.append(width - columns, ' ');
    return text;
}

std::string shortened(std::string_view text, std::size_t width) {
    if (columnsOf(text) <= width) return std::string(text);
    std::string kept;
    std::size_t columns = 1; // of "…"
    while (!text.empty()) {
        const std::string_view character = takeCharacter(text);
        columns += columnsOfCharacter(character);
        if (columns > width) break;
        kept += character;
    }
    return width == 0 ? "" : kept + "…";
}

void writeParagraph(std::ostream& out, std::size_t width, std::string_view label, std::string_view text,
                    std::size_t indent) {
    std::size_t column = columnsOf(label);
    out << label;
    for (bool atStart = true; !text.empty(); atStart = false) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        const std::size_t columns = columnsOf(word);
        const bool breaks = !atStart && column + 1 + columns > width;
        if (breaks) out << '\n' << std::string(indent, ' ');
        if (!atStart && !breaks) out << ' ';
        out << word;
        column = (breaks ? indent : column + (atStart ? 0 : 1)) + columns;
    }
    out << '\n';
}

} // namespace host
