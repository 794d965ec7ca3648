#include "appkit/catalog.h"

#include "appkit/color.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace chroma::builtin {
namespace {

constexpr CatalogColor catalog[] = {
    {"alternateSelectedControlColor", {0, 99, 225, 1}, {0, 88, 208, 1}},
    {"alternateSelectedControlTextColor", {255, 255, 255, 1}, {255, 255, 255, 1}},
    {"controlBackgroundColor", {255, 255, 255, 1}, {30, 30, 30, 1}},
    {"controlColor", {255, 255, 255, 1}, {255, 255, 255, 0.25}},
    {"controlDarkShadowColor", {84, 84, 84, 1}, {84, 84, 84, 1}},
    {"controlHighlightColor", {222, 222, 222, 1}, {222, 222, 222, 1}},
    {"controlLightHighlightColor", {255, 255, 255, 1}, {255, 255, 255, 1}},
    {"controlShadowColor", {140, 140, 140, 1}, {140, 140, 140, 1}},
    {"controlTextColor", {0, 0, 0, 0.85}, {255, 255, 255, 0.85}},
    {"disabledControlTextColor", {0, 0, 0, 0.25}, {255, 255, 255, 0.25}},
    {"gridColor", {230, 230, 230, 1}, {26, 26, 26, 1}},
    {"headerColor", {255, 255, 255, 1}, {255, 255, 255, 1}},
    {"headerTextColor", {0, 0, 0, 0.85}, {255, 255, 255, 1}},
    {"highlightColor", {255, 255, 255, 1}, {180, 180, 180, 1}},
    {"keyboardFocusIndicatorColor", {0, 103, 244, 0.25}, {26, 169, 255, 0.3}},
    {"knobColor", {191, 191, 191, 1}, {191, 191, 191, 1}},
    {"scrollBarColor", {170, 170, 170, 1}, {170, 170, 170, 1}},
    {"scrubberTexturedBackgroundColor", {51, 51, 51, 1}, {51, 51, 51, 1}},
    {"secondarySelectedControlColor", {220, 220, 220, 1}, {70, 70, 70, 1}},
    {"selectedControlColor", {179, 215, 255, 1}, {63, 99, 139, 1}},
    {"selectedControlTextColor", {0, 0, 0, 0.85}, {255, 255, 255, 0.85}},
    {"selectedKnobColor", {140, 140, 140, 1}, {140, 140, 140, 1}},
    {"selectedMenuItemColor", {0, 99, 225, 1}, {0, 88, 208, 1}},
    {"selectedMenuItemTextColor", {255, 255, 255, 1}, {255, 255, 255, 1}},
    {"selectedTextBackgroundColor", {179, 215, 255, 1}, {63, 99, 139, 1}},
    {"selectedTextColor", {0, 0, 0, 1}, {255, 255, 255, 1}},
    {"shadowColor", {0, 0, 0, 1}, {0, 0, 0, 1}},
    {"textBackgroundColor", {255, 255, 255, 1}, {30, 30, 30, 1}},
    {"textColor", {0, 0, 0, 1}, {255, 255, 255, 1}},
    {"windowBackgroundColor", {236, 236, 236, 1}, {50, 50, 50, 1}},
    {"windowFrameColor", {170, 170, 170, 1}, {170, 170, 170, 1}},
    {"windowFrameTextColor", {0, 0, 0, 0.85}, {255, 255, 255, 0.85}},
};

// Colours that are plain components: calibrated grey or RGB.
struct PlainColor {
    const char* name;
    bool isGray;
    double components[3];
    double alpha;
};

constexpr PlainColor plainColors[] = {
    {"blackColor", true, {0}, 1},
    {"darkGrayColor", true, {1.0 / 3}, 1},
    {"grayColor", true, {0.5}, 1},
    {"lightGrayColor", true, {2.0 / 3}, 1},
    {"whiteColor", true, {1}, 1},
    {"clearColor", true, {0}, 0},
    {"redColor", false, {1, 0, 0}, 1},
    {"greenColor", false, {0, 1, 0}, 1},
    {"blueColor", false, {0, 0, 1}, 1},
    {"cyanColor", false, {0, 1, 1}, 1},
    {"magentaColor", false, {1, 0, 1}, 1},
    {"yellowColor", false, {1, 1, 0}, 1},
    {"orangeColor", false, {1, 0.5, 0}, 1},
    {"purpleColor", false, {0.5, 0, 0.5}, 1},
    {"brownColor", false, {0.6, 0.4, 0.2}, 1},
};

Color* makePlain(const PlainColor& plain) {
    const auto& [first, second, third] = plain.components;
    if (plain.isGray) return sharedColor(standardSpace(StandardSpace::genericGray), {first, plain.alpha});
    return sharedColor(standardSpace(StandardSpace::genericRGB), {first, second, third, plain.alpha});
}

Color* makeCatalog(const CatalogColor& catalogColor) {
    Color* const color = makeImmortal(make<Color>());
    color->contents.kind = Kind::catalog;
    color->contents.catalogColor = &catalogColor;
    return color;
}

template <auto MakeOne, class Row, std::size_t Size>
std::array<Color*, Size> makeEach(const Row (&rows)[Size]) {
    std::array<Color*, Size> colors;
    std::transform(rows, rows + Size, colors.begin(), MakeOne);
    return colors;
}

Color* plainColor(std::size_t index) {
    static const auto colors = makeEach<makePlain>(plainColors);
    return colors[index];
}

Color* catalogColor(std::size_t index) {
    static const auto colors = makeEach<makeCatalog>(catalog);
    return colors[index];
}

// One class method per row. The method's colour is a template argument, so no message looks it up.
using ColorAt = Color* (*)(std::size_t);

template <ColorAt At, std::size_t Index>
Color* colorNamed(ClassObject*, SEL) {
    return At(Index);
}

template <ColorAt At, class Row, std::size_t... Indices>
void addMethods(MethodEntry* entries, const Row* rows, std::index_sequence<Indices...>) {
    ((entries[Indices] = method<colorNamed<At, Indices>>(rows[Indices].name)), ...);
}

const CatalogColor& catalogColorOf(Color* color, SEL selector) {
    if (color->contents.kind != Kind::catalog) raiseNotValid(color, selector);
    return *color->contents.catalogColor;
}

String* catalogName(Color* self, SEL selector) {
    catalogColorOf(self, selector);
    return string(u"System");
}

String* colorName(Color* self, SEL selector) { return formatted("%s", catalogColorOf(self, selector).name); }

} // namespace

