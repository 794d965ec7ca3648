#include "support/foreign_host.h"

#include <cstring>
#include <ostream>

// What this host uses of the platform it runs on.
extern "C" {
const void* CFStringCreateWithBytes(const void*, const std::uint8_t*, std::intptr_t, std::uint32_t, unsigned char);
unsigned char CFStringGetCString(const void*, char*, std::intptr_t, std::uint32_t);
std::intptr_t CFStringGetLength(const void*);
void CFRelease(const void*);
}

namespace foreign {
namespace {

// A value as the plugin sees it: the bytes at its address. The rest is this host's own.
struct Cell {
    alignas(8) unsigned char seen[48] = {};
    int references = 1;
    std::string className;
    REALclassDefinition* record = nullptr;
    std::map<std::string, std::string> texts;
    std::map<std::string, int> integers;
    std::vector<double> doubles;
    std::vector<REALobjectStruct*> objects;
    std::string bytes; // of a string, behind its prefix byte; of a memory block
    std::uint32_t encoding = 0;
};

// Never destroyed: what a partial host cannot give back stays reachable, and is not taken for a leak of the plugin.
auto& objectCells = *new std::map<const void*, Cell*>;
auto& stringCells = *new std::map<const void*, Cell*>;

template <class T>
void put(Cell* cell, int offset, T value) {
    std::memcpy(cell->seen + offset, &value, sizeof value);
}

Cell* cellOf(const void* object) { return objectCells.at(object); }
Cell* stringCell(const void* string) { return stringCells.at(string); }

Cell* newObject(const std::string& className) {
    auto* cell = new Cell;
    cell->className = className;
    objectCells[cell->seen] = cell;
    return cell;
}

void showContents(Cell* cell) {
    const bool shown = Host::instance().givesElements && !cell->doubles.empty();
    put<const double*>(cell, REALarrayElementsOffset, shown ? cell->doubles.data() : nullptr);
}

void showBlock(Cell* cell) {
    put<std::int32_t>(cell, REALmemoryBlockSizeOffset, static_cast<std::int32_t>(cell->bytes.size()));
    put<char*>(cell, REALmemoryBlockBytesOffset, Host::instance().showsBlockBytes ? cell->bytes.data() : nullptr);
}

REALclassDefinition* recordOf(const std::string& className) {
    for (auto* record : Host::instance().records)
        if (className == record->name) return record;
    return nullptr;
}

template <class Row, class RowLegacy, class Matches, class Pick>
REALfunction findRow(const REALclassDefinition* record, Row* rows, REALword count, Matches matches, Pick pick) {
    for (REALword i = 0; i < count; ++i) {
        Row row = {};
        if (record->version == 9)
            std::memcpy(&row, reinterpret_cast<RowLegacy*>(rows) + i, sizeof(RowLegacy));
        else
            row = rows[i];
        if (matches(row)) return pick(row);
    }
    return nullptr;
}

// ---- The entries

double hostVersion() { return Host::instance().version; }

void announce(std::int32_t controlVersion) { Host::instance().calls.push_back("version " + std::to_string(controlVersion)); }

void registerClass(REALclassDefinition* record) {
    record->instanceDataOffset = REALinstanceDataOffset;
    Host::instance().records.push_back(record);
    Host::instance().calls.push_back(std::string("class ") + record->name);
}

REALobjectStruct* newInstance(const char* className) {
    REALclassDefinition* const record = recordOf(className);
    if (!record && !Host::instance().exceptionClasses.count(className)) return nullptr;
    Cell* const cell = newObject(className);
    cell->record = record;
    if (record) bound<void(REALobjectStruct*)>(record->constructor)(object(cell->seen));
    return object(cell->seen);
}

void lockObject(REALobjectStruct* value) { ++cellOf(value)->references; }

void unlockObject(REALobjectStruct* value) {
    Cell* const cell = cellOf(value);
    if (--cell->references > 0) return;
    if (cell->record) bound<void(REALobjectStruct*)>(cell->record->destructor)(value);
    for (auto* element : cell->objects)
        if (element) unlockObject(element);
    objectCells.erase(value);
    delete cell;
}

void raiseException(REALobjectStruct* exception) {
    Cell* const cell = cellOf(exception);
    const auto number = cell->integers.find("ErrorNumber");
    Host::instance().raised.push_back(
        {cell->className, cell->texts["Message"], number == cell->integers.end() ? -1 : number->second});
}

void setString(REALobjectStruct* object, const char* property, REALstringStruct* value) {
    cellOf(object)->texts[property] = bytesOf(value);
}

HostBoolean getString(REALobjectStruct* object, const char* property, REALstringStruct** value) {
    const auto text = cellOf(object)->texts.find(property);
    if (text == cellOf(object)->texts.end()) return false;
    *value = string(text->second);
    return true;
}

HostBoolean objectIsA(REALobjectStruct* object, const char* className) { return cellOf(object)->className == className; }

void setInteger(REALobjectStruct* object, const char* property, std::int32_t value) {
    cellOf(object)->integers[property] = value;
}

REALstringStruct* build(const void* bytes, std::int32_t length, std::uint32_t encoding) {
    auto* cell = new Cell;
    cell->bytes.assign(1, '\0').append(static_cast<const char*>(bytes), static_cast<std::size_t>(length));
    cell->encoding = encoding;
    put<const char*>(cell, REALstringBufferOffset, cell->bytes.data());
    put<std::int32_t>(cell, REALstringLengthOffset, length);
    stringCells[cell->seen] = cell;
    return reinterpret_cast<REALstringStruct*>(cell->seen);
}

REALstringStruct* buildString(const void* bytes, std::int32_t length) {
    if (Host::instance().onBuildString) Host::instance().onBuildString();
    return build(bytes, length, kUnknown);
}

std::uint32_t getEncoding(REALstringStruct* value) { return stringCell(value)->encoding; }
void setEncoding(REALstringStruct* value, std::uint32_t encoding) { stringCell(value)->encoding = encoding; }
void lockString(REALstringStruct* value) { ++stringCell(value)->references; }

void unlockString(REALstringStruct* value) {
    Cell* const cell = stringCell(value);
    if (--cell->references > 0) return;
    stringCells.erase(value);
    delete cell;
}

const void* cfString(REALstringStruct* value, std::int32_t) {
    if (!Host::instance().givesCFStrings) return nullptr;
    const std::string bytes = bytesOf(value);
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   static_cast<std::intptr_t>(bytes.size()), encodingOf(value), 0);
}

// Converts to UTF-8, all that the plugin asks for.
REALstringStruct* convert(REALstringStruct* value, std::uint32_t encoding) {
    if (!value) return nullptr;
    const std::string bytes = bytesOf(value);
    const void* const text = CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                                     static_cast<std::intptr_t>(bytes.size()), encodingOf(value), 0);
    if (!text) return nullptr;
    std::string converted(static_cast<std::size_t>(4 * CFStringGetLength(text) + 1), '\0');
    const bool fits = CFStringGetCString(text, converted.data(), static_cast<std::intptr_t>(converted.size()), encoding);
    CFRelease(text);
    return fits ? build(converted.data(), static_cast<std::int32_t>(std::strlen(converted.data())), encoding) : nullptr;
}

