// Start-up: versions, announcement, lookup rules, and what the host receives as class records.
#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace chroma;
using foreign::Host;

class Start : public PluginTest {};

TEST_F(Start, ChoosesTheControlVersionAtEachThreshold) {
    const auto below = [](double version) { return std::nextafter(version, 0.0); };
    EXPECT_EQ(controlVersionFor(9999.0), 13);
    EXPECT_EQ(controlVersionFor(2013.04), 13);
    EXPECT_EQ(controlVersionFor(below(2013.04)), 12);
    EXPECT_EQ(controlVersionFor(2013.03), 12);
    EXPECT_EQ(controlVersionFor(below(2013.03)), 11);
    EXPECT_EQ(controlVersionFor(2013.0), 11);
    EXPECT_EQ(controlVersionFor(below(2013.0)), 10);
    EXPECT_EQ(controlVersionFor(2012.0), 10);
    EXPECT_EQ(controlVersionFor(below(2012.0)), 9);
    EXPECT_EQ(controlVersionFor(0.0), 9);
    EXPECT_EQ(controlVersionFor(std::numeric_limits<double>::quiet_NaN()), 9);
}

TEST_F(Start, AnnouncesTheVersionOnceBeforeTheClasses) {
    start(2013.03);
    EXPECT_EQ(host.calls,
              (std::vector<std::string>{"version 12", "class NSColorZRX", "class NSColorListZRX", "class NSColorSpaceZRX"}));
    EXPECT_EQ(host.asked["RegisterPluginVersion"], 1);
    EXPECT_EQ(rbversion_rbversion, 2013.03);
}

