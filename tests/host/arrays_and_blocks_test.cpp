#include "model/arrays.h"
#include "model/memory_blocks.h"
#include "model/strings.h"

#include "entry.h"

#include <cstring>

using namespace host;

namespace {

template <class T>
T at(const void* base, std::size_t offset) {
    T value;
    std::memcpy(&value, static_cast<const char*>(base) + offset, sizeof value);
    return value;
}

const Type doubles = {Kind::Double, false, {}};
const Type strings = {Kind::String, false, {}};

} // namespace

TEST(Arrays, GrowThroughTheEntriesOfEveryVersion) {
    startHost({2011.0, {}});
    const auto create = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray");
    const auto bound = entry<RuntimeUBoundProc>("RuntimeUBound");
    void* const array = create(REALarrayOfDoubles, -1);
    EXPECT_EQ(bound(array), -1);
    EXPECT_EQ(at<double*>(array, REALarrayElementsOffset), nullptr);

    const auto insert = entry<PluginDoubleArrayInsertProc>("RuntimeArrayDirectGetInsertProc")(array);
    for (int i = 0; i < 100; ++i)
        insert(array, i, i * 0.5);
    EXPECT_EQ(bound(array), 99);
    EXPECT_EQ(at<double*>(array, REALarrayElementsOffset)[99], 49.5);
    const auto get = entry<PluginDoubleArrayGetProc>("RuntimeArrayDirectGetGetProc")(array);
    EXPECT_EQ(get(array, 7), 3.5);
    unlock(static_cast<Object*>(array));
    EXPECT_EQ(liveObjectCount(), 0u);
}

TEST(Arrays, HideTheirStorageFrom2017On) {
    startHost({2017.0, {}});
    void* const array = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray")(REALarrayOfDoubles, 2);
    EXPECT_EQ(at<double*>(array, REALarrayElementsOffset), nullptr);
    entry<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc")(array)(array, 1, 4.0);
    EXPECT_EQ(entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(array)(array, 1), 4.0);
    EXPECT_EQ(entry<RuntimeUBoundProc>("RuntimeUBound")(array), 2);
    unlock(static_cast<Object*>(array));
}

TEST(Arrays, KeepTheirOwnReferences) {
    startHost();
    void* const array = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray")(REALarrayOfObjects, -1);
    Object* const item = newArray(doubles);
    const auto insert = entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(array);
    insert(array, 0, item);
    insert(array, 1, nullptr);
    unlock(item);
    EXPECT_EQ(liveObjectCount(), 2u);
    EXPECT_EQ(elementAt(static_cast<Array*>(array), 0).object, item);
    insert(array, 0, nullptr); // gives the element up
    EXPECT_EQ(liveObjectCount(), 1u);
    unlock(static_cast<Object*>(array));

    Array* const texts = newArray(strings, 1);
    for (const char* text : {"a", "b", "c"}) {
        String* const string = newString(text);
        insertElement(texts, 0, Slot::ofString(string));
        unlock(string);
    }
    EXPECT_EQ(bytesOf(elementAt(texts, 0).string), "c");
    EXPECT_EQ(upperBound(texts), 4);
    removeElement(texts, 1);
    EXPECT_EQ(bytesOf(elementAt(texts, 1).string), "a");
    String* const other = newString("d");
    setElement(texts, 1, Slot::ofString(other));
    unlock(other);
    EXPECT_EQ(bytesOf(elementAt(texts, 1).string), "d");
    EXPECT_EQ(liveStringCount(), 2u);
    resize(texts, 0);
    EXPECT_EQ(liveStringCount(), 1u);
    unlock(texts);
    EXPECT_EQ(liveStringCount(), 0u);
    EXPECT_EQ(liveObjectCount(), 0u);
}

TEST(Arrays, RaiseForABadIndexAndAnswerNullForAnotherKind) {
    startHost();
    Array* const numbers = newArray(doubles, 1);
    Array* const texts = newArray(strings, 1);
    entry<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc")(numbers)(numbers, 3, 1.0);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "Index 3 is outside an array with upper bound 1.");
    EXPECT_EQ(entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(numbers)(numbers, -1), 0.0);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "Index -1 is outside an array with upper bound 1.");

    EXPECT_EQ(entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(numbers), nullptr);
    EXPECT_EQ(entry<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc")(texts), nullptr);
    EXPECT_EQ(entry<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(nullptr), nullptr);
    EXPECT_EQ(entry<RuntimeUBoundProc>("RuntimeUBound")(nullptr), -1);
    const auto create = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray");
    EXPECT_EQ(create(REALarrayOfDoubles, -2), nullptr);
    EXPECT_EQ(create(99, 0), nullptr);
    unlock(numbers);
    unlock(texts);
}

TEST(MemoryBlocks, ShowTheirStorageOnOldHosts) {
    startHost({2016.0, {}});
    MemoryBlock* const block = entry<NewMemoryBlockProc>("newMemoryBlock")(3);
    EXPECT_EQ(at<std::int32_t>(block, REALmemoryBlockSizeOffset), 3);
    unsigned char* const bytes = at<unsigned char*>(block, REALmemoryBlockBytesOffset);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(bytes), 3), std::string(3, '\0'));
    bytes[2] = 9;
    EXPECT_EQ(bytesOf(block)[2], 9);
    EXPECT_EQ(resolveEntry("memoryBlockGetPtr"), nullptr);
    EXPECT_EQ(resolveEntry("memoryBlockGetSize"), nullptr);
    unlock(block);
}

TEST(MemoryBlocks, AnswerThroughEntriesOnNewHosts) {
    startHost({2017.0, {}});
    MemoryBlock* const block = entry<NewMemoryBlockProc>("newMemoryBlock")(3);
    EXPECT_EQ(at<std::int32_t>(block, REALmemoryBlockSizeOffset), 0);
    EXPECT_EQ(at<void*>(block, REALmemoryBlockBytesOffset), nullptr);
    EXPECT_EQ(entry<MemoryBlockGetSizeProc>("memoryBlockGetSize")(block), 3);
    EXPECT_EQ(entry<MemoryBlockGetPtrProc>("memoryBlockGetPtr")(block), bytesOf(block));
    unlock(block);

    MemoryBlock* const empty = entry<NewMemoryBlockProc>("newMemoryBlock")(0);
    EXPECT_EQ(entry<MemoryBlockGetPtrProc>("memoryBlockGetPtr")(empty), nullptr);
    unlock(empty);
    EXPECT_EQ(entry<NewMemoryBlockProc>("newMemoryBlock")(-1), nullptr);
    EXPECT_EQ(liveObjectCount(), 0u);
}
