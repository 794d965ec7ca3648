// The class record of NSColorZRX and its tables, in record order.
#include "classes/color/color.h"

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
};

// clang-format on

} // namespace

REALclassDefinition NSColorClass =
    CHROMA_CLASS("NSColorZRX", nullptr, NSColorConstructor, NSColorDestructor, CHROMA_ROWS(NSColorProperties),
                 CHROMA_ROWS(NSColorMethods), CHROMA_NO_ROWS, CHROMA_NO_ROWS);

} // namespace chroma::color
