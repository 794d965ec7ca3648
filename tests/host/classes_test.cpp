// Class records as a plugin hands them over, in both layouts, and the objects made from them.
#include "model/record_listing.h"
#include "model/strings.h"

#include "entry.h"

#include <cstring>
#include <sstream>

using namespace host;

namespace {

// ---- A small plugin: a counter that keeps its number in the first word of its instance data ----

int constructed = 0;
int destroyed = 0;
Object* lastReceiver = nullptr;

HostInteger& number(Object* object) { return *reinterpret_cast<HostInteger*>(reinterpret_cast<char*>(object) + 24); }

void constructCounter(Object* object) {
    ++constructed;
    EXPECT_EQ(number(object), 0);
    number(object) = 10;
}
void destroyCounter(Object* object) {
    ++destroyed;
    // A destructor may hand its own object to the host, as plugins do when they raise.
    lock(object);
    unlock(object);
}
void startAt(Object* object, HostInteger start) { number(object) = start; }
HostInteger add(Object* object, HostInteger amount, double scale) {
    lastReceiver = object;
    number(object) += static_cast<HostInteger>(static_cast<double>(amount) * scale);
    return number(object);
}
Object* newCounter() { return entry<PluginNewInstanceProc>("PluginNewInstance")("counter"); }
double half(Object* object, HostInteger parameter) { return static_cast<double>(number(object) + parameter) / 2.0; }
String* label(Object*, HostInteger) { return newString("counter"); }

template <class Function>
REALfunction fn(Function* function) {
    return reinterpret_cast<REALfunction>(function);
}

REALproperty properties[] = {
    {nullptr, "Handle", "Integer", 6, REALstandardAccessor, REALstandardAccessor, 0, {}},
    {nullptr, "Second", "Color", 6, REALstandardAccessor, nullptr, 12, {}},
    {nullptr, "Half", "double", 6, fn(half), nullptr, 4, {}},
    {nullptr, "Label", "string", 6, fn(label), nullptr, 0, {}},
};
REALmethodDefinition methods[] = {
    {fn(startAt), nullptr, "Constructor(start as integer)", 4, {}},
    {fn(add), nullptr, "Add(amount as integer, scale as double = 1.0) as integer", 4, {}},
};
REALmethodDefinition sharedMethods[] = {{fn(newCounter), nullptr, "Fresh as Counter", 4, {}}};
REALconstant constants[] = {{"Limit=99", 0, 0, {}}, {"Title = \"Counter\"", 0, 0, {}}};

REALclassDefinition counterRecord() {
    REALclassDefinition record = {};
    record.version = 13;
    record.name = "Counter";
    record.instanceDataSize = 16;
    record.constructor = fn(constructCounter);
    record.destructor = fn(destroyCounter);
    record.properties = properties;
    record.propertyCount = std::size(properties);
    record.methods = methods;
    record.methodCount = std::size(methods);
    record.constants = constants;
    record.constantCount = std::size(constants);
    record.flags = 4;
    record.sharedMethods = sharedMethods;
    record.sharedMethodCount = std::size(sharedMethods);
    return record;
}

// The same class in legacy records, whose memory ends where the layout does.
struct LegacyCounter {
    REALpropertyLegacy properties[4];
    REALmethodDefinitionLegacy methods[2];
    REALmethodDefinitionLegacy sharedMethods[1];
    REALconstantLegacy constants[2];
    std::unique_ptr<REALclassDefinitionLegacy> record = std::make_unique<REALclassDefinitionLegacy>();

    LegacyCounter() {
        const REALclassDefinition current = counterRecord();
        std::memcpy(record.get(), &current, sizeof *record);
        for (std::size_t i = 0; i < std::size(properties); ++i)
            std::memcpy(&properties[i], &::properties[i], sizeof properties[i]);
        for (std::size_t i = 0; i < std::size(methods); ++i)
            std::memcpy(&methods[i], &::methods[i], sizeof methods[i]);
        for (std::size_t i = 0; i < std::size(constants); ++i)
            std::memcpy(&constants[i], &::constants[i], sizeof constants[i]);
        std::memcpy(&sharedMethods[0], &::sharedMethods[0], sizeof sharedMethods[0]);
        record->version = 9;
        record->properties = properties;
        record->methods = methods;
        record->sharedMethods = sharedMethods;
        record->constants = constants;
    }
};

// Registers the counter as a plugin would, in the given layout.
ClassInfo& registerCounter(bool legacy) {
    static REALclassDefinition current = counterRecord();
    static LegacyCounter old;
    entry<RegisterPluginVersionProc>("RegisterPluginVersion")(legacy ? 9 : 13);
    auto* const record = legacy ? reinterpret_cast<REALclassDefinition*>(old.record.get()) : &current;
    entry<PluginRegisterClassProc>("PluginRegisterClass")(record);
    EXPECT_TRUE(registry().problems().empty());
    EXPECT_EQ(record->instanceDataOffset, 24);
    return *registry().find("Counter");
}

class BothLayouts : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Classes, BothLayouts, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "Legacy" : "Current"; });

} // namespace

