#include "appkit/icc/byte_reader.h"
#include "appkit/icc/curve_reader.h"
#include "appkit/icc/profile.h"
#include "appkit/icc/signatures.h"
#include "appkit/icc/table_reader.h"
#include "text/encoding.h"

#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace chroma::builtin {
namespace {

struct DeviceChannels {
    ColorModel model;
    std::size_t count; // 0: not a space of colours
};

DeviceChannels channelsOf(std::uint32_t colorSpace) {
    switch (colorSpace) {
    case icc::graySpace: return {ColorModel::gray, 1};
    case icc::rgbSpace: return {ColorModel::rgb, 3};
    case icc::cmykSpace: return {ColorModel::cmyk, 4};
    case icc::labSpace: return {ColorModel::lab, 3};
    default: break;
    }
    // "2CLR" to "FCLR": the number of channels as a digit.
    const std::size_t digit = std::string_view("23456789ABCDEF").find(static_cast<char>(colorSpace >> 24));
    const bool isNumbered = (colorSpace & 0xFFFFFF) == (icc::signature("2CLR") & 0xFFFFFF);
    if (isNumbered && digit != std::string_view::npos) return {ColorModel::deviceN, 2 + digit};
    return {ColorModel::unknown, 0};
}

// The tag table of a profile. Each value starts with its type's name and four unused bytes.
class Tags {
public:
    explicit Tags(const ByteReader& profile) : profile_(profile), count_(profile.u32(icc::headerSize)) {}

    bool areInside() const {
        if (count_ > (profile_.size() - icc::headerSize) / icc::tagEntrySize) return false;
        for (std::size_t i = 0; i < count_; ++i)
            value(i);
        return profile_.isInBounds();
    }

    std::optional<ByteReader> find(std::uint32_t name) const {
        for (std::size_t i = 0; i < count_; ++i)
            if (profile_.u32(entry(i)) == name) return value(i);
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

// The version 2 form: a count and that many characters with a NUL. Non-ASCII bytes are read as Latin-1.
bool readPlainText(const ByteReader& value, std::u16string& text) {
    const std::string_view bytes = value.text(12, value.u32(8));
    return decodeText(bytes.substr(0, bytes.find('\0')), encoding::latin1, false, text);
}

// Records of language, country, length and offset. Reads the English record, otherwise the first.
bool readLocalizedText(const ByteReader& value, std::u16string& text) {
    constexpr std::uint16_t english = 0x656E;
    constexpr std::size_t firstRecord = 16;
    const std::size_t count = value.u32(8);
    const std::size_t recordSize = value.u32(12);
    if (count == 0 || recordSize < 12 || count > value.size() / recordSize) return false;
    std::size_t record = firstRecord;
    for (std::size_t i = 0; i < count; ++i) {
        if (value.u16(firstRecord + i * recordSize) == english) {
            record = firstRecord + i * recordSize;
            break;
        }
    }
    const ByteReader units = value.range(value.u32(record + 8), value.u32(record + 4));
    for (std::size_t offset = 0; offset + 2 <= units.size(); offset += 2)
        text.push_back(static_cast<char16_t>(units.u16(offset)));
    return true;
}

bool readName(const ByteReader& value, std::u16string& name) {
    bool isKnown = false;
    if (value.u32(0) == icc::description) isKnown = readPlainText(value, name);
    if (value.u32(0) == icc::localizedText) isKnown = readLocalizedText(value, name);
    return isKnown && value.isInBounds();
}

bool readColorant(const ByteReader& value, Vector3& colorant) {
    colorant = {value.s15Fixed16(8), value.s15Fixed16(12), value.s15Fixed16(16)};
    return value.u32(0) == icc::xyzType && value.isInBounds();
}

// Reads the tags that exist with `read`. Returns false if one is malformed; `isComplete` reports whether all exist.
template <class Value, std::size_t Count>
bool readTags(const Tags& tags, const std::uint32_t (&names)[Count], bool (*read)(const ByteReader&, Value&), Value* values,
              bool& isComplete) {
    for (std::size_t i = 0; i < Count; ++i) {
        const auto value = tags.find(names[i]);
        if (!value) isComplete = false;
        if (value && !read(*value, values[i])) return false;
    }
    return true;
}

// kTRC.
bool readGray(const Tags& tags, SpaceDefinition& space) {
    bool isComplete = true;
    if (!readTags(tags, {icc::grayCurve}, icc::readCurve, space.curves, isComplete)) return false;
    space.convertsToXyz = space.convertsFromXyz = isComplete;
    return true;
}

// rTRC, gTRC, bTRC and the columns rXYZ, gXYZ, bXYZ of the matrix.
bool readRgb(const Tags& tags, SpaceDefinition& space) {
    Vector3 colorants[3];
    bool isComplete = true;
    if (!readTags(tags, {icc::redCurve, icc::greenCurve, icc::blueCurve}, icc::readCurve, space.curves, isComplete) ||
        !readTags(tags, {icc::redColorant, icc::greenColorant, icc::blueColorant}, readColorant, colorants, isComplete)) {
        return false;
    }
    space.toXyz = colorantsToXyz(colorants[0], colorants[1], colorants[2]);
    space.convertsToXyz = isComplete;
    constexpr double smallestVolume = 1e-6; // below it the colorants lie practically in one plane
    space.convertsFromXyz = isComplete && std::abs(determinant(space.toXyz)) >= smallestVolume;
    if (space.convertsFromXyz) space.fromXyz = inverse(space.toXyz);
    return true;
}

// Reads the perceptual table, otherwise the media-relative colorimetric one, otherwise the saturation one; sets null if
// there is none. Returns false if the table is malformed. In version 4 the PCS has the black of a reference medium, except
// for colorimetric tables.
bool readTable(const Tags& tags, const std::uint32_t (&names)[3], const icc::TableSides& sides, bool hasReferenceBlack,
               std::shared_ptr<const icc::Table>& table) {
    constexpr Vector3 referenceBlack{0.00336, 0.0034731, 0.00287};
    for (const std::uint32_t name : names) {
        const auto value = tags.find(name);
        if (!value) continue;
        const auto read = std::make_shared<icc::Table>();
        if (hasReferenceBlack && name != names[1]) read->black = referenceBlack;
        table = read;
        return icc::readTable(*value, sides, *read);
    }
    return true;
}

// Tables take precedence over curves and matrix.
bool readTables(const Tags& tags, icc::TableSides sides, bool hasReferenceBlack, SpaceDefinition& space) {
    sides.isToPcs = true;
    if (!readTable(tags, {icc::perceptualToPcs, icc::colorimetricToPcs, icc::saturationToPcs}, sides, hasReferenceBlack,
                   space.tableToXyz)) {
        return false;
    }
    sides.isToPcs = false;
    if (!readTable(tags, {icc::perceptualFromPcs, icc::colorimetricFromPcs, icc::saturationFromPcs}, sides,
                   hasReferenceBlack, space.tableFromXyz)) {
        return false;
    }
    space.convertsToXyz = space.convertsToXyz || space.tableToXyz;
    space.convertsFromXyz = space.convertsFromXyz || space.tableFromXyz;
    return true;
}

} // namespace

SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size) {
    const std::size_t profileSize = ByteReader(bytes, size).u32(icc::sizeField);
    if (profileSize < icc::headerSize + 4 || profileSize > size) return nullptr;
    const ByteReader profile(bytes, profileSize);
    const Tags tags(profile);
    const DeviceChannels channels = channelsOf(profile.u32(icc::colorSpaceField));
    if (profile.u32(icc::magicField) != icc::magic || channels.count == 0 || !tags.areInside()) return nullptr;

    const auto space = std::make_shared<SpaceDefinition>();
    space->model = channels.model;
    space->channels = channels.count;
    space->profile.assign(bytes, bytes + profileSize);
    if (const auto name = tags.find(icc::description))
        if (!readName(*name, space->name)) return nullptr;
    // Device links and named colour lists have no PCS to convert through.
    const std::uint32_t profileClass = profile.u32(icc::classField);
    const std::uint32_t connection = profile.u32(icc::connectionSpaceField);
    const bool isXyz = connection == icc::xyzSpace;
    if (profileClass == icc::linkClass || profileClass == icc::namedColorClass) return space;
    if (!isXyz && connection != icc::labSpace) return space;
    space->curves[0].isLightness = channels.model == ColorModel::gray && !isXyz;
    if (channels.model == ColorModel::gray && !readGray(tags, *space)) return nullptr;
    if (channels.model == ColorModel::rgb && isXyz && !readRgb(tags, *space)) return nullptr;
    const icc::TableSides sides{channels.count, channels.model == ColorModel::lab, isXyz, true};
    // An abstract profile converts from PCS to PCS, so both sides have the same black.
    const bool hasReferenceBlack = profile.u32(icc::versionField) >= 0x04000000 && profileClass != icc::abstractClass;
    return readTables(tags, sides, hasReferenceBlack, *space) ? space : nullptr;
}

} // namespace chroma::builtin
