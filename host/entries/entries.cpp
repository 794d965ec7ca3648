#include "entries/entries.h"

#include "builtins/builtins.h"
#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/record_writing.h"
#include "values/platform.h"
#include "values/strings.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <set>
#include <stdexcept>

namespace host {

namespace {

struct Process {
    std::set<std::string, std::less<>> without;
    int controlVersion = 0;
};

Process& process() {
    static Process theProcess;
    return theProcess;
}

// No exception propagates to the plugin: if memory is exhausted, an entry point does nothing and returns null.
template <class Body>
auto orNull(Body body) noexcept -> decltype(body()) {
    try {
        return body();
    } catch (const std::exception&) {
        return decltype(body())();
    }
}

// The functions have the names of the entry points, so that the list in the ABI header is also the table.
namespace offered {

// ---- Version and classes

double REALGetRBVersion() { return hostVersion(); }

void RegisterPluginVersion(std::int32_t controlVersion) { process().controlVersion = controlVersion; }

void takeRecord(REALclassDefinition& record) {
    const bool mayAnnounce = resolveEntry("RegisterPluginVersion") != nullptr;
    if (mayAnnounce && record.version != process().controlVersion) {
        registry().report(std::string(record.name ? record.name : "a class record") + ": the record's version is " +
                          std::to_string(record.version) + ", but the plugin announced " +
                          std::to_string(process().controlVersion));
    }
    registry().add(record);
}

void PluginRegisterClass(REALclassDefinition* record) {
    orNull([&] {
        if (record) takeRecord(*record);
    });
}

// ---- Objects

Object* PluginNewInstance(const char* className) {
    return orNull([&]() -> Object* {
        ClassInfo* const info = className ? registry().find(className) : nullptr;
        return info ? newObject(*info) : nullptr;
    });
}

HostBoolean ChromaObjectIsA(Object* object, const char* className) {
    return object && className && isKindOf(object, className);
}

void REALLockObject(Object* object) { lock(object); }
void REALUnlockObject(Object* object) { unlock(object); }

void RuntimeRaiseException(Object* exception) { raise(exception); }

const Property* propertyOf(const Object* object, const char* name, Kind kind) {
    const Property* const property = object && name ? object->info->findProperty(name) : nullptr;
    return property && property->type == Type{kind, false, {}} ? property : nullptr;
}

void REALSetPropValueString(Object* object, const char* name, String* value) {
    const Property* const property = propertyOf(object, name, Kind::string);
    if (property && property->setter) writeProperty(*property, object, Slot::ofString(value));
}

void REALSetPropValueInteger(Object* object, const char* name, std::int32_t value) {
    const Property* const property = propertyOf(object, name, Kind::integer);
    if (property && property->setter) writeProperty(*property, object, Slot::ofInteger(value));
}
constexpr auto REALSetPropValueInt = REALSetPropValueInteger;

HostBoolean REALGetPropValueString(Object* object, const char* name, String** value) {
    const Property* const property = propertyOf(object, name, Kind::string);
    if (!property || !property->getter || !value) return 0;
    *value = readProperty(*property, object).string;
    return 1;
}

// ---- Strings

String* REALBuildStringWithEncoding(const void* bytes, std::int32_t length, std::uint32_t encoding) {
    if (!bytes || length <= 0) return nullptr;
    return newString({static_cast<const char*>(bytes), static_cast<std::size_t>(length)}, encoding);
}

String* REALBuildString(const void* bytes, std::int32_t length) {
    return REALBuildStringWithEncoding(bytes, length, encoding::unknown);
}

std::uint32_t REALGetStringEncoding(String* string) { return encodingOf(string); }
void REALSetStringEncoding(String* string, std::uint32_t encoding) { setEncoding(string, encoding); }

String* REALConvertString(String* string, std::uint32_t encoding) {
    return orNull([&] { return convert(string, encoding); });
}

void REALLockString(String* string) { lock(string); }
void REALUnlockString(String* string) { unlock(string); }

const void* REALGetStringCFString(String* string, std::int32_t) {
    return string ? platform::newCFString(bytesOf(string), encodingOf(string)) : nullptr;
}

// ---- Arrays

void* RuntimeArrayCreateSingleDimBoundedArray(std::int32_t elementType, std::int32_t upperBound) {
    return orNull([&]() -> void* {
        if (upperBound < -1) return nullptr;
        switch (elementType) {
        case REALarrayOfDoubles: return newArray(Type::plain(Kind::real), upperBound);
        case REALarrayOfObjects: return newArray(Type::object("Object"), upperBound);
        default: return nullptr;
        }
    });
}

Array* arrayFrom(void* array) { return asArray(static_cast<Object*>(array)); }

std::int32_t RuntimeUBound(void* array) {
    const Array* const found = arrayFrom(array);
    return found ? upperBound(found) : -1;
}

void raiseBadIndex(const Array* array, std::int32_t index) {
    orNull([&] {
        raise("OutOfBoundsException", "Index " + std::to_string(index) + " is outside an array with upper bound " +
                                          std::to_string(upperBound(array)) + ".");
    });
}

// Stores at an existing index, or at the first index after the end, where the array grows.
void store(void* array, std::int32_t index, Slot value) {
    orNull([&] {
        Array* const target = arrayFrom(array);
        if (index == upperBound(target) + 1) {
            appendElement(target, value);
        } else if (inBounds(target, index)) {
            setElement(target, index, value);
        } else {
            raiseBadIndex(target, index);
        }
    });
}

void insertDouble(void* array, std::int32_t index, double value) { store(array, index, Slot::ofReal(value)); }
void insertObject(void* array, std::int32_t index, Object* value) { store(array, index, Slot::ofObject(value)); }

double getDouble(void* array, std::int32_t index) {
    const Array* const source = arrayFrom(array);
    if (inBounds(source, index)) return elementAt(source, index).real;
    raiseBadIndex(source, index);
    return 0.0;
}

bool holdsDoubles(void* array) {
    const Array* const found = arrayFrom(array);
    return found && elementType(found).kind == Kind::real;
}

bool holdsObjects(void* array) {
    const Array* const found = arrayFrom(array);
    return found && elementType(found).isObjectReference();
}

REALarrayInsertDoubleProc PluginDoubleArrayInsertProc(void* array) { return holdsDoubles(array) ? insertDouble : nullptr; }
REALarrayInsertObjectProc PluginObjectArrayInsertProc(void* array) { return holdsObjects(array) ? insertObject : nullptr; }
REALarrayGetDoubleProc PluginDoubleArrayGetProc(void* array) { return holdsDoubles(array) ? getDouble : nullptr; }
constexpr auto RuntimeArrayDirectGetGetProc = PluginDoubleArrayGetProc;

void* RuntimeArrayDirectGetInsertProc(void* array) {
    if (holdsDoubles(array)) return bound(insertDouble);
    return holdsObjects(array) ? bound(insertObject) : nullptr;
}

// ---- Memory blocks

MemoryBlock* newMemoryBlock(std::int32_t size) {
    return orNull([&] { return host::newMemoryBlock(size); });
}
void* memoryBlockGetPtr(MemoryBlock* block) { return block ? bytesOf(block) : nullptr; }
std::int32_t memoryBlockGetSize(MemoryBlock* block) { return block ? sizeOf(block) : 0; }

} // namespace offered

// ---- The table

struct Entry {
    const char* name;
    double since; // the first host version that provides it
    void* address;
};

const std::vector<Entry>& entries() {
#define HOST_ENTRY(name, Procedure, since) {#name, since, reinterpret_cast<void*>(static_cast<Procedure>(offered::name))},
    static const std::vector<Entry> table = {REAL_ENTRY_POINTS(HOST_ENTRY)};
#undef HOST_ENTRY
    return table;
}

const Entry* findEntry(std::string_view name) {
    const auto found = std::find_if(entries().begin(), entries().end(), [&](const Entry& e) { return name == e.name; });
    return found == entries().end() ? nullptr : &*found;
}

} // namespace

void startHost(const HostOptions& options) {
    for (const std::string& name : options.without) {
        if (findEntry(name)) continue;
        std::string message = "there is no entry \"" + name + "\"; the entries are:";
        for (const std::string& known : entryNames())
            message += "\n    " + known;
        throw std::invalid_argument(message);
    }
    if (!(options.version >= 0)) throw std::invalid_argument("the version of a host is a number that is at least 0");
    simulatedVersion = options.version;
    std::set<std::string, std::less<>>& without = process().without;
    without = {options.without.begin(), options.without.end()};
    // A simulated host must be possible. Without a lock it has no unlock, and no object is destroyed. Without a version it
    // is a host of the first version and provides only that version's entry points.
    if (without.count("REALLockObject") != 0) {
        without.insert("REALUnlockObject");
        keepAllObjects();
    }
    if (without.count("REALLockString") != 0) {
        without.insert("REALUnlockString");
        keepAllStrings();
    }
    if (without.count("REALGetRBVersion") != 0) simulatedVersion = 0;
    registerExceptionClasses(registry());
    registerMemoryBlockClass(registry());
    registerDictionaryClass(registry());
    registerFolderItemClass(registry());
}

int announcedControlVersion() { return process().controlVersion; }

void* resolveEntry(const char* name) {
    const Entry* const entry = findEntry(name);
    const bool offered = entry && hostVersion() >= entry->since && process().without.count(name) == 0;
    return offered ? entry->address : nullptr;
}

std::vector<std::string> entryNames() {
    std::vector<std::string> names;
    for (const Entry& entry : entries())
        names.emplace_back(entry.name);
    return names;
}

} // namespace host
