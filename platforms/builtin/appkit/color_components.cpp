// The component messages. A colour responds to those of its kind of space and raises for the others.
#include "appkit/color.h"
#include "appkit/hsb.h"

#include <algorithm>
#include <cstdint>

namespace chroma::builtin {
namespace {

const ColorContents& contentsWithComponents(Color* color, SEL selector) {
    if (color->contents.kind != Kind::components) raiseNotValid(color, selector);
    return color->contents;
}

const float* componentsOf(Color* color, SEL selector, ColorModel model) {
    const ColorContents& contents = contentsWithComponents(color, selector);
    if (contents.space->definition->model != model) raiseNotValid(color, selector);
    return contents.components.data();
}

template <ColorModel Model, std::size_t Index>
CGFloat component(Color* self, SEL selector) {
    return componentsOf(self, selector, Model)[Index];
}

Vector3 hsbOf(Color* color, SEL selector) {
    const float* const rgb = componentsOf(color, selector, ColorModel::rgb);
    return hsbFromRgb({rgb[0], rgb[1], rgb[2]});
}

template <std::size_t Index>
CGFloat hsbComponent(Color* self, SEL selector) {
    return static_cast<float>(hsbOf(self, selector)[Index]);
}

// Valid for every colour: a catalog colour returns the alpha of the colour it represents, a pattern 1.
CGFloat alphaComponent(Color* self, SEL) {
    const Color* const color = withComponents(self);
    return color ? color->contents.alpha() : 1;
}

// Skips null outputs. The values are single-precision numbers in every width.
void put(CGFloat* output, double value) {
    if (output) *output = static_cast<float>(value);
}

void getRed(Color* self, SEL selector, CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
    const float* const components = componentsOf(self, selector, ColorModel::rgb);
    put(red, components[0]);
    put(green, components[1]);
    put(blue, components[2]);
    put(alpha, components[3]);
}

void getHue(Color* self, SEL selector, CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) {
    const Vector3 hsb = hsbOf(self, selector);
    put(hue, hsb[0]);
    put(saturation, hsb[1]);
    put(brightness, hsb[2]);
    put(alpha, self->contents.alpha());
}

void getWhite(Color* self, SEL selector, CGFloat* white, CGFloat* alpha) {
    const float* const components = componentsOf(self, selector, ColorModel::gray);
    put(white, components[0]);
    put(alpha, components[1]);
}

void getCyan(Color* self, SEL selector, CGFloat* cyan, CGFloat* magenta, CGFloat* yellow, CGFloat* black, CGFloat* alpha) {
    const float* const components = componentsOf(self, selector, ColorModel::cmyk);
    put(cyan, components[0]);
    put(magenta, components[1]);
    put(yellow, components[2]);
    put(black, components[3]);
    put(alpha, components[4]);
}

std::intptr_t numberOfComponents(Color* self, SEL selector) {
    return static_cast<std::intptr_t>(contentsWithComponents(self, selector).count());
}

void getComponents(Color* self, SEL selector, CGFloat* components) {
    const ColorContents& contents = contentsWithComponents(self, selector);
    if (components) std::copy_n(contents.components.begin(), contents.count(), components);
}

} // namespace

Category categoryOfColorComponents() {
    static const MethodEntry methods[] = {
        method<component<ColorModel::rgb, 0>>("redComponent"),
        method<component<ColorModel::rgb, 1>>("greenComponent"),
        method<component<ColorModel::rgb, 2>>("blueComponent"),
        method<hsbComponent<0>>("hueComponent"),
        method<hsbComponent<1>>("saturationComponent"),
        method<hsbComponent<2>>("brightnessComponent"),
        method<component<ColorModel::gray, 0>>("whiteComponent"),
        method<component<ColorModel::cmyk, 0>>("cyanComponent"),
        method<component<ColorModel::cmyk, 1>>("magentaComponent"),
        method<component<ColorModel::cmyk, 2>>("yellowComponent"),
        method<component<ColorModel::cmyk, 3>>("blackComponent"),
        method<alphaComponent>("alphaComponent"),
        method<getRed>("getRed:green:blue:alpha:"),
        method<getHue>("getHue:saturation:brightness:alpha:"),
        method<getWhite>("getWhite:alpha:"),
        method<getCyan>("getCyan:magenta:yellow:black:alpha:"),
        method<numberOfComponents>("numberOfComponents"),
        method<getComponents>("getComponents:"),
    };
    return {&Color::cls, methods, {}};
}

} // namespace chroma::builtin
