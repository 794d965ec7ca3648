#include "probe.h"
#include "pools.h"

#include "chromabridge/host_abi.h"
#include "model/entries.h"

#include <cstring>
#include <iterator>
#include <string>
#include <utility>

namespace {

template <class Proc>
Proc entry(const char* name) {
    return reinterpret_cast<Proc>(host::resolveEntry(name));
}

void lock(REALobjectStruct* object) { entry<REALLockObjectProc>("REALLockObject")(object); }
void unlock(REALobjectStruct* object) { entry<REALUnlockObjectProc>("REALUnlockObject")(object); }

REALstringStruct* newString(const std::string& text) {
    constexpr std::uint32_t utf8 = 0x08000100;
    const auto build = entry<REALBuildStringWithEncodingProc>("REALBuildStringWithEncoding");
    return build(text.data(), static_cast<std::int32_t>(text.size()), utf8);
}

// The text of short strings, as it stands in their buffer.
std::string textOf(REALstringStruct* string) {
    if (!string) return {};
    const char* buffer = nullptr;
    std::int32_t length = 0;
    const auto* const base = reinterpret_cast<const char*>(string);
    std::memcpy(&buffer, base + REALstringBufferOffset, sizeof buffer);
    std::memcpy(&length, base + REALstringLengthOffset, sizeof length);
    return {buffer + 1, static_cast<std::size_t>(length)};
}

struct Probe {
    REALobjectStruct* next; // owned
    HostInteger number;
};
static_assert(sizeof(Probe) <= 16);

Probe& dataOf(REALobjectStruct* object) {
    return *reinterpret_cast<Probe*>(reinterpret_cast<unsigned char*>(object) + REALinstanceDataOffset);
}

std::string& events() {
    static std::string all;
    return all;
}

void destroy(REALobjectStruct* object) {
    events() += "-" + std::to_string(dataOf(object).number);
    unlock(dataOf(object).next);
}

REALobjectStruct* make(HostInteger number) {
    REALobjectStruct* const object = entry<PluginNewInstanceProc>("PluginNewInstance")("Probe");
    dataOf(object).number = number;
    return object;
}

void raise(const char* className, const std::string& message) {
    REALobjectStruct* const exception = entry<PluginNewInstanceProc>("PluginNewInstance")(className);
    REALstringStruct* const text = newString(message);
    entry<REALSetPropValueStringProc>("REALSetPropValueString")(exception, "Message", text);
    entry<REALUnlockStringProc>("REALUnlockString")(text);
    entry<RuntimeRaiseExceptionProc>("RuntimeRaiseException")(exception);
    unlock(exception);
}

// ---- What is bound --------------------------------------------------------------------------------------------------------------

void constructNumber(REALobjectStruct* object, HostInteger number) { dataOf(object).number = number; }

void constructColor(REALobjectStruct* object, HostColor color) {
    dataOf(object).number = static_cast<HostInteger>(color & 0xFFFFFF);
}

void constructSum(REALobjectStruct* object, double a, double b, double factor) {
    if (a < 0) return raise("OutOfBoundsException", "a is below 0");
    dataOf(object).number = static_cast<HostInteger>((a + b) * factor);
}

REALobjectStruct* successor(REALobjectStruct* object) { return make(dataOf(object).number + 1); }

REALobjectStruct* self(REALobjectStruct* object) {
    lock(object);
    return object;
}

void split(REALobjectStruct* object, double* whole, double* half) {
    *whole = static_cast<double>(dataOf(object).number);
    *half = *whole / 2;
}

void splitThree(REALobjectStruct* object, double* whole, double* half, double* third) {
    split(object, whole, half);
    *third = *whole / 3;
}

void splitAndRaise(REALobjectStruct*, double* whole) {
    *whole = -1;
    raise("UnsupportedOperationException", "split");
}

// An object and an exception: the caller of such a function has both to give up.
REALobjectStruct* makeAndRaise(REALobjectStruct*, REALstringStruct* className) {
    raise(textOf(className).c_str(), "made");
    return make(99);
}

REALstringStruct* label(REALobjectStruct* object, REALstringStruct* prefix, HostBoolean brackets) {
    const std::string text = textOf(prefix) + std::to_string(dataOf(object).number);
    return newString(brackets ? "[" + text + "]" : text);
}

// Gives up the text that it was given by reference for a new one.
void exclaim(REALobjectStruct*, REALstringStruct** text) {
    REALstringStruct* const louder = newString(textOf(*text) + "!");
    entry<REALUnlockStringProc>("REALUnlockString")(*text);
    *text = louder;
}

REALstringStruct* description(REALobjectStruct* object, REALword) {
    return newString("probe " + std::to_string(dataOf(object).number));
}

REALobjectStruct* next(REALobjectStruct* object, REALword) {
    lock(dataOf(object).next);
    return dataOf(object).next;
}

void setNext(REALobjectStruct* object, REALword, REALobjectStruct* value) {
    lock(value);
    unlock(dataOf(object).next);
    dataOf(object).next = value;
}

REALstringStruct* eventsAsString() { return newString(takeProbeEvents()); }

double sum(_REALarrayDouble* values) {
    const auto get = entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(values);
    double total = 0;
    for (std::int32_t i = 0; i <= entry<RuntimeUBoundProc>("RuntimeUBound")(values); ++i)
        total += get(values, i);
    return total;
}

double scaledSum(double factor, _REALarrayDouble* values) { return factor * sum(values); }

HostBoolean leaveNative() { return autoreleaseNative(), 1; }
HostInteger gone() { return nativesGone(); }

HostInteger blueOf(HostColor color) { return static_cast<HostInteger>(color & 0xFF); }

void* row(HostInteger count) {
    void* const array = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray")(REALarrayOfObjects, -1);
    const auto insert = entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(array);
    for (std::int32_t i = 0; i < count; ++i) {
        REALobjectStruct* const object = make(i);
        insert(array, i, object);
        unlock(object);
    }
    return array;
}

REALobjectStruct* echo(REALobjectStruct* value) {
    lock(value);
    return value;
}

// ---- The tables -----------------------------------------------------------------------------------------------------------------

template <class Function>
REALfunction bound(Function* function) {
    return reinterpret_cast<REALfunction>(function);
}

REALproperty properties[] = {
    {nullptr, "Number", "Integer", 0, REALstandardAccessor, REALstandardAccessor, offsetof(Probe, number), {}},
    {nullptr, "description", "string", 0, bound(description), nullptr, 0, {}},
    {nullptr, "Next", "Probe", 0, bound(next), bound(setNext), 0, {}},
};

REALmethodDefinition methods[] = {
    {bound(constructNumber), nullptr, "Constructor(number as integer)", 0, {}},
    {bound(constructColor), nullptr, "Constructor(c as color)", 0, {}},
    {bound(constructSum), nullptr, "Constructor(a as double, b as double, factor as double = 1.0)", 0, {}},
    {bound(successor), nullptr, "successor as Probe", 0, {}},
    {bound(self), nullptr, "self as Probe", 0, {}},
    {bound(split), nullptr, "split(byref whole as double, byref half as double)", 0, {}},
    {bound(splitThree), nullptr, "split(byref whole as double, byref half as double, byref third as double)", 0, {}},
    {bound(splitAndRaise), nullptr, "splitAndRaise(byref whole as double)", 0, {}},
    {bound(makeAndRaise), nullptr, "makeAndRaise(className as string) as Probe", 0, {}},
    {bound(exclaim), nullptr, "exclaim(byref text as string)", 0, {}},
    {bound(label), nullptr, "label(prefix as string = \"#\", brackets as boolean = false) as string", 0, {}},
};

REALmethodDefinition sharedMethods[] = {
    {bound(make), nullptr, "make(number as integer) as Probe", 0, {}},
    {bound(eventsAsString), nullptr, "events as string", 0, {}},
    {bound(scaledSum), nullptr, "sum(factor as double, paramarray values as double) as double", 0, {}},
    {bound(scaledSum), nullptr, "sum(factor as double, values() as double) as double", 0, {}},
    {bound(leaveNative), nullptr, "leaveNative as boolean", 0, {}},
    {bound(gone), nullptr, "nativesGone as integer", 0, {}},
    {bound(blueOf), nullptr, "blueOf(c as color) as integer", 0, {}},
    {bound(row), nullptr, "row(count as integer) as Probe()", 0, {}},
    {bound(echo), nullptr, "echo(value as variant) as variant", 0, {}},
};

REALconstant constants[] = {
    {"kAnswer=42", 0, 0, {}},
    {"kName = \"Probe\"", 0, 0, {}},
};

} // namespace

std::string takeProbeEvents() { return std::exchange(events(), {}); }

void registerProbe() {
    static REALclassDefinition record = {};
    record.version = 13;
    record.name = "Probe";
    record.instanceDataSize = 16;
    record.destructor = bound(destroy);
    record.properties = properties;
    record.propertyCount = std::size(properties);
    record.methods = methods;
    record.methodCount = std::size(methods);
    record.constants = constants;
    record.constantCount = std::size(constants);
    record.sharedMethods = sharedMethods;
    record.sharedMethodCount = std::size(sharedMethods);
    entry<PluginRegisterClassProc>("PluginRegisterClass")(&record);
}
