#include "swatches/sheet.h"

#include "swatches/color_syntax.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace host::swatches {

namespace {

constexpr const char* namedSpaceName = "NSNamedColorSpace";
constexpr const char* patternSpaceName = "NSPatternColorSpace";

// The groups of system colours by their use. The first matching prefix decides.
constexpr struct {
    const char* prefix;
    const char* group;
} usages[] = {
    {"text", "Text"},
    {"selectedText", "Text"},
    {"control", "Controls"},
    {"selectedControl", "Controls"},
    {"secondarySelectedControl", "Controls"},
    {"disabledControl", "Controls"},
    {"alternateSelectedControl", "Controls"},
    {"keyboardFocus", "Controls"},
    {"scrollBar", "Controls"},
    {"knob", "Controls"},
    {"selectedKnob", "Controls"},
    {"highlight", "Controls"},
    {"shadow", "Controls"},
    {"window", "Windows, menus and tables"},
    {"selectedMenuItem", "Windows, menus and tables"},
    {"grid", "Windows, menus and tables"},
    {"header", "Windows, menus and tables"},
};

// The background colour of each text colour.
constexpr struct {
    const char* text;
    const char* background;
} backgrounds[] = {
    {"textColor", "textBackgroundColor"},
    {"selectedTextColor", "selectedTextBackgroundColor"},
    {"controlTextColor", "controlBackgroundColor"},
    {"disabledControlTextColor", "controlBackgroundColor"},
    {"selectedControlTextColor", "selectedControlColor"},
    {"alternateSelectedControlTextColor", "alternateSelectedControlColor"},
    {"windowFrameTextColor", "windowFrameColor"},
    {"selectedMenuItemTextColor", "selectedMenuItemColor"},
    {"headerTextColor", "headerColor"},
};

// A smaller distance comes from the rounding of components.
constexpr double visibleDistance = 0.05;

constexpr const char* outsideLegend = "\u25b2 outside sRGB: the nearest sRGB colour, and its distance (CIEDE2000)";

// Returns the distance between the colour and what a screen shows instead.
double distanceOutside(const Reference& color, const ScreenColor& value) {
    const ScreenColor shown = clipped(value);
    const bool isExtended = value.red != shown.red || value.green != shown.green || value.blue != shown.blue;
    const double outside =
        isExtended ? distance(labOf(value), labOf(shown)) : distance(labOf(color), labOf(sRGBColor(value)));
    return outside >= visibleDistance ? outside : 0.0;
}

Swatch swatchOf(const std::string& name, const Reference& color) {
    const std::string kind = textProperty(color, "colorSpaceName");
    const ScreenColor value = inSRGB(color);
    Swatch swatch = {name, "", clipped(value), 0.0, std::nullopt, kind == patternSpaceName};
    swatch.space = swatch.isPattern         ? "pattern"
                   : kind == namedSpaceName ? "catalogue"
                                            : textProperty(spaceOf(color), "localizedName");
    if (!swatch.isPattern) swatch.outside = distanceOutside(color, value);
    return swatch;
}

std::string groupOf(const Swatch& swatch) {
    if (swatch.space != "catalogue") return "Plain";
    for (const auto& usage : usages)
        if (swatch.name.rfind(usage.prefix, 0) == 0) return usage.group;
    return "Other";
}

std::optional<Background> backgroundOf(const Swatch& swatch) {
    for (const auto& pair : backgrounds) {
        if (swatch.name != pair.text) continue;
        const ScreenColor below = composed(clipped(inSRGB(namedColor(pair.background))), {1, 1, 1, 1});
        return Background{pair.background, below, contrastRatio(composed(swatch.shown, below), below)};
    }
    return std::nullopt;
}

// Returns whether a shared method without parameters that returns a colour names a system colour. The texture of a scrubber
// is not a plain colour, and a colour on the pasteboard is not one of the system's.
bool namesSystemColor(const std::string& name) {
    return name != "scrubberTexturedBackgroundColor" && name != "colorFromPasteboard";
}

// Returns the reason why a file is not a colour list. The class returns False for all reasons.
std::string whyNoList(const std::string& file) {
    std::ifstream stream(file);
    stream.get();
    const bool isEmpty = stream.eof(); // an empty file is not a system error
    return stream.is_open() && (stream.good() || isEmpty) ? " is not a colour list"
                                                          : std::string(" cannot be read: ") + std::strerror(errno);
}

bool hasColorOutside(const SwatchSheet& sheet) {
    return std::any_of(sheet.groups.begin(), sheet.groups.end(), [](const SwatchGroup& group) {
        return std::any_of(group.swatches.begin(), group.swatches.end(),
                           [](const Swatch& swatch) { return swatch.outside > 0.0; });
    });
}

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + (count == 1 ? " colour" : " colours") + what;
}

