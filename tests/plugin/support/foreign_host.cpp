#include "support/foreign_host.h"

#include <algorithm>
#include <cstring>
#include <utility>

// What this host uses of the platform it runs on.
extern "C" {
const void* CFStringCreateWithBytes(const void*, const std::uint8_t*, std::intptr_t, std::uint32_t, unsigned char);
unsigned char CFStringGetCString(const void*, char*, std::intptr_t, std::uint32_t);
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
    std::map<std::string, std::string> texts; // properties
    int errorNumber = -1;
    std::vector<double> doubles;
    std::vector<REALobjectStruct*> objects;
    std::string bytes; // of a string, behind its prefix byte; of a memory block
    std::uint32_t encoding = 0;

    template <class T>
    T* value() {
        return reinterpret_cast<T*>(seen);
    }
    template <class T>
    void put(int offset, T field) {
        std::memcpy(seen + offset, &field, sizeof field);
    }
};

const char* const stringClass = "String";
const char* const doublesClass = "Double()";

// Never destroyed: what a partial host cannot give back stays reachable, and is not taken for a leak of the plugin.
auto& cells = *new std::map<const void*, Cell*>;

Cell* cellOf(const void* value) { return cells.at(value); }

Cell* newCell(const std::string& className) {
    auto* cell = new Cell;
    cell->className = className;
    cells[cell->seen] = cell;
    return cell;
}

int liveCells(bool strings) {
    return static_cast<int>(std::count_if(
        cells.begin(), cells.end(), [&](const auto& entry) { return (entry.second->className == stringClass) == strings; }));
}

const void* visible(const void* storage) { return Host::instance().showsStorage ? storage : nullptr; }

void showDoubles(Cell* cell) {
    cell->put(REALarrayElementsOffset, visible(cell->doubles.empty() ? nullptr : cell->doubles.data()));
}

REALclassDefinition* recordOf(const std::string& className) {
    for (auto* record : Host::instance().records)
        if (className == record->name) return record;
    return nullptr;
}

// The function of the row whose text is the wanted one. Legacy rows are the leading words of the current ones.
template <class Legacy, class Row>
REALfunction find(const REALclassDefinition* record, const Row* rows, REALword count, const std::string& wanted,
                  const char* Row::*text, REALfunction Row::*function) {
    const char* address = reinterpret_cast<const char*>(rows);
    for (; count > 0; --count, address += record->version == 9 ? sizeof(Legacy) : sizeof(Row)) {
        Row row;
        std::memcpy(&row, address, sizeof(Legacy));
        if (wanted == row.*text) return row.*function;
    }
    return nullptr;
}

// ---- Entries that take more than a line

void registerClass(REALclassDefinition* record) {
    record->instanceDataOffset = REALinstanceDataOffset;
    Host::instance().records.push_back(record);
    Host::instance().calls.push_back(std::string("class ") + record->name);
}

void raise(REALobjectStruct* exception) {
    Cell* const cell = cellOf(exception);
    Host::instance().raised.emplace_back(cell->className, cell->texts["Message"], cell->errorNumber);
}

HostBoolean getText(REALobjectStruct* object, const char* property, REALstringStruct** value) {
    const auto& texts = cellOf(object)->texts;
    const auto text = texts.find(property);
    if (text == texts.end()) return false;
    *value = string(text->second);
    return true;
}

REALstringStruct* build(const void* bytes, std::int32_t length, std::uint32_t encoding) {
    Cell* const cell = newCell(stringClass);
    cell->bytes.assign(1, '\0').append(static_cast<const char*>(bytes), static_cast<std::size_t>(length));
    cell->encoding = encoding;
    cell->put<const char*>(REALstringBufferOffset, cell->bytes.data());
    cell->put(REALstringLengthOffset, length);
    return cell->value<REALstringStruct>();
}

REALstringStruct* buildString(const void* bytes, std::int32_t length) {
    if (Host::instance().onBuildString) Host::instance().onBuildString();
    return build(bytes, length, kUnknown);
}

const void* newCFString(REALstringStruct* value) {
    const std::string bytes = bytesOf(value);
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   static_cast<std::intptr_t>(bytes.size()), encodingOf(value), 0);
}

// Converts to UTF-8, all that the plugin asks for.
REALstringStruct* convert(REALstringStruct* value, std::uint32_t encoding) {
    const void* const text = value ? newCFString(value) : nullptr;
    if (!text) return nullptr;
    char converted[4096];
    const bool fits = CFStringGetCString(text, converted, sizeof converted, encoding) != 0;
    CFRelease(text);
    return fits ? string(converted, encoding) : nullptr;
}

