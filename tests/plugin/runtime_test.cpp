// Start-up, the look-up of entries, class records, and native objects in host objects.
#include "support/plugin_test.h"

#include "classes/color/color_shared.h"
#include "classes/color_list/color_list.h"
#include "classes/color_space/color_space.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

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

TEST_F(Start, RegistersTheVersionOnceBeforeTheClasses) {
    const std::string trace = traceOf([&] { start(2013.03); });
    EXPECT_EQ(trace,
              "REALGetRBVersion RegisterPluginVersion(12) PluginRegisterClass PluginRegisterClass PluginRegisterClass");
    EXPECT_EQ(host.lookUps, (std::map<std::string, int>{
                                {"REALGetRBVersion", 1}, {"RegisterPluginVersion", 1}, {"PluginRegisterClass", 1}}));
    std::vector<std::string> names;
    for (const REALclassDefinition* const record : host.records)
        names.emplace_back(record->name);
    EXPECT_EQ(names, (std::vector<std::string>{"NSColorZRX", "NSColorListZRX", "NSColorSpaceZRX"}));
    EXPECT_EQ(rbversion_rbversion, 2013.03);
}

TEST_F(Start, AssumesAnOldHostWithoutVersionAndRegistersOnce) {
    REALPluginMain(nullptr);
    EXPECT_EQ(CurrentREALControlVersion, 9);
    EXPECT_TRUE(host.lookUps.empty());
    host.missing = {"REALGetRBVersion"};
    EXPECT_EQ(traceOf([&] { start(); }).substr(0, 24), "RegisterPluginVersion(9)");
    EXPECT_EQ(host.records.at(0)->version, 9);
    host.missing.clear();
    EXPECT_EQ(traceOf([&] { start(2021.0); }), "");
    EXPECT_EQ(traceOf([&] { REALPluginMain(nullptr); }), "");
    EXPECT_EQ(gResolver, foreign::Host::resolve);
}

// A null result is final, except for entries that some hosts provided late. The plugin looks up their newer names again.
TEST_F(Start, LooksUpEntriesOnceOrUntilFound) {
    const auto areOffered = [](auto&... entries) { return std::vector<bool>{entries.isOffered()...}; };
    const auto lookUpAll = [&] {
        host.lookUps.clear();
        const auto once = areOffered(
            REALRegisterClass, REALnewInstance, REALLockObject, REALUnlockObject, REALRaiseException, ChromaObjectIsA,
            REALGetPropValueString, originalREALBuildString, REALBuildStringWithEncoding, REALGetStringEncoding,
            REALSetStringEncoding, REALConvertString, REALLockString, REALUnlockString, REALCopyStringCFString,
            REALGetStringCFString, REALCreateArray, RuntimeUBound, REALMemoryBlockGetPtr, REALMemoryBlockGetSize);
        EXPECT_EQ(once, std::vector<bool>(once.size()));
        return areOffered(REALSetPropValueString, REALSetPropValueInteger, insertDoubleProcedure, insertObjectProcedure,
                          getDoubleProcedure, REALNewMemoryBlockOriginal);
    };
    using Counts = std::map<std::string, int>;
    gResolver = [](const char* name) -> void* {
        ++foreign::Host::instance().lookUps[name];
        return nullptr;
    };
    EXPECT_EQ(lookUpAll(), std::vector<bool>(6));
#define NAME(name, Procedure, since) #name,
    std::set<std::string> others{REAL_ENTRY_POINTS(NAME)};
#undef NAME
    for (const auto& [name, count] : host.lookUps)
        EXPECT_EQ(others.erase(name), 1U) << name;
    EXPECT_EQ(others, (std::set<std::string>{"REALGetRBVersion", "RegisterPluginVersion"})); // looked up at the start
    EXPECT_EQ(host.lookUps["REALGetStringCFString"], 2); // two wrappers of one entry, each with a separate result
    EXPECT_EQ(lookUpAll(), std::vector<bool>(6));
    const Counts newer = {{"REALSetPropValueString", 1},   {"REALSetPropValueInteger", 1},
                          {"newMemoryBlock", 1},           {"PluginDoubleArrayInsertProc", 1},
                          {"PluginDoubleArrayGetProc", 1}, {"PluginObjectArrayInsertProc", 1}};
    Counts all = newer;
    all.insert({{"REALSetPropValueInt", 1}, {"RuntimeArrayDirectGetInsertProc", 2}, {"RuntimeArrayDirectGetGetProc", 1}});
    EXPECT_EQ(host.lookUps, all);
    gResolver = foreign::Host::resolve;
    EXPECT_EQ(lookUpAll(), std::vector<bool>(6, true));
    EXPECT_EQ(host.lookUps, newer);
    lookUpAll();
    EXPECT_EQ(host.lookUps, Counts());
}