SwatchSheet withLegend(SwatchSheet sheet) {
    if (hasColorOutside(sheet)) sheet.subtitle += std::string(". ") + outsideLegend;
    return sheet;
}

// Returns the components in the platform's order, alpha last. They have no names if the space is of another kind.
std::vector<Component> componentsIn(const Reference& color) {
    static const std::vector<std::vector<std::string>> names = {
        {"white", "alpha"}, {"red", "green", "blue", "alpha"}, {"cyan", "magenta", "yellow", "black", "alpha"}};
    const std::vector<double> values = componentsOf(color);
    std::vector<Component> components;
    for (const double value : values)
        components.push_back({"", value});
    for (const std::vector<std::string>& kind : names) {
        for (std::size_t i = 0; kind.size() == values.size() && i < values.size(); ++i)
            components[i].name = kind[i];
    }
    return components;
}

Conversion conversion(const std::string& member, const Reference& color, const Reference& space) {
    const std::string name = textProperty(space, "localizedName");
    const Reference there = converted(color, space);
    if (!there) return {member, {name, "", {0, 0, 0, 0}, 0.0, std::nullopt, false}, {}};
    return {member, swatchOf(name, there), componentsIn(there)};
}

} // namespace

SwatchSheet systemColors() {
    SwatchSheet sheet = {"System colours", "", {}};
    for (const char* const title : {"Plain", "Text", "Controls", "Windows, menus and tables", "Other"})
        sheet.groups.push_back({title, {}});
    std::size_t count = 0;
    for (const std::string& name : sharedMakers("NSColorZRX")) {
        if (!namesSystemColor(name)) continue;
        const Reference color = namedColor(name);
        if (!color) continue;
        Swatch swatch = swatchOf(name, color);
        swatch.background = backgroundOf(swatch);
        const std::string group = groupOf(swatch);
        std::find_if(sheet.groups.begin(), sheet.groups.end(), [&](const SwatchGroup& g) {
            return g.title == group;
        })->swatches.push_back(std::move(swatch));
        ++count;
    }
    sheet.groups.erase(std::remove_if(sheet.groups.begin(), sheet.groups.end(),
                                      [](const SwatchGroup& group) { return group.swatches.empty(); }),
                       sheet.groups.end());
    sheet.subtitle = counted(count, " of NSColorZRX, as sRGB in hexadecimal");
    return withLegend(std::move(sheet));
}

SwatchSheet colorsOfList(const std::string& file, const std::vector<std::string>& keys) {
    const std::string name = file.substr(file.find_last_of('/') + 1);
    const Reference list = newColorList(name, file);
    if (!list) throw std::runtime_error(file + whyNoList(file));
    SwatchGroup group;
    for (const std::string& key : keys.empty() ? keysOf(list) : keys) {
        const Reference color = colorWithKey(list, key);
        if (!color) throw std::runtime_error(file + " has no colour under the key \"" + key + "\"");
        group.swatches.push_back(swatchOf(key, color));
    }
    const std::size_t count = group.swatches.size();
    return withLegend({name, counted(count, " of a colour list"), {std::move(group)}});
}

ConversionSheet colorInSpaces(const std::string& text) {
    const Reference color = colorOfText(text);
    ConversionSheet sheet = {
        text, valueOf(swatchOf(text, color)) + " in the spaces of NSColorSpaceZRX. " + outsideLegend, {}};
    for (const std::string& member : sharedMakers("NSColorSpaceZRX"))
        if (const Reference space = namedSpace(member)) sheet.rows.push_back(conversion(member, color, space));
    sheet.rows.push_back(conversion("colorWithDisplayP3(...).colorSpace", color, displayP3Space()));
    return sheet;
}

std::string markOf(const Swatch& swatch) {
    if (swatch.outside == 0.0) return "";
    char text[32];
    std::snprintf(text, sizeof text, "\u25b2 \u0394E %.1f", swatch.outside);
    return text;
}

std::string valueOf(const Swatch& swatch) { return swatch.isPattern ? "pattern" : hexOf(swatch.shown); }

std::string contrastOf(const Background& background) {
    char ratio[16];
    std::snprintf(ratio, sizeof ratio, "%.1f", background.contrast);
    return std::string(ratio) + " : 1";
}

} // namespace host::swatches
