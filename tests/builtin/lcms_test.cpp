// The platform's profiles and conversions against a colour management library that somebody else wrote.
#include "support/native.h"

#include <algorithm>
#include <memory>

#include <lcms2.h>

using namespace chroma;
using namespace chroma::test;

using OtherEngine = PlatformTest;

namespace {

using Profile = std::shared_ptr<void>;

Profile held(cmsHPROFILE profile) { return {profile, cmsCloseProfile}; }

Profile opened(id space) {
    const std::string bytes = bytesOf(send(space, "ICCProfileData"));
    return held(cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size())));
}

id spaceOf(const Profile& profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile.get(), nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile.get(), bytes.data(), &size);
    return made("NSColorSpace", "initWithICCProfileData:", dataOf(bytes));
}

std::size_t channelsOf(id space) { return static_cast<std::size_t>(send<std::intptr_t>(space, "numberOfColorComponents")); }

// A floating-point format of lcms with as many channels as the space has.
cmsUInt32Number format(id space) {
    const auto channels = static_cast<cmsUInt32Number>(channelsOf(space));
    const cmsUInt32Number kind = channels == 1 ? PT_GRAY : channels == 4 ? PT_CMYK : PT_RGB;
    return FLOAT_SH(1) | COLORSPACE_SH(kind) | CHANNELS_SH(channels) | BYTES_SH(4);
}

// Converts colours all over the gamut and compares.
void expectSameConversion(id from, const Profile& fromProfile, id to, const Profile& toProfile, double tolerance) {
    SCOPED_TRACE(textOf(send(from, "localizedName")) + " to " + textOf(send(to, "localizedName")));
    const cmsHTRANSFORM transform = cmsCreateTransform(fromProfile.get(), format(from), toProfile.get(), format(to),
                                                       INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE);
    ASSERT_NE(transform, nullptr);
    for (std::vector<float> components : {std::vector{0.9f, 0.5f, 0.3f, 0.1f},
                                          {0.2f, 0.4f, 0.6f, 0.3f},
                                          {0.5f, 0.5f, 0.5f, 0.5f},
                                          {1.f, 1.f, 1.f, 0.f},
                                          {0.f, 0.f, 0.f, 0.f},
                                          {0.6f, 0.7f, 0.1f, 0.9f}}) {
        components.resize(channelsOf(from));
        std::vector<float> scaled = components, expected(channelsOf(to));
        for (float& channel : scaled)
            channel *= scaled.size() == 4 ? 100.f : 1.f; // ink counts in percent there
        cmsDoTransform(transform, scaled.data(), expected.data(), 1);
        for (float& channel : expected)
            channel = std::clamp(channel, 0.f, 1.f);
        for (std::vector<float>* const color : {&components, &expected})
            color->push_back(1);
        expectNear(componentsOf(send(colorIn(from, components), "colorUsingColorSpace:", to)), expected, tolerance);
    }
    cmsDeleteTransform(transform);
}

} // namespace

TEST_F(OtherEngine, AcceptsEveryProfileAndConvertsAlike) {
    constexpr const char* profiled[] = {"genericRGBColorSpace",   "genericGrayColorSpace",        "sRGBColorSpace",
                                        "adobeRGB1998ColorSpace", "genericGamma22GrayColorSpace", "displayP3ColorSpace",
                                        "genericCMYKColorSpace"};
    for (const char* const message : profiled) {
        const id from = standardSpace(message);
        const Profile profile = opened(from);
        ASSERT_NE(profile, nullptr) << message;
        char name[256] = "";
        cmsGetProfileInfoASCII(profile.get(), cmsInfoDescription, "en", "US", name, sizeof name);
        EXPECT_EQ(name, textOf(send(from, "localizedName")));
        for (const char* const target : profiled) {
            const id to = standardSpace(target);
            // CMYK goes through a coarse table, and one way.
            if (channelsOf(to) < 4) expectSameConversion(from, profile, to, opened(to), channelsOf(from) < 4 ? 5e-4 : 0.02);
        }
    }
}

TEST_F(OtherEngine, WritesProfilesThatAreAccepted) {
    const cmsCIExyY d65{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE wide{{0.7347, 0.2653, 1}, {0.1596, 0.8404, 1}, {0.0366, 0.0001, 1}};
    const std::shared_ptr<cmsToneCurve> curve(cmsBuildGamma(nullptr, 2.4), cmsFreeToneCurve);
    cmsToneCurve* const curves[] = {curve.get(), curve.get(), curve.get()};
    const id srgb = standardSpace("sRGBColorSpace");
    for (const double version : {2.1, 4.3}) {
        for (const Profile& profile : {held(cmsCreate_sRGBProfile()), held(cmsCreateRGBProfile(&d65, &wide, curves)),
                                       held(cmsCreateGrayProfile(cmsD50_xyY(), curve.get()))}) {
            cmsSetProfileVersion(profile.get(), version);
            const id space = spaceOf(profile);
            ASSERT_NE(space, nullptr) << version;
            expectSameConversion(space, profile, srgb, opened(srgb), 1e-3);
            expectSameConversion(srgb, opened(srgb), space, profile, 2e-3);
        }
        EXPECT_EQ(send<std::intptr_t>(spaceOf(held(cmsCreateLab4Profile(nullptr))), "colorSpaceModel"), 3);
    }
}