void* newArray(std::int32_t elementType, std::int32_t) {
    return newObject(elementType == REALarrayOfDoubles ? "Double()" : "Object()")->seen;
}

std::int32_t upperBound(void* array) {
    Cell* const cell = cellOf(array);
    return static_cast<std::int32_t>(cell->doubles.size() + cell->objects.size()) - 1;
}

void insertDouble(void* array, std::int32_t index, double value) {
    Cell* const cell = cellOf(array);
    cell->doubles.insert(cell->doubles.begin() + index, value);
    showContents(cell);
}

void insertObject(void* array, std::int32_t index, REALobjectStruct* value) {
    if (value) lockObject(value);
    Cell* const cell = cellOf(array);
    cell->objects.insert(cell->objects.begin() + index, value);
}

double getDouble(void* array, std::int32_t index) { return cellOf(array)->doubles.at(static_cast<std::size_t>(index)); }

REALarrayInsertDoubleProc doubleInserter(void*) { return Host::instance().givesProcedures ? insertDouble : nullptr; }
REALarrayInsertObjectProc objectInserter(void*) { return Host::instance().givesProcedures ? insertObject : nullptr; }
REALarrayGetDoubleProc doubleGetter(void*) { return Host::instance().givesProcedures ? getDouble : nullptr; }

void* anyInserter(void* array) {
    if (!Host::instance().givesProcedures) return nullptr;
    return classOf(object(array)) == "Double()" ? reinterpret_cast<void*>(insertDouble)
                                                : reinterpret_cast<void*>(insertObject);
}

REALmemoryBlockStruct* newBlock(std::int32_t size) {
    if (!Host::instance().makesMemoryBlocks) return nullptr;
    Cell* const cell = newObject("MemoryBlock");
    cell->bytes.assign(static_cast<std::size_t>(size), '\0');
    showBlock(cell);
    return reinterpret_cast<REALmemoryBlockStruct*>(cell->seen);
}

void* blockPointer(REALmemoryBlockStruct* value) {
    return Host::instance().showsBlockBytes ? cellOf(value)->bytes.data() : nullptr;
}
std::int32_t blockSize(REALmemoryBlockStruct* value) { return static_cast<std::int32_t>(cellOf(value)->bytes.size()); }

template <class Function>
void* address(Function* function) {
    return reinterpret_cast<void*>(function);
}

