#include "appkit/color_space.h"

#include "appkit/core_graphics.h"
#include "foundation/array.h"
#include "foundation/data.h"

#include <array>
#include <cstdint>
#include <utility>

namespace chroma::builtin {

ClassObject ColorSpace::cls;

ColorSpace::ColorSpace() : definition(unknownDefinition()) {}

ColorSpace::~ColorSpace() = default;

ColorSpace* standardSpace(StandardSpace space) {
    static const auto spaces = [] {
        std::array<ColorSpace*, standardSpaceCount> created;
        for (std::size_t i = 0; i < created.size(); ++i) {
            created[i] = makeImmortal(make<ColorSpace>());
            created[i]->definition = standardDefinition(static_cast<StandardSpace>(i));
        }
        return created;
    }();
    return spaces[static_cast<std::size_t>(space)];
}

ColorSpace* spaceForName(id name) {
    struct NamedSpace {
        const String& name;
        StandardSpace space;
    };
    static const NamedSpace spaces[] = {
        {spaceName::calibratedWhite, StandardSpace::genericGray}, {spaceName::calibratedBlack, StandardSpace::genericGray},
        {spaceName::calibratedRGB, StandardSpace::genericRGB},    {spaceName::deviceWhite, StandardSpace::deviceGray},
        {spaceName::deviceBlack, StandardSpace::deviceGray},      {spaceName::deviceRGB, StandardSpace::deviceRGB},
        {spaceName::deviceCMYK, StandardSpace::deviceCMYK},
    };
    static const Message length{"length"};
    const String* const wanted = argument<String>(name, length);
    if (!wanted) return nullptr;
    for (const NamedSpace& candidate : spaces)
        if (isEqualText(candidate.name, *wanted)) return standardSpace(candidate.space);
    return nullptr;
}

namespace {

template <StandardSpace Space>
ColorSpace* standard(ClassObject*, SEL) {
    return standardSpace(Space);
}

ColorSpace* colorSpaceForName(ClassObject*, SEL, id name) { return spaceForName(name); }

// Returns an empty array for a model without spaces.
Array* availableSpaces(ClassObject*, SEL, std::intptr_t model) {
    auto* const array = autorelease(make<Array>());
    for (std::size_t i = 0; i < standardSpaceCount; ++i) {
        ColorSpace* const space = standardSpace(static_cast<StandardSpace>(i));
        if (static_cast<std::intptr_t>(space->definition->model) == model) array->append(space);
    }
    return array;
}

// Releases the new object and returns nil if the definition is null, for initialisers that fail.
ColorSpace* initialized(ColorSpace* self, const SpacePointer& definition) {
    if (!definition) {
        release(self);
        return nullptr;
    }
    self->definition = definition;
    return self;
}

// Returns a handle's object, or null for null and for another kind of object.
template <class Handle>
SpacePointer definitionOf(id handle) {
    return isKindOf(handle, Handle::cls) ? static_cast<Handle*>(handle)->definition : nullptr;
}

ColorSpace* initWithICCProfileData(ColorSpace* self, SEL, id object) {
    static const Message bytes{"bytes"};
    const Data* const data = argument<Data>(object, bytes);
    return initialized(self, data ? definitionOfProfile(data->bytes) : nullptr);
}

ColorSpace* initWithCGColorSpace(ColorSpace* self, SEL, id handle) {
    return initialized(self, definitionOf<CGColorSpaceObject>(handle));
}

ColorSpace* initWithColorSyncProfile(ColorSpace* self, SEL, id handle) {
    return initialized(self, definitionOf<ProfileObject>(handle));
}

// Returns nil for a space without a profile.
Data* iccProfileData(ColorSpace* self, SEL) {
    const std::vector<std::uint8_t>& profile = self->definition->profile;
    return profile.empty() ? nullptr : data(profile.data(), profile.size());
}

template <class Handle>
Handle* handleOf(ColorSpace* space, LazyRef<Handle>& handle) {
    return handle.get([space] {
        auto* const created = make<Handle>();
        created->definition = space->definition;
        return created;
    });
}

CGColorSpaceObject* cgColorSpace(ColorSpace* self, SEL) { return handleOf(self, self->handle); }

// Returns null for a space without a profile.
ProfileObject* colorSyncProfile(ColorSpace* self, SEL) {
    return self->definition->profile.empty() ? nullptr : handleOf(self, self->profile);
}

String* localizedName(ColorSpace* self, SEL) { return string(self->definition->name); }

String* colorSpaceName(ColorSpace* self, SEL) { return self->definition->colorSpaceName; }

String* description(ColorSpace* self, SEL) { return formatted("%s colorspace", printable(string(self->definition->name))); }

std::intptr_t colorSpaceModel(ColorSpace* self, SEL) { return static_cast<std::intptr_t>(self->definition->model); }

std::intptr_t numberOfColorComponents(ColorSpace* self, SEL) {
    return static_cast<std::intptr_t>(self->definition->channels);
}

BOOL isEqual(ColorSpace* self, SEL, id other) {
    return isKindOf(other, ColorSpace::cls) && isSameSpace(*self->definition, *static_cast<ColorSpace*>(other)->definition);
}

std::uintptr_t hash(ColorSpace* self, SEL) { return std::hash<std::u16string>()(self->definition->name); }

} // namespace

ClassTable tableOfNSColorSpace() {
    static const MethodEntry methods[] = {
        initialiser<initWithICCProfileData>("initWithICCProfileData:"),
        initialiser<initWithCGColorSpace>("initWithCGColorSpace:"),
        initialiser<initWithColorSyncProfile>("initWithColorSyncProfile:"),
        method<iccProfileData>("ICCProfileData"),
        method<cgColorSpace>("CGColorSpace"),
        method<colorSyncProfile>("colorSyncProfile"),
        method<localizedName>("localizedName"),
        method<colorSpaceName>("colorSpaceName"),
        method<description>("description"),
        method<colorSpaceModel>("colorSpaceModel"),
        method<numberOfColorComponents>("numberOfColorComponents"),
        method<isEqual>("isEqual:"),
        method<hash>("hash"),
    };
    static const MethodEntry classMethods[] = {
        method<standard<StandardSpace::genericRGB>>("genericRGBColorSpace"),
        method<standard<StandardSpace::genericGray>>("genericGrayColorSpace"),
        method<standard<StandardSpace::genericCMYK>>("genericCMYKColorSpace"),
        method<standard<StandardSpace::deviceRGB>>("deviceRGBColorSpace"),
        method<standard<StandardSpace::deviceGray>>("deviceGrayColorSpace"),
        method<standard<StandardSpace::deviceCMYK>>("deviceCMYKColorSpace"),
        method<standard<StandardSpace::sRGB>>("sRGBColorSpace"),
        method<standard<StandardSpace::adobeRGB1998>>("adobeRGB1998ColorSpace"),
        method<standard<StandardSpace::genericGamma22Gray>>("genericGamma22GrayColorSpace"),
        method<standard<StandardSpace::displayP3>>("displayP3ColorSpace"),
        method<colorSpaceForName>("colorSpaceForColorSpaceName:"),
        method<availableSpaces>("availableColorSpacesWithModel:"),
    };
    return classTable<ColorSpace>("NSColorSpace", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin
