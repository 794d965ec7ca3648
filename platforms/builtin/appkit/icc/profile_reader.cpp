#include "appkit/icc/byte_reader.h"
#include "appkit/icc/profile.h"
#include "appkit/icc/signatures.h"
#include "text/encoding.h"

#include <cmath>
#include <iterator>
#include <optional>

namespace chroma::builtin {
namespace {

struct Channels {
    ColorModel model;
    std::size_t count; // 0: no space that a colour can be in
};

Channels channelsOf(std::uint32_t colorSpace) {
    switch (colorSpace) {
    case icc::graySpace: return {ColorModel::gray, 1};
    case icc::rgbSpace: return {ColorModel::rgb, 3};
    case icc::cmykSpace: return {ColorModel::cmyk, 4};
    case icc::labSpace: return {ColorModel::lab, 3};
    default: break;
    }
    // "2CLR" to "FCLR": the number of channels as a hexadecimal digit.
    const auto digit = static_cast<char>(colorSpace >> 24);
    const bool isNumbered = (colorSpace & 0xFFFFFF) == (icc::signature("2CLR") & 0xFFFFFF);
    if (isNumbered && digit >= '2' && digit <= '9') return {ColorModel::deviceN, static_cast<std::size_t>(digit - '0')};
    if (isNumbered && digit >= 'A' && digit <= 'F') return {ColorModel::deviceN, static_cast<std::size_t>(digit - 'A' + 10)};
    return {ColorModel::unknown, 0};
}

// The tag table of a profile. A tag's value starts with the name of its type and four unused bytes.
class Tags {
public:
    explicit Tags(const ByteReader& profile) : profile_(profile), count_(profile.u32(icc::headerSize)) {}

    bool areInside() const {
        if (count_ > (profile_.size() - icc::headerSize) / icc::tagEntrySize) return false;
        for (std::size_t index = 0; index < count_; ++index) {
            value(index);
        }
        return profile_.isInBounds();
    }

    std::optional<ByteReader> find(std::uint32_t name) const {
        for (std::size_t index = 0; index < count_; ++index) {
            if (profile_.u32(entry(index)) == name) return value(index);
        }
        return std::nullopt;
    }

private:
    static std::size_t entry(std::size_t index) { return icc::headerSize + 4 + index * icc::tagEntrySize; }

    ByteReader value(std::size_t index) const {
        return profile_.range(profile_.u32(entry(index) + 4), profile_.u32(entry(index) + 8));
    }

