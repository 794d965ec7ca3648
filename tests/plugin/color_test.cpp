// NSColorZRX as host code sees it: made by its constructors, read back in every form, and refused.
#include "support/plugin_test.h"

#include "runtime/native_object.h"

#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>

using namespace chroma;
using namespace chroma::color;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

REALobjectStruct* rgb(double red, double green, double blue, double alpha = 1.0) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    ConstructorRGB(object, red, green, blue, alpha);
    return object;
}

template <class... Numbers>
REALobjectStruct* made(const char* message, Numbers... components) {
    return NewNSColorZRX(native::tell("NSColor", message, single(components)...));
}

// Reads into outputs that held something before.
template <class... Doubles>
Components read(void (*function)(REALobjectStruct*, Doubles*...), const Reference& object) {
    std::array<double, sizeof...(Doubles)> outputs;
    outputs.fill(99.0);
    std::apply([&](Doubles&... output) { function(object, &output...); }, outputs);
    return {outputs.begin(), outputs.end()};
}

void expectNear(const Components& actual, const Components& expected, const std::string& what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-6) << what << ", output " << i;
}

} // namespace

class Color : public SiblingTest {};

TEST_F(Color, FromAHostColourValue) {
    const auto part = [](int channel) -> double { return static_cast<float>(channel / 255.0); };
    const std::pair<HostColor, Components> colors[] = {{0xFFFF8000, {1.0, part(128), 0.0, 1.0}},
                                                       {0x00FF8000, {1.0, part(128), 0.0, 0.0}},
                                                       {0x01020304, {part(2), part(3), part(4), part(1)}}};
    for (const auto& [value, components] : colors) {
        const Reference object(foreign::make("NSColorZRX"));
        ConstructorColor(object, value);
        EXPECT_EQ(read(getRedA, object), components) << value;
    }
}

