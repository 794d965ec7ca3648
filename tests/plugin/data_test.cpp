// Memory blocks and arrays, on hosts that show their storage and on hosts that hide it.
#include "support/plugin_test.h"

#include "bridge/arrays.h"
#include "bridge/data.h"
#include "runtime/host_entries.h"

using namespace chroma;
using foreign::Owned;

class Data : public PluginTest, public ::testing::WithParamInterface<double> {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        start(GetParam());
    }
    static id dataOf(const std::string& bytes) {
        const Owned block(foreign::block(bytes));
        return NewNSData(block);
    }
    static REALarrayDouble* newArray() { return static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1)); }
};
INSTANTIATE_TEST_SUITE_P(Hosts, Data, ::testing::Values(2011.0, 2016.9, 2017.0, 2021.0));

TEST_P(Data, AndBlocksAreCopiesOfEachOther) {
    const std::string bytes("a\0c", 3);
    const id data = dataOf(bytes);
    EXPECT_EQ(std::string(native::tell<const char*>(data, "bytes"), native::tell<NSUInteger>(data, "length")), bytes);
    const Owned copy(NSDataRB(data));
    EXPECT_EQ(foreign::bytesOf(copy), bytes);

    EXPECT_EQ(dataOf(""), nullptr);
    EXPECT_EQ(NSDataRB(native::tell("NSData", "data")), nullptr);
    host.showsStorage = false;
    EXPECT_EQ(dataOf("abc"), nullptr);
}

TEST_P(Data, WithoutABlockToHoldItIsTold) {
    const id data = dataOf("abc");
    const Raised refusal{"OutOfMemoryException", "Failed to allocate a memoryblock with 3 bytes in size.", 0};
    host.missing = {"newMemoryBlock"};
    EXPECT_EQ(NSDataRB(data), nullptr);
    host.missing.clear();
    host.showsStorage = false;
    EXPECT_EQ(NSDataRB(data), nullptr);
    expectRaised({refusal, refusal});
}

TEST_P(Data, TooLongForABlockIsTold) {
    const id data = dataOf("abc");
    native::replace(
        native::object_getClass(data), "length", +[](id, SEL) -> NSUInteger { return 2147483647; });
    EXPECT_EQ(NSDataRB(data), nullptr);
    expectRaised({{"OutOfMemoryException", "Failed to allocate a memoryblock with 2147483647 bytes in size.", 0}});
    EXPECT_EQ(host.asked["newMemoryBlock"], 0);
}

TEST_P(Data, InArraysIsFoundInStorageWhereTheHostShowsIt) {
    REALarrayDouble* const array = newArray();
    EXPECT_EQ(REALGetArrayUBound(array), -1);
    for (int i = 0; i < 3; ++i)
        REALInsertArrayValueDouble(array, i, 0.5 * i);
    EXPECT_EQ(REALGetArrayUBound(array), 2);
    EXPECT_EQ(REALGetArrayValueDouble(array, 0), 0.0);
    EXPECT_EQ(REALGetArrayValueDouble(array, 2), 1.0);
    EXPECT_EQ(host.asked["PluginDoubleArrayGetProc"], GetParam() < 2017.0 ? 0 : 1);
    host.givesProcedures = false;
    EXPECT_EQ(REALGetArrayValueDouble(array, 1), GetParam() < 2017.0 ? 0.5 : 0.0);
    host.givesProcedures = true;
    host.showsStorage = false;
    const Owned hidden(foreign::doubles({0.0, 0.25}));
    EXPECT_EQ(REALGetArrayValueDouble(hidden, 1), 0.25);

    EXPECT_EQ(REALGetArrayValueDouble(array, 3), 0.0);
    EXPECT_EQ(REALGetArrayValueDouble(array, -1), 0.0);
    expectRaised({{"OutOfBoundsException", "Parameter index  is too big. Range is 0 to 2, but value is 3.", 0},
                  {"OutOfBoundsException", "Parameter index  is too small. Range is 0 to 2, but value is -1.", 0}});
    EXPECT_EQ(foreign::take(array), (std::vector<double>{0.0, 0.5, 1.0}));
    EXPECT_EQ(REALGetArrayUBound(nullptr), -1);
    EXPECT_EQ(REALGetArrayValueDouble(nullptr, 0), 0.0);
    REALInsertArrayValueDouble(nullptr, 0, 1.0);
    REALInsertArrayValueObject(nullptr, 0, nullptr);
}

TEST_P(Data, EntersArraysByTheNewerNamesThenTheOlder) {
    REALarrayDouble* const array = newArray();
    const std::set<std::string> newer = {"PluginDoubleArrayInsertProc", "PluginObjectArrayInsertProc",
                                         "PluginDoubleArrayGetProc"};
    host.missing = newer;
    host.missing.insert({"RuntimeArrayDirectGetInsertProc", "RuntimeArrayDirectGetGetProc"});
    REALInsertArrayValueDouble(array, 0, 1.0);
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

    host.missing = newer;
    const Owned objects(REALCreateArray(REALarrayOfObjects, -1));
    const Owned element(foreign::make("RuntimeException"));
    REALInsertArrayValueObject(objects, 0, element);
    EXPECT_EQ(foreign::references(element), 2); // the array's own
    host.showsStorage = false;
    const Owned hidden(foreign::doubles({0.25}));
    EXPECT_EQ(REALGetArrayValueDouble(hidden, 0), 0.25);
}
