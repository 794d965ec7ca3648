// The contents of a colour, independent of where they are stored: in a colour object, a handle, a list's file or the
// pasteboard.
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

    // Before it receives its contents, a colour is a pattern without an image.
    Kind kind = Kind::pattern;
    Ref<ColorSpace> space;
    std::array<float, maxComponents> components{};
    const CatalogColor* catalogColor = nullptr; // never freed
    Ref<Object> image;

    std::size_t count() const { return space->definition->channels + 1; } // of components, with alpha
    float alpha() const { return components[count() - 1]; }
};

} // namespace chroma::builtin
