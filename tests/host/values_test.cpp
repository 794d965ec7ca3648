// Objects that the host brings along: arrays, memory blocks, folder items and variants.
#include "model/arrays.h"
#include "model/memory_blocks.h"
#include "model/storage.h"
#include "model/variants.h"

#include "host_test.h"

#include <cstdint>
#include <filesystem>

#include <unistd.h>

using namespace host;

using Arrays = StartedHost;
using MemoryBlocks = StartedHost;
using Variants = StartedHost;
using FolderItems = StartedHost;
using HostBefore2013 = HostOf<2012>;
using HostBefore2017 = HostOf<2016>;
using HostFrom2017 = HostOf<2017>;

namespace {

Array* create(std::int32_t elementType, std::int32_t upperBound) {
    const auto createArray = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray");
    return static_cast<Array*>(createArray(elementType, upperBound));
}
std::int32_t boundOf(void* array) { return entry<RuntimeUBoundProc>("RuntimeUBound")(array); }
MemoryBlock* createBlock(std::int32_t size) { return entry<NewMemoryBlockProc>("newMemoryBlock")(size); }

// A folder item as New makes it.
Held<Object> item(const std::string& path) {
    Object* const made = newObject(*registry().find("FolderItem"));
    call(made, "Constructor", {Slot::ofString(Held(newString(path)))});
    return Held(made);
}

Slot read(Object* object, const char* property) { return readProperty(*object->info->findProperty(property), object); }

// The text of a new item's property, read as a plugin does.
std::string textOf(const std::string& path, const char* property) {
    String* value = nullptr;
    EXPECT_EQ(entry<REALGetPropValueStringProc>("REALGetPropValueString")(item(path), property, &value), 1) << property;
    return utf8Of(Held(value));
}

} // namespace

TEST_F(HostBefore2017, ShowsStorageInPlace) {
    const Held array(create(REALarrayOfDoubles, -1));
    EXPECT_EQ(readAt<double*>(array, REALarrayElementsOffset), nullptr);
    const auto insert = entry<PluginDoubleArrayInsertProc>("RuntimeArrayDirectGetInsertProc")(array);
    for (int i = 0; i < 100; ++i)
        insert(array, i, i * 0.5);
    EXPECT_EQ(boundOf(array), 99);
    EXPECT_EQ(readAt<double*>(array, REALarrayElementsOffset)[99], 49.5);
    EXPECT_EQ(entry<PluginDoubleArrayGetProc>("RuntimeArrayDirectGetGetProc")(array)(array, 7), 3.5);

    const Held block(createBlock(3));
    EXPECT_EQ(readAt<std::int32_t>(block, REALmemoryBlockSizeOffset), 3);
    auto* const bytes = readAt<char*>(block, REALmemoryBlockBytesOffset);
    EXPECT_EQ(std::string(bytes, 3), std::string(3, '\0'));
    EXPECT_EQ(static_cast<void*>(bytes), bytesOf(block));
}

TEST_F(HostFrom2017, ShowsStorageThroughEntriesOnly) {
    const Held array(create(REALarrayOfDoubles, 2));
    EXPECT_EQ(readAt<double*>(array, REALarrayElementsOffset), nullptr);
    entry<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc")(array)(array, 1, 4.0);
    EXPECT_EQ(entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(array)(array, 1), 4.0);

    const Held block(createBlock(3)), empty(createBlock(0));
    EXPECT_EQ(readAt<std::int32_t>(block, REALmemoryBlockSizeOffset), 0);
    EXPECT_EQ(readAt<void*>(block, REALmemoryBlockBytesOffset), nullptr);
    EXPECT_EQ(entry<MemoryBlockGetSizeProc>("memoryBlockGetSize")(block), 3);
    const auto getPointer = entry<MemoryBlockGetPtrProc>("memoryBlockGetPtr");
    EXPECT_EQ(getPointer(block), bytesOf(block));
    EXPECT_EQ(getPointer(empty), nullptr);
    EXPECT_EQ(createBlock(-1), nullptr);
}

