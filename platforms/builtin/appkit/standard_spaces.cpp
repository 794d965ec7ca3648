#include "appkit/standard_spaces.h"

#include "appkit/icc/profile.h"

#include <array>
#include <cstdint>

namespace chroma::builtin {
namespace {

std::shared_ptr<SpaceDefinition> named(ColorModel model, std::size_t channels, std::u16string_view name,
                                       String& colorSpaceName) {
    auto space = std::make_shared<SpaceDefinition>();
    space->model = model;
    space->channels = channels;
    space->name = name;
    space->colorSpaceName = &colorSpaceName;
    space->convertsToXyz = space->convertsFromXyz = true;
    return space;
}

using NewSpace = std::shared_ptr<SpaceDefinition>;

NewSpace rgbSpace(std::u16string_view name, const Matrix3& toXyz, const TransferCurve& curve,
                  String& colorSpaceName = spaceName::custom) {
    const auto space = named(ColorModel::rgb, 3, name, colorSpaceName);
    space->toXyz = toXyz;
    space->fromXyz = inverse(toXyz);
    for (TransferCurve& channel : space->curves)
        channel = curve;
    return space;
}

NewSpace graySpace(std::u16string_view name, const TransferCurve& curve, String& colorSpaceName = spaceName::custom) {
    const auto space = named(ColorModel::gray, 1, name, colorSpaceName);
    space->curves[0] = curve;
    return space;
}

NewSpace cmykSpace(std::u16string_view name, const SpacePointer& complement, String& colorSpaceName = spaceName::custom) {
    const auto space = named(ColorModel::cmyk, 4, name, colorSpaceName);
    space->complement = complement;
    return space;
}

NewSpace withProfile(const NewSpace& space, const Vector3& white = d50White) {
    space->profile = profileOfSpace(*space, white);
    return space;
}

std::array<SpacePointer, standardSpaceCount> makeStandardSpaces() {
    const Matrix3 generic =
        colorantsToXyz({0.45427, 0.24263, 0.01482}, {0.35332, 0.67441, 0.09042}, {0.15662, 0.08336, 0.71953});
    const Matrix3 srgb = rgbToXyz({0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}, d65);
    const Matrix3 adobe = rgbToXyz({0.64, 0.33}, {0.21, 0.71}, {0.15, 0.06}, d65);
    const Matrix3 p3 = rgbToXyz({0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}, d65);

    const SpacePointer genericRGB =
        withProfile(rgbSpace(u"Generic RGB Profile", generic, gammaCurve(1.8), spaceName::calibratedRGB));
    const SpacePointer deviceRGB = rgbSpace(u"Device RGB", srgb, srgbCurve(), spaceName::deviceRGB);
    return {
        genericRGB,
        withProfile(graySpace(u"Generic Gray Profile", gammaCurve(1.8), spaceName::calibratedWhite)),
        withProfile(cmykSpace(u"Generic CMYK Profile", genericRGB)),
        deviceRGB,
        graySpace(u"Device Gray", srgbCurve(), spaceName::deviceWhite),
        cmykSpace(u"Device CMYK", deviceRGB, spaceName::deviceCMYK),
        withProfile(rgbSpace(u"sRGB IEC61966-2.1", srgb, srgbCurve()), xyzOf(d65)),
        withProfile(rgbSpace(u"Adobe RGB (1998)", adobe, gammaCurve(563.0 / 256)), xyzOf(d65)),
        withProfile(graySpace(u"Generic Gray Gamma 2.2 Profile", gammaCurve(2.2))),
        withProfile(rgbSpace(u"Display P3", p3, srgbCurve()), xyzOf(d65)),
    };
}

} // namespace

const SpacePointer& standardDefinition(StandardSpace space) {
    static const auto& spaces = *new const std::array<SpacePointer, standardSpaceCount>(makeStandardSpaces());
    return spaces[static_cast<std::size_t>(space)];
}

bool isOfDevice(const SpaceDefinition& space) {
    return space.colorSpaceName == &spaceName::deviceRGB || space.colorSpaceName == &spaceName::deviceWhite ||
           space.colorSpaceName == &spaceName::deviceCMYK;
}

SpacePointer definitionOfProfile(const std::vector<std::uint8_t>& profile) {
    const SpacePointer described = spaceFromProfile(profile.data(), profile.size());
    for (std::size_t i = 0; described && i < standardSpaceCount; ++i) {
        const SpacePointer& standard = standardDefinition(static_cast<StandardSpace>(i));
        if (isSameSpace(*standard, *described)) return standard;
    }
    return described;
}

const SpacePointer& unknownDefinition() {
    static const auto& unknown = *new const SpacePointer(std::make_shared<SpaceDefinition>());
    return unknown;
}

} // namespace chroma::builtin
