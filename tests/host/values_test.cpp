// The host's own objects, arrays and memory blocks, as a plugin uses them.
#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "values/storage.h"

#include "host_test.h"

#include <cstdint>

using namespace host;

using Arrays = StartedHost;
using HostBefore2017 = HostOf<2016>;
using HostFrom2017 = HostOf<2017>;

namespace {

Array* create(std::int32_t elementType, std::int32_t upperBound) {
    const auto createArray = entry<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray");
    return static_cast<Array*>(createArray(elementType, upperBound));
}
std::int32_t boundOf(void* array) { return entry<RuntimeUBoundProc>("RuntimeUBound")(array); }
MemoryBlock* createBlock(std::int32_t size) { return entry<NewMemoryBlockProc>("newMemoryBlock")(size); }

} // namespace

TEST_F(HostBefore2017, ExposesStorageDirectly) {
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

TEST_F(HostFrom2017, ExposesStorageOnlyThroughEntryPoints) {
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

TEST_F(Arrays, RetainTheirElements) {
    const Held array(create(REALarrayOfObjects, -1));
    const auto insert = entry<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(array);
    insert(array, 0, Held(newArray(typeNamed("double"))));
    insert(array, 1, nullptr);
    EXPECT_EQ(liveObjectCount(), 2u);
    insert(array, 0, nullptr); // releases the element
    EXPECT_EQ(liveObjectCount(), 1u);
}

TEST_F(Arrays, RaiseForABadIndexAndReturnNullForAnotherType) {
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
