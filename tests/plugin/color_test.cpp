// NSColorZRX as host code sees it: made, read back in every form, and refused.
#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

#include <cmath>
#include <limits>
#include <utility>

using namespace chroma;
using namespace chroma::color;
using foreign::Host;

class Color : public SiblingTest {
protected:
    // Host objects, which the test gives up with foreign::unlock.
    REALobjectStruct* rgb(double red, double green, double blue, double alpha = 1.0) {
        REALobjectStruct* const object = foreign::make("NSColorZRX");
        ConstructorRGB(object, red, green, blue, alpha);
        return object;
    }
    REALobjectStruct* fromValue(HostColor c) {
        REALobjectStruct* const object = foreign::make("NSColorZRX");
        ConstructorColor(object, c);
        return object;
    }
    template <class... Components>
    REALobjectStruct* made(const char* message, Components... components) {
        return NewNSColorZRX(native::tell(native::classNamed("NSColor"), message, CGFloat(components)...));
    }
    REALobjectStruct* grey(double white, double alpha = 1.0) {
        return made("colorWithCalibratedWhite:alpha:", white, alpha);
    }
    REALobjectStruct* cmyk() { return made("colorWithDeviceCyan:magenta:yellow:black:alpha:", 0.25, 0.5, 0.75, 0.125, 0.5); }

    // Reads with outputs that held something before.
    using Outputs = std::vector<double>;
    template <class... Doubles>
    static Outputs read(void (*function)(REALobjectStruct*, Doubles*...), REALobjectStruct* object) {
        return read(function, object, std::index_sequence_for<Doubles...>());
    }
    template <class Function, std::size_t... index>
    static Outputs read(Function* function, REALobjectStruct* object, std::index_sequence<index...>) {
        Outputs outputs(sizeof...(index), 99.0);
        function(object, &outputs[index]...);
        return outputs;
    }

    static void expectNear(const Outputs& actual, const Outputs& expected) {
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i)
            EXPECT_NEAR(actual[i], expected[i], 1e-6) << "component " << i;
    }

    void expectWrongSpace(const char* message) {
        const Raised raised = raisedOne();
        EXPECT_EQ(raised.className, "NSExceptionZRX");
        EXPECT_NE(raised.message.find(message), std::string::npos) << raised.message;
    }
};

TEST_F(Color, FromAHostColourValue) {
    REALobjectStruct* const opaque = fromValue(0xFFFF8000);
    EXPECT_EQ(read(getRedA, opaque), (Outputs{1.0, static_cast<float>(128 / 255.0), 0.0, 1.0}));
    REALobjectStruct* const transparent = fromValue(0x00FF8000);
    EXPECT_EQ(read(getRedA, transparent), (Outputs{1.0, static_cast<float>(128 / 255.0), 0.0, 0.0}));
    REALobjectStruct* const channels = fromValue(0x01020304);
    EXPECT_EQ(read(getRedA, channels), (Outputs{static_cast<float>(2 / 255.0), static_cast<float>(3 / 255.0),
                                                static_cast<float>(4 / 255.0), static_cast<float>(1 / 255.0)}));
    for (auto* object : {opaque, transparent, channels})
        foreign::unlock(object);
}

