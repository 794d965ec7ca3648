// ICC profiles: written, read back, and read when they are broken.
#include "support/native.h"
#include "support/profile_builder.h"

#include <gtest/gtest.h>

using namespace chroma;
using namespace chroma::test;

namespace {

id dataOf(const std::string& bytes) {
    return sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>(bytes.data()),
                     std::uintptr_t{bytes.size()});
}

std::string bytesOf(id data) {
    return data ? std::string(static_cast<const char*>(send<const void*>(data, "bytes")),
                              send<std::uintptr_t>(data, "length"))
                : "";
}

id spaceFrom(const std::string& profile) {
    return send(send(sendClass("NSColorSpace", "alloc"), "initWithICCProfileData:", dataOf(profile)), "autorelease");
}

std::string profileOf(const char* space) { return bytesOf(send(standardSpace(space), "ICCProfileData")); }

std::intptr_t modelOf(id space) { return send<std::intptr_t>(space, "colorSpaceModel"); }

std::string nameOf(id space) { return textOf(send(space, "localizedName")); }

// A whole profile in the way of version 2, with the primaries of sRGB and a gamma of 1.
ProfileBuilder linearRGB() {
    ProfileBuilder builder("RGB ");
    builder.plainText("desc", "Linear").gamma("rTRC", 1).gamma("gTRC", 1).gamma("bTRC", 1);
    builder.xyz("rXYZ", 0.43607, 0.22250, 0.01393)
        .xyz("gXYZ", 0.38506, 0.71688, 0.09710)
        .xyz("bXYZ", 0.14308, 0.06062, 0.71417);
    return builder;
}

} // namespace

TEST(Profiles, OfStandardSpacesComeBackAsEqualSpaces) {
    Pool pool;
    for (const char* const message :
         {"genericRGBColorSpace", "genericGrayColorSpace", "sRGBColorSpace", "adobeRGB1998ColorSpace",
          "genericGamma22GrayColorSpace", "displayP3ColorSpace", "genericCMYKColorSpace"}) {
        const id space = standardSpace(message);
        const id same = spaceFrom(profileOf(message));
        ASSERT_NE(same, nullptr) << message;
        EXPECT_TRUE(send<BOOL>(same, "isEqual:", space)) << message;
        EXPECT_EQ(textOf(send(same, "colorSpaceName")), textOf(send(space, "colorSpaceName")));
        EXPECT_EQ(nameOf(same), nameOf(space));
        EXPECT_EQ(modelOf(same), modelOf(space));
        EXPECT_EQ(bytesOf(send(same, "ICCProfileData")), profileOf(message));
        const id handle = send(same, "colorSyncProfile");
        const id third = send(send(sendClass("NSColorSpace", "alloc"), "initWithColorSyncProfile:", handle), "autorelease");
        EXPECT_TRUE(send<BOOL>(third, "isEqual:", space)) << message;
    }
    EXPECT_EQ(send(standardSpace("deviceRGBColorSpace"), "ICCProfileData"), nullptr);
    EXPECT_EQ(send(standardSpace("deviceRGBColorSpace"), "colorSyncProfile"), nullptr);
    pool.drain();
    for (const char* const cls : {"NSColorSpace", "ColorSyncProfile", "NSData", "NSString"}) {
        EXPECT_EQ(builtin_liveInstances(cls), 0u) << cls;
    }
}

TEST(Profiles, OfStandardSpacesHoldAllOfTheSpace) {
    const Pool pool;
    constexpr std::size_t creator = 80; // a header field that nothing depends on, to make it somebody else's profile
    for (const char* const message :
         {"genericRGBColorSpace", "sRGBColorSpace", "adobeRGB1998ColorSpace", "displayP3ColorSpace"}) {
        const id space = standardSpace(message);
        const id other = spaceFrom(profileOf(message).replace(creator, 4, "else"));
        EXPECT_FALSE(send<BOOL>(other, "isEqual:", space));
        const std::vector<float> there =
            componentsOf(send(colorIn(space, {0.9f, 0.5f, 0.1f, 1}), "colorUsingColorSpace:", other));
        ASSERT_EQ(there.size(), 4u);
        EXPECT_NEAR(there[0], 0.9f, 2e-4) << message;
        EXPECT_NEAR(there[1], 0.5f, 2e-4) << message;
        EXPECT_NEAR(there[2], 0.1f, 2e-4) << message;
    }
}

