// NSColorListZRX: lists loaded, edited, written, read back and dropped.
#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "classes/color/color_factories.h"
#include "classes/colorlist/colorlist.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <unistd.h>

using namespace chroma;
using namespace chroma::colorlist;
using foreign::Host;

class Lists : public SiblingTest {
protected:
    void SetUp() override {
        SiblingTest::SetUp();
        list = foreign::make("NSColorListZRX");
        path = ::testing::TempDir() + "list " + std::to_string(getpid()) + ".clr";
    }
    void TearDown() override {
        foreign::unlock(list);
        std::remove(path.c_str());
        SiblingTest::TearDown();
    }

    // Calls a function with host strings that are given up afterwards; the empty text is the null string.
    template <class Function, class... Arguments>
    static auto with(Function function, REALobjectStruct* object, Arguments... arguments) {
        Texts texts;
        return function(object, texts.convert(arguments)...);
    }
    struct Texts {
        std::vector<REALstringStruct*> made;
        ~Texts() {
            for (auto* text : made)
                foreign::unlock(text);
        }
        REALstringStruct* convert(const std::string& text) {
            if (text.empty()) return nullptr;
            made.push_back(foreign::string(text));
            return made.back();
        }
        template <class T>
        T convert(T value) {
            return value;
        }
    };
    using Text = std::string;

    bool create(const Text& listName) { return with(Create1, list, listName); }
    bool createFrom(const Text& listName, const Text& file) { return with(Create2, list, listName, file); }
    bool load(const Text& listName) { return with(Load, list, listName); }
    void set(REALobjectStruct* color, const Text& key) { with(setColor, list, color, key); }
    std::vector<double> componentsAt(const Text& key) {
        REALobjectStruct* const color = with(colorWithKey, list, key);
        if (!color) return {};
        const auto components = foreign::take(color::getComponents(color));
        foreign::unlock(color);
        return components;
    }

    REALobjectStruct* list;
    std::string path;
};

TEST_F(Lists, AnEmptyOrNullObjectDoesNothing) {
    REALobjectStruct* const color = color::getredColor();
    for (REALobjectStruct* const object : {list, static_cast<REALobjectStruct*>(nullptr)}) {
        with(insertColor, object, color, Text("k"), HostInteger{0});
        with(setColor, object, color, Text("k"));
        with(removeColorWithKey, object, Text("k"));
        removeFile(object);
        EXPECT_EQ(with(colorWithKey, object, Text("k")), nullptr);
        EXPECT_FALSE(with(writeToFile, object, path));
        EXPECT_FALSE(isEditable(object));
        EXPECT_EQ(name(object), nullptr);
    }
    EXPECT_FALSE(with(Create1, static_cast<REALobjectStruct*>(nullptr), Text("n")));
    NSColorListDestructor(nullptr);
    foreign::unlock(color);
}

TEST_F(Lists, AreWrittenReadBackAndRemoved) {
    ASSERT_TRUE(create("Palette"));
    EXPECT_EQ(foreign::take(name(list)), "Palette");
    EXPECT_TRUE(isEditable(list));
    REALobjectStruct* const color = color::colorWithCalibratedRed(0.1, 0.2, 0.3, 0.4);
    set(color, "gr\xC3\xBCn \xF0\x9F\x98\x80");
    REALobjectStruct* const same = with(colorWithKey, list, Text("gr\xC3\xBCn \xF0\x9F\x98\x80"));
    EXPECT_EQ(same, color);
    foreign::unlock(same);
    EXPECT_EQ(with(colorWithKey, list, Text("other")), nullptr);
    ASSERT_TRUE(with(writeToFile, list, path));
    const auto before = foreign::take(color::getComponents(color));
    foreign::unlock(color);

    ASSERT_TRUE(createFrom("Read", path));
    EXPECT_EQ(foreign::take(name(list)), "Read");
    EXPECT_EQ(componentsAt("gr\xC3\xBCn \xF0\x9F\x98\x80"), before);
    removeFile(list);
    EXPECT_NE(access(path.c_str(), F_OK), 0);
    EXPECT_EQ(createFrom("Read", path), platform::differs(Difference::MissingListFile));
    EXPECT_EQ(nativeObject(list) != nullptr, platform::differs(Difference::MissingListFile)); // the old list went first
    EXPECT_EQ(componentsAt("gr\xC3\xBCn \xF0\x9F\x98\x80"), std::vector<double>());
}

TEST_F(Lists, AreReadFromFilesOfAnyName) {
    path = path.substr(0, path.size() - 4);
    ASSERT_TRUE(create("Palette"));
    REALobjectStruct* const color = color::colorWithCalibratedRed(0.1, 0.2, 0.3, 0.4);
    set(color, "k");
    const auto components = foreign::take(color::getComponents(color));
    foreign::unlock(color);
    ASSERT_TRUE(with(writeToFile, list, path));
    ASSERT_TRUE(createFrom("Read", path));
    EXPECT_EQ(componentsAt("k"), platform::expected(Difference::ListFileName, components, std::vector<double>()));
}