void insertDouble(void* array, std::int32_t index, double value) {
    Cell* const cell = cellOf(array);
    cell->doubles.insert(cell->doubles.begin() + index, value);
    showDoubles(cell);
}

void insertObject(void* array, std::int32_t index, REALobjectStruct* value) {
    if (value) ++cellOf(value)->references;
    auto& objects = cellOf(array)->objects;
    objects.insert(objects.begin() + index, value);
}

double getDouble(void* array, std::int32_t index) { return cellOf(array)->doubles.at(static_cast<std::size_t>(index)); }

REALarrayInsertDoubleProc doubleInserter(void*) { return Host::instance().givesProcedures ? insertDouble : nullptr; }
REALarrayInsertObjectProc objectInserter(void*) { return Host::instance().givesProcedures ? insertObject : nullptr; }
REALarrayGetDoubleProc doubleGetter(void*) { return Host::instance().givesProcedures ? getDouble : nullptr; }

// The older name serves arrays of both kinds.
void* anyInserter(void* array) {
    return classOf(array) == doublesClass ? reinterpret_cast<void*>(doubleInserter(array))
                                          : reinterpret_cast<void*>(objectInserter(array));
}

void setNumber(REALobjectStruct* object, const char*, std::int32_t value) { cellOf(object)->errorNumber = value; }

// An entry's address, its function checked against the type that the ABI gives it.
template <class Procedure>
void* entry(Procedure function) {
    return reinterpret_cast<void*>(function);
}

const std::map<std::string, void*>& entries() {
    static const std::map<std::string, void*> table = {
        {"REALGetRBVersion", entry<REALGetRBVersionProc>([] { return Host::instance().version; })},
        {"RegisterPluginVersion", entry<RegisterPluginVersionProc>([](std::int32_t controlVersion) {
             Host::instance().calls.push_back("version " + std::to_string(controlVersion));
         })},
        {"PluginRegisterClass", entry<PluginRegisterClassProc>(registerClass)},
        {"PluginNewInstance", entry<PluginNewInstanceProc>(make)},
        {"REALLockObject", entry<REALLockObjectProc>([](auto* object) { ++cellOf(object)->references; })},
        {"REALUnlockObject", entry<REALUnlockObjectProc>([](auto* object) { unlock(object); })},
        {"RuntimeRaiseException", entry<RuntimeRaiseExceptionProc>(raise)},
        {"REALSetPropValueString", entry<REALSetPropValueStringProc>([](auto* object, const char* property, auto* value) {
             cellOf(object)->texts[property] = bytesOf(value);
         })},
        {"REALSetPropValueInteger", entry<REALSetPropValueIntegerProc>(setNumber)},
        {"REALSetPropValueInt", entry<REALSetPropValueIntegerProc>(setNumber)},
        {"REALGetPropValueString", entry<REALGetPropValueStringProc>(getText)},
        {"ChromaObjectIsA", entry<ChromaObjectIsAProc>([](auto* object, const char* className) -> HostBoolean {
             return classOf(object) == className;
         })},
        {"REALBuildString", entry<REALBuildStringProc>(buildString)},
        {"REALBuildStringWithEncoding", entry<REALBuildStringWithEncodingProc>(build)},
        {"REALGetStringEncoding", entry<REALGetStringEncodingProc>(encodingOf)},
        {"REALSetStringEncoding",
         entry<REALSetStringEncodingProc>([](auto* value, std::uint32_t encoding) { cellOf(value)->encoding = encoding; })},
        {"REALConvertString", entry<REALConvertStringProc>(convert)},
        {"REALLockString", entry<REALLockStringProc>([](auto* value) { ++cellOf(value)->references; })},
        {"REALUnlockString", entry<REALUnlockStringProc>([](auto* value) { unlock(value); })},
        {"REALGetStringCFString", entry<REALGetStringCFStringProc>([](auto* value, std::int32_t) {
             return Host::instance().givesCFStrings ? newCFString(value) : nullptr;
         })},
        {"RuntimeArrayCreateSingleDimBoundedArray", entry<RuntimeArrayCreateProc>([](std::int32_t type, std::int32_t) {
             return newCell(type == REALarrayOfDoubles ? doublesClass : "Object()")->value<void>();
         })},
        {"RuntimeUBound", entry<RuntimeUBoundProc>([](void* array) {
             return static_cast<std::int32_t>(cellOf(array)->doubles.size() + cellOf(array)->objects.size()) - 1;
         })},
        {"PluginDoubleArrayInsertProc", entry<PluginDoubleArrayInsertProc>(doubleInserter)},
        {"PluginObjectArrayInsertProc", entry<PluginObjectArrayInsertProc>(objectInserter)},
        {"PluginDoubleArrayGetProc", entry<PluginDoubleArrayGetProc>(doubleGetter)},
        {"RuntimeArrayDirectGetInsertProc", entry(anyInserter)},
        {"RuntimeArrayDirectGetGetProc", entry<PluginDoubleArrayGetProc>(doubleGetter)},
        {"newMemoryBlock", entry<NewMemoryBlockProc>(
                               [](std::int32_t size) { return block(std::string(static_cast<std::size_t>(size), '\0')); })},
        {"memoryBlockGetPtr",
         entry<MemoryBlockGetPtrProc>([](auto* value) { return const_cast<void*>(visible(cellOf(value)->bytes.data())); })},
        {"memoryBlockGetSize",
         entry<MemoryBlockGetSizeProc>([](auto* value) { return static_cast<std::int32_t>(cellOf(value)->bytes.size()); })},
    };
    return table;
}

} // namespace