CatalogColors catalogColors() { return {catalog, std::size(catalog)}; }

const CatalogColor* findCatalogColor(std::u16string_view name) {
    for (const CatalogColor& candidate : catalog) {
        const std::string_view known = candidate.name;
        if (std::equal(name.begin(), name.end(), known.begin(), known.end())) return &candidate;
    }
    return nullptr;
}

Color* colorOf(const CatalogColor& color) { return catalogColor(static_cast<std::size_t>(&color - catalog)); }

Color* resolved(const CatalogColor& color) {
    const char* const appearance = std::getenv("CHROMABRIDGE_APPEARANCE");
    const bool isDark = appearance && std::string_view(appearance) == "dark";
    const auto& [red, green, blue, alpha] = isDark ? color.dark : color.light;
    return componentColor(standardSpace(StandardSpace::sRGB), {red / 255.0, green / 255.0, blue / 255.0, alpha});
}

Category categoryOfNamedColors() {
    // Nothing is localised: localised names are the names themselves.
    static const MethodEntry methods[] = {
        method<catalogName>("catalogNameComponent"),
        method<colorName>("colorNameComponent"),
        method<catalogName>("localizedCatalogNameComponent"),
        method<colorName>("localizedColorNameComponent"),
    };
    static const auto classMethods = [] {
        std::array<MethodEntry, std::size(plainColors) + std::size(catalog)> entries;
        addMethods<plainColor>(entries.data(), plainColors, std::make_index_sequence<std::size(plainColors)>());
        addMethods<catalogColor>(entries.data() + std::size(plainColors), catalog,
                                 std::make_index_sequence<std::size(catalog)>());
        return entries;
    }();
    return {&Color::cls, methods, {classMethods.data(), classMethods.size()}};
}

} // namespace chroma::builtin
