// Class records as a plugin registers them, in both layouts, and the objects created from them.
#include "entries/record_listing.h"
#include "model/owned.h"
#include "model/record_writing.h"
#include "values/storage.h"

#include "host_test.h"

#include <cstdint>
#include <sstream>

using namespace host;

namespace {

// ---- A small plugin: a counter that stores its number in the first word of its instance data ----

int destroyed = 0;
HostInteger lastDestroyed = 0; // the number of the most recently destroyed counter

HostInteger number(Object* object) { return readAt<HostInteger>(object, REALinstanceDataOffset); }
void setNumber(Object* object, HostInteger value) { writeAt(object, REALinstanceDataOffset, value); }

void constructCounter(Object* object) {
    EXPECT_EQ(number(object), 0); // also fails if it runs twice
    setNumber(object, 10);
}
void destroyCounter(Object* object) {
    ++destroyed;
    lastDestroyed = number(object);
    // A destructor may pass its own object to the host, as plugins do when they raise.
    lock(object);
    unlock(object);
}
double add(Object* object, HostInteger amount, double scale) { return static_cast<double>(number(object) + amount) * scale; }
Object* newCounter() { return entry<PluginNewInstanceProc>("PluginNewInstance")("counter"); }
double half(Object* object, HostInteger parameter) { return static_cast<double>(number(object) + parameter) / 2.0; }
String* label(Object*, HostInteger) { return newString("counter"); }

REALproperty properties[] = {{nullptr, "Handle", "Integer", 6, REALstandardAccessor, REALstandardAccessor, 0, {}},
                             {nullptr, "Number", "Integer", 6, REALstandardAccessor, REALstandardAccessor, 0, {}},
                             {nullptr, "Second", "Color", 6, REALstandardAccessor, nullptr, 12, {}},
                             {nullptr, "Half", "double", 6, bound(half), nullptr, 4, {}},
                             readOnlyProperty("Label", "string", label)};
REALmethodDefinition methods[] = {method("Constructor(start as integer)", setNumber),
                                  method("Add(amount as integer, scale as double = 1.0) as double", add)};
REALmethodDefinition sharedMethods[] = {method("Fresh as Counter", newCounter)};
REALconstant constants[] = {{"Limit=99", 0, 0, {}}, {"Title = \"Counter\"", 0, 0, {}}};

// Returns rows with only the leading words of the current rows, packed closely.
template <class Legacy, auto& rows>
Legacy* legacyRows() {
    static Legacy legacy[std::size(rows)];
    for (std::size_t i = 0; i < std::size(rows); ++i)
        std::memcpy(&legacy[i], &rows[i], sizeof(Legacy));
    return legacy;
}

// Registers a class as a plugin does. The record must outlive the host.
ClassInfo& registered(REALclassDefinition& record) {
    entry<RegisterPluginVersionProc>("RegisterPluginVersion")(static_cast<std::int32_t>(record.version));
    entry<PluginRegisterClassProc>("PluginRegisterClass")(&record);
    EXPECT_EQ(registry().problems(), std::vector<std::string>());
    return *registry().find(record.name);
}

ClassInfo& registeredCounter(bool legacy = false) {
    static REALclassDefinition record = builtInRecord("Counter", nullptr, 16, constructCounter, destroyCounter);
    setRows(record.properties, record.propertyCount, properties);
    setRows(record.methods, record.methodCount, methods);
    setRows(record.constants, record.constantCount, constants);
    setRows(record.sharedMethods, record.sharedMethodCount, sharedMethods);
    if (!legacy) return registered(record);
    // The same class in legacy records. Their memory ends with the legacy layout.
    static const auto old = std::make_unique<REALclassDefinitionLegacy>();
    std::memcpy(old.get(), &record, sizeof *old);
    old->version = 9;
    old->properties = legacyRows<REALpropertyLegacy, properties>();
    old->methods = legacyRows<REALmethodDefinitionLegacy, methods>();
    old->constants = legacyRows<REALconstantLegacy, constants>();
    old->sharedMethods = legacyRows<REALmethodDefinitionLegacy, sharedMethods>();
    return registered(reinterpret_cast<REALclassDefinition&>(*old));
}

using Classes = StartedHost;
class BothLayouts : public StartedHost, public testing::WithParamInterface<bool> {};
INSTANTIATE_TEST_SUITE_P(Classes, BothLayouts, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "Legacy" : "Current"; });

} // namespace