TEST_F(Arrays, KeepTheirOwnReferences) {
    const Held array(create(REALarrayOfObjects, -1));
    const auto insert = entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(array);
    insert(array, 0, Held(newArray(typeNamed("double"))));
    insert(array, 1, nullptr);
    EXPECT_EQ(liveObjectCount(), 2u);
    insert(array, 0, nullptr); // gives the element up
    EXPECT_EQ(liveObjectCount(), 1u);

    const Held texts(newArray(typeNamed("string"), 1));
    for (const char* text : {"a", "b", "c"})
        insertElement(texts, 0, Slot::ofString(Held(newString(text))));
    EXPECT_EQ(bytesOf(elementAt(texts, 0).string), "c");
    EXPECT_EQ(upperBound(texts), 4);
    removeElement(texts, 1);
    EXPECT_EQ(bytesOf(elementAt(texts, 1).string), "a");
    setElement(texts, 1, Slot::ofString(Held(newString("d"))));
    EXPECT_EQ(bytesOf(elementAt(texts, 1).string), "d");
    EXPECT_EQ(liveStringCount(), 2u);
    resize(texts, 0);
    EXPECT_EQ(liveStringCount(), 1u);
}

TEST_F(Arrays, RaiseForABadIndexAndAnswerNullForAnotherKind) {
    const Held numbers(newArray(typeNamed("double"), 1)), texts(newArray(typeNamed("string"), 1));
    const auto insertFor = entry<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc");
    const auto getFor = entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc");
    insertFor(numbers)(numbers, 3, 1.0);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "Index 3 is outside an array with upper bound 1.");
    EXPECT_EQ(getFor(numbers)(numbers, -1), 0.0);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "Index -1 is outside an array with upper bound 1.");

    EXPECT_EQ(entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(numbers), nullptr);
    EXPECT_EQ(insertFor(texts), nullptr);
    EXPECT_EQ(getFor(nullptr), nullptr);
    EXPECT_EQ(boundOf(nullptr), -1);
    EXPECT_EQ(create(REALarrayOfDoubles, -2), nullptr);
    EXPECT_EQ(create(99, 0), nullptr);
}

TEST_F(MemoryBlocks, HoldBytesAndTextAndRaiseOutsideThem) {
    const Held block(newMemoryBlock(4));
    const std::vector<Slot> inside = {Slot::ofInteger(3), Slot::ofInteger(0x141)};
    call(block, "Byte", inside, true);
    EXPECT_EQ(call(block, "Byte", inside).integer, 0x41);
    EXPECT_FALSE(hasPendingException());

    const std::vector<Slot> outside = {Slot::ofInteger(4), Slot::ofInteger(1)};
    for (const bool set : {false, true}) {
        call(block, "Byte", outside, set);
        EXPECT_EQ(pendingMessage("OutOfBoundsException"), "1 bytes from offset 4 are not inside a memory block of 4 bytes.");
    }
    EXPECT_EQ(call(block, "StringValue", {Slot::ofInteger(1), Slot::ofInteger(INTPTR_MAX)}).string, nullptr);
    EXPECT_NE(pendingMessage("OutOfBoundsException"), "");

    const Property& size = *registry().find("MemoryBlock")->findProperty("Size");
    writeProperty(size, block, Slot::ofInteger(-1));
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "A memory block cannot have -1 bytes.");
    writeProperty(size, block, Slot::ofInteger(6));
    EXPECT_EQ(bytesOf(block)[3], 0x41);
    EXPECT_EQ(bytesOf(block)[5], 0);

    const std::vector<Slot> big = {Slot::ofInteger(0), Slot::ofInteger(-2)};
    call(block, "Int16Value", big, true);
    EXPECT_EQ(call(block, "UInt16Value", big).integer, 0xFFFE);
    EXPECT_EQ(call(block, "Int16Value", big).integer, -2);
    writeProperty(*registry().find("MemoryBlock")->findProperty("LittleEndian"), block, Slot());
    EXPECT_EQ(call(block, "UInt16Value", big).integer, 0xFEFF);
    call(block, "SingleValue", {Slot::ofInteger(0), Slot::ofReal(0.5)}, true);
    EXPECT_EQ(bytesOf(block)[0], 0x3F);
    EXPECT_EQ(call(block, "SingleValue", big).real, 0.5);
    call(block, "DoubleValue", big);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "8 bytes from offset 0 are not inside a memory block of 6 bytes.");

    const Held value(newString("abc"));
    for (const int offset : {1, 0})
        call(block, "StringValue", {Slot::ofInteger(offset), Slot::ofInteger(offset ? 4 : 2), Slot::ofString(value)}, true);
    // The first text is padded to four bytes, the second, which starts before it, cut to two.
    const Held text(call(block, "StringValue", {Slot(), Slot::ofInteger(5)}).string);
    EXPECT_EQ(bytesOf(text), std::string("abbc", 5));
    EXPECT_EQ(encodingOf(text), encoding::unknown);
}

