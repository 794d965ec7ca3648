// Writes sheets as lines of text.
#include "swatches/pages.h"

#include "text/columns.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace host::swatches {

namespace {

std::string colored(const Swatch& swatch, ColorDepth depth) {
    return swatch.background ? cells(swatch.shown, swatch.background->color, depth) : cells(swatch.shown, depth);
}

// Removes control characters. A key may contain them, and the terminal would execute them.
std::string printable(std::string text) {
    text.erase(
        std::remove_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7f'; }),
        text.end());
    return text;
}

// Returns the line without trailing blanks.
std::string line(std::string text) { return text.erase(text.find_last_not_of(' ') + 1) + "\n"; }

std::string noteOf(const Swatch& swatch) {
    return swatch.background ? contrastOf(*swatch.background) + " on " + swatch.background->name : swatch.space;
}

// The width of lines of any length.
constexpr std::size_t noLimit = std::string::npos;

std::string heading(const std::string& title, const std::string& subtitle, std::size_t width) {
    std::ostringstream text;
    for (const std::string& line : {title, subtitle})
        writeParagraph(text, width, "", printable(line), 0);
    return text.str();
}

constexpr std::size_t indent = 2, colorWidth = 5, valueWidth = 11, noteWidth = 24;

// Returns the width of the column of names: the usual width, more for long names if there is room, and always at least a
// few characters.
std::size_t nameWidthOf(const SwatchSheet& sheet, std::size_t room) {
    constexpr std::size_t usual = 34, widest = 60, narrowest = 12;
    std::size_t wanted = usual;
    for (const SwatchGroup& group : sheet.groups) {
        for (const Swatch& swatch : group.swatches)
            wanted = std::max(wanted, columnsOf(printable(swatch.name)) + 1);
    }
    return std::max(std::min({wanted, widest, room}), narrowest);
}

// Returns the note and, after it, the mark, in the rest of a line.
std::string ending(const Swatch& swatch, std::size_t room) {
    const std::string mark = markOf(swatch), note = noteOf(swatch);
    if (mark.empty()) return shortened(note, room);
    const std::size_t left = std::max(room, columnsOf(mark) + 1) - columnsOf(mark);
    const std::size_t width = std::min(left, std::max(noteWidth, columnsOf(note) + 1));
    return padded(shortened(note, width - 1), width) + mark;
}

} // namespace

std::string written(const SwatchSheet& sheet, ColorDepth depth, std::size_t columns) {
    const std::size_t width = columns == 0 ? noLimit : columns;
    const std::size_t fixed = indent + (depth == ColorDepth::none ? 0 : colorWidth) + valueWidth;
    const std::size_t nameWidth = nameWidthOf(sheet, width - std::min(width, fixed + noteWidth));
    const std::size_t room = width - std::min(width, fixed + nameWidth);
    std::string text = heading(sheet.title, sheet.subtitle, width);
    for (const SwatchGroup& group : sheet.groups) {
        text += group.title.empty() ? "\n" : "\n" + group.title + "\n";
        for (const Swatch& swatch : group.swatches) {
            const std::string name =
                columns == 0 ? printable(swatch.name) : shortened(printable(swatch.name), nameWidth - 1);
            text += line(std::string(indent, ' ') + colored(swatch, depth) +
                         padded(padded(name, nameWidth - 1) + " ", nameWidth) + padded(valueOf(swatch), valueWidth) +
                         ending(swatch, room));
        }
    }
    return text;
}

std::string written(const ConversionSheet& sheet, ColorDepth depth, std::size_t columns) {
    constexpr std::size_t nameWidth = 32, valuesWidth = 80;
    const std::size_t width = columns == 0 ? noLimit : columns;
    const std::size_t colors = depth == ColorDepth::none ? 0 : colorWidth;
    const bool isWide = width >= indent + colors + nameWidth + valuesWidth;
    std::string text = heading(sheet.title, sheet.subtitle, width) + "\n";
    for (const Conversion& row : sheet.rows) {
        std::vector<std::string> values;
        for (const Component& component : row.components) {
            char value[64];
            std::snprintf(value, sizeof value, "%s %.4f", component.name.c_str(), component.value);
            values.emplace_back(value);
        }
        if (values.empty()) values.emplace_back("cannot be converted");
        if (const std::string mark = markOf(row.swatch); !mark.empty()) values.push_back(mark);
        const std::string color = row.components.empty() ? std::string(colors, ' ') : colored(row.swatch, depth);
        std::string written =
            std::string(indent, ' ') + color + (isWide ? padded(row.swatch.name, nameWidth) : row.swatch.name);
        std::size_t column = isWide ? 0 : width; // the first value begins a new line below the name
        for (const std::string& value : values) {
            const std::size_t size = columnsOf(value) + 2;
            const bool breaks = !isWide && column + size > width;
            if (breaks) written = line(written) + std::string(indent + colors + 2, ' ');
            column = (breaks ? indent + colors + 2 : column) + size;
            written += value + "  ";
        }
        text += line(written);
    }
    return text;
}

} // namespace host::swatches