TEST_P(BothLayouts, ProvideTheSameMembersAndListing) {
    const ClassInfo& info = registeredCounter(GetParam());
    EXPECT_EQ(info.record()->instanceDataOffset, 24);
    EXPECT_EQ(info.constructors().size(), 1u);
    EXPECT_TRUE(info.findMethods("fresh").empty());
    EXPECT_EQ(std::get<std::string>(info.findConstant("title")->value.value), "Counter");

    const Method& fresh = *info.findSharedMethods("fresh").front();
    Slot result;
    fresh.invoke(fresh.function, nullptr, &result);
    const Held object(result.object);
    EXPECT_EQ(call(object, "ADD", {Slot::ofInteger(3), Slot::ofReal(2.0)}).real, 26.0);
    EXPECT_EQ(readProperty(*info.findProperty("half"), object).real, 7.0);
    const Property& stored = *info.findProperty("Number");
    writeProperty(stored, object, Slot::ofInteger(-5));
    EXPECT_EQ(readProperty(stored, object).integer, -5);
    EXPECT_EQ(number(object), -5);
    EXPECT_EQ(readProperty(*info.findProperty("Second"), object).color, 0u);
    EXPECT_EQ(bytesOf(Held(readProperty(*info.findProperty("LABEL"), object).string)), "counter");

    std::ostringstream text;
    listRecords(registry(), 0, text);
    EXPECT_EQ(text.str().find("RuntimeException"), std::string::npos);
    for (const char* const part : {GetParam() ? "controlVersion 9, layout legacy" : "controlVersion 13, layout current",
                                   "0      Handle  Integer  6      standard  standard  0", "Title = \"Counter\""})
        EXPECT_NE(text.str().find(part), std::string::npos) << part << " in\n" << text.str();
}

TEST_F(Classes, SubclassesInheritDataAndMembers) {
    registeredCounter();
    static REALmethodDefinition overriding[] = {method("Add(amount as integer, scale as double) as double", add),
                                                method("Add(text as string)", add)};
    static REALclassDefinition record = builtInRecord("SubCounter", "COUNTER", 32, nullptr, nullptr);
    setRows(record.methods, record.methodCount, overriding);
    ClassInfo& info = registered(record);
    EXPECT_EQ(record.instanceDataOffset, 24 + 16);
    EXPECT_EQ(info.instanceSize(), 48u);
    EXPECT_EQ(info.findMethods("Add").size(), 2u); // the inherited one is overridden
    EXPECT_TRUE(info.constructors().empty());
    EXPECT_NE(info.findProperty("Half"), nullptr);
    EXPECT_TRUE(isSubclass("SubCounter", "Counter"));
    EXPECT_FALSE(isSubclass("Counter", "SubCounter"));

    Object* const object = newObject(info);
    EXPECT_EQ(number(object), 10);
    const auto unlockObject = entry<REALUnlockObjectProc>("REALUnlockObject");
    entry<REALLockObjectProc>("REALLockObject")(object);
    for (const int ends : {0, 1}) { // only the last reference destroys the object, once
        unlockObject(object);
        EXPECT_EQ(destroyed, ends);
        EXPECT_EQ(info.liveObjects, 1u - static_cast<unsigned>(ends));
    }
    unlockObject(nullptr);

    // An exception class of a plugin has its data at the same offset as every plugin class.
    static auto exception = builtInRecord("CounterException", "RuntimeException", 16, constructCounter, nullptr);
    EXPECT_EQ(registered(exception).record()->instanceDataOffset, 24);
    raise("CounterException", "too far");
    EXPECT_EQ(pendingMessage("CounterException"), "too far");
}