TEST_F(Color, FromComponentsInTheAcceptedRange) {
    REALobjectStruct* const wide = rgb(-1.0, 2.0, 1.0 / 3.0, 7.0);
    const double third = static_cast<float>(1.0 / 3.0);
    EXPECT_EQ(read(getRedA, wide), platform::expected(Difference::CalibratedRange, Outputs{-1.0, 2.0, third, 7.0},
                                                      Outputs{0.0, 1.0, third, 1.0}));
    foreign::unlock(wide);
    REALobjectStruct* const notANumber = rgb(std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0);
    EXPECT_NE(nativeObject(notANumber), nullptr);
    foreign::unlock(notANumber);

    const double tooBig = 2.0000001, tooSmall = std::nextafter(-1.0, -2.0);
    const double refused[][3] = {{tooBig, 0, 0},   {0, tooBig, 0},   {0, 0, tooBig},
                                 {tooSmall, 0, 0}, {0, tooSmall, 0}, {0, 0, std::numeric_limits<double>::infinity()}};
    for (const auto& c : refused) {
        REALobjectStruct* const object = rgb(c[0], c[1], c[2]);
        EXPECT_EQ(raisedOne(),
                  (Raised{"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0}));
        EXPECT_EQ(nativeObject(object), nullptr);
        ConstructorRGB(object, 1.0, 0.5, 0.0, 1.0); // an empty object may be tried again
        EXPECT_EQ(read(getRedA, object), (Outputs{1.0, 0.5, 0.0, 1.0}));
        foreign::unlock(object);
    }
}

TEST_F(Color, ASecondConstructorIsRefused) {
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0);
    const id held = nativeObject(object);
    const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.", 0};
    ConstructorColor(object, 0xFFFFFFFF);
    EXPECT_EQ(raisedOne(), refusal);
    ConstructorRGB(object, 9.0, 0.0, 0.0, 1.0);
    EXPECT_EQ(raisedOne(), refusal);
    EXPECT_EQ(nativeObject(object), held);
    foreign::unlock(object);
}

TEST_F(Color, AConstructedColourIsTheOneThatComesBack) {
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0);
    EXPECT_EQ(native::retainCount(nativeObject(object)), 2U); // ours, and the pool's
    EXPECT_EQ(NewNSColorZRX(nativeObject(object)), object);
    foreign::unlock(object);
    foreign::unlock(object);
}

TEST_F(Color, AConstructorThatThrowsStoresNothing) {
    native::failOnClass("NSColor", "colorWithCalibratedRed:green:blue:alpha:");
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0);
    EXPECT_EQ(raisedOne(), (Raised{"NSExceptionZRX", "made to fail", 0}));
    ConstructorColor(object, 0xFFFFFFFF);
    EXPECT_EQ(raisedOne().message, "made to fail");
    EXPECT_EQ(nativeObject(object), nullptr);
    foreign::unlock(object);
}

TEST_F(Color, NullAndEmptyObjectsAnswerNothing) {
    REALobjectStruct* const empty = foreign::make("NSColorZRX");
    for (REALobjectStruct* const object : {empty, static_cast<REALobjectStruct*>(nullptr)}) {
        EXPECT_EQ(read(getRedA, object), Outputs(4));
        EXPECT_EQ(read(getRed, object), Outputs(3));
        EXPECT_EQ(read(getHueA, object), Outputs(4));
        EXPECT_EQ(read(getHue, object), Outputs(3));
        EXPECT_EQ(read(getCyanA, object), Outputs(5));
        EXPECT_EQ(read(getCyan, object), Outputs(4));
        EXPECT_EQ(read(getWhiteA, object), Outputs(2));
        EXPECT_EQ(read(getWhite, object), Outputs(1));
        EXPECT_EQ(foreign::take(getComponents(object)), Outputs());
        EXPECT_EQ(colorValue(object, 0), 0U);
        EXPECT_EQ(numberOfComponents(object, 0), 0);
        EXPECT_EQ(alphaComponent(object, 0), 0.0);
        EXPECT_EQ(description(object, 0), nullptr);
        EXPECT_EQ(getCGColor(object), 0);
        EXPECT_EQ(DummyException(object), nullptr);
    }
    ConstructorRGB(nullptr, 1, 1, 1, 1);
    ConstructorColor(nullptr, 0);
    NSColorDestructor(nullptr);
    foreign::unlock(empty);
}

