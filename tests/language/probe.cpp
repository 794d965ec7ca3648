#include "probe.h"

#include "builtin/objc_runtime.h"
#include "entries/entries.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/record_writing.h"
#include "values/strings.h"

#include <cstdint>
#include <utility>

namespace {

using namespace chroma;
using NativeMethod = id (*)(id, SEL);

HostInteger nativesDestroyed = 0;

void countAndDeallocate(id object, SEL selector) {
    ++nativesDestroyed;
    reinterpret_cast<NativeMethod>(class_getMethodImplementation(objc_getClass("NSObject"), selector))(object, selector);
}

id countingClass() {
    const id created = objc_allocateClassPair(objc_getClass("NSObject"), "CountingObject", 0);
    class_addMethod(created, sel_registerName("dealloc"), reinterpret_cast<IMP>(countAndDeallocate), "v@:");
    objc_registerClassPair(created);
    return created;
}

// Autoreleases a native object that counts its deallocation.
HostBoolean leaveNative() {
    static const id counting = countingClass();
    id object = counting;
    for (const char* const message : {"alloc", "init", "autorelease"}) {
        const SEL selector = sel_registerName(message);
        object = reinterpret_cast<NativeMethod>(objc_msg_lookup(object, selector))(object, selector);
    }
    return 1;
}

struct Probe {
    host::Object* next; // owned
    HostInteger number;
};
static_assert(sizeof(Probe) <= 16);

std::string events;

Probe& dataOf(host::Object* object) { return *reinterpret_cast<Probe*>(host::instanceData(object)); }

void destroy(host::Object* object) {
    events += "-" + std::to_string(dataOf(object).number);
    host::unlock(dataOf(object).next);
}

host::Object* make(HostInteger number) {
    host::Object* const object = host::newObject(*host::registry().find("Probe"));
    dataOf(object).number = number;
    return object;
}

// Returns the object with a new reference that the caller owns.
host::Object* locked(host::Object* object) {
    host::lock(object);
    return object;
}

// ---- The bound functions

void constructNumber(host::Object* object, HostInteger number) { dataOf(object).number = number; }
void constructColor(host::Object* object, HostColor color) { dataOf(object).number = color & 0xFFFFFF; }

void constructSum(host::Object* object, double a, double b, double factor) {
    if (a < 0) return host::raise("OutOfBoundsException", "a is below 0");
    dataOf(object).number = static_cast<HostInteger>((a + b) * factor);
}

host::Object* successor(host::Object* object) { return make(dataOf(object).number + 1); }

void split(host::Object* object, double* whole, double* half) {
    *whole = static_cast<double>(dataOf(object).number);
    *half = *whole / 2;
}

void splitThree(host::Object* object, double* whole, double* half, double* third) {
    split(object, whole, half);
    *third = *whole / 3;
}

void splitAndRaise(host::Object*, double* whole) {
    *whole = -1;
    host::raise("UnsupportedOperationException", "split");
}

// Returns an object and raises an exception. The caller must release both.
host::Object* makeAndRaise(host::Object*, host::String* className) {
    host::raise(host::utf8Of(className), "made");
    return make(99);
}

host::String* label(host::Object* object, host::String* prefix, HostBoolean brackets) {
    const std::string text = host::utf8Of(prefix) + std::to_string(dataOf(object).number);
    return host::newString(brackets ? "[" + text + "]" : text);
}

// Replaces a text passed by reference and releases the old one.
void exclaim(host::Object*, host::String** text) {
    host::unlock(std::exchange(*text, host::newString(host::utf8Of(*text) + "!")));
}

host::String* description(host::Object* object, REALword) {
    return host::newString("probe " + std::to_string(dataOf(object).number));
}

host::Object* next(host::Object* object, REALword) { return locked(dataOf(object).next); }

void setNext(host::Object* object, REALword, host::Object* value) {
    host::unlock(std::exchange(dataOf(object).next, locked(value)));
}

host::String* eventsAsString() { return host::newString(takeProbeEvents()); }

double scaledSum(double factor, host::Array* values) {
    double total = 0;
    for (std::int32_t i = 0; i <= host::upperBound(values); ++i)
        total += host::elementAt(values, i).real;
    return factor * total;
}

HostInteger destroyedNatives() { return nativesDestroyed; }
HostInteger blueOf(HostColor color) { return color & 0xFF; }

host::Object* row(HostInteger count) {
    host::Array* const array = host::newArray(host::Type::object("Probe"));
    for (HostInteger i = 0; i < count; ++i) {
        host::Object* const object = make(i);
        host::appendElement(array, host::Slot::ofObject(object));
        host::unlock(object);
    }
    return array;
}

// ---- The tables

REALproperty properties[] = {
    {nullptr, "Number", "Integer", 0, REALstandardAccessor, REALstandardAccessor, offsetof(Probe, number), {}},
    host::readOnlyProperty("description", "string", description),
    {nullptr, "Next", "Probe", 0, host::bound(next), host::bound(setNext), 0, {}},
};

REALmethodDefinition methods[] = {
    host::method("Constructor(number as integer)", constructNumber),
    host::method("Constructor(c as color)", constructColor),
    host::method("Constructor(a as double, b as double, factor as double = 1.0)", constructSum),
    host::method("successor as Probe", successor),
    host::method("self as Probe", locked),
    host::method("split(byref whole as double, byref half as double)", split),
    host::method("split(byref whole as double, byref half as double, byref third as double)", splitThree),
    host::method("splitAndRaise(byref whole as double)", splitAndRaise),
    host::method("makeAndRaise(className as string) as Probe", makeAndRaise),
    host::method("exclaim(byref text as string)", exclaim),
    host::method("label(prefix as string = \"#\", brackets as boolean = false) as string", label),
};

REALmethodDefinition sharedMethods[] = {
    host::method("make(number as integer) as Probe", make),
    host::method("events as string", eventsAsString),
    host::method("sum(factor as double, paramarray values as double) as double", scaledSum),
    host::method("sum(factor as double, values() as double) as double", scaledSum),
    host::method("leaveNative as boolean", leaveNative),
    host::method("nativesDestroyed as integer", destroyedNatives),
    host::method("blueOf(c as color) as integer", blueOf),
    host::method("row(count as integer) as Probe()", row),
    host::method("echo(value as variant) as variant", locked),
};

REALconstant constants[] = {
    {"kAnswer=42", 0, 0, {}},
    {"kName = \"Probe\"", 0, 0, {}},
};

} // namespace

std::string takeProbeEvents() { return std::exchange(events, {}); }

void registerProbe() {
    static REALclassDefinition record = host::builtInRecord("Probe", nullptr, 16, nullptr, destroy);
    host::setRows(record.properties, record.propertyCount, properties);
    host::setRows(record.methods, record.methodCount, methods);
    host::setRows(record.constants, record.constantCount, constants);
    host::setRows(record.sharedMethods, record.sharedMethodCount, sharedMethods);
    host::registry().add(record);
}
