// NSColor: an immutable colour. Its methods are spread over the color_*.cpp files by what they do.
#pragma once

#include "appkit/color_contents.h"
#include "foundation/exception.h"

#include <initializer_list>

namespace chroma::builtin {

struct CGColorObject;

struct Color : Object {
    static ClassObject cls;

    Color();
    ~Color();

    ColorContents contents;
    LazyRef<CGColorObject> handle;
};

using Kind = ColorContents::Kind;

ClassTable tableOfNSColor();
Category categoryOfColorComponents();
Category categoryOfColorConversion();
Category categoryOfColorFactories();
Category categoryOfColorPasteboard();
Category categoryOfPatternColors();

// Returns an autoreleased colour. The components are the space's followed by alpha, rounded to single precision.
Color* newColor(const ColorContents& contents);
Color* componentColor(ColorSpace* space, std::initializer_list<double> components);

// The same, but the colour is never freed.
Color* sharedColor(ColorSpace* space, std::initializer_list<double> components);

// Returns the colour itself, or the colour that a catalog colour represents; null for a pattern.
Color* withComponents(Color* color);

// Returns an autoreleased colour in the space: the colour itself if it is in that space, or null if it cannot be converted.
Color* converted(Color* color, ColorSpace* space);

// Raises NSInvalidArgumentException: the colour does not respond to the message.
[[noreturn]] void raiseNotValid(Color* color, SEL selector);

} // namespace chroma::builtin
