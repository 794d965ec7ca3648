#include "support/foreign_host.h"

#include "builtin/corefoundation.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

namespace foreign {
namespace {

// A value. The plugin sees the bytes at its address, and the rest belongs to this host.
struct Cell {
    alignas(8) unsigned char seen[48] = {};
    int references = 1;
    std::string className;
    REALclassDefinition* record = nullptr;
    std::map<std::string, std::string> texts; // properties
    int errorNumber = -1;
    std::vector<double> doubles;
    std::vector<REALobjectStruct*> objects;
    std::string bytes;     // a string's, after its prefix byte, or a memory block's
    std::int32_t size = 0; // the reported number of bytes
    std::uint32_t encoding = 0;
    bool showsBytes = false; // whether the contents of a string or a block show without a lock

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
const char* const blockClass = "MemoryBlock";
const char* const doublesClass = "Double()";

// Never destroyed, so that values which a partial host cannot release stay reachable and do not count as leaks of the
// plugin.
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
bool storesInRecords() { return Host::instance().version < REAL_SINCE_HIDDEN_STORAGE; }

// Address and number of the bytes of a string or a memory block. The value itself shows them only while it is locked. Newer
// hosts store other data in a block.
const char* shownBytes(const Cell* cell) {
    const bool isShown = cell->references > 1 || cell->showsBytes;
    return isShown ? cell->bytes.data() : nullptr;
}
void showBytes(Cell* cell) {
    const bool isBlock = cell->className == blockClass;
    if (!isBlock && cell->className != stringClass) return;
    const char* const bytes = shownBytes(cell);
    const std::int32_t size = bytes ? cell->size : 0;
    if (!isBlock) {
        cell->put(REALstringBufferOffset, bytes);
        cell->put(REALstringLengthOffset, size);
    } else if (storesInRecords()) {
        cell->put(REALmemoryBlockSizeOffset, size);
        cell->put(REALmemoryBlockBytesOffset, visible(bytes));
    }
}

void showDoubles(Cell* cell) {
    cell->put(REALarrayElementsOffset, visible(cell->doubles.empty() ? nullptr : cell->doubles.data()));
}

REALclassDefinition* recordOf(const std::string& className) {
    for (auto* record : Host::instance().records)
        if (className == record->name) return record;
    return nullptr;
}

chroma::CFStringRef newCFString(REALstringStruct* value) {
    const std::string bytes = bytesOf(value);
    return chroma::CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                           static_cast<std::intptr_t>(bytes.size()), encodingOf(value), 0);
}

// Inserts an element. Zero elements fill the gap before an index past the end.
template <class Element>
void insert(std::vector<Element>& elements, std::int32_t index, Element value) {
    const auto place = static_cast<std::size_t>(index);
    if (place >= elements.size()) elements.resize(place);
    elements.insert(elements.begin() + index, value);
}
void insertDouble(void* array, std::int32_t index, double value) {
    insert(cellOf(array)->doubles, index, value);
    showDoubles(cellOf(array));
}
void insertObject(void* array, std::int32_t index, REALobjectStruct* value) {
    if (value) ++cellOf(value)->references;
    insert(cellOf(array)->objects, index, value);
}
double getDouble(void* array, std::int32_t index) { return cellOf(array)->doubles.at(static_cast<std::size_t>(index)); }

// The entries under their names.
namespace offered {

double REALGetRBVersion() { return Host::instance().version; }
void RegisterPluginVersion(std::int32_t) {}
void PluginRegisterClass(REALclassDefinition* record) {
    record->instanceDataOffset = REALinstanceDataOffset;
    Host::instance().records.push_back(record);
}
REALobjectStruct* PluginNewInstance(const char* className) { return make(className); }
HostBoolean ChromaObjectIsA(REALobjectStruct* object, const char* className) {
    std::string name = classOf(object);
    for (const auto* record = recordOf(name); record && record->superName && name != className; record = recordOf(name))
        name = record->superName;
    return name == className;
}
void REALLockObject(REALobjectStruct* object) { lock(object); }
void REALUnlockObject(REALobjectStruct* object) { unlock(object); }
void REALLockString(REALstringStruct* value) { lock(value); }
void REALUnlockString(REALstringStruct* value) { unlock(value); }
void RuntimeRaiseException(REALobjectStruct* exception) {
    Cell* const cell = cellOf(exception);
    Host::instance().raised.emplace_back(cell->className, cell->texts["Message"], cell->errorNumber);
}

REALstringStruct* REALBuildStringWithEncoding(const void* bytes, std::int32_t length, std::uint32_t encoding) {
    return string({static_cast<const char*>(bytes), static_cast<std::size_t>(length)}, encoding);
}
REALstringStruct* REALBuildString(const void* bytes, std::int32_t length) {
    return REALBuildStringWithEncoding(bytes, length, REALencodingUnknown);
}
std::uint32_t REALGetStringEncoding(REALstringStruct* value) { return encodingOf(value); }
void REALSetStringEncoding(REALstringStruct* value, std::uint32_t encoding) { cellOf(value)->encoding = encoding; }
const void* REALGetStringCFString(REALstringStruct* value, std::int32_t) { return newCFString(value); }

// Converts to UTF-8, the only target that the plugin uses.
REALstringStruct* REALConvertString(REALstringStruct* value, std::uint32_t encoding) {
    const chroma::CFStringRef text = value ? newCFString(value) : nullptr;
    if (!text) return nullptr;
    std::vector<char> converted(4 * bytesOf(value).size() + 1);
    const auto capacity = static_cast<std::intptr_t>(converted.size());
    const bool fits = chroma::CFStringGetCString(text, converted.data(), capacity, encoding) != 0;
    chroma::CFRelease(text);
    return fits ? string(converted.data(), encoding) : nullptr;
}

// Converts the text to UTF-8 if it has an encoding. Properties hold UTF-8.
void REALSetPropValueString(REALobjectStruct* object, const char* property, REALstringStruct* value) {
    const bool isTagged = value && encodingOf(value) != REALencodingUnknown;
    cellOf(object)->texts[property] = isTagged ? take(REALConvertString(value, REALencodingUTF8)) : bytesOf(value);
}
void REALSetPropValueInt(REALobjectStruct* object, const char*, std::int32_t value) { cellOf(object)->errorNumber = value; }
constexpr auto REALSetPropValueInteger = REALSetPropValueInt;
HostBoolean REALGetPropValueString(REALobjectStruct* object, const char* property, REALstringStruct** value) {
    const auto& texts = cellOf(object)->texts;
    const auto text = texts.find(property);
    if (text != texts.end()) *value = string(text->second);
    return text != texts.end();
}

void* RuntimeArrayCreateSingleDimBoundedArray(std::int32_t type, std::int32_t upperBound) {
    const bool isKnown = type == REALarrayOfDoubles || type == REALarrayOfObjects;
    if (!isKnown || upperBound != -1) return nullptr;
    return newCell(type == REALarrayOfDoubles ? doublesClass : "Object()")->value<void>();
}
std::int32_t RuntimeUBound(void* array) {
    return static_cast<std::int32_t>(cellOf(array)->doubles.size() + cellOf(array)->objects.size()) - 1;
}
REALarrayInsertDoubleProc PluginDoubleArrayInsertProc(void*) { return insertDouble; }
REALarrayInsertObjectProc PluginObjectArrayInsertProc(void*) { return insertObject; }
REALarrayGetDoubleProc PluginDoubleArrayGetProc(void*) { return getDouble; }
constexpr auto RuntimeArrayDirectGetGetProc = PluginDoubleArrayGetProc;
void* RuntimeArrayDirectGetInsertProc(void* array) {
    return classOf(array) == doublesClass ? reinterpret_cast<void*>(insertDouble) : reinterpret_cast<void*>(insertObject);
}

REALmemoryBlockStruct* newMemoryBlock(std::int32_t size) {
    if (size < 0) return nullptr;
    auto* const created = block(std::string(static_cast<std::size_t>(size), '\0'), size);
    cellOf(created)->showsBytes = true; // to its creator
    showBytes(cellOf(created));
    return created;
}
void* memoryBlockGetPtr(REALmemoryBlockStruct* value) { return const_cast<void*>(visible(shownBytes(cellOf(value)))); }
std::int32_t memoryBlockGetSize(REALmemoryBlockStruct* value) { return shownBytes(cellOf(value)) ? cellOf(value)->size : 0; }

} // namespace offered

// The words that distinguish calls: numbers and names. Values of the host are omitted.
std::string described(const char* name) { return name; }
std::string described(std::int32_t number) { return std::to_string(number); }
std::string described(std::uint32_t encoding) {
    char digits[12];
    std::snprintf(digits, sizeof digits, "%#x", encoding);
    return digits;
}
template <class Value>
std::string described(const Value&) {
    return "";
}

#define FOREIGN_NAME(name, Procedure, since) #name,
constexpr const char* names[] = {REAL_ENTRY_POINTS(FOREIGN_NAME)};
#undef FOREIGN_NAME
enum Place {
#define FOREIGN_PLACE(name, Procedure, since) at##name,
    REAL_ENTRY_POINTS(FOREIGN_PLACE)
#undef FOREIGN_PLACE
};

// The function that the plugin calls. It notes the call, then runs the test's function, or calls the entry.
template <Place place, class Procedure, Procedure target>
struct Observed;
template <Place place, class Result, class... Arguments, Result (*target)(Arguments...)>
struct Observed<place, Result (*)(Arguments...), target> {
    static Result call(Arguments... arguments) {
        const char* const name = names[place];
        Host& host = Host::instance();
        if (host.trace) {
            std::string words;
            for (const std::string& word : {std::string(), described(arguments)...})
                if (!word.empty()) words += (words.empty() ? "(" : ", ") + word;
            host.note(name + words + (words.empty() ? "" : ")"));
        }
        const auto before = host.before.find(name);
        if (before == host.before.end()) return target(arguments...);
        const bool releases = std::string_view(name).substr(0, 10) == "REALUnlock"; // even if the test's function fails
        if (releases) target(arguments...);
        return before->second() || releases ? Result() : target(arguments...);
    }
};

} // namespace

Host& Host::instance() {
    static Host host;
    return host;
}

void* Host::resolve(const char* entryName) {
    ++instance().lookUps[entryName];
    const std::string_view wanted = entryName;
    if (instance().missing.count(entryName)) return nullptr;
#define FOREIGN_ENTRY(name, Procedure, since)                                                                               \
    if (wanted == #name && instance().version >= since)                                                                     \
        return reinterpret_cast<void*>(Observed<at##name, Procedure, offered::name>::call);
    REAL_ENTRY_POINTS(FOREIGN_ENTRY)
#undef FOREIGN_ENTRY
    return nullptr;
}

void Host::note(const std::string& word) {
    if (trace) *trace += (trace->empty() ? "" : " ") + word;
}

std::vector<Raised> Host::takeRaised() { return std::exchange(raised, {}); }

int Host::liveObjects() { return liveCells(false); }
int Host::liveStrings() { return liveCells(true); }

int references(const void* value) { return cellOf(value)->references; }

void lock(const void* value) {
    ++cellOf(value)->references;
    showBytes(cellOf(value));
}

void unlock(const void* value) {
    Cell* const cell = cellOf(value);
    if (--cell->references > 0) return showBytes(cell);
    if (cell->record && cell->record->destructor)
        bound<void(REALobjectStruct*)>(cell->record->destructor)(cell->value<REALobjectStruct>());
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
    if (record && record->constructor) bound<void(REALobjectStruct*)>(record->constructor)(object);
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
    for (REALword i = 0; i < record->methodCount; ++i)
        if (declaration == record->methods[i].declaration) return record->methods[i].function;
    return nullptr;
}

REALstringStruct* string(const std::string& bytes, std::uint32_t encoding) {
    Cell* const cell = newCell(stringClass);
    cell->bytes.assign(1, '\0').append(bytes);
    cell->size = static_cast<std::int32_t>(bytes.size());
    cell->encoding = encoding;
    showBytes(cell);
    return cell->value<REALstringStruct>();
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

REALmemoryBlockStruct* block(const std::string& bytes) { return block(bytes, static_cast<std::int32_t>(bytes.size())); }
REALmemoryBlockStruct* block(const std::string& bytes, std::int32_t reportedSize) {
    Cell* const cell = newCell(blockClass);
    cell->bytes = bytes;
    cell->size = reportedSize;
    if (!storesInRecords()) cell->put(REALmemoryBlockSizeOffset, -1);
    showBytes(cell);
    return cell->value<REALmemoryBlockStruct>();
}
std::string bytesOf(REALmemoryBlockStruct* value) { return cellOf(value)->bytes; }

} // namespace foreign