TEST_F(Start, CurrentLayoutRegistersTheTablesUnchanged) {
    using Words = std::vector<REALword>;
    REALclassDefinition expected[] = {color::NSColorClass, color_list::NSColorListClass, color_space::NSColorSpaceClass};
    start(2012.5);
    ASSERT_EQ(host.records.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        REALclassDefinition& record = expected[i];
        EXPECT_EQ((Words{record.version, record.instanceDataSize, record.instanceDataOffset, record.flags}),
                  (Words{13, sizeof(void*), 0, 4}));
        for (REALword row = 0; row < record.propertyCount; ++row) {
            const REALproperty& property = record.properties[row];
            const bool isHandle = property.name == std::string_view("Handle");
            EXPECT_EQ(Words(&property.parameter, std::end(property.further)), Words(6, 0)) << property.name;
            EXPECT_EQ(property.flags, 6) << property.name;
            EXPECT_EQ(property.setter, isHandle ? REALstandardAccessor : nullptr) << property.name;
            EXPECT_EQ(property.getter == REALstandardAccessor, isHandle) << property.name;
        }
        for (REALword row = 0; row < record.methodCount; ++row)
            EXPECT_EQ(record.methods[row].flags, 4) << record.methods[row].declaration;
        for (REALword row = 0; row < record.sharedMethodCount; ++row)
            EXPECT_EQ(record.sharedMethods[row].flags, 4) << record.sharedMethods[row].declaration;
        for (REALword row = 0; row < record.constantCount; ++row)
            EXPECT_EQ((Words{record.constants[row].value, record.constants[row].flags}), Words(2, 0));
        record.version = 10;
        record.instanceDataSize = 16;
        record.instanceDataOffset = REALinstanceDataOffset; // the host writes it
        EXPECT_EQ(std::memcmp(host.records[i], &record, sizeof record), 0) << record.name;
    }
}

// Returns a record with rows in every array, which no class has. It must be created before the classes are registered.
REALclassDefinition fullRecord() {
    static REALevent events[2] = {{"e", 1, {2, 3}}, {"f", 4, {5, 6}}};
    static int mark;
    REALclassDefinition record = color_space::NSColorSpaceClass;
    record.instanceDataSize = 33;
    record.events = events;
    record.eventCount = 2;
    record.bindings = record.interfaces = &mark;
    record.bindingCount = 5;
    record.sharedProperties = record.properties + 1;
    record.sharedPropertyCount = 2;
    return record;
}

// Compares each legacy row with the leading words of the current row, and frees the legacy rows.
template <class Legacy, class Row>
void takeLeadingWords(Legacy* legacy, const Row* rows, REALword count) {
    for (REALword i = 0; i < count; ++i)
        EXPECT_EQ(std::memcmp(legacy + i, rows + i, sizeof(Legacy)), 0) << "row " << i;
    EXPECT_NE(static_cast<void*>(legacy), static_cast<const void*>(rows));
    std::free(legacy);
}

