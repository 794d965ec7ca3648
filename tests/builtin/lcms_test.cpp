// Compares the platform's profiles and conversions with an independent colour management library.
#include "support/native.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>

#include <lcms2_plugin.h>

using namespace chroma;
using namespace chroma::test;

using LittleCMS = PlatformTest;

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
    return created("NSColorSpace", "initWithICCProfileData:", dataOf(bytes));
}

std::string nameOf(const Profile& profile, cmsInfoType information = cmsInfoDescription) {
    char name[512] = "";
    cmsGetProfileInfoASCII(profile.get(), information, "en", "US", name, sizeof name);
    return name;
}

std::intptr_t modelOf(const Profile& profile) {
    constexpr cmsColorSpaceSignature models[] = {cmsSigGrayData, cmsSigRgbData, cmsSigCmykData, cmsSigLabData};
    return std::find(std::begin(models), std::end(models), cmsGetColorSpace(profile.get())) - models; // otherwise 4, DeviceN
}

std::size_t channelsOf(id space) { return static_cast<std::size_t>(send<std::intptr_t>(space, "numberOfColorComponents")); }

// A space of the platform, and the same profile in lcms.
struct Side {
    id space;
    Profile profile;

    explicit Side(const char* message) : space(standardSpace(message)), profile(opened(space)) {}
    explicit Side(const Profile& any) : space(spaceOf(any)), profile(any) {}

    cmsColorSpaceSignature colors() const { return cmsGetColorSpace(profile.get()); }
    bool isLab() const { return colors() == cmsSigLabData; }

    // Returns a floating-point format of lcms. With four inks or more its components are percentages.
    cmsUInt32Number format() const {
        const auto kind = static_cast<cmsUInt32Number>(_cmsLCMScolorSpace(colors()));
        return FLOAT_SH(1) | COLORSPACE_SH(kind) | CHANNELS_SH(cmsChannelsOf(colors())) | BYTES_SH(4);
    }
    float scale() const { return cmsChannelsOf(colors()) < 4 ? 1 : 100; }

    // Returns a channel's minimum and maximum.
    std::pair<float, float> range(std::size_t channel) const {
        if (!isLab()) return {0.f, 1.f};
        return channel == 0 ? std::pair(0.f, 100.f) : std::pair(-128.f, 127.f);
    }
};

// Returns the platform's largest deviation for random colours, as a share of a channel's range. Returns 1 if either engine
// does not convert.
double worstDifference(const Side& from, const Side& to, cmsUInt32Number intent = INTENT_PERCEPTUAL, int colors = 50) {
    // lcms scales version 4's black if the target profile has that version. The platform scales it if the profile uses it.
    // Setting the version makes both agree.
    const double version = cmsGetProfileVersion(to.profile.get());
    const double source = cmsGetProfileVersion(from.profile.get());
    if (!cmsIsCLUT(to.profile.get(), intent, LCMS_USED_AS_OUTPUT)) cmsSetProfileVersion(to.profile.get(), source);
    const cmsHTRANSFORM transform = cmsCreateTransform(from.profile.get(), from.format(), to.profile.get(), to.format(),
                                                       intent, cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE);
    cmsSetProfileVersion(to.profile.get(), version);
    if (!transform) return 1;
    std::minstd_rand random; // the same colours each time
    double worst = 0;
    for (int count = 0; count < colors; ++count) {
        const Pool each;
        std::vector<float> components, scaled, expected(channelsOf(to.space));
        for (std::size_t channel = 0; channel < channelsOf(from.space); ++channel) {
            const auto [low, high] = from.range(channel);
            components.push_back(std::uniform_real_distribution(low, high)(random));
            scaled.push_back(components.back() * from.scale());
        }
        cmsDoTransform(transform, scaled.data(), expected.data(), 1);
        components.push_back(1);
        const std::vector<float> actual =
            componentsOf(send(colorIn(from.space, components), "colorUsingColorSpace:", to.space));
        if (actual.size() != expected.size() + 1) worst = 1;
        for (std::size_t channel = 0; channel + 1 < actual.size(); ++channel) {
            const auto [low, high] = to.range(channel);
            const float bounded = std::clamp(expected[channel] / to.scale(), low, high);
            worst = std::max(worst, std::abs(double{actual[channel]} - bounded) / (high - low));
        }
    }
    cmsDeleteTransform(transform);
    return worst;
}

constexpr double byte = 1 / 255.0;

// Profiles that consist of tables, with the curves, grids and matrices that each version allows.

