#include "appkit/icc/profile.h"
#include "appkit/icc/signatures.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace chroma::builtin {
namespace {

class ByteWriter {
public:
    void u8(std::uint32_t value) { number(value, 1); }
    void u16(std::uint32_t value) { number(value, 2); }
    void u32(std::uint32_t value) { number(value, 4); }

    void s15Fixed16(double value) { u32(static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value * 65536)))); }

    void fraction(double value) { u16(static_cast<std::uint32_t>(std::lround(value * 65535))); }

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

    void header(std::uint32_t profileClass, std::uint32_t colorSpace) {
        constexpr std::uint32_t version = 0x04300000;
        writer_.putU32(icc::versionField, version);
        writer_.putU32(icc::classField, profileClass);
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
        begin(name, icc::parametricCurve);
        const bool isGamma = curve.d <= 0;
        writer_.u16(isGamma ? 0 : 3);
        writer_.u16(0);
        numbers({curve.gamma});
        if (!isGamma) numbers({curve.a, curve.b, curve.c, curve.d});
        end();
    }

    // The complement of an RGB space with one gamma, as a table over the light that each ink leaves. Light is a sum of
    // products of these, so that the points of the table are exact and what is interpolated between them comes within two
    // hundredths.
    void complement(std::uint32_t name, const SpaceDefinition& rgb) {
        constexpr std::uint32_t inks = 4, points = 9, nodes = points * points * points * points, samples = 256;
        begin(name, icc::lookup16);
        for (const std::uint32_t field : {inks, 3u, points, 0u}) {
            writer_.u8(field);
        }
        numbers({1, 0, 0, 0, 1, 0, 0, 0, 1}); // a matrix that only XYZ input would pass through
        writer_.u16(samples);
        writer_.u16(2);
        for (std::uint32_t sample = 0; sample < inks * samples; ++sample) {
            writer_.fraction(rgb.curves[0].toLinear(1 - (sample % samples) / (samples - 1.0)));
        }
        for (std::uint32_t node = 0; node < nodes; ++node) { // cyan varies slowest, black fastest
            const auto light = [node](std::uint32_t place) { return (node / place % points) / (points - 1.0); };
            const double black = light(1);
            const Vector3 linear{black * light(points * points * points), black * light(points * points),
                                 black * light(points)};
            for (const double value : rgb.toXyz* linear) {
                writer_.u16(static_cast<std::uint32_t>(std::lround(value * 32768)));
            }
        }
        for (std::uint32_t channel = 0; channel < 3; ++channel) { // the result stays as it is
            writer_.fraction(0);
            writer_.fraction(1);
        }
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
    constexpr std::uint32_t commonTags = 3;
    struct Shape {
        std::uint32_t profileClass;
        std::uint32_t colorSpace;
        std::uint32_t tags;
    };
    const Shape shape = space.model == ColorModel::gray   ? Shape{icc::displayClass, icc::graySpace, 1}
                        : space.model == ColorModel::cmyk ? Shape{icc::inputClass, icc::cmykSpace, 1}
                                                          : Shape{icc::displayClass, icc::rgbSpace, 6};
    ProfileWriter writer(commonTags + shape.tags + (adaptation ? 1 : 0));
    writer.header(shape.profileClass, shape.colorSpace);
    writer.text(icc::description, space.name);
    writer.text(icc::copyright, u"No copyright, use freely");
    writer.xyz(icc::whitePoint, d50White);
    if (adaptation) writer.matrix(icc::adaptation, *adaptation);
    if (space.model == ColorModel::gray) {
        writer.curve(icc::grayCurve, space.curves[0]);
    } else if (space.model == ColorModel::cmyk) {
        writer.complement(icc::perceptualToPcs, *space.complement);
    } else {
        constexpr std::uint32_t curves[] = {icc::redCurve, icc::greenCurve, icc::blueCurve};
        constexpr std::uint32_t colorants[] = {icc::redColorant, icc::greenColorant, icc::blueColorant};
        for (std::size_t index = 0; index < 3; ++index) {
            writer.curve(curves[index], space.curves[index]);
            writer.xyz(colorants[index], column(space.toXyz, index));
        }
    }
    return writer.finish();
}

} // namespace chroma::builtin
