// The class methods that create colours from numbers, spaces and handles. Calibrated and profiled spaces keep components
// outside 0..1; device spaces clip them.
#include "appkit/color.h"
#include "appkit/core_graphics.h"
#include "appkit/hsb.h"

#include <algorithm>
#include <cstdint>

namespace chroma::builtin {
namespace {

template <StandardSpace Space>
Color* colorWithWhite(ClassObject*, SEL, CGFloat white, CGFloat alpha) {
    return componentColor(standardSpace(Space), {white, alpha});
}

Color* colorWithDeviceWhite(ClassObject*, SEL, CGFloat white, CGFloat alpha) {
    return componentColor(standardSpace(StandardSpace::deviceGray), {clip(white), clip(alpha)});
}

template <StandardSpace Space>
Color* colorWithRed(ClassObject*, SEL, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return componentColor(standardSpace(Space), {red, green, blue, alpha});
}

Color* colorWithDeviceRed(ClassObject*, SEL, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return componentColor(standardSpace(StandardSpace::deviceRGB), {clip(red), clip(green), clip(blue), clip(alpha)});
}

Color* colorWithHsb(ColorSpace* space, const Vector3& hsb, double alpha) {
    const Vector3 rgb = rgbFromHsb(hsb);
    return componentColor(space, {rgb[0], rgb[1], rgb[2], alpha});
}

Color* colorWithCalibratedHue(ClassObject*, SEL, CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
    return colorWithHsb(standardSpace(StandardSpace::genericRGB), {hue, saturation, brightness}, alpha);
}

Color* colorWithDeviceHue(ClassObject*, SEL, CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
    return colorWithHsb(standardSpace(StandardSpace::deviceRGB), {hue, saturation, brightness}, clip(alpha));
}

Color* colorWithDeviceCyan(ClassObject*, SEL, CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black, CGFloat alpha) {
    return componentColor(standardSpace(StandardSpace::deviceCMYK),
                          {clip(cyan), clip(magenta), clip(yellow), clip(black), clip(alpha)});
}

ColorSpace* spaceArgument(SEL selector, id space) {
    static const Message numberOfColorComponents{"numberOfColorComponents"};
    if (!space)
        raise(exceptionName::invalidArgument, formatted("+[NSColor %s]: the color space is nil", sel_getName(selector)));
    return argument<ColorSpace>(space, numberOfColorComponents);
}

Color* colorWithColorSpaceComponents(ClassObject*, SEL selector, id spaceObject, const CGFloat* components,
                                     std::intptr_t count) {
    ColorSpace* const space = spaceArgument(selector, spaceObject);
    const auto expected = static_cast<std::intptr_t>(space->definition->channels) + 1;
    if (count != expected || !components || space->definition->model == ColorModel::unknown) {
        raise(exceptionName::invalidArgument,
              formatted("*** invalid number of components for colorspace in initWithColorSpace:components:count: "
                        "(%ld instead of %ld)",
                        static_cast<long>(components ? count : 0), static_cast<long>(expected)));
    }
    Color* const color = componentColor(space, {});
    std::transform(components, components + count, color->contents.components.begin(), [space](CGFloat component) {
        return static_cast<float>(isOfDevice(*space->definition) ? clip(component) : component);
    });
    return color;
}

Color* colorWithColorSpaceHue(ClassObject*, SEL selector, id spaceObject, CGFloat hue, CGFloat saturation,
                              CGFloat brightness, CGFloat alpha) {
    ColorSpace* const space = spaceArgument(selector, spaceObject);
    if (space->definition->model != ColorModel::rgb) {
        raise(exceptionName::invalidArgument, formatted("+[NSColor %s]: %s is not an RGB color space", sel_getName(selector),
                                                        printable(send<String*>(space, msg::description))));
    }
    return colorWithHsb(space, {hue, saturation, brightness}, isOfDevice(*space->definition) ? clip(alpha) : alpha);
}

// Returns nil for null and for a handle of another kind.
Color* colorWithCGColor(ClassObject*, SEL, id handle) {
    return isKindOf(handle, CGColorObject::cls) ? newColor(static_cast<CGColorObject*>(handle)->contents) : nullptr;
}

} // namespace

Category categoryOfColorFactories() {
    static const MethodEntry classMethods[] = {
        method<colorWithWhite<StandardSpace::genericGray>>("colorWithCalibratedWhite:alpha:"),
        method<colorWithDeviceWhite>("colorWithDeviceWhite:alpha:"),
        method<colorWithWhite<StandardSpace::genericGamma22Gray>>("colorWithGenericGamma22White:alpha:"),
        method<colorWithRed<StandardSpace::genericRGB>>("colorWithCalibratedRed:green:blue:alpha:"),
        method<colorWithDeviceRed>("colorWithDeviceRed:green:blue:alpha:"),
        method<colorWithRed<StandardSpace::sRGB>>("colorWithSRGBRed:green:blue:alpha:"),
        method<colorWithRed<StandardSpace::displayP3>>("colorWithDisplayP3Red:green:blue:alpha:"),
        method<colorWithCalibratedHue>("colorWithCalibratedHue:saturation:brightness:alpha:"),
        method<colorWithDeviceHue>("colorWithDeviceHue:saturation:brightness:alpha:"),
        method<colorWithDeviceCyan>("colorWithDeviceCyan:magenta:yellow:black:alpha:"),
        method<colorWithColorSpaceComponents>("colorWithColorSpace:components:count:"),
        method<colorWithColorSpaceHue>("colorWithColorSpace:hue:saturation:brightness:alpha:"),
        method<colorWithCGColor>("colorWithCGColor:"),
    };
    return {&Color::cls, {}, classMethods};
}

} // namespace chroma::builtin
