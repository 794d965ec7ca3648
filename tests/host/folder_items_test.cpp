#include "model/memory_blocks.h"
#include "model/strings.h"

#include "entry.h"

#include <cstring>
#include <filesystem>

#include <unistd.h>

using namespace host;

namespace {

// An object of FolderItem as New makes it.
class Item {
public:
    explicit Item(const std::string& path) : info_(*registry().find("FolderItem")), object_(newObject(info_)) {
        String* const text = newString(path);
        call("Constructor", Slot::ofString(text));
        unlock(text);
    }
    ~Item() { unlock(object_); }

    Slot call(const char* name, Slot argument = Slot()) {
        const Method& method = *info_.findMethods(name).front();
        const Slot arguments[] = {Slot::ofObject(object_), argument};
        Slot result;
        method.invoke(method.function, arguments, &result);
        return result;
    }

    Slot read(const char* name) { return readProperty(*info_.findProperty(name), object_); }

    std::string text(const char* name) {
        String* value = nullptr;
        EXPECT_EQ(entry<REALGetPropValueStringProc>("REALGetPropValueString")(object_, name, &value), 1) << name;
        std::string result = utf8Of(value);
        unlock(value);
        return result;
    }

private:
    ClassInfo& info_;
    Object* object_;
};

} // namespace

TEST(FolderItems, NameTheirPathInBothForms) {
    startHost();
    EXPECT_EQ(Item("/a b/../c d/\xC3\xA9%.icc").text("NativePath"), "/c d/\xC3\xA9%.icc");
    EXPECT_EQ(Item("/c d/\xC3\xA9%.icc").text("URLPath"), "file:///c%20d/%C3%A9%25.icc");
    EXPECT_EQ(Item("/c d/x.icc").text("Name"), "x.icc");
    EXPECT_EQ(Item("x.icc").text("NativePath"), (std::filesystem::current_path() / "x.icc").string());
}

TEST(FolderItems, HaveNoNativePathBefore2013) {
    startHost({2012.0, {}});
    EXPECT_EQ(registry().find("FolderItem")->findProperty("NativePath"), nullptr);
    EXPECT_EQ(Item("/x").text("URLPath"), "file:///x");
}

TEST(FolderItems, WriteReadAndRemoveFiles) {
    startHost();
    Item file(testing::TempDir() + "/host folder item " + std::to_string(getpid()));
    MemoryBlock* const block = newMemoryBlock(3);
    std::memcpy(bytesOf(block), "\0\xFFz", 3);
    file.call("WriteBytes", Slot::ofObject(block));
    EXPECT_TRUE(file.read("Exists").boolean);
    EXPECT_EQ(file.read("Length").integer, 3);
    auto* const back = static_cast<MemoryBlock*>(file.call("ReadBytes").object);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(sizeOf(back), 3);
    EXPECT_EQ(std::memcmp(bytesOf(back), bytesOf(block), 3), 0);
    unlock(back);
    unlock(block);

    file.call("Delete");
    EXPECT_FALSE(hasPendingException());
    EXPECT_FALSE(file.read("Exists").boolean);
    EXPECT_EQ(file.call("ReadBytes").object, nullptr);
    EXPECT_NE(pendingMessage("IOException").find("cannot be read"), std::string::npos);
    file.call("Delete");
    EXPECT_NE(pendingMessage("IOException"), "");
    Item nowhere("/no/such/folder/file");
    nowhere.call("WriteBytes");
    EXPECT_EQ(pendingMessage("IOException"), "\"/no/such/folder/file\" cannot be written.");
}