TEST_F(Lists, TenThousandColoursComeBackBitForBit) {
    std::mt19937 random(7);
    const auto part = [&] { return static_cast<double>(std::uniform_real_distribution<float>(0, 1)(random)); };
    const auto made = [&](int index) {
        switch (index % 8) {
        case 0: return color::colorWithCalibratedRed(part() * 3 - 1, part(), part(), part());
        case 1: return color::colorWithDeviceRed(part(), part(), part(), part());
        case 2: return color::colorWithSRGBRed(part(), part(), part(), part());
        case 3: return color::colorWithDisplayP3Red(part(), part(), part(), part());
        case 4: return color::colorWithCalibratedWhite(part(), part());
        case 5: return color::colorWithGenericGamma22White(part(), part());
        case 6: return color::colorWithDeviceCyan(part(), part(), part(), part(), part());
        default: return color::getheaderColor();
        }
    };
    const auto keyOf = [](int index) { return "\xC3\xBC\xF0\x9F\x8E\xA8\n\"" + std::to_string(index); };
    const auto told = [](REALobjectStruct* color) {
        const std::string text = foreign::take(color::description(color, 0));
        auto components = foreign::take(color::getComponents(color));
        foreign::unlock(color);
        return std::make_pair(text, components);
    };
    std::vector<std::pair<std::string, std::vector<double>>> before;
    ASSERT_TRUE(create("Large"));
    for (int i = 0; i < 10000; ++i) {
        REALobjectStruct* const color = made(i);
        set(color, keyOf(i));
        before.push_back(told(color));
    }
    ASSERT_TRUE(with(writeToFile, list, path));
    ASSERT_TRUE(createFrom("Large", path));
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(told(with(colorWithKey, list, keyOf(i))), before[static_cast<std::size_t>(i)]) << i;
    host.takeRaised(); // catalogue colours have no components

    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 40);
    EXPECT_EQ(createFrom("Cut", path), platform::differs(Difference::MissingListFile));
}

TEST_F(Lists, LoadersReplaceTheHeldListAndOnlyCreatedOnesAreRegistered) {
    ASSERT_TRUE(create("One"));
    EXPECT_EQ(registered(), 1);
    EXPECT_EQ(native::retainCount(nativeObject(list)), 1U);
    ASSERT_TRUE(create("Two"));
    EXPECT_EQ(registered(), 1);
    EXPECT_EQ(foreign::take(name(list)), "Two");

    setenv("XDG_DATA_HOME", ::testing::TempDir().c_str(), 1);
    ASSERT_TRUE(create("Shared"));
    ASSERT_TRUE(with(writeToFile, list, Text())); // into the user's colour folder, under its name
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(load("Shared"));
        EXPECT_EQ(registered(), 0);
    }
    removeFile(list);
    drainPool();
    const id shared = native::tell(nativeObject(list), "retain");
    const NSUInteger retains = native::retainCount(shared);
    ASSERT_TRUE(create("Another"));
    EXPECT_EQ(native::retainCount(shared), retains - 1);
    native::tell<void>(shared, "release");

    EXPECT_EQ(load("System"), !platform::differs(Difference::SystemListAtFirst));
    foreign::unlock(color::getredColor());
    ASSERT_TRUE(load("System"));
    EXPECT_EQ(isEditable(list) != 0, platform::differs(Difference::SystemListEditable));
    EXPECT_FALSE(load("No such list"));
    EXPECT_EQ(nativeObject(list), nullptr);
}

TEST_F(Lists, PlatformExceptionsReachHostCode) {
    ASSERT_TRUE(create("Palette"));
    REALobjectStruct* const color = color::getredColor();
    with(insertColor, list, color, Text("k"), HostInteger{-1});
    EXPECT_EQ(raisedOne().className, "NSExceptionZRX");
    with(insertColor, list, color, Text("k"), HostInteger{0});
    set(nullptr, "nil colour");
    EXPECT_EQ(raisedOne().className, "NSExceptionZRX");
    set(color, "");
    EXPECT_EQ(raisedOne().className, "NSExceptionZRX");
    with(removeColorWithKey, list, Text("k"));
    EXPECT_EQ(with(colorWithKey, list, Text("k")), nullptr);
    ASSERT_TRUE(load("System"));
    set(color, "k");
    if (!platform::differs(Difference::SystemListEditable)) expectPlatformException();
    foreign::unlock(color);

    native::replace(
        native::classNamed("NSColorList"), "initWithName:", +[](id self, SEL, id) -> id {
            native::tell<void>(self, "release");
            native::raise("TestException", "made to fail");
        });
    EXPECT_FALSE(create("Fails"));
    EXPECT_EQ(raisedOne().message, "made to fail");
    EXPECT_EQ(nativeObject(list), nullptr);
}
