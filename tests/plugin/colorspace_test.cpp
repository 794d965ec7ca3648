// NSColorSpaceZRX: spaces made from profiles, handles and names, and what they tell.
#include "support/plugin_test.h"

#include "classes/colorspace/colorspace.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"
#include "runtime/native_object.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <unistd.h>

using namespace chroma;
using namespace chroma::colorspace;
using foreign::Host;

class Spaces : public SiblingTest {
protected:
    void SetUp() override {
        SiblingTest::SetUp();
        foreign::unlock(foreign::make("NSColorSpaceZRX"));
    }
    // The bytes of a profile that the platform accepts; where it checks none, any will do.
    static std::string profile() {
        if (platform::differs(Difference::ProfileChecks)) return std::string("any \0 bytes", 11);
        REALobjectStruct* const space = getsRGBColorSpace();
        const std::string bytes = takeProfile(space);
        foreign::unlock(space);
        return bytes;
    }
    static std::string takeProfile(REALobjectStruct* space) {
        REALmemoryBlockStruct* const block = ICCProfileData(space);
        if (!block) return "";
        const std::string bytes = foreign::bytesOf(block);
        foreign::unlock(foreign::object(block));
        return bytes;
    }
    static void give(REALmemoryBlockStruct* block) { foreign::unlock(foreign::object(block)); }

    void expectRefused(REALobjectStruct* space) {
        initWithICCProfileData(space, nullptr);
        initWithColorSyncProfile(space, 1);
        initWithCGColorSpace(space, 1);
        const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.",
                             0};
        EXPECT_EQ(host.takeRaised(), (std::vector<Raised>{refusal, refusal, refusal}));
    }

    static void expectEmpty(REALobjectStruct* space) {
        EXPECT_EQ(localizedName(space, 0), nullptr);
        EXPECT_EQ(colorSpaceName(space, 0), nullptr);
        EXPECT_EQ(description(space, 0), nullptr);
        EXPECT_EQ(colorSpaceModel(space, 0), 0);
        EXPECT_EQ(numberOfColorComponents(space, 0), 0);
        EXPECT_EQ(colorSyncProfile(space), 0);
        EXPECT_EQ(CGColorSpace(space), 0);
        EXPECT_EQ(ICCProfileData(space), nullptr);
    }
};

TEST_F(Spaces, NamedSpacesTellWhatTheyAre) {
    struct Named {
        const char* name;
        REALobjectStruct* (*function)();
    };
#define NAMED(name) {#name, get##name},
    const Named all[] = {CHROMA_NAMED_SPACES(NAMED)};
    for (const Named& named : all) {
        REALobjectStruct* const space = named.function();
        if (platform::lacks("+", named.name)) {
            EXPECT_EQ(space, nullptr);
            expectUnrecognized(named.name);
            continue;
        }
        ASSERT_NE(space, nullptr) << named.name;
        EXPECT_EQ(named.function(), space);
        foreign::unlock(space);
        EXPECT_EQ(nativeObject(space), native::tell(native::classNamed("NSColorSpace"), named.name));
        const std::string name = named.name;
        const bool isGray = name.find("Gray") != std::string::npos, isCMYK = name.find("CMYK") != std::string::npos;
        EXPECT_EQ(colorSpaceModel(space, 0), isGray ? 0 : isCMYK ? 2 : 1);
        EXPECT_EQ(numberOfColorComponents(space, 0), isGray ? 1 : isCMYK ? 4 : 3);
        EXPECT_NE(foreign::take(localizedName(space, 0)), "");
        EXPECT_NE(foreign::take(description(space, 0)), "");
        const HostInteger handle = CGColorSpace(space);
        EXPECT_EQ(handle == 0, platform::lacks("-", "CGColorSpace"));
        if (!handle) expectUnrecognized("CGColorSpace");
        foreign::unlock(space);
    }
    if (platform::lacks("+", "sRGBColorSpace")) return;
    REALobjectStruct* const srgb = getsRGBColorSpace();
    EXPECT_EQ(foreign::take(localizedName(srgb, 0)), "sRGB IEC61966-2.1");
    foreign::unlock(srgb);
}