TEST_P(BothLayouts, GiveTheSameMembers) {
    startHost();
    const ClassInfo& info = registerCounter(GetParam());
    ASSERT_EQ(info.properties().size(), 4u);
    EXPECT_EQ(info.findProperty("handle"), &info.properties()[0]);
    EXPECT_EQ(info.findProperty("LABEL")->type.kind, Kind::String);
    ASSERT_EQ(info.findMethods("add").size(), 1u);
    EXPECT_EQ(info.findMethods("ADD").front()->signature.parameters.size(), 2u);
    EXPECT_EQ(info.constructors().size(), 1u);
    EXPECT_TRUE(info.findSharedMethods("fresh").front()->shared);
    EXPECT_TRUE(info.findMethods("fresh").empty());
    EXPECT_EQ(std::get<HostInteger>(info.findConstant("limit")->value.value), 99);
    EXPECT_EQ(info.findConstant("nothing"), nullptr);
}

TEST_P(BothLayouts, CallWhatIsBound) {
    startHost();
    const ClassInfo& info = registerCounter(GetParam());
    Slot object;
    const Method& fresh = *info.findSharedMethods("Fresh").front();
    fresh.invoke(fresh.function, nullptr, &object);
    ASSERT_NE(object.object, nullptr);
    EXPECT_EQ(constructed, 1);

    const Method& adds = *info.findMethods("Add").front();
    const Slot arguments[] = {object, Slot::ofInteger(3), Slot::ofReal(2.0)};
    Slot result;
    adds.invoke(adds.function, arguments, &result);
    EXPECT_EQ(result.integer, 16);
    EXPECT_EQ(lastReceiver, object.object);

    EXPECT_EQ(readProperty(*info.findProperty("Half"), object.object).real, 10.0);
    const Property& handle = *info.findProperty("Handle");
    writeProperty(handle, object.object, Slot::ofInteger(-5));
    EXPECT_EQ(readProperty(handle, object.object).integer, -5);
    EXPECT_EQ(number(object.object), -5);
    EXPECT_EQ(readProperty(*info.findProperty("Second"), object.object).color, 0u);
    String* const text = readProperty(*info.findProperty("Label"), object.object).string;
    EXPECT_EQ(bytesOf(text), "counter");
    unlock(text);
    unlock(object.object);
}