Host& Host::instance() {
    static Host host;
    return host;
}

void* Host::resolve(const char* entryName) {
    ++instance().asked[entryName];
    const auto found = entries().find(entryName);
    return found == entries().end() || instance().missing.count(entryName) ? nullptr : found->second;
}

std::vector<Raised> Host::takeRaised() { return std::exchange(raised, {}); }

int Host::liveObjects() { return liveCells(false); }
int Host::liveStrings() { return liveCells(true); }

int references(const void* value) { return cellOf(value)->references; }

void unlock(const void* value) {
    Cell* const cell = cellOf(value);
    if (--cell->references > 0) return;
    if (cell->record) bound<void(REALobjectStruct*)>(cell->record->destructor)(cell->value<REALobjectStruct>());
    for (auto* element : cell->objects)
        if (element) unlock(element);
    cells.erase(value);
    delete cell;
}

REALobjectStruct* make(const char* className) {
    REALclassDefinition* const record = recordOf(className);
    if (!record && !Host::instance().plainClasses.count(className)) return nullptr;
    Cell* const cell = newCell(className);
    cell->record = record;
    auto* const object = cell->value<REALobjectStruct>();
    if (record) bound<void(REALobjectStruct*)>(record->constructor)(object);
    return object;
}

REALobjectStruct* plain(const char* className, const std::map<std::string, std::string>& properties) {
    Cell* const cell = newCell(className);
    cell->texts = properties;
    return cell->value<REALobjectStruct>();
}

std::string classOf(const void* object) { return cellOf(object)->className; }

REALfunction method(const char* className, const std::string& declaration) {
    const REALclassDefinition* const record = recordOf(className);
    return find<REALmethodDefinitionLegacy>(record, record->methods, record->methodCount, declaration,
                                            &REALmethodDefinition::declaration, &REALmethodDefinition::function);
}

REALfunction getter(const char* className, const std::string& property) {
    const REALclassDefinition* const record = recordOf(className);
    return find<REALpropertyLegacy>(record, record->properties, record->propertyCount, property, &REALproperty::name,
                                    &REALproperty::getter);
}

REALstringStruct* string(const std::string& bytes, std::uint32_t encoding) {
    return build(bytes.data(), static_cast<std::int32_t>(bytes.size()), encoding);
}
std::string bytesOf(REALstringStruct* value) { return value ? cellOf(value)->bytes.substr(1) : ""; }
std::uint32_t encodingOf(REALstringStruct* value) { return value ? cellOf(value)->encoding : 0; }

std::string take(REALstringStruct* value) { return bytesOf(Owned(value)); }

REALarrayDouble* doubles(const std::vector<double>& values) {
    Cell* const cell = newCell(doublesClass);
    cell->doubles = values;
    showDoubles(cell);
    return cell->value<REALarrayDouble>();
}

std::vector<double> take(REALarrayDouble* array) { return cellOf(Owned(array))->doubles; }
std::vector<REALobjectStruct*> objectsOf(void* array) { return cellOf(array)->objects; }

REALmemoryBlockStruct* block(const std::string& bytes) {
    Cell* const cell = newCell("MemoryBlock");
    cell->bytes = bytes;
    const bool isOld = Host::instance().version < 2017.0; // newer hosts keep other things there
    cell->put(REALmemoryBlockSizeOffset, isOld ? static_cast<std::int32_t>(bytes.size()) : -1);
    cell->put(REALmemoryBlockBytesOffset, visible(cell->bytes.data()));
    return cell->value<REALmemoryBlockStruct>();
}
std::string bytesOf(REALmemoryBlockStruct* value) { return cellOf(value)->bytes; }

} // namespace foreign
