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

// Autoreleased colours. The components are the space's, then alpha, rounded to single precision.
Color* newColor(const ColorContents& contents);
Color* componentColor(ColorSpace* space, std::initializer_list<double> components);

// The same, never freed.
Color* sharedColor(ColorSpace* space, std::initializer_list<double> components);

// The colour with components of its own: itself, or what a catalog colour stands for. Null for a pattern.
Color* withComponents(Color* color);

// The colour in the space: itself when it is in it already, null when it cannot be converted. Autoreleased.
Color* converted(Color* color, ColorSpace* space);

// Raises NSInvalidArgumentException because the colour does not answer the message.
[[noreturn]] void raiseNotValid(Color* color, SEL selector);

} // namespace chroma::builtin
