// NSColorSpaceZRX: spaces made from profiles, handles and names, and what they tell.
#include "support/plugin_test.h"

#include "classes/colorspace/colorspace.h"
#include "runtime/host_version.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <unistd.h>
#include <utility>

using namespace chroma;
using namespace chroma::colorspace;
using foreign::Owned;

namespace {

std::string profileOf(const Reference& space) {
    const Owned block(ICCProfileData(space));
    return block ? foreign::bytesOf(block) : "";
}

// The bytes of a profile that the platform accepts; where it checks none, any will do.
std::string someProfile() {
    if (platform::differs(platform::Difference::ProfileChecks)) return std::string("any \0 bytes", 11);
    return profileOf(getsRGBColorSpace());
}

} // namespace

class Spaces : public SiblingTest {};

TEST_F(Spaces, NamedSpacesTellWhatTheyAre) {
#define NAMED(name) {#name, get##name},
    const std::pair<std::string, REALobjectStruct* (*)()> all[] = {CHROMA_NAMED_SPACES(NAMED)};
    for (const auto& [name, get] : all) {
        const Reference space(get());
        if (platform::lacks("+[NSColorSpace " + name + "]")) {
            EXPECT_EQ(space, nullptr);
            expectPlatformException({name, "recognize"});
            continue;
        }
        ASSERT_NE(space, nullptr) << name;
        EXPECT_EQ(Reference(get()), space);
        const id direct = native::sendClass("NSColorSpace", name.c_str());
        EXPECT_EQ(nativeObject(space), direct);
        const bool isGray = name.find("Gray") != std::string::npos, isCMYK = name.find("CMYK") != std::string::npos;
        EXPECT_EQ(colorSpaceModel(space, 0), isGray ? 0 : isCMYK ? 2 : 1) << name;
        EXPECT_EQ(numberOfColorComponents(space, 0), isGray ? 1 : isCMYK ? 4 : 3) << name;
        EXPECT_EQ(foreign::take(localizedName(space, 0)), native::textOf(native::send(direct, "localizedName")));
        EXPECT_EQ(foreign::take(colorspace::description(space, 0)), native::textOf(native::send(direct, "description")));
        const HostInteger handle = CGColorSpace(space);
        if (platform::lacks("-[NSColorSpace CGColorSpace]")) {
            EXPECT_EQ(handle, 0);
            expectPlatformException({"CGColorSpace", "recognize"});
        } else {
            EXPECT_EQ(handle, asHandle(native::send<const void*>(direct, "CGColorSpace")));
            EXPECT_EQ(foreign::take(colorspace::colorSpaceName(space, 0)),
                      native::textOf(native::send(direct, "colorSpaceName")));
        }
    }
    if (platform::lacks("+[NSColorSpace sRGBColorSpace]")) return;
    EXPECT_EQ(foreign::take(localizedName(Reference(getsRGBColorSpace()), 0)), "sRGB IEC61966-2.1");
}

TEST_F(Spaces, AProfileMakesASpaceThatHandsItOutOnce) {
    const std::string bytes = someProfile();
    const Owned block(foreign::block(bytes));
    const Reference own(foreign::make("NSColorSpaceZRX")), shared(ColorSpaceWithICCProfileData(block));
    initWithICCProfileData(own, block);
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

TEST_F(Spaces, HandlesComeBackAndOnlyOneInitialiserStaysUnregistered) {
    const Reference fromSpace(foreign::make("NSColorSpaceZRX")), fromProfile(foreign::make("NSColorSpaceZRX"));
    if (platform::lacks("-[NSColorSpace initWithCGColorSpace:]")) GTEST_SKIP() << "the platform has no such message";
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

// A platform that checks no profile makes a space of anything, which tells that it knows nothing of it.
TEST_F(Spaces, WhatIsNoProfileMakesNoSpaceOrOneOfNoComponents) {
    const Owned noProfile(foreign::block("not a profile"));
    const Reference fromData(foreign::make("NSColorSpaceZRX")), fromNull(foreign::make("NSColorSpaceZRX"));
    initWithICCProfileData(fromData, noProfile);
    initWithColorSyncProfile(fromNull, 0);
    EXPECT_EQ(nativeObject(fromData) != nullptr, platform::differs(Difference::ProfileChecks));
    EXPECT_EQ(nativeObject(fromNull) != nullptr, platform::differs(Difference::NullProfile));
    EXPECT_EQ(profileOf(fromData), platform::expected<std::string>(Difference::ProfileChecks, "", "not a profile"));
    EXPECT_EQ(profileOf(fromNull), "");
    for (const Reference* const space : {&fromData, &fromNull}) {
        EXPECT_EQ(colorSpaceModel(*space, 0), platform::expected(Difference::ProfileChecks, 0, -1));
        EXPECT_EQ(numberOfColorComponents(*space, 0), 0);
        EXPECT_EQ(colorSyncProfile(*space), 0);
        EXPECT_EQ(colorspace::colorSpaceName(*space, 0), nullptr);
        if (platform::lacks("-[NSColorSpace colorSpaceName]")) expectPlatformException({"colorSpaceName", "recognize"});
    }
    if (platform::differs(Difference::ProfileChecks)) return;
    const Owned block(foreign::block(someProfile()));
    initWithICCProfileData(fromData, block); // an empty object may be tried again
    EXPECT_EQ(colorSpaceModel(fromData, 0), 1);
    EXPECT_EQ(ColorSpaceWithICCProfileData(noProfile), nullptr);
    EXPECT_EQ(ColorSpaceWithICCProfileData(nullptr), nullptr);
    EXPECT_EQ(ColorSpaceWithColorSyncProfile(0), nullptr);
    EXPECT_EQ(ColorSpaceWithCGColorSpace(0), nullptr);
}

TEST_F(Spaces, AreFoundByModelAndByNameAsTheSameObjects) {
    if (platform::lacks("+[NSColorSpace availableColorSpacesWithModel:]")) GTEST_SKIP() << "the platform finds no spaces";
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

TEST_F(Spaces, OfAModelStayInTheirPlacesAndInTheListWhateverFails) {
    if (platform::lacks("+[NSColorSpace availableColorSpacesWithModel:]")) GTEST_SKIP() << "the platform finds no spaces";
    int made = 0;
    host.before["PluginNewInstance"] = [&] { return ++made == 2; };
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

TEST_F(Spaces, ProfileFilesAreReadByThePathThatTheHostVersionHas) {
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
        host.version = rbversion_rbversion = version;
        EXPECT_EQ(read({{"NativePath", path}}), version < 2013.0 ? "" : bytes);
        EXPECT_EQ(read({{"URLPath", url}}), version < 2013.0 ? bytes : "");
    }
    EXPECT_EQ(ColorSpaceWithICCProfileFile(nullptr), nullptr);
    EXPECT_EQ(read({{"NativePath", path + ".missing"}}), "");
    EXPECT_EQ(read({{"NativePath", ""}}), "");
    std::ofstream(path, std::ios::binary | std::ios::trunc) << half;
    EXPECT_EQ(read({{"NativePath", path}}), platform::expected(Difference::ProfileChecks, std::string(), half));
    host.version = rbversion_rbversion = 2012.0;
    EXPECT_EQ(read({{"URLPath", "not a url \x01"}}), "");
    std::remove(path.c_str());
}
