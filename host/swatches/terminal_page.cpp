// Sheets as lines of text.
#include "swatches/pages.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace host::swatches {

namespace {

std::string escape(const char* layer, const ScreenColor& color) {
    const auto byte = [](double value) { return std::to_string(std::lround(value * 255.0)); };
    return std::string("\x1b[") + layer + ";2;" + byte(color.red) + ";" + byte(color.green) + ";" + byte(color.blue) + "m";
}

// Six columns: half over white and half over black, or text on its background.
std::string colored(const Swatch& swatch) {
    const ScreenColor white = {1, 1, 1, 1}, black = {0, 0, 0, 1};
    const std::string end = "\x1b[0m  ";
    if (swatch.background)
        return escape("48", swatch.background->color) + escape("38", composed(swatch.shown, swatch.background->color)) +
               " Text " + end;
    return escape("48", composed(swatch.shown, white)) + "   " + escape("48", composed(swatch.shown, black)) + "   " + end;
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

std::string written(const SwatchSheet& sheet, bool inColor) {
    std::string text = heading(sheet.title, sheet.subtitle);
    for (const SwatchGroup& group : sheet.groups) {
        text += group.title.empty() ? "\n" : "\n" + group.title + "\n";
        for (const Swatch& swatch : group.swatches) {
            text += line("  " + (inColor ? colored(swatch) : "") + padded(printable(swatch.name), 34) +
                         padded(valueOf(swatch), 11) + padded(noteOf(swatch), 24) + markOf(swatch));
        }
    }
    return text;
}

std::string written(const ConversionSheet& sheet, bool inColor) {
    std::string text = heading(sheet.title, sheet.subtitle) + "\n";
    for (const Conversion& row : sheet.rows) {
        std::string values = row.components.empty() ? "cannot be converted" : "";
        for (const Component& component : row.components) {
            char value[64];
            std::snprintf(value, sizeof value, "%s %.4f  ", component.name.c_str(), component.value);
            values += value;
        }
        const bool isShown = inColor && !row.components.empty();
        text += line("  " +
                     (isShown   ? colored(row.swatch)
                      : inColor ? std::string(8, ' ')
                                : "") +
                     padded(row.swatch.name, 32) + values + markOf(row.swatch));
    }
    return text;
}

} // namespace host::swatches