TEST_P(BothLayouts, AreListedAsReceived) {
    startHost();
    registerCounter(GetParam());
    std::ostringstream text, json;
    listRecords(registry(), text);
    listRecordsAsJson(registry(), json);
    EXPECT_EQ(text.str().find("RuntimeException"), std::string::npos);
    EXPECT_NE(text.str().find(GetParam() ? "controlVersion 9, layout legacy" : "controlVersion 13, layout current"),
              std::string::npos);
    EXPECT_NE(text.str().find("0      Handle  Integer  6      standard  standard  0"), std::string::npos) << text.str();
    EXPECT_NE(text.str().find("Title = \"Counter\""), std::string::npos);
    EXPECT_NE(json.str().find(R"("declaration": "Title = \"Counter\"")"), std::string::npos);
}

TEST(Classes, ObjectsEndWithTheirLastReference) {
    startHost();
    ClassInfo& info = registerCounter(false);
    Object* const object = newObject(info);
    entry<REALLockObjectProc>("REALLockObject")(object);
    entry<REALUnlockObjectProc>("REALUnlockObject")(object);
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(info.liveObjects, 1u);
    entry<REALUnlockObjectProc>("REALUnlockObject")(object);
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(info.liveObjects, 0u);
    EXPECT_EQ(liveObjectCount(), 0u);
    entry<REALUnlockObjectProc>("REALUnlockObject")(nullptr);
}

TEST(Classes, SubclassesHaveTheDataAndMembersOfTheirSuperclass) {
    startHost();
    registerCounter(false);
    static REALmethodDefinition overriding[] = {
        {fn(add), nullptr, "Add(amount as integer, scale as double) as integer", 4, {}},
        {fn(add), nullptr, "Add(text as string)", 4, {}},
    };
    static REALclassDefinition record = {};
    record.version = 13;
    record.name = "SubCounter";
    record.superName = "COUNTER";
    record.instanceDataSize = 32;
    record.methods = overriding;
    record.methodCount = 2;
    entry<PluginRegisterClassProc>("PluginRegisterClass")(&record);
    ClassInfo& info = *registry().find("subcounter");
    EXPECT_EQ(record.instanceDataOffset, 24 + 16);
    EXPECT_EQ(info.instanceSize(), 48u);
    EXPECT_EQ(info.findMethods("Add").size(), 2u); // the inherited one is overridden
    EXPECT_TRUE(info.constructors().empty());
    EXPECT_NE(info.findProperty("Half"), nullptr);
    EXPECT_TRUE(isSubclass("SubCounter", "Counter"));
    EXPECT_FALSE(isSubclass("Counter", "SubCounter"));

    Object* const object = newObject(info);
    EXPECT_EQ(constructed, 1);
    EXPECT_EQ(number(object), 10);
    unlock(object);
    EXPECT_EQ(destroyed, 1);
}

TEST(Classes, APluginsExceptionClassHasItsDataWhereEveryPluginClassHasIt) {
    startHost();
    static REALclassDefinition record = {};
    record.version = 13;
    record.name = "CounterException";
    record.superName = "RuntimeException";
    record.instanceDataSize = 16;
    record.constructor = fn(constructCounter);
    entry<RegisterPluginVersionProc>("RegisterPluginVersion")(13);
    entry<PluginRegisterClassProc>("PluginRegisterClass")(&record);
    EXPECT_EQ(record.instanceDataOffset, 24);
    raise("CounterException", "too far");
    EXPECT_EQ(pendingMessage("CounterException"), "too far");
}

TEST(Classes, RecordsThatCannotBeTakenAreReported) {
    startHost();
    static REALproperty badProperties[] = {
        {nullptr, "Name", "String", 6, REALstandardAccessor, nullptr, 0, {}},
        {nullptr, "Far", "Integer", 6, REALstandardAccessor, nullptr, 16, {}},
        {nullptr, "Good", "Integer", 6, REALstandardAccessor, nullptr, 0, {}},
    };
    static REALmethodDefinition badMethods[] = {{fn(add), nullptr, "Add(amount", 4, {}}, {nullptr, nullptr, "Sub", 4, {}}};
    static REALclassDefinition records[5];
    for (REALclassDefinition& record : records) {
        record = counterRecord();
        record.properties = badProperties;
        record.propertyCount = 3;
        record.methods = badMethods;
        record.methodCount = 2;
    }
    records[1].name = "integer";
    records[2].superName = "Nobody";
    records[3].instanceDataSize = 4;
    records[4].version = 14;
    for (REALclassDefinition& record : records)
        registry().add(record);
    const std::vector<std::string> expected = {
        "Counter: property 0: the standard accessor cannot serve a String",
        "Counter: property 1: the standard accessor would leave the instance data",
        "Counter: method 0: expected \"as\" at column 11 of \"Add(amount\"",
        "Counter: method 1: no function",
        "integer: the name is taken",
        "Counter: the name is taken",
        "Counter: the name is taken",
        "a class record of the unknown version 14",
    };
    EXPECT_EQ(registry().problems(), expected);
    EXPECT_NE(registry().find("Counter")->findProperty("Good"), nullptr);
}

TEST(Classes, TheAnnouncedVersionMustBeTheRecords) {
    startHost();
    static REALclassDefinition record = counterRecord();
    entry<RegisterPluginVersionProc>("RegisterPluginVersion")(12);
    entry<PluginRegisterClassProc>("PluginRegisterClass")(&record);
    ASSERT_EQ(registry().problems().size(), 1u);
    EXPECT_EQ(registry().problems()[0], "Counter: the record's version is 13, announced was 12");
}
