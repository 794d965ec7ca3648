// NSColorSpaceZRX: spaces that are created once and registered, lists that fail half-way, profile files.
#include "support/plugin_test.h"

#include "classes/color_space/color_space.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <unistd.h>
#include <utility>

using namespace chroma;
using namespace chroma::color_space;
using foreign::Owned;

namespace {

std::string profileOf(const Reference& space) {
    const Owned block(ICCProfileData(space));
    return block ? foreign::bytesOf(block) : "";
}

// Returns the bytes of a profile that the platform accepts. A platform that does not check them accepts any.
std::string someProfile() {
    if (platform::differs("`initWithICCProfileData:` with data that is not a profile"))
        return std::string("any \0 bytes", 11);
    return profileOf(getsRGBColorSpace());
}

} // namespace

class Spaces : public SiblingTest {};

TEST_F(Spaces, ConstructorsRunOnceAndKeepTheProfile) {
    const std::string bytes = someProfile();
    const Owned block(foreign::block(bytes));
    const Reference own(foreign::make("NSColorSpaceZRX")), shared(ColorSpaceWithICCProfileData(block));
    if (!platform::differs("`initWithColorSyncProfile:` with null")) initWithColorSyncProfile(own, 0);
    EXPECT_EQ(nativeObject(own), nullptr);
    initWithICCProfileData(own, block); // construction of an empty object may be repeated
    EXPECT_EQ(registered(), 2);
    for (const Reference* const space : {&own, &shared}) {
        EXPECT_EQ(native::retainCount(nativeObject(*space)), 1U);
        initWithICCProfileData(*space, nullptr);
        initWithColorSyncProfile(*space, 1);
        initWithCGColorSpace(*space, 1);
        const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.",
                             0};
        expectRaised({refusal, refusal, refusal});
        EXPECT_EQ(profileOf(*space), bytes);
    }
}

TEST_F(Spaces, InitialisersRegisterSpacesExceptFromCGColorSpace) {
    const Reference fromSpace(foreign::make("NSColorSpaceZRX")), fromProfile(foreign::make("NSColorSpaceZRX"));
    if (platform::isMissing("-[NSColorSpace initWithCGColorSpace:]")) GTEST_SKIP() << "the platform has no such message";
    const Reference srgb(getsRGBColorSpace());
    const CFIndex before = registered();
    initWithCGColorSpace(fromSpace, CGColorSpace(srgb));
    ASSERT_NE(nativeObject(fromSpace), nullptr);
    EXPECT_EQ(registered(), before);
    initWithColorSyncProfile(fromProfile, colorSyncProfile(srgb));
    ASSERT_NE(nativeObject(fromProfile), nullptr);
    EXPECT_EQ(CFDictionaryGetValue(native::Sibling::registry(), nativeObject(fromProfile)), fromProfile);

    EXPECT_EQ(colorSpaceModel(Reference(ColorSpaceWithCGColorSpace(CGColorSpace(srgb))), 0), 1);
    EXPECT_EQ(colorSpaceModel(Reference(ColorSpaceWithColorSyncProfile(colorSyncProfile(srgb))), 0), 1);
}

TEST_F(Spaces, LookupsByModelAndNameReturnTheSameObjects) {
    if (platform::isMissing("+[NSColorSpace availableColorSpacesWithModel:]"))
        GTEST_SKIP() << "the platform finds no spaces";
    const Owned spaces(availableColorSpacesWithModel(1));
    const Reference srgb(getsRGBColorSpace());
    const auto objects = foreign::objectsOf(spaces);
    EXPECT_EQ(std::count(objects.begin(), objects.end(), srgb.get()), 1);
    const id direct = native::sendClass("NSColorSpace", "availableColorSpacesWithModel:", NSInteger{1});
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(foreign::references(objects[i]), objects[i] == srgb ? 2 : 1);
        EXPECT_EQ(nativeObject(objects[i]), native::send(direct, "objectAtIndex:", NSUInteger{i}));
    }
    EXPECT_TRUE(foreign::objectsOf(Owned(availableColorSpacesWithModel(99))).empty());

    const Owned name(foreign::string("NSCalibratedRGBColorSpace")), unknown(foreign::string("no such space"));
    EXPECT_EQ(Reference(colorSpaceForColorSpaceName(name)), Reference(getgenericRGBColorSpace()));
    EXPECT_EQ(colorSpaceForColorSpaceName(unknown), nullptr);
}

TEST_F(Spaces, AvailableSpacesKeepTheirIndexesIfSomeFail) {
    if (platform::isMissing("+[NSColorSpace availableColorSpacesWithModel:]"))
        GTEST_SKIP() << "the platform finds no spaces";
    int created = 0;
    host.before["PluginNewInstance"] = [&] { return ++created == 2; };
    const Owned partly(availableColorSpacesWithModel(1));
    const auto objects = foreign::objectsOf(partly);
    EXPECT_EQ(std::count(objects.begin(), objects.end(), nullptr), 1);
    EXPECT_EQ(objects.at(1), nullptr);

    static id next = nativeObject(objects[0]);
    const id enumerator =
        native::send(native::sendClass("NSColorSpace", "availableColorSpacesWithModel:", NSInteger{1}), "objectEnumerator");
    native::replace(
        native::object_getClass(enumerator), "nextObject", +[](id, SEL) {
            return next ? std::exchange(next, nullptr) : (native::raise("TestException", "in between"), nullptr);
        });
    EXPECT_EQ(foreign::objectsOf(Owned(availableColorSpacesWithModel(1))), std::vector(1, objects[0]));
    expectPlatformException();
}

TEST_F(Spaces, ProfileFilesUseThePathPropertyOfTheHostVersion) {
    const std::string bytes = someProfile(), half = bytes.substr(0, bytes.size() / 2);
    const std::string process = std::to_string(getpid()), folder = ::testing::TempDir();
    const std::string path = folder + "profile \xC3\xBC " + process,
                      url = "file://" + folder + "profile%20%C3%BC%20" + process;
    std::ofstream(path, std::ios::binary) << bytes;
    const auto read = [](const std::map<std::string, std::string>& properties) {
        const Reference file(foreign::plain("FolderItem", properties));
        const std::string result =
            profileOf(ColorSpaceWithICCProfileFile(reinterpret_cast<REALfolderItemStruct*>(file.get())));
        EXPECT_EQ(foreign::references(file), 1);
        return result;
    };
    for (const double version : {2012.9, 2013.0, 2021.0}) {
        become(version);
        EXPECT_EQ(read({{"NativePath", path}}), version < 2013.0 ? "" : bytes);
        EXPECT_EQ(read({{"URLPath", url}}), version < 2013.0 ? bytes : "");
    }
    const std::string trace = traceOf([&] { read({{"NativePath", path}}); });
    EXPECT_LT(trace.find("REALUnlockString"), trace.find("autorelease")) << trace; // the host's string first
    EXPECT_EQ(ColorSpaceWithICCProfileFile(nullptr), nullptr);
    EXPECT_EQ(read({{"NativePath", path + ".missing"}}), "");
    EXPECT_EQ(read({{"NativePath", ""}}), "");
    std::ofstream(path, std::ios::binary | std::ios::trunc) << half;
    EXPECT_EQ(read({{"NativePath", path}}),
              platform::expected("`initWithICCProfileData:` with data that is not a profile", std::string(), half));
    become(2012.0);
    EXPECT_EQ(read({{"URLPath", "not a url \x01"}}), "");
    std::remove(path.c_str());
}