TEST_F(Variants, HoldEveryKindOfValue) {
    const Held text(newString("text"));
    const Held block(newMemoryBlock(1));
    const Held array(newArray(parseType("double")));
    const std::pair<const char*, Slot> values[] = {
        {"Integer", Slot::ofInteger(-7)},    {"Double", Slot::ofReal(0.25)},   {"Boolean", Slot::ofBoolean(true)},
        {"Color", Slot::ofColor(0xFF8040)},  {"String", Slot::ofString(text)}, {"MemoryBlock", Slot::ofObject(block)},
        {"Double()", Slot::ofObject(array)},
    };
    for (const auto& [type, value] : values) {
        const Held variant(newVariant(parseType(type), value));
        EXPECT_EQ(nameOf(typeInVariant(variant)), type);
        Slot read;
        EXPECT_TRUE(readVariant(variant, parseType(type), read)) << type;
        EXPECT_EQ(std::memcmp(&read, &value, sizeof value), 0) << type;
    }
    EXPECT_EQ(liveStringCount(), 1u); // each variant took and gave up its own reference
}

TEST_F(Variants, ConvertLikeArgumentsOrRaise) {
    const Held four(newVariant(parseType("integer"), Slot::ofInteger(4)));
    const Held block(newMemoryBlock(1));
    EXPECT_EQ(readAt<void*>(four, REALinstanceDataOffset), nullptr); // a plugin sees an empty object
    Slot read;
    EXPECT_TRUE(readVariant(four, parseType("double"), read));
    EXPECT_EQ(read.real, 4.0);
    EXPECT_TRUE(readVariant(four, parseType("color"), read));
    EXPECT_EQ(read.color, 4u);
    EXPECT_TRUE(readVariant(block, parseType("Object"), read));
    EXPECT_EQ(read.object, block);
    EXPECT_TRUE(readVariant(nullptr, parseType("string"), read));
    EXPECT_EQ(read.string, nullptr);

    const std::tuple<Object*, const char*, const char*, const char*> mismatches[] = {
        {four, "String", "TypeMismatchException", "The variant holds Integer, not String."},
        {block, "FolderItem", "IllegalCastException", "The variant holds MemoryBlock, not FolderItem."},
        {block, "Double()", "TypeMismatchException", "The variant holds MemoryBlock, not Double()."},
    };
    for (const auto& [variant, type, exception, message] : mismatches) {
        EXPECT_FALSE(readVariant(variant, parseType(type), read));
        EXPECT_EQ(pendingMessage(exception), message);
    }
}

TEST_F(FolderItems, NameTheirPathInEveryForm) {
    EXPECT_EQ(textOf("/a b/../c d/\xC3\xA9%.icc", "NativePath"), "/c d/\xC3\xA9%.icc");
    EXPECT_EQ(textOf("/c d/\xC3\xA9%.icc", "URLPath"), "file:///c%20d/%C3%A9%25.icc");
    EXPECT_EQ(textOf("/c d/x.icc", "Name"), "x.icc");
    EXPECT_EQ(textOf("x.icc", "NativePath"), (std::filesystem::current_path() / "x.icc").string());
}

TEST_F(HostBefore2013, HasNoNativePath) {
    EXPECT_EQ(registry().find("FolderItem")->findProperty("NativePath"), nullptr);
    EXPECT_EQ(textOf("/x", "URLPath"), "file:///x");
}

TEST_F(FolderItems, WriteReadAndRemoveFiles) {
    const Held file = item(testing::TempDir() + "/host folder item " + std::to_string(getpid()));
    const Held block(newMemoryBlock(3));
    std::memcpy(bytesOf(block), "\0\xFFz", 3);
    call(file, "WriteBytes", {Slot::ofObject(block)});
    EXPECT_TRUE(read(file, "Exists").boolean);
    EXPECT_EQ(read(file, "Length").integer, 3);
    const Held back(static_cast<MemoryBlock*>(call(file, "ReadBytes").object));
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(sizeOf(back), 3);
    EXPECT_EQ(std::memcmp(bytesOf(back), bytesOf(block), 3), 0);

    call(file, "Delete");
    EXPECT_FALSE(hasPendingException());
    EXPECT_FALSE(read(file, "Exists").boolean);
    EXPECT_EQ(call(file, "ReadBytes").object, nullptr);
    EXPECT_NE(pendingMessage("IOException").find("cannot be read"), std::string::npos);
    call(file, "Delete");
    EXPECT_NE(pendingMessage("IOException"), "");
    call(item("/no/such/folder/file"), "WriteBytes", {Slot()});
    EXPECT_EQ(pendingMessage("IOException"), "\"/no/such/folder/file\" cannot be written.");
}
