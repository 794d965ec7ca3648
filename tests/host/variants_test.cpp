#include "model/variants.h"

#include "model/arrays.h"
#include "model/memory_blocks.h"
#include "model/strings.h"

#include "entry.h"

#include <cstring>

using namespace host;

namespace {
const Type integer = {Kind::Integer, false, {}};
const Type real = {Kind::Double, false, {}};
const Type string = {Kind::String, false, {}};
} // namespace

TEST(Variants, HoldEveryKindOfValue) {
    startHost();
    String* const text = newString("text");
    MemoryBlock* const block = newMemoryBlock(1);
    Array* const array = newArray(real);
    const std::pair<Type, Slot> values[] = {
        {integer, Slot::ofInteger(-7)},
        {real, Slot::ofReal(0.25)},
        {{Kind::Boolean, false, {}}, Slot::ofBoolean(true)},
        {{Kind::Color, false, {}}, Slot::ofColor(0xFF8040)},
        {string, Slot::ofString(text)},
        {Type::object("MemoryBlock"), Slot::ofObject(block)},
        {real.arrayOf(), Slot::ofObject(array)},
    };
    for (const auto& [type, value] : values) {
        Object* const variant = newVariant(type, value);
        EXPECT_EQ(nameOf(typeInVariant(variant)), nameOf(type));
        Slot read;
        EXPECT_TRUE(readVariant(variant, type, read)) << nameOf(type);
        EXPECT_EQ(std::memcmp(&read, &value, sizeof value), 0) << nameOf(type);
        unlock(variant);
    }
    unlock(text);
    unlock(block);
    unlock(array);
    EXPECT_EQ(liveObjectCount(), 0u);
    EXPECT_EQ(liveStringCount(), 0u);
}

TEST(Variants, ShowAPluginAnEmptyObject) {
    startHost();
    Object* const variant = newVariant(integer, Slot::ofInteger(-1));
    void* word = variant;
    std::memcpy(&word, reinterpret_cast<const char*>(variant) + REALinstanceDataOffset, sizeof word);
    EXPECT_EQ(word, nullptr);
    unlock(variant);
}

TEST(Variants, ConvertLikeArgumentsOrRaise) {
    startHost();
    Object* const variant = newVariant(integer, Slot::ofInteger(4));
    Slot read;
    EXPECT_TRUE(readVariant(variant, real, read));
    EXPECT_EQ(read.real, 4.0);
    EXPECT_TRUE(readVariant(variant, {Kind::Color, false, {}}, read));
    EXPECT_EQ(read.color, 4u);
    EXPECT_FALSE(readVariant(variant, string, read));
    EXPECT_EQ(pendingMessage("TypeMismatchException"), "The variant holds Integer, not String.");
    unlock(variant);

    Object* const block = newMemoryBlock(1);
    EXPECT_TRUE(readVariant(block, Type::object("Object"), read));
    EXPECT_EQ(read.object, block);
    EXPECT_FALSE(readVariant(block, Type::object("FolderItem"), read));
    EXPECT_EQ(pendingMessage("IllegalCastException"), "The variant holds MemoryBlock, not FolderItem.");
    EXPECT_FALSE(readVariant(block, real.arrayOf(), read));
    EXPECT_NE(pendingMessage("TypeMismatchException"), "");
    unlock(block);

    EXPECT_TRUE(readVariant(nullptr, string, read));
    EXPECT_EQ(read.string, nullptr);
}
