#include "appkit/color.h"

#include "appkit/catalog.h"
#include "appkit/core_graphics.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace chroma::builtin {

ClassObject Color::cls;

Color::Color() = default;
Color::~Color() = default;

Color* newColor(const ColorContents& contents) {
    if (contents.kind == Kind::catalog && contents.catalogColor) return colorOf(*contents.catalogColor);
    auto* const color = make<Color>();
    color->contents = contents;
    return autorelease(color);
}

namespace {

Color* ownedComponentColor(ColorSpace* space, std::initializer_list<double> components) {
    auto* const color = make<Color>();
    color->contents.kind = Kind::components;
    color->contents.space = space;
    std::transform(components.begin(), components.end(), color->contents.components.begin(),
                   [](double component) { return static_cast<float>(component); });
    return color;
}

} // namespace

Color* componentColor(ColorSpace* space, std::initializer_list<double> components) {
    return autorelease(ownedComponentColor(space, components));
}

Color* sharedColor(ColorSpace* space, std::initializer_list<double> components) {
    return makeImmortal(ownedComponentColor(space, components));
}

static String* wordNotValid(Object* color, SEL selector) {
    return formatted("*** -%s not valid for the NSColor %s; need to first convert colorspace.", sel_getName(selector),
                     printable(send<String*>(color, msg::description)));
}

void raiseNotValid(Color* color, SEL selector) { raise(exceptionName::invalidArgument, wordNotValid, color, selector); }

namespace {

// Formats a component like "%g" in the "C" locale.
std::u16string formattedComponent(float value) {
    if (std::isnan(value)) return u"nan";
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6).ptr;
    return {digits, end};
}

// The name of the kind of space, for a custom space also its own, and the components.
String* describeComponents(const ColorContents& contents) {
    const SpaceDefinition& space = *contents.space->definition;
    std::u16string text(space.colorSpaceName->text());
    if (space.colorSpaceName == &spaceName::custom) text.append(u" ").append(space.name).append(u" colorspace");
    for (std::size_t i = 0; i < contents.count(); ++i)
        text.append(u" ").append(formattedComponent(contents.components[i]));
    return string(text);
}

String* description(Color* self, SEL) {
    const ColorContents& contents = self->contents;
    switch (contents.kind) {
    case Kind::components: return describeComponents(contents);
    case Kind::catalog: return formatted("Catalog color: System %s", contents.catalogColor->name);
    case Kind::pattern: break;
    }
    return formatted("NSPatternColorSpace %s", printable(send<String*>(contents.image.get(), msg::description)));
}

BOOL isEqual(Color* self, SEL, id other) {
    if (other == self) return 1; // even if a component is not-a-number
    if (!isKindOf(other, Color::cls)) return 0;
    const ColorContents& mine = self->contents;
    const ColorContents& theirs = static_cast<Color*>(other)->contents;
    if (mine.kind != theirs.kind) return 0;
    switch (mine.kind) {
    case Kind::components:
        return isSameSpace(*mine.space->definition, *theirs.space->definition) && mine.components == theirs.components;
    case Kind::catalog: return mine.catalogColor == theirs.catalogColor;
    case Kind::pattern: break;
    }
    return mine.image.get() == theirs.image.get();
}

// Equal colours must have equal hashes, although +0 and -0 are equal with different bits.
std::uintptr_t hash(Color* self, SEL) {
    std::uintptr_t value = static_cast<std::uintptr_t>(self->contents.kind);
    for (const float component : self->contents.components)
        value = value * 31 + std::hash<float>()(component);
    return value;
}

String* colorSpaceName(Color* self, SEL) {
    switch (self->contents.kind) {
    case Kind::components: return self->contents.space->definition->colorSpaceName;
    case Kind::catalog: return &spaceName::named;
    case Kind::pattern: break;
    }
    return &spaceName::pattern;
}

ColorSpace* colorSpace(Color* self, SEL selector) {
    if (self->contents.kind != Kind::components) raiseNotValid(self, selector);
    return self->contents.space.get();
}

CGColorObject* cgColor(Color* self, SEL) {
    return self->handle.get([self] {
        auto* const handle = make<CGColorObject>();
        handle->contents = self->contents;
        return handle;
    });
}

} // namespace

ClassTable tableOfNSColor() {
    static const MethodEntry methods[] = {
        method<description>("description"),       method<isEqual>("isEqual:"),      method<hash>("hash"),
        method<colorSpaceName>("colorSpaceName"), method<colorSpace>("colorSpace"), method<cgColor>("CGColor"),
    };
    return classTable<Color>("NSColor", &NSObject::cls, methods);
}

} // namespace chroma::builtin
