// The class record of NSColorZRX and its tables, in record order.
#include "classes/color/color.h"
#include "classes/color/color_shared.h"

#include "runtime/class_records.h"

namespace chroma::color {
namespace {

#define CHROMA_ROW_NUMBER(name) CHROMA_PROPERTY(name, "double"),
#define CHROMA_ROW_STRING(name) CHROMA_PROPERTY(name, "string"),

// clang-format off
REALproperty NSColorProperties[] = {
    CHROMA_PROPERTY(colorValue, "Color"),
    CHROMA_COLOR_NUMBERS(CHROMA_ROW_NUMBER)
    CHROMA_COLOR_STRINGS(CHROMA_ROW_STRING)
    CHROMA_PROPERTY(numberOfComponents, "Integer"),
    CHROMA_HANDLE_PROPERTY,
};
// clang-format on

// clang-format off
REALmethodDefinition NSColorMethods[] = {
    CHROMA_METHOD(DummyException, "_exception as NSExceptionZRX"),
    CHROMA_METHOD(ConstructorColor, "Constructor(c as color)"),
    CHROMA_METHOD(ConstructorRGB, "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)"),
    CHROMA_METHOD(getCGColor, "CGColorHandle as Integer"),
    CHROMA_METHOD(getComponents, "Components as double()"),
    CHROMA_METHOD(getCyan, "getCMYK(byref cyan as double, byref magenta as double, byref yellow as double, byref black as double)"),
    CHROMA_METHOD(getWhite, "getWhite(byref white as double)"),
    CHROMA_METHOD(getHue, "getHSV(byref hue as double, byref saturation as double, byref brightness as double)"),
    CHROMA_METHOD(getRed, "getRGB(byref red as double, byref green as double, byref blue as double)"),
    CHROMA_METHOD(getCyanA, "getCMYK(byref cyan as double, byref magenta as double, byref yellow as double, byref black as double, byref alpha as double)"),
    CHROMA_METHOD(getWhiteA, "getWhite(byref white as double, byref alpha as double)"),
    CHROMA_METHOD(getHueA, "getHSV(byref hue as double, byref saturation as double, byref brightness as double, byref alpha as double)"),
    CHROMA_METHOD(getRedA, "getRGB(byref red as double, byref green as double, byref blue as double, byref alpha as double)"),
    CHROMA_METHOD(blendedColorWithFraction, "blendedColorWithFraction(alpha as double, c as NSColorZRX) as NSColorZRX"),
    CHROMA_METHOD(colorWithAlphaComponent, "colorWithAlphaComponent(alpha as double) as NSColorZRX"),
    CHROMA_METHOD(colorUsingColorSpaceName, "colorUsingColorSpaceName(colorSpace as string) as NSColorZRX"),
    CHROMA_METHOD(colorUsingColorSpace, "colorUsingColorSpace(colorSpace as NSColorSpaceZRX) as NSColorZRX"),
    CHROMA_METHOD(shadowWithLevel, "shadowWithLevel(level as double) as NSColorZRX"),
    CHROMA_METHOD(highlightWithLevel, "highlightWithLevel(level as double) as NSColorZRX"),
    CHROMA_METHOD(colorSpace, "colorSpace as NSColorSpaceZRX"),
    CHROMA_METHOD(patternImage, "patternImage as variant"),
    CHROMA_METHOD(writeToPasteboard, "writeToPasteboard"),
};

#define CHROMA_ROW_SYSTEM_COLOR(name) CHROMA_METHOD(get##name, #name " as NSColorZRX"),

REALmethodDefinition NSColorSharedMethods[] = {
    CHROMA_METHOD(colorWithColorSpaceHSV, "colorWithColorSpaceHSV(ColorSpace as NSColorSpaceZRX, hue as double, saturation as double, brightness as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithDisplayP3Red, "colorWithDisplayP3(red as double, green as double, blue as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(scrubberTexturedBackgroundColor, "scrubberTexturedBackgroundColor as NSColorZRX"),
    CHROMA_METHOD(colorWithColorSpace, "colorWithColorSpace(ColorSpace as NSColorSpaceZRX, paramarray components as double) as NSColorZRX"),
    CHROMA_METHOD(colorWithColorSpace, "colorWithColorSpace(ColorSpace as NSColorSpaceZRX, components() as double) as NSColorZRX"),
    CHROMA_METHOD(colorWithGenericGamma22White, "colorWithGenericGamma22White(white as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithCGColor, "colorWithCGColor(CGColorHandle as Integer) as NSColorZRX"),
    CHROMA_METHOD(colorWithDeviceCyan, "colorWithDeviceCMYK(cyan as double, magenta as double, yellow as double, black as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithDeviceRed, "colorWithDeviceRGB(red as double, green as double, blue as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithDeviceHue, "colorWithDeviceHSV(hue as double, saturation as double, brightness as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithDeviceWhite, "colorWithDeviceWhite(white as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithSRGBRed, "colorWithSRGB(red as double, green as double, blue as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithCalibratedRed, "colorWithCalibratedRGB(red as double, green as double, blue as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithCalibratedHue, "colorWithCalibratedHSV(hue as double, saturation as double, brightness as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorWithCalibratedWhite, "colorWithCalibratedWhite(white as double, alpha as double=1.0) as NSColorZRX"),
    CHROMA_METHOD(colorFromPasteboard, "colorFromPasteboard as NSColorZRX"),
    CHROMA_METHOD(colorWithPatternImage, "colorWithPatternImage(image as variant) as NSColorZRX"),
    CHROMA_SYSTEM_COLORS(CHROMA_ROW_SYSTEM_COLOR)
};
// clang-format on

} // namespace

REALclassDefinition NSColorClass =
    CHROMA_CLASS("NSColorZRX", nullptr, NSColorConstructor, NSColorDestructor, CHROMA_ROWS(NSColorProperties),
                 CHROMA_ROWS(NSColorMethods), CHROMA_NO_ROWS, CHROMA_ROWS(NSColorSharedMethods));

} // namespace chroma::color
