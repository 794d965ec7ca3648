// What a colour is, whatever holds it: a colour object, a handle, a list's file, the pasteboard.
#pragma once

#include "appkit/color_space.h"

#include <array>

namespace chroma::builtin {

struct CatalogColor;

struct ColorContents {
    enum class Kind {
        components, // `space` with as many components as it has channels, and alpha
        catalog,    // `catalogColor`
        pattern,    // `image`
    };

    // A pattern without an image is what a colour is before it has been given contents.
    Kind kind = Kind::pattern;
    Ref<ColorSpace> space;
    std::array<float, maxComponents> components{};
    const CatalogColor* catalogColor = nullptr; // never freed
    Ref<Object> image;

    std::size_t count() const { return space->definition->channels + 1; } // of components, with alpha
    float alpha() const { return components[count() - 1]; }
};

} // namespace chroma::builtin