TEST_F(Spaces, AProfileMakesASpaceThatHandsItOut) {
    const std::string bytes = profile();
    REALmemoryBlockStruct* const block = foreign::block(bytes);
    REALobjectStruct* const space = foreign::make("NSColorSpaceZRX");
    initWithICCProfileData(space, block);
    EXPECT_EQ(takeProfile(space), bytes);
    EXPECT_EQ(registered(), 1);
    EXPECT_EQ(native::retainCount(nativeObject(space)), 1U);
    expectRefused(space);
    EXPECT_EQ(takeProfile(space), bytes);

    REALobjectStruct* const shared = ColorSpaceWithICCProfileData(block);
    EXPECT_EQ(takeProfile(shared), bytes);
    EXPECT_EQ(native::retainCount(nativeObject(shared)), 1U);
    expectRefused(shared);
    foreign::unlock(shared);
    foreign::unlock(space);
    give(block);
}

TEST_F(Spaces, HandlesComeBackAndOnlyOneInitialiserStaysUnregistered) {
    if (platform::lacks("-", "initWithCGColorSpace:")) {
        REALobjectStruct* const space = foreign::make("NSColorSpaceZRX");
        initWithCGColorSpace(space, 1);
        expectUnrecognized("initWithCGColorSpace:");
        EXPECT_EQ(nativeObject(space), nullptr);
        foreign::unlock(space);
        EXPECT_EQ(ColorSpaceWithCGColorSpace(1), nullptr);
        expectUnrecognized("initWithCGColorSpace:");
        return;
    }
    REALobjectStruct* const srgb = getsRGBColorSpace();

    REALobjectStruct* const fromSpace = foreign::make("NSColorSpaceZRX");
    const CFIndex before = registered();
    initWithCGColorSpace(fromSpace, CGColorSpace(srgb));
    ASSERT_NE(nativeObject(fromSpace), nullptr);
    EXPECT_EQ(registered(), before);
    foreign::unlock(fromSpace);

    REALobjectStruct* const fromProfile = foreign::make("NSColorSpaceZRX");
    initWithColorSyncProfile(fromProfile, colorSyncProfile(srgb));
    ASSERT_NE(nativeObject(fromProfile), nullptr);
    EXPECT_GE(registered(), before);
    EXPECT_EQ(CFDictionaryGetValue(native::Sibling::registry(), nativeObject(fromProfile)), fromProfile);
    foreign::unlock(fromProfile);

    for (REALobjectStruct* const space :
         {ColorSpaceWithCGColorSpace(CGColorSpace(srgb)), ColorSpaceWithColorSyncProfile(colorSyncProfile(srgb))}) {
        ASSERT_NE(space, nullptr);
        EXPECT_EQ(colorSpaceModel(space, 0), 1);
        foreign::unlock(space);
    }
    foreign::unlock(srgb);
}

// A platform that checks no profile makes a space of anything, which tells that it knows nothing of it.
TEST_F(Spaces, WhatIsNoProfileMayMakeASpaceOfNoComponents) {
    if (!platform::differs(Difference::ProfileChecks)) GTEST_SKIP() << "profiles are checked here";
    REALmemoryBlockStruct* const noProfile = foreign::block("not a profile");
    REALobjectStruct* const fromData = foreign::make("NSColorSpaceZRX");
    initWithICCProfileData(fromData, noProfile);
    EXPECT_EQ(takeProfile(fromData), "not a profile");
    give(noProfile);
    ASSERT_TRUE(platform::differs(Difference::NullProfile));
    REALobjectStruct* const fromNull = foreign::make("NSColorSpaceZRX");
    initWithColorSyncProfile(fromNull, 0);
    EXPECT_EQ(takeProfile(fromNull), "");
    for (REALobjectStruct* const space : {fromData, fromNull}) {
        EXPECT_EQ(colorSpaceModel(space, 0), -1);
        EXPECT_EQ(numberOfColorComponents(space, 0), 0);
        EXPECT_EQ(colorSyncProfile(space), 0);
        EXPECT_EQ(foreign::take(colorSpaceName(space, 0)), "");
        expectUnrecognized("colorSpaceName");
        EXPECT_EQ(native::retainCount(nativeObject(space)), 1U);
        foreign::unlock(space);
    }
}

