// Start-up: versions, announcement, lookup rules, and what the host receives as class records.
#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

#include <array>
#include <cmath>
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

TEST_F(Start, WithoutResolverCallsNothing) {
    REALPluginMain(nullptr);
    EXPECT_EQ(CurrentREALControlVersion, 9);
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(Start, UnknownHostVersionMeansLegacy) {
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

// A record with rows in every array, of which no class has all.
struct FullRecord {
    REALproperty properties[2] = {{nullptr, "a", "Integer", 6, nullptr, nullptr, 1, {9, 8, 7, 6, 5}},
                                  {nullptr, "b", "double", 6, nullptr, nullptr, 2, {4, 3, 2, 1, 0}}};
    REALproperty sharedProperties[1] = {{nullptr, "s", "string", 6, nullptr, nullptr, 1, {1, 2, 3, 4, 5}}};
    REALmethodDefinition methods[1] = {{nullptr, nullptr, "m", 4, {1, 2}}};
    REALmethodDefinition sharedMethods[2] = {{nullptr, nullptr, "n", 4, {3, 4}}, {nullptr, nullptr, "o", 4, {5, 6}}};
    REALevent events[2] = {{"e", 1, {2, 3}}, {"f", 4, {5, 6}}};
    REALconstant constants[2] = {{"c=1", 0, 0, {1, 2}}, {"d=2", 0, 0, {3, 4}}};
    int marks[2] = {};
    REALclassDefinition record = {13,        "Full",  "Super",   33,      0, nullptr,          nullptr, properties,
                                  2,         methods, 1,         events,  2, &marks[0],        1,       &marks[1],
                                  &marks[1], 5,       constants, 2,       4, sharedProperties, 1,       sharedMethods,
                                  2,         nullptr, 0,         nullptr, 0};

    REALclassDefinitionLegacy legacy() const {
        REALclassDefinitionLegacy result;
        std::memcpy(&result, &record, sizeof result);
        return result;
    }
    // Gives up the arrays that registration in the legacy layout made.
    void release() const {
        const REALclassDefinitionLegacy made = legacy();
        for (void* array : std::array<void*, 6>{made.properties, made.methods, made.events, made.constants,
                                                made.sharedProperties, made.sharedMethods})
            std::free(array);
    }
};

// Compares each legacy row with the leading words of the current row.
template <class Legacy, class Row, std::size_t count>
void expectLeadingWords(const Legacy* legacy, const Row (&rows)[count]) {
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_EQ(std::memcmp(legacy + i, rows + i, sizeof(Legacy)), 0) << "row " << i;
}

TEST_F(Start, LegacyLayoutHoldsTheLeadingWordsAndNoBindings) {
    start(2011.0);
    FullRecord full;
    MyREALRegisterClass(&full.record);
    ASSERT_EQ(host.records.back(), &full.record);
    const REALclassDefinitionLegacy legacy = full.legacy();
    EXPECT_EQ(legacy.version, 9);
    EXPECT_EQ(legacy.instanceDataSize, 48);
    EXPECT_EQ(legacy.bindings, nullptr);
    EXPECT_EQ(legacy.bindingCount, 0);
    EXPECT_EQ(legacy.eventInstances, &full.marks[0]);
    EXPECT_EQ(legacy.interfaces, &full.marks[1]);
    EXPECT_EQ(legacy.sharedMethodCount, 2);
    expectLeadingWords(legacy.properties, full.properties);
    expectLeadingWords(legacy.methods, full.methods);
    expectLeadingWords(legacy.events, full.events);
    expectLeadingWords(legacy.constants, full.constants);
    expectLeadingWords(legacy.sharedProperties, full.sharedProperties);
    expectLeadingWords(legacy.sharedMethods, full.sharedMethods);
    full.release();
}

TEST_F(Start, ExhaustedMemoryLeavesARecordAloneAndUnregistered) {
    start(2011.0);
    const auto registered = host.records.size();
    int n = 0;
    for (bool failed = true; failed;) {
        FullRecord full;
        const REALclassDefinition before = full.record;
        failAllocation(++n);
        MyREALRegisterClass(&full.record);
        failed = failAllocation(0);
        EXPECT_EQ(host.records.size(), failed ? registered : registered + 1);
        EXPECT_EQ(std::memcmp(&full.record, &before, sizeof before) == 0, failed);
        if (!failed) full.release();
    }
    EXPECT_EQ(n, 7); // six arrays
}