TEST(Profiles, ConvertAsTheirTagsSay) {
    const Pool pool;
    const id linear = spaceFrom(linearRGB().finish());
    ASSERT_NE(linear, nullptr);
    EXPECT_EQ(nameOf(linear), "Linear");
    const id srgb = standardSpace("sRGBColorSpace");
    const std::vector<float> encoded =
        componentsOf(send(colorIn(linear, {0.5f, 0.2f, 0.002f, 0.25f}), "colorUsingColorSpace:", srgb));
    EXPECT_NEAR(encoded[0], 0.73536f, 1e-4);
    EXPECT_NEAR(encoded[1], 0.48453f, 1e-4);
    EXPECT_NEAR(encoded[2], 0.02584f, 1e-4);
    EXPECT_EQ(encoded[3], 0.25f);
    EXPECT_EQ(componentsOf(send(colorIn(linear, {1, 1, 1, 1}), "colorUsingColorSpace:", srgb)), std::vector(4, 1.f));

    // A curve of three samples, a gamma, and a curve in parameters, read forwards and backwards.
    const auto white = [&](const ProfileBuilder& builder, float value, bool isInvertible = true) {
        const id grey = spaceFrom(builder.finish());
        const id gamma22 =
            send(colorIn(grey, {value, 1}), "colorUsingColorSpace:", standardSpace("genericGamma22GrayColorSpace"));
        if (isInvertible) {
            EXPECT_NEAR(componentsOf(send(gamma22, "colorUsingColorSpace:", grey))[0], value, 1e-5);
        }
        return std::pow(componentsOf(gamma22)[0], 2.2f);
    };
    EXPECT_NEAR(white(ProfileBuilder("GRAY").samples("kTRC", {0, 0.2, 1}), 0.75f), 0.6, 1e-5);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").samples("kTRC", {1, 0.2, 0}), 0.25f), 0.6, 1e-5) << "a falling curve";
    EXPECT_NEAR(white(ProfileBuilder("GRAY").gamma("kTRC", 2), 0.5f), 0.25, 1e-5);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").samples("kTRC", {}), 0.5f), 0.5, 1e-5);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").parametric("kTRC", 1, {2, 0.5, 0.5}), 0.5f), 0.5625, 1e-4);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").parametric("kTRC", 2, {2, 0.5, 0.25, 0.1}), 0.5f), 0.35, 1e-4);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").parametric("kTRC", 2, {2, 1, -0.5, 0.25}), 0.1f, false), 0.25, 1e-4);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").parametric("kTRC", 3, {2, 1, 0, 0.5, 0.5}), 0.25f), 0.125, 1e-4);
    EXPECT_NEAR(white(ProfileBuilder("GRAY").parametric("kTRC", 4, {2, 0.9, 0, 0.5, 0.5, 0.1, 0.05}), 0.25f), 0.175, 1e-4);
}

TEST(Profiles, OfGreyMayTellLightness) {
    const Pool pool;
    const auto luminance = [](float value) {
        const id grey = spaceFrom(ProfileBuilder("GRAY", "Lab ").gamma("kTRC", 1).finish());
        const id gamma22 =
            send(colorIn(grey, {value, 1}), "colorUsingColorSpace:", standardSpace("genericGamma22GrayColorSpace"));
        EXPECT_NEAR(componentsOf(send(gamma22, "colorUsingColorSpace:", grey))[0], value, 1e-5);
        return std::pow(componentsOf(gamma22)[0], 2.2f);
    };
    EXPECT_NEAR(luminance(0.5f), 0.184187, 1e-5);
    EXPECT_NEAR(luminance(0.05f), 0.0055354, 1e-6);
    EXPECT_NEAR(luminance(1), 1, 1e-6);
}

TEST(Profiles, TellTheirModelAndChannels) {
    const Pool pool;
    struct Expected {
        const char* colorSpace;
        std::intptr_t model;
        std::intptr_t channels;
    };
    for (const Expected& expected :
         {Expected{"GRAY", 0, 1}, Expected{"RGB ", 1, 3}, Expected{"CMYK", 2, 4}, Expected{"Lab ", 3, 3},
          Expected{"2CLR", 4, 2}, Expected{"9CLR", 4, 9}, Expected{"ACLR", 4, 10}, Expected{"FCLR", 4, 15}}) {
        const id space = spaceFrom(ProfileBuilder(expected.colorSpace).plainText("desc", "Inks").finish());
        EXPECT_EQ(modelOf(space), expected.model) << expected.colorSpace;
        EXPECT_EQ(send<std::intptr_t>(space, "numberOfColorComponents"), expected.channels) << expected.colorSpace;
        const std::vector<float> components(static_cast<std::size_t>(expected.channels) + 1, 0.5f);
        const id color =
            sendClass("NSColor", "colorWithColorSpace:components:count:", space, components.data(), expected.channels + 1);
        EXPECT_EQ(componentsOf(color), components);
        EXPECT_EQ(textOf(send(color, "colorSpaceName")), "NSCustomColorSpace");
        EXPECT_EQ(send(color, "colorUsingColorSpace:", standardSpace("sRGBColorSpace")), nullptr)
            << "there is nothing to convert by";
    }
    for (const char* const other : {"1CLR", "GCLR", "0CLR", "XYZ ", "HSV ", "\xFF\xFF\xFF\xFF"}) {
        EXPECT_EQ(spaceFrom(ProfileBuilder(other).finish()), nullptr) << other;
    }
}