// Returns parametric curves for version 4, otherwise sampled ones.
cmsStage* newCurves(cmsUInt32Number channels, bool isVersion4) {
    std::vector<cmsUInt16Number> samples;
    for (int i = 0; i < 256; ++i)
        samples.push_back(static_cast<cmsUInt16Number>(65535 * std::pow(i / 255.0, 1.4)));
    const std::shared_ptr<cmsToneCurve> curve(isVersion4 ? cmsBuildGamma(nullptr, 1.4)
                                                         : cmsBuildTabulatedToneCurve16(nullptr, 256, samples.data()),
                                              cmsFreeToneCurve);
    const std::vector<cmsToneCurve*> curves(channels, curve.get());
    return cmsStageAllocToneCurves(nullptr, channels, curves.data());
}

// Writes values that wind through the grid, differently for each output.
int wind(const cmsUInt16Number inputs[], cmsUInt16Number outputs[], void* channels) {
    const auto [from, to] = *static_cast<std::pair<cmsUInt32Number, cmsUInt32Number>*>(channels);
    for (cmsUInt32Number output = 0; output < to; ++output) {
        double value = 0.3 + output;
        for (cmsUInt32Number input = 0; input < from; ++input)
            value += (0.5 + (input + output) % 3) * inputs[input] / 65535.0;
        outputs[output] = static_cast<cmsUInt16Number>(32767 * (1 + std::sin(2 * value)));
    }
    return 1;
}

cmsStage* newGrid(cmsUInt32Number from, cmsUInt32Number to, bool isVersion4) {
    std::pair channels(from, to);
    std::vector<cmsUInt32Number> points(from, from > 5 ? 2 : 5);
    if (isVersion4) points[0] = 3;
    cmsStage* const grid = cmsStageAllocCLut16bitGranular(nullptr, points.data(), from, to, nullptr);
    cmsStageSampleCLut16bit(grid, wind, &channels, 0);
    return grid;
}

cmsStage* newMatrix() {
    constexpr double matrix[] = {0.8, 0.1, 0, 0.05, 0.9, 0.05, 0, 0.1, 0.7}, offset[] = {0.1, 0, 0.05};
    return cmsStageAllocMatrix(nullptr, 3, 3, matrix, offset);
}

struct Kind {
    cmsColorSpaceSignature colors;
    cmsColorSpaceSignature connection;
    double version;
    bool is8bit;
    cmsUInt32Number intent;
};

Profile tableProfile(const Kind& kind) {
    const Profile profile = held(cmsCreateProfilePlaceholder(nullptr));
    cmsSetProfileVersion(profile.get(), kind.version);
    cmsSetDeviceClass(profile.get(), cmsSigOutputClass);
    cmsSetColorSpace(profile.get(), kind.colors);
    cmsSetPCS(profile.get(), kind.connection);
    const cmsUInt32Number channels = cmsChannelsOf(kind.colors);
    const bool isVersion4 = kind.version >= 4;
    for (const bool isToPcs : {true, false}) {
        const cmsUInt32Number from = isToPcs ? channels : 3, to = isToPcs ? 3 : channels;
        std::vector<cmsStage*> stages = {newCurves(channels, isVersion4), newGrid(from, to, isVersion4),
                                         newCurves(3, isVersion4)};
        if (isVersion4) stages.insert(stages.end(), {newMatrix(), newCurves(3, isVersion4)});
        if (!isToPcs) std::reverse(stages.begin(), stages.end());
        const std::shared_ptr<cmsPipeline> pipeline(cmsPipelineAlloc(nullptr, from, to), cmsPipelineFree);
        for (cmsStage* const stage : stages)
            cmsPipelineInsertStage(pipeline.get(), cmsAT_END, stage);
        cmsPipelineSetSaveAs8bitsFlag(pipeline.get(), kind.is8bit);
        const int tag = static_cast<int>(isToPcs ? cmsSigAToB0Tag : cmsSigBToA0Tag) + static_cast<int>(kind.intent);
        cmsWriteTag(profile.get(), static_cast<cmsTagSignature>(tag), pipeline.get());
    }
    // Saves the profile and reads it again, so that the test judges its written form.
    std::string bytes(1 << 20, '\0');
    auto size = static_cast<cmsUInt32Number>(bytes.size());
    if (!cmsSaveProfileToMem(profile.get(), bytes.data(), &size)) return {};
    return held(cmsOpenProfileFromMem(bytes.data(), size));
}

} // namespace