TEST_F(Spaces, WhatIsNoSpaceLeavesTheObjectEmptyAndOpenToAnother) {
    if (platform::differs(Difference::ProfileChecks)) GTEST_SKIP() << "the platform makes a space of anything";
    REALmemoryBlockStruct* const noProfile = foreign::block("not a profile");
    REALmemoryBlockStruct* const nothing = foreign::block("");
    REALobjectStruct* const space = foreign::make("NSColorSpaceZRX");
    initWithICCProfileData(space, noProfile);
    initWithICCProfileData(space, nothing);
    initWithICCProfileData(space, nullptr);
    initWithColorSyncProfile(space, 0);
    initWithCGColorSpace(space, 0);
    host.takeRaised(); // a platform may answer a null handle with an exception
    expectEmpty(space);
    REALmemoryBlockStruct* const block = foreign::block(profile());
    initWithICCProfileData(space, block);
    EXPECT_EQ(colorSpaceModel(space, 0), 1);
    give(block);
    foreign::unlock(space);

    EXPECT_EQ(ColorSpaceWithICCProfileData(noProfile), nullptr);
    EXPECT_EQ(ColorSpaceWithICCProfileData(nothing), nullptr);
    EXPECT_EQ(ColorSpaceWithICCProfileData(nullptr), nullptr);
    EXPECT_EQ(ColorSpaceWithColorSyncProfile(0), nullptr);
    EXPECT_EQ(ColorSpaceWithCGColorSpace(0), nullptr);
    give(noProfile);
    give(nothing);
    expectEmpty(nullptr);
    initWithICCProfileData(nullptr, nullptr);
    NSColorSpaceDestructor(nullptr);
}

TEST_F(Spaces, AModelListsItsSpacesAsTheSameObjects) {
    if (platform::lacks("+", "availableColorSpacesWithModel:")) {
        void* const empty = availableColorSpacesWithModel(1);
        expectUnrecognized("availableColorSpacesWithModel:");
        EXPECT_TRUE(foreign::objectsOf(empty).empty());
        foreign::unlock(foreign::object(empty));
        return;
    }
    REALobjectStruct* const srgb = getsRGBColorSpace();
    void* const spaces = availableColorSpacesWithModel(1);
    const auto objects = foreign::objectsOf(spaces);
    EXPECT_NE(std::find(objects.begin(), objects.end(), srgb), objects.end());
    for (REALobjectStruct* const space : objects)
        EXPECT_EQ(foreign::references(space), space == srgb ? 2 : 1);
    foreign::unlock(foreign::object(spaces));
    foreign::unlock(srgb);

    void* const none = availableColorSpacesWithModel(99);
    EXPECT_TRUE(foreign::objectsOf(none).empty());
    foreign::unlock(foreign::object(none));
}

TEST_F(Spaces, AModelListKeepsWhatItHasWhenThePlatformThrows) {
    static int left;
    left = 2;
    static const id spaceClass = native::classNamed("NSColorSpace");
    native::replace(
        native::object_getClass(spaceClass), "availableColorSpacesWithModel:", +[](id, SEL, NSInteger) -> id {
            const id space = native::tell(spaceClass, "genericRGBColorSpace");
            return native::tell(native::classNamed("NSArray"), "arrayWithObjects:count:", static_cast<const id*>(&space),
                                NSUInteger{1});
        });
    const id enumerator =
        native::tell(native::tell(spaceClass, "availableColorSpacesWithModel:", NSInteger{1}), "objectEnumerator");
    native::replace(
        native::object_getClass(enumerator), "nextObject", +[](id, SEL) -> id {
            if (left-- == 0) native::raise("EnumerationException", "ended early");
            return native::tell(spaceClass, left ? "deviceRGBColorSpace" : "genericRGBColorSpace");
        });
    void* const spaces = availableColorSpacesWithModel(1);
    EXPECT_EQ(foreign::objectsOf(spaces).size(), 2U);
    EXPECT_EQ(raisedOne().message, "ended early");
    foreign::unlock(foreign::object(spaces));
}