TEST(Profiles, TakeTheirNameFromEitherForm) {
    const Pool pool;
    EXPECT_EQ(nameOf(spaceFrom(ProfileBuilder("CMYK").plainText("desc", "Caf\xE9").finish())), "Caf\xC3\xA9");
    EXPECT_EQ(
        nameOf(spaceFrom(ProfileBuilder("CMYK").localizedText("desc", {{"deDE", u"Name"}, {"enUS", u"\u20AC"}}).finish())),
        "\xE2\x82\xAC");
    EXPECT_EQ(
        nameOf(spaceFrom(ProfileBuilder("CMYK").localizedText("desc", {{"deDE", u"Name"}, {"frFR", u"Nom"}}).finish())),
        "Name");
    EXPECT_EQ(nameOf(spaceFrom(ProfileBuilder("CMYK").finish())), "");
}

TEST(Profiles, ThatAreBrokenAreRefused) {
    const Pool pool;
    const std::string whole = linearRGB().finish();
    ASSERT_NE(spaceFrom(whole), nullptr);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        ASSERT_EQ(spaceFrom(whole.substr(0, size)), nullptr) << "cut to " << size;
    }
    EXPECT_EQ(bytesOf(send(spaceFrom(whole + "trailing"), "ICCProfileData")), whole);

    const auto patched = [&](std::size_t offset, std::string_view bytes) {
        return std::string(whole).replace(offset, bytes.size(), bytes);
    };
    using namespace std::string_view_literals;
    EXPECT_EQ(spaceFrom(patched(0, "\0\0\0\x20"sv)), nullptr) << "a size smaller than the header";
    EXPECT_EQ(spaceFrom(patched(36, "ascp")), nullptr);
    EXPECT_EQ(spaceFrom(patched(128, "\x10\0\0\1"sv)), nullptr) << "a count whose table would wrap around";
    EXPECT_EQ(spaceFrom(patched(136, "\xFF\xFF\xFF\xF0"sv)), nullptr) << "a tag that starts outside";
    EXPECT_EQ(spaceFrom(patched(140, "\xFF\xFF\xFF\xF0"sv)), nullptr) << "a tag that ends outside";

    EXPECT_EQ(spaceFrom(ProfileBuilder("RGB ").tag("desc", "desc\0\0\0\0\xFF\xFF\xFF\xFFname"sv).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("RGB ").tag("desc", "text\0\0\0\0name"sv).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("RGB ")
                            .tag("desc", "mluc\0\0\0\0\0\0\0\1\0\0\0\x0C"
                                         "enUS\0\0\0\x10\0\0\0\x1C\0a"sv)
                            .finish()),
              nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("RGB ").tag("desc", "mluc\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\0"sv).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("GRAY").tag("kTRC", "curv\0\0\0\0\xFF\xFF\xFF\xFF\0\1"sv).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("GRAY").gamma("kTRC", 0).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("GRAY").parametric("kTRC", 5, {1, 1, 1, 1, 1, 1, 1}).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("GRAY").parametric("kTRC", 1, {2, 0, 1}).finish()), nullptr);
    EXPECT_EQ(spaceFrom(ProfileBuilder("RGB ").tag("rXYZ", "XYZ \0\0\0\0\0\0"sv).finish()), nullptr);

    EXPECT_EQ(send(sendClass("NSColorSpace", "alloc"), "initWithICCProfileData:", id{}), nullptr);
    EXPECT_EQ(builtin_liveInstances("NSColorSpace"), 2u) << "an initialiser that fails ends its object";
}

TEST(Profiles, WithAnyByteChangedDoNoHarm) {
    Pool pool;
    std::string profiles[] = {
        linearRGB().finish(), profileOf("sRGBColorSpace"), profileOf("genericGrayColorSpace"),
        ProfileBuilder("GRAY").samples("kTRC", {0, 0.2, 0.7, 1}).localizedText("desc", {{"enUS", u"Grey"}}).finish()};
    std::size_t accepted = 0, refused = 0;
    for (std::string& profile : profiles) {
        for (char& byte : profile) {
            const char original = byte;
            for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
                const Pool inner;
                byte = static_cast<char>(value);
                const id space = spaceFrom(profile);
                ++(space ? accepted : refused);
                nameOf(space);
                const std::vector<float> middle(
                    static_cast<std::size_t>(send<std::intptr_t>(space, "numberOfColorComponents")) + 1, 0.5f);
                if (!space) continue;
                const id color = sendClass("NSColor", "colorWithColorSpace:components:count:", space, middle.data(),
                                           static_cast<std::intptr_t>(middle.size()));
                for (const float component :
                     componentsOf(send(color, "colorUsingColorSpace:", standardSpace("deviceRGBColorSpace")))) {
                    EXPECT_TRUE(component >= 0 && component <= 1) << component;
                }
            }
            byte = original;
        }
    }
    EXPECT_GT(accepted, 1000u);
    EXPECT_GT(refused, 100u);
}