TEST_F(Color, RGBReadsBackInItsOwnForms) {
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0, 0.25);
    EXPECT_EQ(read(getRed, object), (Outputs{1.0, 0.5, 0.0}));
    EXPECT_EQ(read(getRedA, object), (Outputs{1.0, 0.5, 0.0, 0.25}));
    expectNear(read(getHue, object), {1.0 / 12, 1.0, 1.0});
    expectNear(read(getHueA, object), {1.0 / 12, 1.0, 1.0, 0.25});
    EXPECT_EQ(redComponent(object, 0), 1.0);
    EXPECT_EQ(greenComponent(object, 0), 0.5);
    EXPECT_EQ(blueComponent(object, 0), 0.0);
    EXPECT_EQ(alphaComponent(object, 0), 0.25);
    EXPECT_NEAR(hueComponent(object, 0), 1.0 / 12, 1e-6);
    EXPECT_EQ(saturationComponent(object, 0), 1.0);
    EXPECT_EQ(brightnessComponent(object, 0), 1.0);
    EXPECT_EQ(foreign::take(getComponents(object)), (Outputs{1.0, 0.5, 0.0, 0.25}));
    EXPECT_EQ(numberOfComponents(object, 0), 4);
    EXPECT_EQ(foreign::take(colorSpaceName(object, 0)), "NSCalibratedRGBColorSpace");
    EXPECT_EQ(foreign::take(description(object, 0)),
              platform::expected<std::string>(
                  Difference::Description, "NSCalibratedRGBColorSpace 1 0.5 0 0.25",
                  R"({ ColorSpace = "NSCalibratedRGBColorSpace"; R = "1"; G = "0.5"; B = "0"; Alpha = "0.25"; })"));
    const HostInteger handle = getCGColor(object);
    if (platform::lacks("-", "CGColor")) {
        EXPECT_EQ(handle, 0);
        expectUnrecognized("CGColor");
    } else {
        EXPECT_NE(handle, 0);
        EXPECT_EQ(handle, asHandle(native::tell<const void*>(nativeObject(object), "CGColor")));
    }
    for (const auto name :
         {catalogNameComponent, colorNameComponent, localizedCatalogNameComponent, localizedColorNameComponent})
        EXPECT_EQ(name(object, 0), nullptr);

    EXPECT_EQ(read(getCyan, object), Outputs(4));
    expectWrongSpace("getCyan");
    EXPECT_EQ(read(getCyanA, object), Outputs(5));
    expectWrongSpace("getCyan");
    EXPECT_EQ(read(getWhite, object), Outputs(1));
    expectWrongSpace("getWhite");
    EXPECT_EQ(read(getWhiteA, object), Outputs(2));
    expectWrongSpace("getWhite");
    foreign::unlock(object);
}

TEST_F(Color, GreyConvertsOnlyWhereAlphaIsAsked) {
    REALobjectStruct* const object = grey(0.5, 0.75);
    EXPECT_EQ(read(getWhite, object), Outputs{0.5});
    EXPECT_EQ(read(getWhiteA, object), (Outputs{0.5, 0.75}));
    EXPECT_EQ(read(getRed, object), Outputs(3));
    expectWrongSpace("getRed");
    EXPECT_EQ(read(getHue, object), Outputs(3));
    expectWrongSpace("getHue");
    expectNear(read(getRedA, object), {0.5, 0.5, 0.5, 0.75});
    expectNear(read(getHueA, object), {0.0, 0.0, 0.5, 0.75});
    EXPECT_EQ(redComponent(object, 0), 0.0);
    EXPECT_EQ(whiteComponent(object, 0), 0.5);
    EXPECT_EQ(colorValue(object, 0), 0x7F7F7FU);
    EXPECT_EQ(foreign::take(getComponents(object)), (Outputs{0.5, 0.75}));
    foreign::unlock(object);
}

TEST_F(Color, CMYKReadsBackAndConverts) {
    REALobjectStruct* const object = cmyk();
    EXPECT_EQ(read(getCyan, object), (Outputs{0.25, 0.5, 0.75, 0.125}));
    EXPECT_EQ(read(getCyanA, object), (Outputs{0.25, 0.5, 0.75, 0.125, 0.5}));
    EXPECT_EQ(cyanComponent(object, 0), 0.25);
    EXPECT_EQ(magentaComponent(object, 0), 0.5);
    EXPECT_EQ(yellowComponent(object, 0), 0.75);
    EXPECT_EQ(blackComponent(object, 0), 0.125);
    EXPECT_EQ(numberOfComponents(object, 0), 5);
    const Outputs converted = read(getRedA, object);
    EXPECT_GT(converted[0], converted[1]);
    EXPECT_GT(converted[1], converted[2]);
    EXPECT_EQ(converted[3], 0.5);
    foreign::unlock(object);
}