    const ByteReader& profile_;
    std::size_t count_;
};

// The old form: a count and that much ASCII with a NUL. What is no ASCII is taken for Latin-1.
bool readPlainText(const ByteReader& value, std::u16string& text) {
    const std::string_view bytes = value.text(12, value.u32(8));
    return decodeText(bytes.substr(0, bytes.find('\0')), encoding::latin1, false, text);
}

// Records of language, country, length and offset; the English one, else the first.
bool readLocalizedText(const ByteReader& value, std::u16string& text) {
    constexpr std::uint16_t english = 0x656E;
    constexpr std::size_t firstRecord = 16;
    const std::size_t count = value.u32(8);
    const std::size_t recordSize = value.u32(12);
    if (count == 0 || recordSize < 12 || count > value.size() / recordSize) return false;
    std::size_t record = firstRecord;
    for (std::size_t index = 0; index < count; ++index) {
        if (value.u16(firstRecord + index * recordSize) == english) {
            record = firstRecord + index * recordSize;
            break;
        }
    }
    const ByteReader units = value.range(value.u32(record + 8), value.u32(record + 4));
    for (std::size_t offset = 0; offset + 2 <= units.size(); offset += 2) {
        text.push_back(static_cast<char16_t>(units.u16(offset)));
    }
    return true;
}

bool readName(const ByteReader& value, std::u16string& name) {
    bool isKnown = false;
    if (value.u32(0) == icc::description) isKnown = readPlainText(value, name);
    if (value.u32(0) == icc::localizedText) isKnown = readLocalizedText(value, name);
    return isKnown && value.isInBounds();
}

// A count and that many samples; none is the identity, one is a gamma.
bool readSampledCurve(const ByteReader& value, TransferCurve& curve) {
    const std::size_t count = value.u32(8);
    if (count > value.size() / 2) return false;
    if (count == 1) {
        curve.gamma = value.u16(12) / 256.0;
    } else {
        for (std::size_t index = 0; index < count; ++index) {
            curve.samples.push_back(value.u16(12 + 2 * index) / 65535.0);
        }
    }
    return curve.gamma > 0;
}

// Five forms, each with the parameters of the one before and more, in the order of TransferCurve's members; the second and
// the third leave the break and the offset to be worked out.
bool readParametricCurve(const ByteReader& value, TransferCurve& curve) {
    constexpr std::size_t parameterCounts[] = {1, 3, 4, 5, 7};
    const std::size_t form = value.u16(8);
    if (form >= std::size(parameterCounts)) return false;

    double* const parameters[] = {&curve.gamma, &curve.a, &curve.b, &curve.c, &curve.d, &curve.e, &curve.f};
    for (std::size_t index = 0; index < parameterCounts[form]; ++index) {
        *parameters[index] = value.s15Fixed16(12 + 4 * index);
    }
    if (!(curve.gamma > 0) || !(curve.a > 0)) return false;
    if (form == 2) curve.e = curve.f = curve.c;
    if (form == 1 || form == 2) {
        curve.c = 0;
        curve.d = -curve.b / curve.a;
    }
    return true;
}

bool readCurve(const ByteReader& value, TransferCurve& curve) {
    bool isKnown = false;
    if (value.u32(0) == icc::curveType) isKnown = readSampledCurve(value, curve);
    if (value.u32(0) == icc::parametricType) isKnown = readParametricCurve(value, curve);
    return isKnown && value.isInBounds();
}

bool readColorant(const ByteReader& value, Vector3& colorant) {
    colorant = {value.s15Fixed16(8), value.s15Fixed16(12), value.s15Fixed16(16)};
    return value.u32(0) == icc::xyzType && value.isInBounds();
}

// Reads the tags with `read` while they are there. False when one is malformed; `isComplete` tells whether all were there.
template <class Value, std::size_t Count>
bool readTags(const Tags& tags, const std::uint32_t (&names)[Count], bool (*read)(const ByteReader&, Value&), Value* values,
              bool& isComplete) {
    for (std::size_t index = 0; index < Count; ++index) {
        const auto value = tags.find(names[index]);
        if (!value) isComplete = false;
        if (value && !read(*value, values[index])) return false;
    }
    return true;
}

bool readGray(const Tags& tags, SpaceDefinition& space) {
    bool isComplete = true;
    if (!readTags(tags, {icc::grayCurve}, readCurve, space.curves, isComplete)) return false;
    space.isConvertible = isComplete;
    return true;
}

bool readRgb(const Tags& tags, SpaceDefinition& space) {
    Vector3 colorants[3];
    bool isComplete = true;
    if (!readTags(tags, {icc::redCurve, icc::greenCurve, icc::blueCurve}, readCurve, space.curves, isComplete)) return false;
    if (!readTags(tags, {icc::redColorant, icc::greenColorant, icc::blueColorant}, readColorant, colorants, isComplete)) {
        return false;
    }
    if (!isComplete) return true;
    space.toXyz = colorantsToXyz(colorants[0], colorants[1], colorants[2]);
    constexpr double smallestVolume = 1e-6; // below, the colorants are as good as in one plane
    if (std::abs(determinant(space.toXyz)) < smallestVolume) return true;
    space.fromXyz = inverse(space.toXyz);
    space.isConvertible = true;
    return true;
}

} // namespace

SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size) {
    const std::size_t profileSize = ByteReader(bytes, size).u32(icc::sizeField);
    if (profileSize < icc::headerSize + 4 || profileSize > size) return nullptr;
    const ByteReader profile(bytes, profileSize);
    const Tags tags(profile);
    const Channels channels = channelsOf(profile.u32(icc::colorSpaceField));
    if (profile.u32(icc::magicField) != icc::magic || channels.count == 0 || !tags.areInside()) return nullptr;

    const auto space = std::make_shared<SpaceDefinition>();
    space->model = channels.model;
    space->channels = channels.count;
    space->profile.assign(bytes, bytes + profileSize);
    if (const auto name = tags.find(icc::description)) {
        if (!readName(*name, space->name)) return nullptr;
    }
    const bool connectsByXyz = profile.u32(icc::connectionSpaceField) == icc::xyzSpace;
    bool isSound = true;
    if (channels.model == ColorModel::gray) isSound = readGray(tags, *space);
    if (channels.model == ColorModel::rgb && connectsByXyz) isSound = readRgb(tags, *space);
    space->curves[0].isLightness = channels.model == ColorModel::gray && !connectsByXyz; // the other is Lab
    return isSound ? space : nullptr;
}

} // namespace chroma::builtin