TEST_F(Color, FromComponentsInTheAcceptedRange) {
    const double third = static_cast<float>(1.0 / 3.0);
    EXPECT_EQ(read(getRedA, rgb(-1.0, 2.0, 1.0 / 3.0, 7.0)),
              platform::expected(Difference::CalibratedRange, Components{-1.0, 2.0, third, 7.0},
                                 Components{0.0, 1.0, third, 1.0}));
    EXPECT_NE(nativeObject(Reference(rgb(notANumber, 0.0, 0.0))), nullptr);

    const double tooBig = 2.0000001, tooSmall = std::nextafter(-1.0, -2.0);
    const double refused[][3] = {{tooBig, 0, 0},   {0, tooBig, 0},   {0, 0, tooBig},
                                 {tooSmall, 0, 0}, {0, tooSmall, 0}, {0, 0, std::numeric_limits<double>::infinity()}};
    for (const auto& [red, green, blue] : refused) {
        const Reference object(rgb(red, green, blue));
        expectRaised({{"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0}});
        EXPECT_EQ(nativeObject(object), nullptr);
        ConstructorRGB(object, 1.0, 0.5, 0.0, 1.0); // an empty object may be tried again
        EXPECT_EQ(read(getRedA, object), (Components{1.0, 0.5, 0.0, 1.0}));
    }
}

TEST_F(Color, IsMadeOnceAndComesBackAsItsObject) {
    const Reference object(rgb(1.0, 0.5, 0.0));
    const id held = nativeObject(object);
    EXPECT_EQ(native::retainCount(held), 2U); // ours, and the pool's
    const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.", 0};
    ConstructorColor(object, 0xFFFFFFFF);
    ConstructorRGB(object, 9.0, 0.0, 0.0, 1.0);
    expectRaised({refusal, refusal});
    EXPECT_EQ(nativeObject(object), held);
    EXPECT_EQ(Reference(NewNSColorZRX(held)), object);
}

TEST_F(Color, ReadsInItsOwnFormsAndConvertsOnlyWhereAlphaIsAsked) {
    const Reference inRGB(rgb(1.0, 0.5, 0.25, 0.75)), grey(made("colorWithCalibratedWhite:alpha:", 0.5, 0.75)),
        cmyk(made("colorWithDeviceCyan:magenta:yellow:black:alpha:", 0.25, 0.5, 0.75, 0.125, 0.5));
    const Reference converted(
        NewNSColorZRX(native::tell(nativeObject(cmyk), "colorUsingColorSpaceName:", NSCalibratedRGBColorSpace)));
    const Components refused;
    const struct {
        const char* name;
        Components (*read)(const Reference& object);
        Components ofRGB, ofGrey, ofCMYK;
    } readers[] = {
#define READER(name) #name, [](const Reference& object) { return read(name, object); }
        {READER(getRed), {1.0, 0.5, 0.25}, refused, refused},
        {READER(getRedA), {1.0, 0.5, 0.25, 0.75}, {0.5, 0.5, 0.5, 0.75}, read(getRedA, converted)},
        {READER(getHue), {1.0 / 18, 0.75, 1.0}, refused, refused},
        {READER(getHueA), {1.0 / 18, 0.75, 1.0, 0.75}, {0.0, 0.0, 0.5, 0.75}, read(getHueA, converted)},
        {READER(getWhite), refused, {0.5}, refused},
        {READER(getWhiteA), refused, {0.5, 0.75}, refused},
        {READER(getCyan), refused, refused, {0.25, 0.5, 0.75, 0.125}},
        {READER(getCyanA), refused, refused, {0.25, 0.5, 0.75, 0.125, 0.5}},
    };
    for (const auto& reader : readers) {
        const std::string name = reader.name;
        const auto check = [&](const Reference& object, const Components& expected) {
            const Components actual = reader.read(object);
            expectNear(actual, expected.empty() ? Components(actual.size()) : expected, name);
            if (expected.empty()) expectPlatformException({name.substr(0, name.find('A'))});
        };
        check(inRGB, reader.ofRGB);
        check(grey, reader.ofGrey);
        check(cmyk, reader.ofCMYK);
    }

    const struct {
        const char* name;
        double (*get)(REALobjectStruct*, REALword);
        double ofRGB, ofGrey, ofCMYK;
    } getters[] = {
#define GETTER(name) #name, name
        {GETTER(redComponent), 1.0, 0.0, 0.0},         {GETTER(greenComponent), 0.5, 0.0, 0.0},
        {GETTER(blueComponent), 0.25, 0.0, 0.0},       {GETTER(hueComponent), 1.0 / 18, 0.0, 0.0},
        {GETTER(saturationComponent), 0.75, 0.0, 0.0}, {GETTER(brightnessComponent), 1.0, 0.0, 0.0},
        {GETTER(whiteComponent), 0.0, 0.5, 0.0},       {GETTER(cyanComponent), 0.0, 0.0, 0.25},
        {GETTER(magentaComponent), 0.0, 0.0, 0.5},     {GETTER(yellowComponent), 0.0, 0.0, 0.75},
        {GETTER(blackComponent), 0.0, 0.0, 0.125},     {GETTER(alphaComponent), 0.75, 0.75, 0.5},
    };
    for (const auto& getter : getters)
        expectNear({getter.get(inRGB, 0), getter.get(grey, 0), getter.get(cmyk, 0)},
                   {getter.ofRGB, getter.ofGrey, getter.ofCMYK}, getter.name);

    EXPECT_EQ(componentsOf(inRGB), (Components{1.0, 0.5, 0.25, 0.75}));
    EXPECT_EQ(componentsOf(grey), (Components{0.5, 0.75}));
    EXPECT_EQ(numberOfComponents(inRGB, 0), 4);
    EXPECT_EQ(numberOfComponents(cmyk, 0), 5);
    EXPECT_EQ(colorValue(grey, 0), 0x7F7F7FU);
    EXPECT_EQ(foreign::take(colorSpaceName(inRGB, 0)), "NSCalibratedRGBColorSpace");
    EXPECT_EQ(foreign::take(description(inRGB, 0)),
              platform::expected<std::string>(
                  Difference::Description, "NSCalibratedRGBColorSpace 1 0.5 0.25 0.75",
                  R"({ ColorSpace = "NSCalibratedRGBColorSpace"; R = "1"; G = "0.5"; B = "0.25"; Alpha = "0.75"; })"));
    EXPECT_EQ(DummyException(inRGB), nullptr);
}

TEST_F(Color, OfACatalogueTellsItsNames) {
    const Reference plain(rgb(1.0, 0.5, 0.0)), catalogue(NewNSColorZRX(native::tell("NSColor", "controlTextColor")));
    const std::pair<const char*, REALstringStruct* (*)(REALobjectStruct*, REALword)> getters[] = {
        {GETTER(catalogNameComponent)},
        {GETTER(colorNameComponent)},
        {GETTER(localizedCatalogNameComponent)},
        {GETTER(localizedColorNameComponent)},
    };
    for (const auto& [name, get] : getters) {
        EXPECT_EQ(get(plain, 0), nullptr) << name;
        EXPECT_EQ(foreign::take(get(catalogue, 0)), native::textOf(native::tell(nativeObject(catalogue), name))) << name;
    }
}

TEST_F(Color, ValueTruncatesAndClamps) {
    const auto valueOf = [](double red, double green, double blue, double alpha = 1.0) {
        return colorValue(Reference(rgb(red, green, blue, alpha)), 0);
    };
    EXPECT_EQ(valueOf(1.0, 0.5, 0.0, 0.25), 0x00FF7F00U);
    EXPECT_EQ(valueOf(0.999, 0.999, 0.999), 0x00FEFEFEU);
    EXPECT_EQ(valueOf(2.0, -1.0, -0.1), 0x00FF0000U);
    EXPECT_EQ(valueOf(notANumber, 1.0, 1.0), 0x0000FFFFU);
}

TEST_F(Color, ComponentsBeyondThirtyTwoAreReadAndCut) {
    const Reference object(rgb(1.0, 0.5, 0.0));
    const id cls = native::object_getClass(nativeObject(object));
    native::replace(
        cls, "numberOfComponents", +[](id, SEL) -> NSInteger { return 100; });
    native::replace(
        cls, "getComponents:", +[](id, SEL, CGFloat* values) {
            for (int i = 0; i < 100; ++i)
                values[i] = static_cast<CGFloat>(i);
        });
    Components expected(32);
    std::iota(expected.begin(), expected.end(), 0.0);
    EXPECT_EQ(componentsOf(object), expected);
}