TEST_F(Classes, AWrittenHandleKeepsItsOwnerAlive) {
    ClassInfo& info = registeredCounter();
    const Property& handle = *info.findProperty("Handle");
    static auto strange = builtInRecord("Strange", nullptr, 16, constructCounter, nullptr);
    setRows(strange.properties, strange.propertyCount, properties);
    ClassInfo& other = registered(strange);
    const auto numbered = [&](HostInteger number) {
        Object* const object = newObject(info);
        setNumber(object, number);
        return Owned<Object>(object);
    };
    const auto shown = [&](Object* object) { return readProperty(handle, object).integer; };
    const auto write = [&](Object* object, HostInteger value) { writeProperty(handle, object, Slot::ofInteger(value)); };
    const auto isRefused = [&](Object* object, HostInteger value) {
        const HostInteger before = number(object);
        write(object, value);
        return pendingMessage("UnsupportedOperationException") != "" && number(object) == before;
    };
    {
        const Owned<Object> first = numbered(11);
        EXPECT_TRUE(isRefused(first.get(), 22)); // no object has this handle yet
        EXPECT_TRUE(isRefused(first.get(), 0));
        const Owned<Object> stranger(newObject(other));
        EXPECT_TRUE(isRefused(first.get(), readProperty(*other.findProperty("Handle"), stranger.get()).integer));
        {
            const Owned<Object> second = numbered(22);
            const Owned<Object> third = numbered(33);
            write(second.get(), shown(third.get()));
            write(first.get(), shown(second.get())); // the handle is the third's, although the second returned it
        }
        EXPECT_EQ(lastDestroyed, 22); // the second restored its own before it was destroyed; the third is still alive
        EXPECT_EQ(shown(first.get()), 33);
        write(first.get(), 11);
        EXPECT_EQ(lastDestroyed, 33);
        EXPECT_TRUE(isRefused(first.get(), 33));
        write(first.get(), shown(numbered(44).get()));
        EXPECT_EQ(destroyed, 2);
    }
    EXPECT_EQ(destroyed, 4);
    EXPECT_EQ(lastDestroyed, 44); // after the first, which retained it
    EXPECT_EQ(info.liveObjects, 0u);
}

TEST_F(Classes, InvalidRecordsAreReported) {
    static REALproperty badProperties[] = {{nullptr, "Name", "String", 6, REALstandardAccessor, nullptr, 0, {}},
                                           {nullptr, "Far", "Integer", 6, REALstandardAccessor, nullptr, 16, {}},
                                           {nullptr, "2nd", "Integer", 6, REALstandardAccessor, nullptr, 0, {}},
                                           {nullptr, "Good", "Integer", 6, REALstandardAccessor, nullptr, 0, {}}};
    static REALmethodDefinition badMethods[] = {method("Add(amount", half), {nullptr, nullptr, "Sub", 4, {}}};
    const auto record = [](const char* name, const char* superName, REALword size) {
        return builtInRecord(name, superName, size, nullptr, nullptr);
    };
    static REALclassDefinition records[] = {record("Bad", nullptr, 16), record("integer", nullptr, 16),
                                            record("bad", nullptr, 16), record("Orphan", "Nobody", 16),
                                            record("Odd", nullptr, 4),  record("New", nullptr, 16),
                                            record("A\n", nullptr, 16)};
    setRows(records[0].properties, records[0].propertyCount, badProperties);
    setRows(records[0].methods, records[0].methodCount, badMethods);
    records[5].version = 14;
    entry<RegisterPluginVersionProc>("RegisterPluginVersion")(13);
    for (REALclassDefinition& each : records)
        entry<PluginRegisterClassProc>("PluginRegisterClass")(&each);
    const std::vector<std::string> expected = {
        "Bad: property 0: the standard accessor cannot serve a String",
        "Bad: property 1: the standard accessor would access memory outside the instance data",
        "Bad: property 2: \"2nd\" is not a name",
        "Bad: method 0: expected \"as\" at column 11 of \"Add(amount\"",
        "Bad: method 1: no function",
        "integer: the name is taken",
        "bad: the name is taken",
        "Orphan: there is no superclass Nobody",
        "Odd: the instance data size 4 is not a multiple of 16",
        "New: the record's version is 14, but the plugin announced 13",
        "a class record of the unknown version 14",
        "a class record whose name is \"A\n\", which is not a name",
    };
    EXPECT_EQ(registry().problems(), expected);
    EXPECT_NE(registry().find("Bad")->findProperty("Good"), nullptr);
}