TEST_F(Start, WithoutResolverCallsNothing) {
    REALPluginMain(nullptr);
    EXPECT_EQ(CurrentREALControlVersion, 9);
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(Start, UnknownHostVersionMeansLegacy) {
    host.missing = {"REALGetRBVersion"};
    start();
    ASSERT_FALSE(host.calls.empty());
    EXPECT_EQ(host.calls[0], "version 9");
    EXPECT_EQ(host.records.at(0)->version, 9);
}

TEST_F(Start, GoesOnWithoutAnnouncementAndWithoutRegistration) {
    host.missing = {"RegisterPluginVersion", "PluginRegisterClass"};
    start();
    EXPECT_TRUE(host.calls.empty());
    EXPECT_EQ(host.asked["PluginRegisterClass"], 1);
}

TEST_F(Start, OnceEntriesKeepEvenTheAnswerNull) {
    start();
    host.missing = {"REALLockObject"};
    REALobjectStruct* const object = foreign::make("RuntimeException");
    REALLockObject(object);
    host.missing.clear();
    REALLockObject(object);
    EXPECT_EQ(foreign::references(object), 1);
    EXPECT_EQ(host.asked["REALLockObject"], 1);
    REALUnlockObject(object);
    EXPECT_EQ(host.asked["REALUnlockObject"], 1);

    // Two wrappers of one entry, each with a cache of its own.
    REALstringStruct* const text = foreign::string("x");
    for (int i = 0; i < 2; ++i) {
        CFRelease(REALCopyStringCFString(text, 0));
        CFRelease(REALGetStringCFString(text, 0));
    }
    EXPECT_EQ(host.asked["REALGetStringCFString"], 2);
    foreign::unlock(text);
}

TEST_F(Start, RetryingEntriesAskUntilTheHostAnswers) {
    start();
    host.missing = {"newMemoryBlock"};
    EXPECT_EQ(REALNewMemoryBlockOriginal(3), nullptr);
    EXPECT_EQ(REALNewMemoryBlockOriginal(3), nullptr);
    EXPECT_EQ(host.asked["newMemoryBlock"], 2);
    host.missing.clear();
    for (int i = 0; i < 2; ++i)
        foreign::unlock(foreign::object(REALNewMemoryBlockOriginal(3)));
    EXPECT_EQ(host.asked["newMemoryBlock"], 3);
}

TEST_F(Start, NewerNamesComeFirstAndOlderOnesServe) {
    start();
    REALobjectStruct* const object = foreign::make("RuntimeException");
    host.missing = {"REALSetPropValueInteger", "REALSetPropValueInt"};
    REALSetPropValueInteger(object, "ErrorNumber", 1);
    REALSetPropValueInteger(object, "ErrorNumber", 1);
    EXPECT_EQ(host.asked["REALSetPropValueInteger"], 2);
    EXPECT_EQ(host.asked["REALSetPropValueInt"], 2);
    host.missing = {"REALSetPropValueInteger"};
    REALSetPropValueInteger(object, "ErrorNumber", 7);
    REALRaiseException(object);
    EXPECT_EQ(raisedOne().errorNumber, 7);
    host.missing.clear();
    REALSetPropValueInteger(object, "ErrorNumber", 7);
    EXPECT_EQ(host.asked["REALSetPropValueInteger"], 3);
    foreign::unlock(object);
}

TEST_F(Start, CurrentLayoutHandsOverTheStaticTables) {
    const REALclassDefinition before = color::NSColorClass;
    start(2012.5);
    ASSERT_EQ(host.records.at(0), &color::NSColorClass);
    REALclassDefinition expected = before;
    expected.version = 10;
    expected.instanceDataSize = 16;
    expected.instanceDataOffset = REALinstanceDataOffset; // written by the host
    EXPECT_EQ(std::memcmp(host.records[0], &expected, sizeof expected), 0);
    EXPECT_EQ(before.version, 13);
    EXPECT_LE(before.instanceDataSize, 8);
}

// Compares each legacy row with the leading words of the current row.
template <class Legacy, class Row>
void expectLeadingWords(const void* legacy, const Row* rows, REALword count) {
    ASSERT_NE(legacy, static_cast<const void*>(rows));
    for (REALword i = 0; i < count; ++i)
        EXPECT_EQ(std::memcmp(static_cast<const Legacy*>(legacy) + i, rows + i, sizeof(Legacy)), 0) << "row " << i;
}

TEST_F(Start, LegacyLayoutHoldsTheLeadingWords) {
    const REALclassDefinition before = color::NSColorClass;
    start(2011.0);
    REALclassDefinitionLegacy legacy;
    std::memcpy(&legacy, host.records.at(0), sizeof legacy);
    EXPECT_EQ(legacy.version, 9);
    EXPECT_EQ(legacy.instanceDataSize, 16);
    EXPECT_EQ(legacy.flags, before.flags);
    EXPECT_EQ(legacy.methodCount, before.methodCount);
    EXPECT_EQ(legacy.constants, nullptr);
    expectLeadingWords<REALpropertyLegacy>(legacy.properties, before.properties, before.propertyCount);
    expectLeadingWords<REALmethodDefinitionLegacy>(legacy.methods, before.methods, before.methodCount);
}

// A record with rows in every array, of which no class has all.
struct FullRecord {
    REALproperty properties[2] = {{nullptr, "a", "Integer", 6, nullptr, nullptr, 1, {9, 8, 7, 6, 5}},
                                  {nullptr, "b", "double", 6, nullptr, nullptr, 2, {4, 3, 2, 1, 0}}};
    REALmethodDefinition methods[1] = {{nullptr, nullptr, "m", 4, {1, 2}}};
    REALevent events[2] = {{"e", 1, {2, 3}}, {"f", 4, {5, 6}}};
    REALconstant constants[2] = {{"c=1", 0, 0, {1, 2}}, {"d=2", 0, 0, {3, 4}}};
    int marks[2] = {};
    REALclassDefinition record = {13,        "Full",  "Super",   33,      0, nullptr,    nullptr, properties,
                                  2,         methods, 1,         events,  2, &marks[0],  1,       &marks[1],
                                  &marks[1], 5,       constants, 2,       4, properties, 2,       methods,
                                  1,         nullptr, 0,         nullptr, 0};
};

TEST_F(Start, LegacyLayoutCopiesEveryArrayAndDropsBindings) {
    start(2011.0);
    FullRecord full;
    MyREALRegisterClass(&full.record);
    ASSERT_EQ(host.records.back(), &full.record);
    REALclassDefinitionLegacy legacy;
    std::memcpy(&legacy, &full.record, sizeof legacy);
    EXPECT_EQ(legacy.instanceDataSize, 48);
    EXPECT_EQ(legacy.bindings, nullptr);
    EXPECT_EQ(legacy.bindingCount, 0);
    EXPECT_EQ(legacy.eventInstances, &full.marks[0]);
    EXPECT_EQ(legacy.interfaces, &full.marks[1]);
    expectLeadingWords<REALpropertyLegacy>(legacy.properties, full.properties, 2);
    expectLeadingWords<REALmethodDefinitionLegacy>(legacy.methods, full.methods, 1);
    expectLeadingWords<REALeventLegacy>(legacy.events, full.events, 2);
    expectLeadingWords<REALconstantLegacy>(legacy.constants, full.constants, 2);
    expectLeadingWords<REALpropertyLegacy>(legacy.sharedProperties, full.properties, 2);
    expectLeadingWords<REALmethodDefinitionLegacy>(legacy.sharedMethods, full.methods, 1);
    for (void* copy : {static_cast<void*>(legacy.properties), static_cast<void*>(legacy.methods),
                       static_cast<void*>(legacy.events), static_cast<void*>(legacy.constants),
                       static_cast<void*>(legacy.sharedProperties), static_cast<void*>(legacy.sharedMethods)})
        std::free(copy);
}

TEST_F(Start, ExhaustedMemoryLeavesARecordAloneAndUnregistered) {
    start(2011.0);
    const auto registered = host.records.size();
    int failures = 0;
    for (int n = 1; host.records.size() == registered; ++n) {
        ASSERT_LT(n, 100);
        FullRecord full;
        const REALclassDefinition before = full.record;
        failAllocation(n);
        MyREALRegisterClass(&full.record);
        if (failAllocation(0)) {
            ++failures;
            EXPECT_EQ(std::memcmp(&full.record, &before, sizeof before), 0) << n;
            EXPECT_EQ(host.records.size(), registered);
        } else {
            std::free(full.record.properties);
            std::free(full.record.methods);
            std::free(full.record.events);
            std::free(full.record.constants);
            std::free(full.record.sharedProperties);
            std::free(full.record.sharedMethods);
        }
    }
    EXPECT_EQ(failures, 6);
}
