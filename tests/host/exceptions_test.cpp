#include "model/arrays.h"
#include "model/memory_blocks.h"
#include "model/strings.h"

#include "entry.h"

using namespace host;

TEST(Exceptions, StayPendingUntilTaken) {
    startHost();
    EXPECT_FALSE(hasPendingException());
    Object* const exception = entry<PluginNewInstanceProc>("PluginNewInstance")("NilObjectException");
    entry<RuntimeRaiseExceptionProc>("RuntimeRaiseException")(exception);
    unlock(exception);
    EXPECT_TRUE(hasPendingException());
    EXPECT_EQ(takePendingException(), exception); // kept alive by the host's own reference
    EXPECT_FALSE(hasPendingException());
    EXPECT_EQ(takePendingException(), nullptr);
    unlock(exception);
    EXPECT_EQ(liveObjectCount(), 0u);
}

TEST(Exceptions, TheFirstOneIsTheCause) {
    startHost();
    raise("OutOfBoundsException", "first", 7);
    raise("NilObjectException", "second");
    Object* const exception = takePendingException();
    EXPECT_EQ(exceptionMessage(exception), "first");
    EXPECT_EQ(exceptionErrorNumber(exception), 7);
    unlock(exception);
    EXPECT_EQ(liveObjectCount(), 0u);
    EXPECT_EQ(liveStringCount(), 0u);
}

TEST(Exceptions, OfNoExceptionClassAreRuntimeExceptions) {
    startHost();
    raise("NoSuchException", "a");
    EXPECT_EQ(pendingMessage("RuntimeException"), "a");
    raise("MemoryBlock", "b");
    EXPECT_EQ(pendingMessage("RuntimeException"), "b");
    EXPECT_TRUE(isSubclass("KeyNotFoundException", "RuntimeException"));
    Object* const array = newArray({Kind::Double, false, {}});
    EXPECT_FALSE(isException(array));
    unlock(array);

    const auto isA = entry<HostBoolean (*)(REALobjectStruct*, const char*)>("ChromaObjectIsA");
    Object* const exception = entry<PluginNewInstanceProc>("PluginNewInstance")("NilObjectException");
    EXPECT_EQ(isA(exception, "nilobjectexception"), 1);
    EXPECT_EQ(isA(exception, "RuntimeException"), 1);
    EXPECT_EQ(isA(exception, "OutOfBoundsException"), 0);
    EXPECT_EQ(isA(nullptr, "RuntimeException"), 0);
    unlock(exception);
}

TEST(Exceptions, AreRaisedByTheHostsOwnClassesLikeByAPlugins) {
    startHost();
    const ClassInfo& info = *registry().find("MemoryBlock");
    MemoryBlock* const block = newMemoryBlock(4);
    const Method& byte = *info.findMethods("Byte").front();
    const Method& text = *info.findMethods("StringValue").front();
    Slot result;

    const Slot inside[] = {Slot::ofObject(block), Slot::ofInteger(3), Slot::ofInteger(0x141)};
    byte.invokeSetter(byte.setter, inside, &result);
    EXPECT_FALSE(hasPendingException());
    byte.invoke(byte.function, inside, &result);
    EXPECT_EQ(result.integer, 0x41);

    const Slot outside[] = {Slot::ofObject(block), Slot::ofInteger(4), Slot::ofInteger(1)};
    byte.invoke(byte.function, outside, &result);
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "1 bytes from offset 4 are not inside a memory block of 4 bytes.");
    byte.invokeSetter(byte.setter, outside, &result);
    EXPECT_NE(pendingMessage("OutOfBoundsException"), "");
    const Slot overflowing[] = {Slot::ofObject(block), Slot::ofInteger(1),
                                Slot::ofInteger(std::numeric_limits<HostInteger>::max())};
    text.invoke(text.function, overflowing, &result);
    EXPECT_NE(pendingMessage("OutOfBoundsException"), "");
    EXPECT_EQ(result.string, nullptr);

    writeProperty(*info.findProperty("Size"), block, Slot::ofInteger(-1));
    EXPECT_EQ(pendingMessage("OutOfBoundsException"), "A memory block cannot have -1 bytes.");
    writeProperty(*info.findProperty("Size"), block, Slot::ofInteger(6));
    EXPECT_EQ(bytesOf(block)[3], 0x41);
    EXPECT_EQ(bytesOf(block)[5], 0);
    unlock(block);
}

TEST(MemoryBlocks, HoldTextByItsBytes) {
    startHost();
    MemoryBlock* const block = newMemoryBlock(5);
    const Method& text = *registry().find("MemoryBlock")->findMethods("StringValue").front();
    String* const value = newString("abc");
    const Slot write[] = {Slot::ofObject(block), Slot::ofInteger(1), Slot::ofInteger(2), Slot::ofString(value)};
    Slot result;
    text.invokeSetter(text.setter, write, &result);
    text.invoke(text.function, write, &result);
    EXPECT_EQ(bytesOf(result.string), "ab");
    EXPECT_EQ(encodingOf(result.string), encoding::unknown);
    EXPECT_EQ(bytesOf(block)[3], 0);
    unlock(result.string);
    unlock(value);
    unlock(block);
}
