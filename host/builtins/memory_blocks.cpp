#include "builtins/memory_blocks.h"

#include "builtins/builtins.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "model/record_writing.h"
#include "values/host_version.h"
#include "values/storage.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>

namespace host {

// Functions of different classes have equal names. This namespace distinguishes them in files that are compiled together.
namespace memory_blocks {
namespace {

struct Bytes {
    unsigned char* start; // null if size is 0
    std::int32_t size;
    std::int32_t capacity; // the number of allocated bytes
    bool isLittleEndian;   // byte order of the numbers that programs read and write
};

Bytes& bytesIn(const Object* block) { return *static_cast<Bytes*>(block->own.address); }

// Plugins on older hosts read size and address directly from the record.
void publish(Object* block) {
    if (!exposesStorage()) return;
    writeAt(block, REALmemoryBlockSizeOffset, bytesIn(block).size);
    writeAt(block, REALmemoryBlockBytesOffset, bytesIn(block).start);
}

void construct(Object* block) {
    block->own = Slot::ofAddress(new Bytes{nullptr, 0, 0, true});
    publish(block);
}

void destroy(Object* block) {
    const Bytes bytes = bytesIn(block);
    std::free(bytes.start);
    delete &bytesIn(block);
}

// Keeps the leading bytes and fills new ones with zeros. Returns false if memory is exhausted. A block that grows reserves
// half as much again, so repeated growth in small steps takes time proportional to its size.
bool resize(Object* block, std::int32_t size) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    Bytes& bytes = bytesIn(block);
    if (size > bytes.capacity || size <= bytes.capacity / 4) {
        const std::int32_t more = size > bytes.size ? bytes.size / 2 : 0;
        const std::int32_t capacity = size > most - more ? most : size + more;
        unsigned char* start = nullptr;
        if (size > 0) {
            start = static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(capacity), 1));
            if (!start) return false;
            const std::int32_t kept = std::min(bytes.size, size);
            if (kept > 0) std::memcpy(start, bytes.start, static_cast<std::size_t>(kept));
        }
        std::free(bytes.start);
        bytes.start = start;
        bytes.capacity = size > 0 ? capacity : 0;
    } else if (size > bytes.size) {
        std::memset(bytes.start + bytes.size, 0, static_cast<std::size_t>(size - bytes.size));
    }
    bytes.size = size;
    publish(block);
    return true;
}

void resizeOrRaise(Object* block, HostInteger size) {
    if (size < 0 || size > std::numeric_limits<std::int32_t>::max()) {
        raise("OutOfBoundsException", "A memory block cannot have " + std::to_string(size) + " bytes.");
    } else if (!resize(block, static_cast<std::int32_t>(size))) {
        raise("OutOfMemoryException", "There is not enough memory for " + std::to_string(size) + " bytes.");
    }
}

bool inRange(const Object* block, HostInteger offset, HostInteger length) {
    const HostInteger size = bytesIn(block).size;
    if (offset >= 0 && length >= 0 && offset <= size && length <= size - offset) return true;
    raise("OutOfBoundsException", std::to_string(length) + " bytes from offset " + std::to_string(offset) +
                                      " are not inside a memory block of " + std::to_string(size) + " bytes.");
    return false;
}

HostInteger size(Object* block, REALword) { return bytesIn(block).size; }
void setSize(Object* block, REALword, HostInteger size) { resizeOrRaise(block, size); }

HostInteger byteAt(Object* block, HostInteger offset) {
    return inRange(block, offset, 1) ? bytesIn(block).start[offset] : 0;
}
void setByteAt(Object* block, HostInteger offset, HostInteger value) {
    if (inRange(block, offset, 1)) bytesIn(block).start[offset] = static_cast<unsigned char>(value & 0xFF);
}

HostBoolean littleEndian(Object* block, REALword) { return bytesIn(block).isLittleEndian; }
void setLittleEndian(Object* block, REALword, HostBoolean value) { bytesIn(block).isLittleEndian = value != 0; }

