// NSColorListZRX: lists loaded, replaced and dropped, from valid and broken files.
#include "support/plugin_test.h"

#include "classes/color/color_shared.h"
#include "classes/color_list/color_list.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

using namespace chroma;
using namespace chroma::color_list;

namespace {

// A host string that lives for one call. It is null for the empty text.
struct Text {
    Text(const std::string& text) : owned(text.empty() ? nullptr : foreign::string(text)) {}
    Text(const char* text) : Text(std::string(text)) {}
    operator REALstringStruct*() const { return owned; }
    foreign::Owned<REALstringStruct> owned;
};

} // namespace

class Lists : public SiblingTest {
protected:
    ~Lists() override {
        foreign::unlock(list);
        std::remove(path.c_str());
    }
    bool create(const char* listName) { return Create1(list, Text(listName)) != 0; }
    bool createFrom(const char* listName, const std::string& file) { return Create2(list, Text(listName), Text(file)) != 0; }
    bool load(const char* listName) { return Load(list, Text(listName)) != 0; }
    std::string nameOfList() { return foreign::take(name(list)); }

    REALobjectStruct* list = foreign::make("NSColorListZRX");
    const std::string path = ::testing::TempDir() + "list " + std::to_string(getpid()) + ".clr";
};

TEST_F(Lists, ReadCompleteFilesFromAnyPath) {
    const std::string unsuffixed = path.substr(0, path.size() - 4), cut = path + ".cut.clr";
    ASSERT_TRUE(create("Palette"));
    const Reference color(color::getredColor());
    setColor(list, color, Text("k"));
    ASSERT_TRUE(writeToFile(list, Text(path)));
    ASSERT_TRUE(writeToFile(list, Text(unsuffixed)));
    ASSERT_TRUE(createFrom("Read", path));
    EXPECT_EQ(nameOfList(), "Read");
    EXPECT_EQ(CFDictionaryGetValue(native::Sibling::registry(), nativeObject(list)), list);
    std::filesystem::copy_file(path, cut);
    std::filesystem::resize_file(cut, std::filesystem::file_size(cut) - 40);
    removeFile(list);
    EXPECT_FALSE(std::filesystem::exists(path));

    ASSERT_TRUE(createFrom("Read", unsuffixed));
    EXPECT_EQ(Reference(colorWithKey(list, Text("k"))) == nullptr,
              platform::differs("`initWithName:fromFile:` with a path that does not end in .clr"));
    std::filesystem::remove_all(unsuffixed);
    const bool isMade = platform::differs("`initWithName:fromFile:` with a missing or malformed file");
    EXPECT_EQ(createFrom("Cut", cut), isMade);
    EXPECT_EQ(nativeObject(list) != nullptr, isMade); // the old list was released first
    std::filesystem::remove(cut);
}

TEST_F(Lists, NeedNameAndPathAndLoadOnceFromTheUserFolder) {
    EXPECT_EQ(create(""), platform::differs("`initWithName:` with nil"));
    EXPECT_EQ(createFrom("n", ""), platform::differs("`initWithName:fromFile:` with nil for the path"));
    setenv("XDG_DATA_HOME", ::testing::TempDir().c_str(), 1);
    ASSERT_TRUE(create("Once"));
    ASSERT_TRUE(writeToFile(list, Text("")));
    const id written = native::send(native::send(nativeObject(list), "retain"), "autorelease");
    ASSERT_TRUE(load("Once"));
    const id first = nativeObject(list);
    EXPECT_EQ(first == written, platform::differs("a list that was written to the user's folder, looked up by name"));
    ASSERT_TRUE(load("Once"));
    EXPECT_EQ(nativeObject(list), first);
    removeFile(list);
    EXPECT_FALSE(load("Once"));
}

TEST_F(Lists, LoadersReplaceTheListAndOnlyCreatedListsAreRegistered) {
    EXPECT_FALSE(Create1(nullptr, Text("n")));
    for (const char* const listName : {"One", "Shared"}) {
        ASSERT_TRUE(create(listName));
        EXPECT_EQ(registered(), 1);
        EXPECT_EQ(native::retainCount(nativeObject(list)), 1U);
        EXPECT_EQ(nameOfList(), listName);
    }
    setenv("XDG_DATA_HOME", ::testing::TempDir().c_str(), 1);
    ASSERT_TRUE(writeToFile(list, Text(""))); // into the user's colour folder, under its name
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(load("Shared"));
        EXPECT_EQ(registered(), 0);
    }
    removeFile(list);
    drainPool();
    const id shared = native::send(nativeObject(list), "retain");
    const NSUInteger retains = native::retainCount(shared);
    ASSERT_TRUE(create("Another"));
    EXPECT_EQ(native::retainCount(shared), retains - 1);
    native::send<void>(shared, "release");

    EXPECT_EQ(load("System"), !platform::differs("`colorListNamed:` \"System\" before NSColor was used"));
    foreign::unlock(color::getredColor());
    ASSERT_TRUE(load("System"));
    EXPECT_FALSE(load("No such list"));
    EXPECT_EQ(nativeObject(list), nullptr);
}

TEST_F(Lists, UseTheReportedInstanceDataOffset) {
    constexpr std::ptrdiff_t elsewhere = REALinstanceDataOffset + sizeof(id);
    const Reference color(color::getredColor());
    foreign::unlock(list);
    for (const auto& [reported, offset] :
         {std::pair<REALword, std::ptrdiff_t>{elsewhere, elsewhere}, {0, REALinstanceDataOffset}}) {
        NSColorListClass.instanceDataOffset = reported;
        list = foreign::make("NSColorListZRX");
        for (const char* const listName : {"First", "Second"}) {
            ASSERT_TRUE(create(listName));
            EXPECT_NE(nativeObject(list, offset), nullptr);
            EXPECT_EQ(nativeObject(list, REALinstanceDataOffset + elsewhere - offset), nullptr);
            setColor(list, color, Text("k"));
            EXPECT_EQ(Reference(colorWithKey(list, Text("k"))), color);
            EXPECT_EQ(nameOfList(), listName);
        }
        if (reported) foreign::unlock(list); // removes its registry entry too
        EXPECT_EQ(registered(), reported ? 1 : 2);
    }
}

TEST_F(Lists, RaiseForAnImpossibleIndex) {
    ASSERT_TRUE(create("One"));
    const Reference color(color::getredColor());
    for (const HostInteger index : {static_cast<HostInteger>(UINT64_C(1) << (sizeof(HostInteger) * 4)), HostInteger{-1}}) {
        insertColor(list, color, Text("k"), index);
        expectPlatformException();
    }
}