TEST_F(LittleCMS, ReadsThePlatformsProfilesAndAgreesOnConversions) {
    constexpr const char* profiled[] = {"genericRGBColorSpace",   "genericGrayColorSpace",        "sRGBColorSpace",
                                        "adobeRGB1998ColorSpace", "genericGamma22GrayColorSpace", "displayP3ColorSpace",
                                        "genericCMYKColorSpace"};
    for (const char* const message : profiled) {
        const Side from(message);
        ASSERT_NE(from.profile, nullptr) << message;
        EXPECT_EQ(nameOf(from.profile), textOf(send(from.space, "localizedName")));
        EXPECT_NE(nameOf(from.profile, cmsInfoCopyright), "");
        for (int tag = 0; tag < cmsGetTagCount(from.profile.get()); ++tag)
            EXPECT_NE(cmsReadTag(from.profile.get(), cmsGetTagSignature(from.profile.get(), tag)), nullptr) << tag;
        for (const char* const target : profiled) {
            const Side to(target);
            if (isEqual(from.space, to.space)) continue;
            // Close to black, several ink combinations are equally valid.
            const bool isToInks = channelsOf(to.space) == 4;
            const double tolerance = channelsOf(from.space) == 4 ? 0.065 : isToInks ? 0.01 : byte;
            EXPECT_LE(worstDifference(from, to, INTENT_PERCEPTUAL, isToInks ? 50 : 5000), tolerance)
                << message << " to " << target;
        }
    }
}

// The profiles of Debian's icc-profiles-free, colord-data, libgs-common and krita-data.
TEST_F(LittleCMS, AgreesOnConversionsByEveryInstalledProfile) {
    const Side srgb("sRGBColorSpace");
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("/usr/share/color/icc")) {
        if (!entry.is_regular_file()) continue;
        SCOPED_TRACE(entry.path());
        const Pool each;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const std::string contents = bytes.str();
        const Profile profile = held(cmsOpenProfileFromMem(contents.data(), static_cast<cmsUInt32Number>(contents.size())));
        const id direct = created("NSColorSpace", "initWithICCProfileData:", dataOf(contents));
        const auto colors = profile ? cmsGetColorSpace(profile.get()) : cmsSigXYZData;
        const bool isSpace = colors != cmsSigXYZData && colors != cmsSigYCbCrData; // neither belongs to a device
        ASSERT_EQ(direct != nullptr, isSpace);
        if (!isSpace) continue;
        EXPECT_EQ(textOf(send(direct, "localizedName")), nameOf(profile));
        EXPECT_EQ(send<std::intptr_t>(direct, "colorSpaceModel"), modelOf(profile));
        EXPECT_EQ(channelsOf(direct), cmsChannelsOf(cmsGetColorSpace(profile.get())));
        const Side side(profile);
        ASSERT_NE(side.space, nullptr);
        const cmsProfileClassSignature kind = cmsGetDeviceClass(profile.get());
        ++count;
        if (kind == cmsSigNamedColorClass) continue; // a list of names, which does not convert
        EXPECT_LE(worstDifference(side, srgb), byte);
        if (kind == cmsSigAbstractClass) continue; // an effect
        EXPECT_LE(worstDifference(srgb, side), byte);
    }
    EXPECT_GE(count, 78);
}

TEST_F(LittleCMS, AgreesOnConversionsByTablesOfEveryKind) {
    cmsSetLogErrorHandler([](cmsContext, cmsUInt32Number, const char* text) { ADD_FAILURE() << text; });
    const Side srgb("sRGBColorSpace");
    cmsUInt32Number count = 0;
    for (const auto colors : {cmsSigGrayData, cmsSigRgbData, cmsSigCmykData, cmsSigLabData, cmsSig2colorData,
                              cmsSig5colorData, cmsSig7colorData, cmsSig15colorData}) {
        for (const auto& [connection, version, is8bit] : {std::tuple(cmsSigXYZData, 2.1, false),
                                                          {cmsSigLabData, 2.1, false},
                                                          {cmsSigLabData, 2.1, true},
                                                          {cmsSigXYZData, 4.0, false},
                                                          {cmsSigLabData, 4.0, false},
                                                          {cmsSigLabData, 4.0, true}}) {
            if (colors == cmsSigLabData && connection == cmsSigXYZData) continue; // lcms takes it for a PCS
            const Kind kind{colors, connection, version, is8bit, ++count % 4 % 3};
            SCOPED_TRACE(testing::Message() << cmsChannelsOf(colors) << (connection == cmsSigLabData ? " Lab " : " XYZ ")
                                            << version << (is8bit ? " 8 bit, " : " 16 bit, ") << kind.intent);
            const Pool each;
            const Side side(tableProfile(kind));
            ASSERT_NE(side.space, nullptr);
            EXPECT_LE(worstDifference(side, srgb, kind.intent), byte);
            EXPECT_LE(worstDifference(srgb, side, kind.intent), byte);
        }
    }
}
