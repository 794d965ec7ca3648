// Native objects in host objects: who retains, who releases, and which host object comes back.
#include "support/plugin_test.h"

#include "classes/color/color_factories.h"
#include "classes/colorspace/colorspace.h"
#include "runtime/native_object.h"

using namespace chroma;
using foreign::Host;

class Objects : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        color = native::tell("NSColor", "colorWithCalibratedWhite:alpha:", CGFloat(0.5), CGFloat(1));
        before = native::retainCount(color);
    }
    void TearDown() override {
        EXPECT_EQ(native::retainCount(color), before);
        PluginTest::TearDown();
    }
    // As loaded, with the class constructor run once, so that the registry is known where there is one.
    void startWith(bool sibling) {
        if (sibling) native::Sibling::install();
        start();
        foreign::unlock(foreign::make("NSColorZRX"));
    }

    id color;
    NSUInteger before;
};

TEST_F(Objects, OneNativeObjectIsOneHostObjectWhileItLives) {
    startWith(true);
    REALobjectStruct* const first = NewNSColorZRX(color);
    EXPECT_EQ(NewNSColorZRX(color), first);
    EXPECT_EQ(foreign::references(first), 2);
    EXPECT_EQ(native::retainCount(color), before + 1);
    EXPECT_EQ(nativeObject(first), color);
    foreign::unlock(first);
    EXPECT_EQ(registered(), 1);
    foreign::unlock(first);
    EXPECT_EQ(registered(), 0);
    EXPECT_EQ(foreign::references(Reference(NewNSColorZRX(color))), 1);
}

TEST_F(Objects, WithoutRegistryEachWrapIsItsOwn) {
    startWith(false);
    const Reference first(NewNSColorZRX(color)), second(NewNSColorZRX(color));
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(native::retainCount(color), before + 2);
}

TEST_F(Objects, ADestructorReleasesWhatTheHandleIsAndRemovesItsOwnEntryOnly) {
    startWith(true);
    const Reference wrapped(NewNSColorZRX(color));
    REALobjectStruct* const other = foreign::make("NSColorZRX");
    setNativeObject(other, native::tell(color, "retain")); // as a host program does that writes the handle
    foreign::unlock(other);
    EXPECT_EQ(registered(), 1);
    EXPECT_EQ(Reference(NewNSColorZRX(color)), wrapped);

    setNativeObject(wrapped, nullptr); // this object's entry is the writer's then, and its retain
    CFDictionaryRemoveValue(native::Sibling::registry(), color);
    native::tell<void>(color, "release");
}

TEST_F(Objects, ASiblingThatComesLateStaysUnknown) {
    startWith(false);
    native::Sibling::install();
    foreign::unlock(NewNSColorZRX(color));
    foreign::unlock(foreign::make("NSColorZRX"));
    EXPECT_EQ(native::Sibling::registryRequests, 0);
    EXPECT_EQ(native::Sibling::preparations, 0);
}

// Whatever a program does first finds the sibling, once.
using Use = std::pair<const char*, void (*)()>;
class FirstUse : public SiblingTest, public ::testing::WithParamInterface<Use> {};
const Use uses[] = {
    {"MakesAColor", [] { foreign::unlock(foreign::make("NSColorZRX")); }},
    {"MakesAList", [] { foreign::unlock(foreign::make("NSColorListZRX")); }},
    {"MakesASpace", [] { foreign::unlock(foreign::make("NSColorSpaceZRX")); }},
    {"NamesAColor", [] { foreign::unlock(color::getblackColor()); }},
    {"NamesASpace", [] { foreign::unlock(colorspace::getgenericRGBColorSpace()); }},
    {"GivesAProfile", [] { EXPECT_EQ(colorspace::ColorSpaceWithICCProfileData(nullptr), nullptr); }},
    {"ListsSpaces",
     [] {
         foreign::unlock(colorspace::availableColorSpacesWithModel(99));
         Host::instance().takeRaised(); // not every platform lists them
     }},
};
INSTANTIATE_TEST_SUITE_P(Program, FirstUse, ::testing::ValuesIn(uses), [](const auto& use) { return use.param.first; });

TEST_P(FirstUse, AsksTheSiblingOnceAndNeverAgain) {
    for (int i = 0; i < 2; ++i) {
        GetParam().second();
        EXPECT_EQ(native::Sibling::registryRequests, 1);
        EXPECT_EQ(native::Sibling::preparations, 1);
    }
}