// Reads a number of type Stored in the block's byte order and converts it to type Value.
template <class Stored, class Value>
Value numberAt(Object* block, HostInteger offset) {
    if (!inRange(block, offset, sizeof(Stored))) return 0;
    unsigned char bytes[sizeof(Stored)];
    std::memcpy(bytes, bytesIn(block).start + offset, sizeof bytes);
    if (!bytesIn(block).isLittleEndian) std::reverse(std::begin(bytes), std::end(bytes));
    Stored stored;
    std::memcpy(&stored, bytes, sizeof stored);
    return static_cast<Value>(stored);
}

// Truncates a value that does not fit the stored type.
template <class Stored, class Value>
void setNumberAt(Object* block, HostInteger offset, Value value) {
    if (!inRange(block, offset, sizeof(Stored))) return;
    const auto stored = static_cast<Stored>(value);
    unsigned char bytes[sizeof(Stored)];
    std::memcpy(bytes, &stored, sizeof bytes);
    if (!bytesIn(block).isLittleEndian) std::reverse(std::begin(bytes), std::end(bytes));
    std::memcpy(bytesIn(block).start + offset, bytes, sizeof bytes);
}

template <class Stored, class Value = HostInteger>
REALmethodDefinition numberMethod(const char* declaration) {
    return assignableMethod(declaration, numberAt<Stored, Value>, setNumberAt<Stored, Value>);
}

String* stringValue(Object* block, HostInteger offset, HostInteger length) {
    if (!inRange(block, offset, length) || length == 0) return nullptr;
    const auto* const text = reinterpret_cast<const char*>(bytesIn(block).start + offset);
    return newString({text, static_cast<std::size_t>(length)}, encoding::unknown);
}

// Writes the string's bytes; fills the rest of the range with 0.
void setStringValue(Object* block, HostInteger offset, HostInteger length, String* value) {
    if (!inRange(block, offset, length)) return;
    const std::string_view bytes = bytesOf(value);
    const auto room = static_cast<std::size_t>(length);
    if (bytes.size() > room) {
        raise("OutOfBoundsException",
              "A text of " + std::to_string(bytes.size()) + " bytes does not fit into " + std::to_string(room) + ".");
        return;
    }
    unsigned char* const start = bytesIn(block).start + offset;
    std::fill(std::copy(bytes.begin(), bytes.end(), start), start + room, static_cast<unsigned char>(0));
}

REALproperty properties[] = {
    {nullptr, "Size", "Integer", 0, bound(size), bound(setSize), 0, {}},
    {nullptr, "LittleEndian", "Boolean", 0, bound(littleEndian), bound(setLittleEndian), 0, {}},
};

REALmethodDefinition methods[] = {
    method("Constructor(size as integer)", resizeOrRaise),
    assignableMethod("Byte(offset as integer) as integer", byteAt, setByteAt),
    numberMethod<std::int8_t>("Int8Value(offset as integer) as integer"),
    numberMethod<std::uint8_t>("UInt8Value(offset as integer) as integer"),
    numberMethod<std::int16_t>("Int16Value(offset as integer) as integer"),
    numberMethod<std::uint16_t>("UInt16Value(offset as integer) as integer"),
    numberMethod<std::int32_t>("Int32Value(offset as integer) as integer"),
    numberMethod<float, double>("SingleValue(offset as integer) as double"),
    numberMethod<double, double>("DoubleValue(offset as integer) as double"),
    assignableMethod("StringValue(offset as integer, length as integer) as string", stringValue, setStringValue),
};

ClassInfo* memoryBlockClass = nullptr;

} // namespace
} // namespace memory_blocks

MemoryBlock* newMemoryBlock(std::int32_t size) {
    if (size < 0) return nullptr;
    Owned<Object> block(newObject(*memory_blocks::memoryBlockClass));
    return block && memory_blocks::resize(block.get(), size) ? static_cast<MemoryBlock*>(block.release()) : nullptr;
}

unsigned char* bytesOf(MemoryBlock* block) { return memory_blocks::bytesIn(block).start; }
std::int32_t sizeOf(const MemoryBlock* block) { return memory_blocks::bytesIn(block).size; }

void registerMemoryBlockClass(Registry& registry) {
    using namespace memory_blocks;
    static REALclassDefinition record = builtInRecord("MemoryBlock", nullptr, 16, construct, destroy);
    setRows(record.properties, record.propertyCount, properties);
    setRows(record.methods, record.methodCount, methods);
    memoryBlockClass = registry.add(record, true);
}

} // namespace host