TEST_F(Color, ValueTruncatesAndClamps) {
    const auto valueOf = [&](double red, double green, double blue, double alpha) {
        REALobjectStruct* const object = rgb(red, green, blue, alpha);
        const HostColor value = colorValue(object, 0);
        foreign::unlock(object);
        return value;
    };
    EXPECT_EQ(valueOf(1.0, 0.5, 0.0, 1.0), 0x00FF7F00U);
    EXPECT_EQ(valueOf(1.0, 0.5, 0.0, 0.25), 0x00FF7F00U);
    EXPECT_EQ(valueOf(0.999, 0.999, 0.999, 1.0), 0x00FEFEFEU);
    EXPECT_EQ(valueOf(2.0, -1.0, -0.1, 1.0), 0x00FF0000U);
    EXPECT_EQ(valueOf(std::numeric_limits<double>::quiet_NaN(), 1.0, 1.0, 1.0), 0x0000FFFFU);
}

TEST_F(Color, ConversionsThatFailRaiseOrLeaveZero) {
    REALobjectStruct* const object = grey(0.5);
    const id cls = native::object_getClass(nativeObject(object));
    for (const char* conversion : {"colorUsingColorSpaceName:", "colorUsingColorSpace:"})
        native::replace(
            cls, conversion, +[](id, SEL, id) -> id { return nullptr; });
    EXPECT_EQ(read(getRedA, object), Outputs(4));
    EXPECT_EQ(colorValue(object, 0), 0U);
    for (const char* conversion : {"colorUsingColorSpaceName:", "colorUsingColorSpace:"})
        native::failOn(nativeObject(object), conversion);
    EXPECT_EQ(read(getRedA, object), Outputs(4));
    expectWrongSpace("made to fail");
    EXPECT_EQ(read(getHueA, object), Outputs(4));
    expectWrongSpace("made to fail");
    EXPECT_EQ(colorValue(object, 0), 0U);
    expectWrongSpace("made to fail");
    foreign::unlock(object);
}

TEST_F(Color, AForeignObjectThrownWhileReadingPassesOutward) {
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0);
    static id thrown;
    thrown = nativeObject(object);
    const auto throwing = +[](id, SEL) { throwNative(thrown); };
    const id cls = native::object_getClass(thrown);
    native::replace(cls, "getRed:green:blue:alpha:", throwing);
    native::replace(cls, "redComponent", throwing);
    double outputs[4];
    auto converting = [&] { getRedA(object, &outputs[0], &outputs[1], &outputs[2], &outputs[3]); };
    auto plain = [&] { getRed(object, &outputs[0], &outputs[1], &outputs[2]); };
    auto value = [&] { colorValue(object, 0); };
    auto silent = [&] { redComponent(object, 0); };
    EXPECT_EQ(catchNative(converting), thrown);
    EXPECT_EQ(catchNative(plain), thrown);
    EXPECT_EQ(catchNative(value), thrown);
    EXPECT_EQ(catchNative(silent), thrown);
    foreign::unlock(object);
}

TEST_F(Color, ComponentsBeyondThirtyTwoAreReadAndCut) {
    REALobjectStruct* const object = rgb(1.0, 0.5, 0.0);
    const id cls = native::object_getClass(nativeObject(object));
    native::replace(
        cls, "numberOfComponents", +[](id, SEL) -> NSInteger { return 100; });
    native::replace(
        cls, "getComponents:", +[](id, SEL, CGFloat* values) {
            for (int i = 0; i < 100; ++i)
                values[i] = static_cast<CGFloat>(i);
        });
    Outputs expected;
    for (int i = 0; i < 32; ++i)
        expected.push_back(i);
    EXPECT_EQ(foreign::take(getComponents(object)), expected);
    native::failOn(nativeObject(object), "getComponents:");
    EXPECT_EQ(foreign::take(getComponents(object)), Outputs());
    expectWrongSpace("made to fail");
    native::failOn(nativeObject(object), "numberOfComponents");
    EXPECT_EQ(foreign::take(getComponents(object)), Outputs());
    expectWrongSpace("made to fail");
    EXPECT_EQ(numberOfComponents(object, 0), 0);
    expectWrongSpace("made to fail");
    foreign::unlock(object);
}