TEST_F(Start, LegacyLayoutCopiesLeadingWordsOrChangesNothing) {
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
    EXPECT_EQ(n, 7); // each of the six arrays' allocations failed once
    ASSERT_EQ(host.records.back(), &record);

    std::vector<std::size_t> changed;
    const auto wordOf = [](const REALclassDefinition& definition, std::size_t word) {
        return readField<REALword>(&definition, static_cast<std::ptrdiff_t>(word * sizeof(REALword)));
    };
    for (std::size_t word = 0; word < sizeof record / sizeof(REALword); ++word)
        if (wordOf(record, word) != wordOf(before, word)) changed.push_back(word);
    EXPECT_EQ(changed, (std::vector<std::size_t>{0, 3, 4, 7, 9, 11, 16, 17, 18, 21, 23}));
    REALclassDefinitionLegacy legacy;
    std::memcpy(&legacy, &record, sizeof legacy);
    EXPECT_EQ(legacy.version, 9);
    EXPECT_EQ(legacy.instanceDataSize, 48);
    EXPECT_EQ(legacy.bindings, nullptr);
    EXPECT_EQ(legacy.bindingCount, 0);
    REALclassDefinition unused = {};
    unused.events = before.events; // but the count is 0
    MyREALRegisterClass(&unused);
    EXPECT_EQ(host.records.back(), &unused);
#if !defined(CHROMA_SLICE) // its linker keeps no copy of the inlined function
    EXPECT_EQ(FixProperties(before.properties, 0), nullptr);
    EXPECT_EQ(FixProperties(nullptr, 1), nullptr);
#endif
    takeLeadingWords(legacy.properties, before.properties, before.propertyCount);
    takeLeadingWords(legacy.methods, before.methods, before.methodCount);
    takeLeadingWords(legacy.events, before.events, before.eventCount);
    takeLeadingWords(legacy.constants, before.constants, before.constantCount);
    takeLeadingWords(legacy.sharedProperties, before.sharedProperties, before.sharedPropertyCount);
    takeLeadingWords(legacy.sharedMethods, before.sharedMethods, before.sharedMethodCount);
}

class Objects : public SiblingTest {
protected:
    Objects() { foreign::unlock(foreign::make("NSColorZRX")); } // the plugin finds the registry here
    ~Objects() override { EXPECT_EQ(native::retainCount(color), before); }

    const id color = native::sendClass("NSColor", "colorWithCalibratedWhite:alpha:", CGFloat(0.5), CGFloat(1));
    const NSUInteger before = native::retainCount(color);
};

TEST_F(Objects, ANativeObjectHasOneHostObjectAtATime) {
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

TEST_F(Objects, DestructorsReleaseTheHandleAndRemoveOnlyTheirEntry) {
    const Reference wrapped(NewNSColorZRX(color));
    REALobjectStruct* const other = foreign::make("NSColorZRX");
    setNativeObject(other, native::send(color, "retain")); // as a host program that writes the handle does
    foreign::unlock(other);
    EXPECT_EQ(registered(), 1);
    EXPECT_EQ(Reference(NewNSColorZRX(color)), wrapped);

    setNativeObject(wrapped, nullptr); // the test now owns this object's registry entry and its retain
    CFDictionaryRemoveValue(native::Sibling::registry(), color);
    native::send<void>(color, "release");
}

using FirstUse = SiblingTest;

TEST_F(FirstUse, CallsTheSiblingOnceBeforeAnyOtherMessage) {
    int count = 0;
    std::string queries = "respondsToSelector: GetInstancesDictionaryZRX respondsToSelector: PrepareNSExceptionZRX";
    for (const auto use : std::initializer_list<void (*)()>{
             [] { foreign::unlock(foreign::make("NSColorZRX")); }, [] { foreign::unlock(foreign::make("NSColorListZRX")); },
             [] { foreign::unlock(foreign::make("NSColorSpaceZRX")); }, [] { foreign::unlock(color::getblackColor()); },
             [] { foreign::unlock(color_space::getgenericRGBColorSpace()); },
             [] { EXPECT_EQ(color_space::ColorSpaceWithICCProfileData(nullptr), nullptr); },
             [] { foreign::unlock(color_space::availableColorSpacesWithModel(99)); }}) {
        CocoaInited = false; // as in a new process, but the sibling stays prepared
        instances = nullptr;
        const std::string first = traceOf(use);
        ASSERT_NE(first.find(queries), std::string::npos) << first;
        EXPECT_EQ(first.substr(0, first.find(queries)).find("olor"), std::string::npos) << first; // no message of a colour
        EXPECT_EQ(traceOf(use).find("ZRX respondsTo"), std::string::npos);
        queries = "respondsToSelector: GetInstancesDictionaryZRX";
        EXPECT_EQ(native::Sibling::registryRequests, ++count);
        host.takeRaised(); // not every platform lists spaces
    }
    EXPECT_EQ(native::Sibling::preparations, 1);

    native::fail(native::metaclass("NSException"), "GetInstancesDictionaryZRX");
    CocoaInited = false;
    instances = nullptr;
    foreign::unlock(foreign::make("NSColorZRX"));
    foreign::unlock(foreign::make("NSColorZRX"));
    expectPlatformException(); // one: a sibling that fails is not called again
}
