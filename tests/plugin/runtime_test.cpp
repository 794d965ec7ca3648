// Start-up, the look-up of entries, class records, and native objects in host objects.
#include "support/plugin_test.h"

#include "classes/color/color_factories.h"
#include "classes/colorspace/colorspace.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

using namespace chroma;
using foreign::Owned;

class Start : public PluginTest {};

TEST_F(Start, ChoosesTheControlVersionAtEachThreshold) {
    for (const auto& [from, version] : {std::pair(2013.04, 13), {2013.03, 12}, {2013.0, 11}, {2012.0, 10}}) {
        EXPECT_EQ(controlVersionFor(from), version);
        EXPECT_EQ(controlVersionFor(std::nextafter(from, 0.0)), version - 1);
    }
    EXPECT_EQ(controlVersionFor(9999.0), 13);
    EXPECT_EQ(controlVersionFor(0.0), 9);
    EXPECT_EQ(controlVersionFor(std::numeric_limits<double>::quiet_NaN()), 9);
}

TEST_F(Start, AnnouncesTheVersionOnceBeforeTheClasses) {
    start(2013.03);
    EXPECT_EQ(host.calls,
              (std::vector<std::string>{"version 12", "class NSColorZRX", "class NSColorListZRX", "class NSColorSpaceZRX"}));
    EXPECT_EQ(rbversion_rbversion, 2013.03);
}

TEST_F(Start, WithoutResolverOrVersionTakesTheHostForOld) {
    REALPluginMain(nullptr);
    EXPECT_EQ(CurrentREALControlVersion, 9);
    EXPECT_TRUE(host.asked.empty());
    host.missing = {"REALGetRBVersion"};
    start();
    EXPECT_EQ(host.calls.at(0), "version 9");
    EXPECT_EQ(host.records.at(0)->version, 9);
}

TEST_F(Start, OnceEntriesKeepEvenTheAnswerNull) {
    start();
    const Owned object(foreign::make("RuntimeException"));
    host.missing = {"REALLockObject"};
    REALLockObject(object);
    host.missing.clear();
    REALLockObject(object);
    EXPECT_EQ(foreign::references(object), 1);
    EXPECT_EQ(host.asked["REALLockObject"], 1);

    // Two wrappers of one entry, each with a cache of its own.
    const Owned text(foreign::string("x"));
    for (int i = 0; i < 2; ++i) {
        CFRelease(REALCopyStringCFString(text, 0));
        CFRelease(REALGetStringCFString(text, 0));
    }
    EXPECT_EQ(host.asked["REALGetStringCFString"], 2);
}

TEST_F(Start, RetryingEntriesAskUntilTheHostAnswersByTheNewerNameFirst) {
    start();
    const Owned object(foreign::make("RuntimeException"));
    const auto expectAsked = [&](int newer, int older) {
        REALSetPropValueInteger(object, "ErrorNumber", 7);
        EXPECT_EQ(host.asked["REALSetPropValueInteger"], newer);
        EXPECT_EQ(host.asked["REALSetPropValueInt"], older);
    };
    host.missing = {"REALSetPropValueInteger", "REALSetPropValueInt"};
    expectAsked(1, 1);
    expectAsked(2, 2);
    host.missing = {"REALSetPropValueInteger"};
    expectAsked(3, 3);
    host.missing.clear();
    expectAsked(3, 3); // found by its older name, which stays
    REALRaiseException(object);
    expectRaised({{"RuntimeException", "", 7}});
}

TEST_F(Start, CurrentLayoutHandsOverTheStaticTables) {
    REALclassDefinition expected = color::NSColorClass;
    EXPECT_EQ(expected.version, 13);
    start(2012.5);
    ASSERT_EQ(host.records.at(0), &color::NSColorClass);
    expected.version = 10;
    expected.instanceDataSize = 16;
    expected.instanceDataOffset = REALinstanceDataOffset; // written by the host
    EXPECT_EQ(std::memcmp(host.records[0], &expected, sizeof expected), 0);
}