const std::map<std::string, void*>& entries() {
    static const std::map<std::string, void*> table = {
        {"REALGetRBVersion", address(hostVersion)},
        {"RegisterPluginVersion", address(announce)},
        {"PluginRegisterClass", address(registerClass)},
        {"PluginNewInstance", address(newInstance)},
        {"REALLockObject", address(lockObject)},
        {"REALUnlockObject", address(unlockObject)},
        {"RuntimeRaiseException", address(raiseException)},
        {"REALSetPropValueString", address(setString)},
        {"REALSetPropValueInteger", address(setInteger)},
        {"REALSetPropValueInt", address(setInteger)},
        {"REALGetPropValueString", address(getString)},
        {"ChromaObjectIsA", address(objectIsA)},
        {"REALBuildString", address(buildString)},
        {"REALBuildStringWithEncoding", address(build)},
        {"REALGetStringEncoding", address(getEncoding)},
        {"REALSetStringEncoding", address(setEncoding)},
        {"REALConvertString", address(convert)},
        {"REALLockString", address(lockString)},
        {"REALUnlockString", address(unlockString)},
        {"REALGetStringCFString", address(cfString)},
        {"RuntimeArrayCreateSingleDimBoundedArray", address(newArray)},
        {"RuntimeUBound", address(upperBound)},
        {"PluginDoubleArrayInsertProc", address(doubleInserter)},
        {"PluginObjectArrayInsertProc", address(objectInserter)},
        {"PluginDoubleArrayGetProc", address(doubleGetter)},
        {"RuntimeArrayDirectGetInsertProc", address(anyInserter)},
        {"RuntimeArrayDirectGetGetProc", address(doubleGetter)},
        {"newMemoryBlock", address(newBlock)},
        {"memoryBlockGetPtr", address(blockPointer)},
        {"memoryBlockGetSize", address(blockSize)},
    };
    return table;
}

} // namespace

void PrintTo(const Raised& raised, std::ostream* out) {
    *out << raised.className << " \"" << raised.message << "\" " << raised.errorNumber;
}

Host& Host::instance() {
    static Host host;
    return host;
}

void* Host::resolve(const char* entryName) {
    Host& host = instance();
    ++host.asked[entryName];
    const auto entry = entries().find(entryName);
    return entry == entries().end() || host.missing.count(entryName) ? nullptr : entry->second;
}

std::vector<Raised> Host::takeRaised() {
    std::vector<Raised> taken;
    taken.swap(raised);
    return taken;
}

int Host::liveObjects() { return static_cast<int>(objectCells.size()); }
int Host::liveStrings() { return static_cast<int>(stringCells.size()); }

REALobjectStruct* make(const char* className) { return newInstance(className); }
int references(REALobjectStruct* value) { return cellOf(value)->references; }
void lock(REALobjectStruct* value) { lockObject(value); }
void unlock(REALobjectStruct* value) { unlockObject(value); }
std::string classOf(REALobjectStruct* value) { return cellOf(value)->className; }

REALfunction method(const char* className, const std::string& declaration) {
    const REALclassDefinition* const record = recordOf(className);
    return findRow<REALmethodDefinition, REALmethodDefinitionLegacy>(
        record, record->methods, record->methodCount, [&](auto& row) { return declaration == row.declaration; },
        [](auto& row) { return row.function; });
}

REALfunction getter(const char* className, const std::string& property) {
    const REALclassDefinition* const record = recordOf(className);
    return findRow<REALproperty, REALpropertyLegacy>(
        record, record->properties, record->propertyCount, [&](auto& row) { return property == row.name; },
        [](auto& row) { return row.getter; });
}

REALstringStruct* string(const std::string& bytes, std::uint32_t encoding) {
    return build(bytes.data(), static_cast<std::int32_t>(bytes.size()), encoding);
}
std::string bytesOf(REALstringStruct* value) { return value ? stringCell(value)->bytes.substr(1) : ""; }
std::uint32_t encodingOf(REALstringStruct* value) { return value ? stringCell(value)->encoding : 0; }
int references(REALstringStruct* value) { return stringCell(value)->references; }
void unlock(REALstringStruct* value) { unlockString(value); }

std::string take(REALstringStruct* value) {
    const std::string text = bytesOf(value);
    if (value) unlockString(value);
    return text;
}

REALarrayDouble* doubles(const std::vector<double>& values) {
    Cell* const cell = newObject("Double()");
    cell->doubles = values;
    showContents(cell);
    return reinterpret_cast<REALarrayDouble*>(cell->seen);
}

std::vector<double> valuesOf(REALarrayDouble* array) { return cellOf(array)->doubles; }

std::vector<double> take(REALarrayDouble* array) {
    const auto values = valuesOf(array);
    unlockObject(object(array));
    return values;
}

std::vector<REALobjectStruct*> objectsOf(void* array) { return cellOf(array)->objects; }

REALmemoryBlockStruct* block(const std::string& bytes) {
    Cell* const cell = newObject("MemoryBlock");
    cell->bytes = bytes;
    showBlock(cell);
    return reinterpret_cast<REALmemoryBlockStruct*>(cell->seen);
}

REALfolderItemStruct* folderItem(const std::map<std::string, std::string>& properties) {
    Cell* const cell = newObject("FolderItem");
    cell->texts = properties;
    return reinterpret_cast<REALfolderItemStruct*>(cell->seen);
}

std::string bytesOf(REALmemoryBlockStruct* value) { return cellOf(value)->bytes; }

} // namespace foreign
