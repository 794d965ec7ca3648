// The messages that derive a colour from another: conversions, other alphas, blends.
#include "appkit/catalog.h"
#include "appkit/color.h"

namespace chroma::builtin {

Color* withComponents(Color* color) {
    switch (color->contents.kind) {
    case Kind::components: return color;
    case Kind::catalog: return resolved(*color->contents.catalogColor);
    case Kind::pattern: break;
    }
    return nullptr;
}

Color* converted(Color* color, ColorSpace* space) {
    Color* const source = withComponents(color);
    if (!source || !space) return nullptr;
    const SpaceDefinition& from = *source->contents.space->definition;
    const SpaceDefinition& to = *space->definition;
    if (isSameSpace(from, to)) return source;

    std::array<float, maxComponents> components{};
    if (!convertChannels(from, source->contents.components.data(), to, components.data())) return nullptr;
    components[to.channels] = source->contents.alpha();
    Color* const created = componentColor(space, {});
    created->contents.components = components;
    return created;
}

namespace {

const Message colorUsingColorSpaceNameMessage{"colorUsingColorSpaceName:"};

Color* colorUsingColorSpace(Color* self, SEL, id space) {
    static const Message colorSpaceModel{"colorSpaceModel"};
    return converted(self, argument<ColorSpace>(space, colorSpaceModel));
}

Color* colorUsingColorSpaceName(Color* self, SEL, id name) {
    static const Message colorSpaceName{"colorSpaceName"};
    static const Message isEqualToString{"isEqualToString:"};
    if (!name) return self->contents.kind == Kind::catalog ? withComponents(self) : self; // the most appropriate space
    if (send<BOOL>(send<id>(self, colorSpaceName), isEqualToString, name)) return self;
    return converted(self, spaceForName(name));
}

// Returns a pattern unchanged: it has no alpha.
Color* colorWithAlphaComponent(Color* self, SEL, CGFloat alpha) {
    Color* const source = withComponents(self);
    if (!source) return self;
    Color* const created = newColor(source->contents);
    created->contents.components[created->contents.count() - 1] = static_cast<float>(clip(alpha));
    return created;
}

// Does not clip the fraction. Returns nil if one of the two cannot be converted to calibrated RGB.
Color* blended(Color* color, double fraction, Color* other) {
    ColorSpace* const space = standardSpace(StandardSpace::genericRGB);
    Color* const first = converted(color, space);
    Color* const second = other ? converted(other, space) : nullptr;
    if (!first || !second) return nullptr;
    Color* const created = componentColor(space, {});
    for (std::size_t i = 0; i < created->contents.count(); ++i) {
        created->contents.components[i] =
            static_cast<float>((1 - fraction) * first->contents.components[i] + fraction * second->contents.components[i]);
    }
    return created;
}

Color* blendedColorWithFraction(Color* self, SEL, CGFloat fraction, id other) {
    return blended(self, fraction, argument<Color>(other, colorUsingColorSpaceNameMessage));
}

// Returns the colour itself for level 0, the other colour for level 1.
Color* towards(Color* color, double level, std::u16string_view name) {
    Color* const other = colorOf(*findCatalogColor(name));
    if (clip(level) == 0) return color;
    return clip(level) < 1 ? blended(color, level, other) : other;
}

Color* highlightWithLevel(Color* self, SEL, CGFloat level) { return towards(self, level, u"highlightColor"); }

Color* shadowWithLevel(Color* self, SEL, CGFloat level) { return towards(self, level, u"shadowColor"); }

} // namespace

Category categoryOfColorConversion() {
    static const MethodEntry methods[] = {
        method<colorUsingColorSpace>("colorUsingColorSpace:"),
        method<colorUsingColorSpaceName>("colorUsingColorSpaceName:"),
        method<colorWithAlphaComponent>("colorWithAlphaComponent:"),
        method<blendedColorWithFraction>("blendedColorWithFraction:ofColor:"),
        method<highlightWithLevel>("highlightWithLevel:"),
        method<shadowWithLevel>("shadowWithLevel:"),
    };
    return {&Color::cls, methods, {}};
}

} // namespace chroma::builtin
