// Memory blocks and arrays, on hosts that show their storage and on hosts that hide it.
#include "support/plugin_test.h"

#include "bridge/arrays.h"
#include "bridge/data.h"
#include "platform/guard.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

using namespace chroma;
using foreign::Host;

class Data : public PluginTest, public ::testing::WithParamInterface<double> {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        start(GetParam());
    }

    static std::string bytesOf(id data) {
        return {native::tell<const char*>(data, "bytes"), native::tell<NSUInteger>(data, "length")};
    }
};
INSTANTIATE_TEST_SUITE_P(Hosts, Data, ::testing::Values(2011.0, 2016.9, 2017.0, 2021.0));

TEST_P(Data, CopiesABlock) {
    REALmemoryBlockStruct* const block = foreign::block(std::string("a\0c", 3));
    const id data = NewNSData(block);
    EXPECT_EQ(foreign::references(foreign::object(block)), 1);
    foreign::unlock(foreign::object(block));
    EXPECT_EQ(bytesOf(data), std::string("a\0c", 3));
    REALmemoryBlockStruct* const copy = NSDataRB(data);
    EXPECT_EQ(foreign::bytesOf(copy), std::string("a\0c", 3));
    foreign::unlock(foreign::object(copy));
}

TEST_P(Data, NothingGivesNothing) {
    EXPECT_EQ(NewNSData(nullptr), nullptr);
    REALmemoryBlockStruct* const empty = foreign::block("");
    EXPECT_EQ(NewNSData(empty), nullptr);
    foreign::unlock(foreign::object(empty));
    host.showsBlockBytes = false;
    REALmemoryBlockStruct* const hidden = foreign::block("abc");
    EXPECT_EQ(NewNSData(hidden), nullptr);
    foreign::unlock(foreign::object(hidden));
    EXPECT_EQ(NSDataRB(nullptr), nullptr);
    EXPECT_EQ(NSDataRB(native::tell(native::classNamed("NSData"), "data")), nullptr);
}

id threeBytes() {
    return native::tell(native::classNamed("NSData"), "dataWithBytes:length:", static_cast<const void*>("abc"),
                        NSUInteger{3});
}

TEST_P(Data, ABlockThatCannotBeMadeOrFilledIsTold) {
    const Raised expected{"OutOfMemoryException", "Failed to allocate a memoryblock with 3 bytes in size.", 0};
    host.makesMemoryBlocks = false;
    EXPECT_EQ(NSDataRB(threeBytes()), nullptr);
    EXPECT_EQ(raisedOne(), expected);
    host.makesMemoryBlocks = true;
    host.showsBlockBytes = false;
    EXPECT_EQ(NSDataRB(threeBytes()), nullptr);
    EXPECT_EQ(raisedOne(), expected);
}

TEST_P(Data, TooLongForABlock) {
    const id data = threeBytes();
    native::replace(
        native::object_getClass(data), "length", +[](id, SEL) -> NSUInteger { return 2147483647; });
    EXPECT_EQ(NSDataRB(data), nullptr);
    EXPECT_EQ(raisedOne().message, "Failed to allocate a memoryblock with 2147483647 bytes in size.");
    EXPECT_EQ(host.asked["newMemoryBlock"], 0);
}

TEST_P(Data, UnlocksTheBlockWhenThePlatformThrows) {
    native::failOnClass("NSData", "dataWithBytes:length:");
    REALmemoryBlockStruct* const block = foreign::block("abc");
    auto convert = [&] { NewNSData(block); };
    EXPECT_NE(catchNative(convert), nullptr);
    EXPECT_EQ(foreign::references(foreign::object(block)), 1);
    foreign::unlock(foreign::object(block));
}

TEST_P(Data, FillsAndReadsArrays) {
    auto* const array = static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1));
    EXPECT_EQ(REALGetArrayUBound(array), -1);
    for (int i = 0; i < 3; ++i)
        REALInsertArrayValueDouble(array, i, 0.5 * i);
    EXPECT_EQ(REALGetArrayUBound(array), 2);
    for (const bool shown : {true, false}) {
        host.givesElements = shown;
        REALarrayDouble* const read = foreign::doubles({0.0, 0.5, 1.0});
        EXPECT_EQ(REALGetArrayValueDouble(read, 1), 0.5);
        EXPECT_EQ(REALGetArrayValueDouble(read, 2), 1.0);
        foreign::unlock(foreign::object(read));
    }
    EXPECT_EQ(REALGetArrayValueDouble(array, 3), 0.0);
    EXPECT_EQ(raisedOne(),
              (Raised{"OutOfBoundsException", "Parameter index  is too big. Range is 0 to 2, but value is 3.", 0}));
    EXPECT_EQ(REALGetArrayValueDouble(array, -1), 0.0);
    EXPECT_EQ(raisedOne().message, "Parameter index  is too small. Range is 0 to 2, but value is -1.");
    EXPECT_EQ(foreign::take(array), (std::vector<double>{0.0, 0.5, 1.0}));
    EXPECT_EQ(REALGetArrayUBound(nullptr), -1);
    EXPECT_EQ(REALGetArrayValueDouble(nullptr, 0), 0.0);
}

TEST_P(Data, ReadsStorageOnlyWhereTheHostShowsIt) {
    REALarrayDouble* const array = foreign::doubles({0.5});
    REALGetArrayValueDouble(array, 0);
    EXPECT_EQ(host.asked["PluginDoubleArrayGetProc"], GetParam() < 2017.0 ? 0 : 1);
    host.givesProcedures = false;
    EXPECT_EQ(REALGetArrayValueDouble(array, 0), GetParam() < 2017.0 ? 0.5 : 0.0);
    foreign::unlock(foreign::object(array));
}

TEST_P(Data, ArraysKeepTheirOwnReferences) {
    void* const array = REALCreateArray(REALarrayOfObjects, -1);
    REALobjectStruct* const element = foreign::make("RuntimeException");
    REALInsertArrayValueObject(array, 0, element);
    EXPECT_EQ(foreign::references(element), 2);
    foreign::unlock(element);
    EXPECT_EQ(foreign::objectsOf(array), std::vector<REALobjectStruct*>{element});
    foreign::unlock(foreign::object(array));
}

TEST_P(Data, PreferTheNewerArrayEntriesAndDoWithoutAny) {
    auto* const array = static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1));
    const std::set<std::string> newer = {"PluginDoubleArrayInsertProc", "PluginObjectArrayInsertProc",
                                         "PluginDoubleArrayGetProc"};
    host.missing = newer;
    host.missing.insert({"RuntimeArrayDirectGetInsertProc", "RuntimeArrayDirectGetGetProc"});
    REALInsertArrayValueDouble(array, 0, 1.0);
    EXPECT_EQ(REALGetArrayUBound(array), -1);
    host.missing = newer;
    host.givesProcedures = false; // answers, but has no procedure for this array
    REALInsertArrayValueDouble(array, 0, 1.0);
    EXPECT_EQ(REALGetArrayUBound(array), -1);
    host.givesProcedures = true;
    REALInsertArrayValueDouble(array, 0, 1.5);
    host.missing.clear();
    REALInsertArrayValueDouble(array, 1, 2.5);
    EXPECT_EQ(host.asked["PluginDoubleArrayInsertProc"], 2);
    EXPECT_EQ(host.asked["RuntimeArrayDirectGetInsertProc"], 2);
    EXPECT_EQ(foreign::take(array), (std::vector<double>{1.5, 2.5}));
}