// A record with rows in every array, of which no class has all; made before the classes are registered.
REALclassDefinition fullRecord() {
    static REALevent events[2] = {{"e", 1, {2, 3}}, {"f", 4, {5, 6}}};
    static int mark;
    REALclassDefinition record = colorspace::NSColorSpaceClass;
    record.instanceDataSize = 33;
    record.events = events;
    record.eventCount = 2;
    record.bindings = record.interfaces = &mark;
    record.bindingCount = 5;
    record.sharedProperties = record.properties + 1;
    record.sharedPropertyCount = 2;
    return record;
}

// Compares each legacy row with the leading words of the current row, and gives the legacy rows up.
template <class Legacy, class Row>
void takeLeadingWords(Legacy* legacy, const Row* rows, REALword count) {
    for (REALword i = 0; i < count; ++i)
        EXPECT_EQ(std::memcmp(legacy + i, rows + i, sizeof(Legacy)), 0) << "row " << i;
    EXPECT_NE(static_cast<void*>(legacy), static_cast<const void*>(rows));
    std::free(legacy);
}

TEST_F(Start, LegacyLayoutHoldsTheLeadingWordsOrNothingChanges) {
    const REALclassDefinition before = fullRecord();
    start(2011.0);
    const auto registered = host.records.size();
    REALclassDefinition record = before;
    int n = 0;
    do {
        EXPECT_EQ(std::memcmp(&record, &before, sizeof before), 0) << n;
        EXPECT_EQ(host.records.size(), registered);
        failAllocation(++n);
        MyREALRegisterClass(&record);
    } while (failAllocation(0));
    EXPECT_EQ(n, 7); // an allocation for each of the six arrays failed once
    ASSERT_EQ(host.records.back(), &record);

    REALclassDefinitionLegacy legacy;
    std::memcpy(&legacy, &record, sizeof legacy);
    EXPECT_EQ(legacy.version, 9);
    EXPECT_EQ(legacy.instanceDataSize, 48);
    EXPECT_EQ(legacy.bindings, nullptr);
    EXPECT_EQ(legacy.bindingCount, 0);
    EXPECT_EQ(legacy.interfaces, before.interfaces);
    EXPECT_EQ(legacy.constantCount, before.constantCount);
    EXPECT_EQ(legacy.sharedMethodCount, before.sharedMethodCount);
    takeLeadingWords(legacy.properties, before.properties, before.propertyCount);
    takeLeadingWords(legacy.methods, before.methods, before.methodCount);
    takeLeadingWords(legacy.events, before.events, before.eventCount);
    takeLeadingWords(legacy.constants, before.constants, before.constantCount);
    takeLeadingWords(legacy.sharedProperties, before.sharedProperties, before.sharedPropertyCount);
    takeLeadingWords(legacy.sharedMethods, before.sharedMethods, before.sharedMethodCount);
}

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

TEST_F(Objects, WithoutSiblingInTimeEachWrapIsItsOwn) {
    startWith(false);
    native::Sibling::install();
    const Reference first(NewNSColorZRX(color)), second(NewNSColorZRX(color));
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(native::retainCount(color), before + 2);
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
    {"ListsSpaces", [] { foreign::unlock(colorspace::availableColorSpacesWithModel(99)); }},
};
INSTANTIATE_TEST_SUITE_P(Program, FirstUse, ::testing::ValuesIn(uses), [](const auto& use) { return use.param.first; });

TEST_P(FirstUse, AsksTheSiblingOnceAndNeverAgain) {
    for (int i = 0; i < 2; ++i) {
        GetParam().second();
        host.takeRaised(); // not every platform lists spaces
        EXPECT_EQ(native::Sibling::registryRequests, 1);
        EXPECT_EQ(native::Sibling::preparations, 1);
    }
}
