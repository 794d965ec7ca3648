#include "appkit/icc/profile.h"
#include "appkit/icc/signatures.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace chroma::builtin {
namespace {

class ByteWriter {
public:
    void u16(std::uint32_t value) { number(value, 2); }
    void u32(std::uint32_t value) { number(value, 4); }

    void s15Fixed16(double value) { u32(static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value * 65536)))); }

    void align() { bytes.resize((bytes.size() + 3) / 4 * 4); }

    void putU32(std::size_t offset, std::uint32_t value) {
        for (std::size_t index = 0; index < 4; ++index) {
            bytes[offset + index] = static_cast<std::uint8_t>(value >> (24 - 8 * index));
        }
    }

    std::vector<std::uint8_t> bytes;

private:
    void number(std::uint32_t value, std::size_t count) {
        for (std::size_t index = count; index-- > 0;) {
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
        }
    }
};

// The tags are written one after the other behind a table that has room for them; each starts with its type.
class ProfileWriter {
public:
    explicit ProfileWriter(std::uint32_t tagCount) {
        writer_.bytes.resize(icc::headerSize);
        writer_.u32(tagCount);
        nextEntry_ = writer_.bytes.size();
        writer_.bytes.resize(nextEntry_ + tagCount * icc::tagEntrySize);
    }

    void header(std::uint32_t colorSpace) {
        constexpr std::uint32_t version = 0x04300000;
        writer_.putU32(icc::versionField, version);
        writer_.putU32(icc::classField, icc::displayClass);
        writer_.putU32(icc::colorSpaceField, colorSpace);
        writer_.putU32(icc::connectionSpaceField, icc::xyzSpace);
        writer_.putU32(icc::magicField, icc::magic);
        for (std::size_t index = 0; index < 3; ++index) {
            writer_.putU32(icc::illuminantField + 4 * index,
                           static_cast<std::uint32_t>(std::lround(d50White[index] * 65536)));
        }
    }

    void text(std::uint32_t name, std::u16string_view text) {
        constexpr std::uint32_t english = 0x656E5553; // "enUS"
        begin(name, icc::localizedText);
        const auto size = static_cast<std::uint32_t>(2 * text.size());
        for (const std::uint32_t field : {1u, 12u, english, size, 28u}) { // one record of 12 bytes; the text is behind it
            writer_.u32(field);
        }
        for (const char16_t unit : text) {
            writer_.u16(unit);
        }
        end();
    }

    void xyz(std::uint32_t name, const Vector3& value) {
        begin(name, icc::xyzType);
        numbers({value[0], value[1], value[2]});
        end();
    }

    void matrix(std::uint32_t name, const Matrix3& value) {
        begin(name, icc::fixedArrayType);
        for (const Vector3& row : value) {
            numbers({row[0], row[1], row[2]});
        }
        end();
    }

    // As a plain gamma, or with the linear part below the break.
    void curve(std::uint32_t name, const TransferCurve& curve) {
        begin(name, icc::parametricType);
        const bool isGamma = curve.d <= 0;
        writer_.u16(isGamma ? 0 : 3);
        writer_.u16(0);
        numbers({curve.gamma});
        if (!isGamma) numbers({curve.a, curve.b, curve.c, curve.d});
        end();
    }

    std::vector<std::uint8_t> finish() {
        writer_.putU32(icc::sizeField, static_cast<std::uint32_t>(writer_.bytes.size()));
        return std::move(writer_.bytes);
    }

private:
    void begin(std::uint32_t name, std::uint32_t type) {
        start_ = writer_.bytes.size();
        writer_.putU32(nextEntry_, name);
        writer_.putU32(nextEntry_ + 4, static_cast<std::uint32_t>(start_));
        writer_.u32(type);
        writer_.u32(0);
    }

    void end() {
        writer_.putU32(nextEntry_ + 8, static_cast<std::uint32_t>(writer_.bytes.size() - start_));
        nextEntry_ += icc::tagEntrySize;
        writer_.align();
    }

    void numbers(std::initializer_list<double> values) {
        for (const double value : values) {
            writer_.s15Fixed16(value);
        }
    }

    ByteWriter writer_;
    std::size_t nextEntry_ = 0;
    std::size_t start_ = 0;
};

Vector3 column(const Matrix3& matrix, std::size_t index) { return {matrix[0][index], matrix[1][index], matrix[2][index]}; }

} // namespace

std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Matrix3* adaptation) {
    const bool isGray = space.model == ColorModel::gray;
    ProfileWriter writer((isGray ? 4u : 9u) + (adaptation ? 1u : 0u));
    writer.header(isGray ? icc::graySpace : icc::rgbSpace);
    writer.text(icc::description, space.name);
    writer.text(icc::copyright, u"No copyright, use freely");
    writer.xyz(icc::whitePoint, d50White);
    if (adaptation) writer.matrix(icc::adaptation, *adaptation);
    if (isGray) {
        writer.curve(icc::grayCurve, space.curves[0]);
        return writer.finish();
    }
    constexpr std::uint32_t curves[] = {icc::redCurve, icc::greenCurve, icc::blueCurve};
    constexpr std::uint32_t colorants[] = {icc::redColorant, icc::greenColorant, icc::blueColorant};
    for (std::size_t index = 0; index < 3; ++index) {
        writer.curve(curves[index], space.curves[index]);
        writer.xyz(colorants[index], column(space.toXyz, index));
    }
    return writer.finish();
}

} // namespace chroma::builtin
