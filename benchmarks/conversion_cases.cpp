#include "work.h"

#include <cmath>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <lcms2.h>

namespace bench {
namespace {

using chroma::CGFloat;

id classOf(const char* name) { return chroma::objc_getClass(name); }

std::string contentsOf(const std::string& path) {
    std::ostringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    if (contents.str().empty()) throw std::runtime_error("cannot read " + path);
    return contents.str();
}

std::string profileOf(id space) {
    const id data = send<id>(space, selector("ICCProfileData"));
    return {send<const char*>(data, selector("bytes")), send<std::size_t>(data, selector("length"))};
}

using Handle = std::shared_ptr<void>;

Handle opened(const std::string& profile) {
    return {cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size())), cmsCloseProfile};
}

id spaceOf(const std::string& profile) {
    const id data = send<id>(classOf("NSData"), selector("dataWithBytes:length:"), profile.data(), profile.size());
    const id space =
        send<id>(send<id>(classOf("NSColorSpace"), selector("alloc")), selector("initWithICCProfileData:"), data);
    if (!space) throw std::runtime_error("a profile is refused");
    return space;
}

constexpr std::size_t maxChannels = 4;
constexpr float orange[] = {1, 0.5f, 0.125f};

// In the floating-point formats of Little CMS, inks are percentages.
Case conversion(const std::string& key, id target, const std::string& targetProfile, cmsUInt32Number format, float scale) {
    const host::platform::AutoreleasePool pool;
    const id srgb = send<id>(classOf("NSColorSpace"), selector("sRGBColorSpace"));
    const Handle from = opened(profileOf(srgb)), to = opened(targetProfile);
    const Handle transform(
        cmsCreateTransform(from.get(), TYPE_RGB_FLT, to.get(), format, INTENT_PERCEPTUAL, cmsFLAGS_NOCACHE),
        cmsDeleteTransform);
    if (!transform) throw std::runtime_error("no transform for " + key);

    const CGFloat components[] = {orange[0], orange[1], orange[2], 1};
    const id color =
        send<id>(send<id>(classOf("NSColor"), selector("colorWithColorSpace:components:count:"), srgb, +components, 4L),
                 selector("retain"));
    const SEL message = selector("colorUsingColorSpace:");
    Case created;
    created.key = key;
    created.bound = {key + ".bound", repeated([=] {
                         const id converted = send<id>(color, message, target);
                         use(converted);
                     }),
                     fewColors};
    created.baseline = {key + ".baseline", repeated([transform] {
                            float converted[maxChannels];
                            cmsDoTransform(transform.get(), orange, converted, 1);
                            use(converted);
                        }),
                        fewColors};

    CGFloat ours[maxChannels + 1];
    float theirs[maxChannels] = {};
    send<void>(send<id>(color, selector("colorUsingColorSpace:"), target), selector("getComponents:"), +ours);
    cmsDoTransform(transform.get(), orange, theirs, 1);
    for (std::size_t channel = 0; channel < T_CHANNELS(format); ++channel)
        if (!(std::abs(ours[channel] - theirs[channel] / scale) <= 1 / 255.0))
            throw std::runtime_error("wrong result: " + key);
    return created;
}

} // namespace

std::vector<Case> conversionCases() {
    const host::platform::AutoreleasePool pool;
    const std::string matrix = contentsOf("/usr/share/color/icc/colord/ProPhotoRGB.icc"),
                      inks = contentsOf("/usr/share/color/icc/ghostscript/default_cmyk.icc");
    const id adobe = send<id>(classOf("NSColorSpace"), selector("adobeRGB1998ColorSpace"));
    return {conversion("to_rgb", adobe, profileOf(adobe), TYPE_RGB_FLT, 1),
            conversion("to_matrix", spaceOf(matrix), matrix, TYPE_RGB_FLT, 1),
            conversion("to_cmyk", spaceOf(inks), inks, TYPE_CMYK_FLT, 100)};
}

} // namespace bench
