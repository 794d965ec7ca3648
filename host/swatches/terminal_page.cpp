// Sheets as lines of text.
#include "swatches/pages.h"

#include <algorithm>
#include <cstdio>

namespace host::swatches {

namespace {

std::string colored(const Swatch& swatch, ColorDepth depth) {
    return swatch.background ? cells(swatch.shown, swatch.background->color, depth) : cells(swatch.shown, depth);
}

// Control characters, which a key may hold, would command the terminal.
std::string printable(std::string text) {
    text.erase(
        std::remove_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7f'; }),
        text.end());
    return text;
}

// By characters, not bytes; those that take two columns, or none, are beyond it.
std::string padded(const std::string& text, std::size_t width) {
    const auto length = static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    return text + std::string(length < width ? width - length : 1, ' ');
}

// Without what would be blank at its end.
std::string line(std::string text) { return text.erase(text.find_last_not_of(' ') + 1) + "\n"; }

std::string noteOf(const Swatch& swatch) {
    return swatch.background ? contrastOf(*swatch.background) + " on " + swatch.background->name : swatch.space;
}

std::string heading(const std::string& title, const std::string& subtitle) {
    return printable(title) + "\n" + printable(subtitle) + "\n";
}

} // namespace

std::string written(const SwatchSheet& sheet, ColorDepth depth) {
    std::string text = heading(sheet.title, sheet.subtitle);
    for (const SwatchGroup& group : sheet.groups) {
        text += group.title.empty() ? "\n" : "\n" + group.title + "\n";
        for (const Swatch& swatch : group.swatches) {
            text += line("  " + colored(swatch, depth) + padded(printable(swatch.name), 34) + padded(valueOf(swatch), 11) +
                         padded(noteOf(swatch), 24) + markOf(swatch));
        }
    }
    return text;
}

std::string written(const ConversionSheet& sheet, ColorDepth depth) {
    std::string text = heading(sheet.title, sheet.subtitle) + "\n";
    for (const Conversion& row : sheet.rows) {
        std::string values = row.components.empty() ? "cannot be converted" : "";
        for (const Component& component : row.components) {
            char value[64];
            std::snprintf(value, sizeof value, "%s %.4f  ", component.name.c_str(), component.value);
            values += value;
        }
        const std::string none = depth == ColorDepth::none ? "" : std::string(5, ' ');
        text += line("  " + (row.components.empty() ? none : colored(row.swatch, depth)) + padded(row.swatch.name, 32) +
                     values + markOf(row.swatch));
    }
    return text;
}

} // namespace host::swatches
