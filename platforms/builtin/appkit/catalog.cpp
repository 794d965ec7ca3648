#include "appkit/catalog.h"

#include "appkit/color.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace chroma::builtin {
namespace {

constexpr CatalogColor catalog[] = {
    {"alternateSelectedControlColor", false, {0.04f, 0.38f, 0.85f}},
    {"alternateSelectedControlTextColor", true, {1}},
    {"controlBackgroundColor", true, {1}},
    {"controlColor", true, {0.93f}},
    {"controlDarkShadowColor", true, {0.33f}},
    {"controlHighlightColor", true, {0.87f}},
    {"controlLightHighlightColor", true, {1}},
    {"controlShadowColor", true, {0.55f}},
    {"controlTextColor", true, {0}},
    {"disabledControlTextColor", true, {0.5f}},
    {"gridColor", true, {0.8f}},
    {"headerColor", true, {1}},
    {"headerTextColor", true, {0}},
    {"highlightColor", true, {1}},
    {"keyboardFocusIndicatorColor", false, {0.25f, 0.6f, 0.95f}},
    {"knobColor", true, {0.75f}},
    {"scrollBarColor", true, {0.67f}},
    {"scrubberTexturedBackgroundColor", true, {0.2f}},
    {"secondarySelectedControlColor", true, {0.83f}},
    {"selectedControlColor", false, {0.7f, 0.84f, 1}},
    {"selectedControlTextColor", true, {0}},
    {"selectedKnobColor", true, {0.55f}},
    {"selectedMenuItemColor", false, {0.04f, 0.38f, 0.85f}},
    {"selectedMenuItemTextColor", true, {1}},
    {"selectedTextBackgroundColor", false, {0.7f, 0.84f, 1}},
    {"selectedTextColor", true, {0}},
    {"shadowColor", true, {0}},
    {"textBackgroundColor", true, {1}},
    {"textColor", true, {0}},
    {"windowBackgroundColor", true, {0.92f}},
    {"windowFrameColor", true, {0.67f}},
    {"windowFrameTextColor", true, {0}},
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

// A class method per row: which colour a method answers is part of the function, not found out when it runs.
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
    const auto& [first, second, third] = color.components;
    if (color.isGray) return componentColor(standardSpace(StandardSpace::genericGray), {first, 1});
    return componentColor(standardSpace(StandardSpace::genericRGB), {first, second, third, 1});
}

Category categoryOfNamedColors() {
    // Nothing is localised: the localised names are the names.
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