TEST_F(Spaces, NamesFindTheirSpace) {
    REALstringStruct* const name = foreign::string("NSCalibratedRGBColorSpace");
    REALobjectStruct* const space = colorSpaceForColorSpaceName(name);
    if (platform::lacks("+", "colorSpaceForColorSpaceName:")) {
        EXPECT_EQ(space, nullptr);
        expectUnrecognized("colorSpaceForColorSpaceName:");
        foreign::unlock(name);
        return;
    }
    ASSERT_NE(space, nullptr);
    REALobjectStruct* const generic = getgenericRGBColorSpace();
    EXPECT_EQ(space, generic);
    foreign::unlock(generic);
    foreign::unlock(space);
    foreign::unlock(name);
    REALstringStruct* const unknown = foreign::string("no such space");
    EXPECT_EQ(colorSpaceForColorSpaceName(unknown), nullptr);
    foreign::unlock(unknown);
    EXPECT_EQ(colorSpaceForColorSpaceName(nullptr), nullptr);
}

TEST_F(Spaces, AMissingClassMessageBecomesAHostException) {
    native::failOnClass("NSColorSpace", "sRGBColorSpace");
    EXPECT_EQ(getsRGBColorSpace(), nullptr);
    EXPECT_EQ(raisedOne().message, "made to fail");
}

class ProfileFiles : public Spaces {
protected:
    void SetUp() override {
        Spaces::SetUp();
        bytes = profile();
        path = ::testing::TempDir() + "profile \xC3\xBC " + std::to_string(getpid()) + ".icc";
        std::ofstream(path, std::ios::binary) << bytes;
    }
    void TearDown() override {
        std::remove(path.c_str());
        Spaces::TearDown();
    }
    std::string fromFile(const std::map<std::string, std::string>& properties) {
        REALfolderItemStruct* const file = foreign::folderItem(properties);
        REALobjectStruct* const space = ColorSpaceWithICCProfileFile(file);
        EXPECT_EQ(foreign::references(foreign::object(file)), 1);
        foreign::unlock(foreign::object(file));
        if (!space) return "";
        const std::string result = takeProfile(space);
        foreign::unlock(space);
        return result;
    }
    // The path as a URL, everything but letters and slashes escaped.
    std::string url() {
        std::string text = "file://";
        for (const char c : path) {
            char escaped[4];
            std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned char>(c));
            text += std::isalpha(static_cast<unsigned char>(c)) || c == '/' ? std::string(1, c) : escaped;
        }
        return text;
    }
    std::string bytes, path;
};

TEST_F(ProfileFiles, AreReadByThePathThatTheHostVersionHas) {
    EXPECT_EQ(fromFile({{"NativePath", path}}), bytes);
    EXPECT_EQ(fromFile({{"URLPath", url()}}), "");
    rbversion_rbversion = 2013.0;
    EXPECT_EQ(fromFile({{"NativePath", path}}), bytes);
    rbversion_rbversion = 2012.0;
    EXPECT_EQ(fromFile({{"URLPath", url()}}), bytes);
    EXPECT_EQ(fromFile({{"NativePath", path}}), "");
}

TEST_F(ProfileFiles, ThatCannotBeReadGiveNil) {
    EXPECT_EQ(ColorSpaceWithICCProfileFile(nullptr), nullptr);
    EXPECT_EQ(fromFile({}), "");
    EXPECT_EQ(fromFile({{"NativePath", path + ".missing"}}), "");
    EXPECT_EQ(fromFile({{"NativePath", ""}}), "");
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes.substr(0, bytes.size() / 2);
    EXPECT_EQ(fromFile({{"NativePath", path}}),
              platform::expected(Difference::ProfileChecks, std::string(), bytes.substr(0, bytes.size() / 2)));
    rbversion_rbversion = 2012.0;
    EXPECT_EQ(fromFile({{"URLPath", "not a url \x01"}}), "");
}

TEST_F(ProfileFiles, LeaveNothingBehindWhenThePlatformThrows) {
    native::failOnClass("NSData", "dataWithContentsOfFile:");
    EXPECT_EQ(fromFile({{"NativePath", path}}), "");
    EXPECT_EQ(raisedOne().message, "made to fail");
    const id object = native::string("thrown");
    host.givesCFStrings = false;
    REALfolderItemStruct* const file = foreign::folderItem({{"NativePath", path}});
    throwFromNextStringCall(object);
    auto read = [&] { ColorSpaceWithICCProfileFile(file); };
    EXPECT_EQ(catchNative(read), object);
    foreign::unlock(foreign::object(file));
    EXPECT_EQ(Host::liveStrings(), 0);
    CFRelease(object);
}
