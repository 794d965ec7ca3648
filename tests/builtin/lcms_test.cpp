// The platform's profiles and conversions against a colour management library that somebody else wrote.
#include "support/native.h"

#include <gtest/gtest.h>

#include <cstring>
#include <lcms2.h>
#include <memory>

using namespace chroma;
using namespace chroma::test;

namespace {

struct Closer {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};

using Profile = std::unique_ptr<void, Closer>;

Profile opened(id space) {
    const id data = send(space, "ICCProfileData");
    return Profile(cmsOpenProfileFromMem(send<const void*>(data, "bytes"),
                                         static_cast<cmsUInt32Number>(send<std::uintptr_t>(data, "length"))));
}

id spaceOf(const Profile& profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile.get(), nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile.get(), bytes.data(), &size);
    const id data =
        sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>(bytes.data()), std::uintptr_t{size});
    return send(send(sendClass("NSColorSpace", "alloc"), "initWithICCProfileData:", data), "autorelease");
}

// A floating-point format of lcms with as many channels as the space has.
cmsUInt32Number format(id space) {
    const auto channels = static_cast<cmsUInt32Number>(send<std::intptr_t>(space, "numberOfColorComponents"));
    const cmsUInt32Number kind = channels == 1 ? PT_GRAY : channels == 4 ? PT_CMYK : PT_RGB;
    return FLOAT_SH(1) | COLORSPACE_SH(kind) | CHANNELS_SH(channels) | BYTES_SH(4);
}

// What lcms counts a full component as: ink is in percent.
float scaleOf(id space) { return send<std::intptr_t>(space, "colorSpaceModel") == 2 ? 100.f : 1.f; }

// Converts colours all over the gamut in both ways and compares.
void expectSameConversion(id from, const Profile& fromProfile, id to, const Profile& toProfile, double tolerance) {
    const cmsHTRANSFORM transform = cmsCreateTransform(fromProfile.get(), format(from), toProfile.get(), format(to),
                                                       INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE);
    ASSERT_NE(transform, nullptr);
    for (const auto& channels : {std::array{0.9f, 0.5f, 0.3f, 0.1f},
                                 {0.2f, 0.4f, 0.6f, 0.3f},
                                 {0.5f, 0.5f, 0.5f, 0.5f},
                                 {1.f, 1.f, 1.f, 0.f},
                                 {0.f, 0.f, 0.f, 0.f},
                                 {0.6f, 0.7f, 0.1f, 0.9f}}) {
        std::vector<float> components(channels.begin(),
                                      channels.begin() + send<std::intptr_t>(from, "numberOfColorComponents"));
        std::vector<float> scaled = components;
        for (float& channel : scaled)
            channel *= scaleOf(from);
        float expected[3] = {};
        cmsDoTransform(transform, scaled.data(), expected, 1);
        components.push_back(1);
        const id color = sendClass("NSColor", "colorWithColorSpace:components:count:", from, components.data(),
                                   static_cast<std::intptr_t>(components.size()));
        const std::vector<float> actual = componentsOf(send(color, "colorUsingColorSpace:", to));
        ASSERT_FALSE(actual.empty());
        for (std::size_t index = 0; index + 1 < actual.size(); ++index)
            EXPECT_NEAR(actual[index], std::clamp(expected[index], 0.f, 1.f), tolerance)
                << textOf(send(from, "localizedName")) << " to " << textOf(send(to, "localizedName"));
    }
    cmsDeleteTransform(transform);
}

constexpr const char* profiled[] = {"genericRGBColorSpace",   "genericGrayColorSpace",        "sRGBColorSpace",
                                    "adobeRGB1998ColorSpace", "genericGamma22GrayColorSpace", "displayP3ColorSpace"};

} // namespace

TEST(OtherEngine, AcceptsEveryProfileAndReadsItsName) {
    const Pool pool;
    std::vector<const char*> messages(std::begin(profiled), std::end(profiled));
    messages.push_back("genericCMYKColorSpace");
    for (const char* const message : messages) {
        const Profile profile = opened(standardSpace(message));
        ASSERT_NE(profile, nullptr) << message;
        char name[256] = "";
        cmsGetProfileInfoASCII(profile.get(), cmsInfoDescription, "en", "US", name, sizeof name);
        EXPECT_EQ(name, textOf(send(standardSpace(message), "localizedName")));
    }
}

TEST(OtherEngine, ConvertsAlikeBetweenAllSpaces) {
    const Pool pool;
    for (const char* const from : profiled) {
        for (const char* const to : profiled) {
            expectSameConversion(standardSpace(from), opened(standardSpace(from)), standardSpace(to),
                                 opened(standardSpace(to)), 5e-4);
        }
    }
    // CMYK goes through a coarse table, and one way.
    const id cmyk = standardSpace("genericCMYKColorSpace"), rgb = standardSpace("genericRGBColorSpace");
    expectSameConversion(cmyk, opened(cmyk), rgb, opened(rgb), 0.02);
}

TEST(OtherEngine, WritesProfilesThatAreAccepted) {
    const Pool pool;
    const cmsCIExyY d65{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE wide{{0.7347, 0.2653, 1}, {0.1596, 0.8404, 1}, {0.0366, 0.0001, 1}};
    const auto gamma = [](double exponent) {
        return std::unique_ptr<cmsToneCurve, void (*)(cmsToneCurve*)>(cmsBuildGamma(nullptr, exponent), cmsFreeToneCurve);
    };
    const auto curve = gamma(2.4);
    cmsToneCurve* const curves[] = {curve.get(), curve.get(), curve.get()};
    const Profile srgb = opened(standardSpace("sRGBColorSpace"));
    for (const double version : {2.1, 4.3}) {
        const Profile profiles[] = {Profile(cmsCreate_sRGBProfile()), Profile(cmsCreateRGBProfile(&d65, &wide, curves)),
                                    Profile(cmsCreateGrayProfile(cmsD50_xyY(), curve.get()))};
        for (const Profile& profile : profiles) {
            cmsSetProfileVersion(profile.get(), version);
            const id space = spaceOf(profile);
            ASSERT_NE(space, nullptr) << version;
            expectSameConversion(space, profile, standardSpace("sRGBColorSpace"), srgb, 1e-3);
            expectSameConversion(standardSpace("sRGBColorSpace"), srgb, space, profile, 2e-3);
        }
        const Profile lab(cmsCreateLab4Profile(nullptr));
        EXPECT_EQ(send<std::intptr_t>(spaceOf(lab), "colorSpaceModel"), 3);
    }
}
