#include "appkit/icc/profile.h"
#include "appkit/icc/signatures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
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
        for (std::size_t i = 0; i < 4; ++i)
            bytes[offset + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
    }

    std::vector<std::uint8_t> bytes;

private:
    void number(std::uint32_t value, std::size_t count) {
        for (std::size_t i = count; i-- > 0;)
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
};

constexpr double xyzRange = 1 + 32767.0 / 32768; // the range of 16-bit XYZ

// Writes the values one after the other, after a table with room for all tags. Each value starts with its type.
class ProfileWriter {
public:
    explicit ProfileWriter(std::uint32_t tagCount) {
        writer_.bytes.resize(icc::headerSize);
        writer_.u32(tagCount);
        nextEntry_ = writer_.bytes.size();
        writer_.bytes.resize(nextEntry_ + tagCount * icc::tagEntrySize);
    }

    // Version 2.1, which every reader supports. The date is constant, so that the bytes do not depend on the build.
    void header(std::uint32_t profileClass, std::uint32_t colorSpace) {
        constexpr std::uint32_t version = 0x02100000, yearAndMonth = 2024 << 16 | 1, day = 1 << 16;
        writer_.putU32(icc::versionField, version);
        writer_.putU32(icc::classField, profileClass);
        writer_.putU32(icc::colorSpaceField, colorSpace);
        writer_.putU32(icc::connectionSpaceField, icc::xyzSpace);
        writer_.putU32(icc::dateField, yearAndMonth);
        writer_.putU32(icc::dateField + 4, day);
        writer_.putU32(icc::magicField, icc::magic);
        for (std::size_t i = 0; i < 3; ++i)
            writer_.putU32(icc::illuminantField + 4 * i, static_cast<std::uint32_t>(std::lround(d50White[i] * 65536)));
    }

    // ASCII text; the format's two other forms stay empty.
    void description(std::u16string_view text) {
        constexpr std::size_t otherForms = 4 + 4 + 2 + 1 + 67;
        begin(icc::description, icc::description);
        writer_.u32(static_cast<std::uint32_t>(text.size() + 1));
        ascii(text);
        writer_.bytes.resize(writer_.bytes.size() + otherForms);
        end();
    }

    void text(std::uint32_t name, std::u16string_view text) {
        begin(name, icc::plainText);
        ascii(text);
        end();
    }

    void xyz(std::uint32_t name, const Vector3& value) {
        begin(name, icc::xyzType);
        numbers({value[0], value[1], value[2]});
        end();
    }

    // One curve for all tags: a gamma in units of 1/256, or so many samples that no step is visible in 16 bits.
    void curve(std::initializer_list<std::uint32_t> names, const TransferCurve& curve) {
        constexpr std::uint32_t samples = 1024;
        begin(*names.begin(), icc::sampledCurve);
        const bool isGamma = curve.d <= 0;
        writer_.u32(isGamma ? 1 : samples);
        if (isGamma) {
            writer_.u16(static_cast<std::uint32_t>(std::lround(curve.gamma * 256)));
        } else {
            ramp(samples, [&curve](double encoded) { return curve.toLinear(encoded); });
        }
        end(names);
    }

    // Converts the complement of an RGB space with one gamma to XYZ, over all inks. The grid contains the root of the
    // values for that gamma, which is nearly linear in each ink.
    void complementToPcs(const SpaceDefinition& rgb) {
        constexpr std::uint32_t inks = 4, points = 9, nodes = points * points * points * points, samples = 256;
        const double gamma = rgb.curves[0].gamma;
        beginTable(icc::perceptualToPcs, inks, 3, points, {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, 2, samples);
        for (std::uint32_t ink = 0; ink < inks; ++ink)
            ramp(2, [](double amount) { return amount; });
        for (std::uint32_t node = 0; node < nodes; ++node) { // cyan varies slowest, black fastest
            const auto left = [node](std::uint32_t place) { return 1 - (node / place % points) / (points - 1.0); };
            const double black = left(1);
            Vector3 linear{left(points * points * points), left(points * points), left(points)};
            for (double& channel : linear)
                channel = std::pow(black * channel, gamma);
            for (const double value : rgb.toXyz* linear)
                writer_.fraction(std::pow(value, 1 / gamma));
        }
        for (std::uint32_t channel = 0; channel < 3; ++channel)
            ramp(samples, [gamma](double root) { return std::pow(root, gamma) / xyzRange; });
        end();
    }

    // The other direction. The matrix converts XYZ to linear light. The grid is indexed by a root of the light, which
    // places dark colours close together. Shares of the brightest channel are inks, apart from the same root.
    void complementFromPcs(const SpaceDefinition& rgb) {
        constexpr std::uint32_t inks = 4, points = 17, nodes = points * points * points, inputs = 4096, outputs = 256;
        constexpr double root = 2;
        const double gamma = rgb.curves[0].gamma;
        Matrix3 matrix = rgb.fromXyz;
        for (Vector3& row : matrix) {
            for (double& value : row)
                value *= xyzRange;
        }
        beginTable(icc::perceptualFromPcs, 3, inks, points, matrix, inputs, outputs);
        for (std::uint32_t channel = 0; channel < 3; ++channel)
            ramp(inputs, [gamma](double linear) { return std::pow(linear, 1 / (gamma * root)); });
        for (std::uint32_t node = 0; node < nodes; ++node) {
            const auto light = [node](std::uint32_t place) { return (node / place % points) / (points - 1.0); };
            const Vector3 lights{light(points * points), light(points), light(1)};
            const double most = std::max({lights[0], lights[1], lights[2]});
            for (const double each : lights)
                writer_.fraction(most > 0 ? 1 - each / most : 0);
            writer_.fraction(1 - most);
        }
        for (std::uint32_t ink = 0; ink < inks; ++ink)
            ramp(outputs, [](double share) { return 1 - std::pow(1 - share, root); });
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
        writer_.u32(type);
        writer_.u32(0);
    }

    // Ends the current value and assigns it to all the tags.
    void end(std::initializer_list<std::uint32_t> names = {0}) {
        for (const std::uint32_t name : names) {
            if (name != *names.begin()) writer_.putU32(nextEntry_, name);
            writer_.putU32(nextEntry_ + 4, static_cast<std::uint32_t>(start_));
            writer_.putU32(nextEntry_ + 8, static_cast<std::uint32_t>(writer_.bytes.size() - start_));
            nextEntry_ += icc::tagEntrySize;
        }
        writer_.align();
    }

    void ascii(std::u16string_view text) {
        for (const char16_t unit : text)
            writer_.u8(unit);
        writer_.u8(0);
    }

    // Appends the function's values at evenly spaced places from 0 to 1.
    template <class Function>
    void ramp(std::uint32_t samples, Function function) {
        for (std::uint32_t sample = 0; sample < samples; ++sample)
            writer_.fraction(function(sample / (samples - 1.0)));
    }

    // Starts a 16-bit table with samples for each input and output; the caller writes the rest.
    void beginTable(std::uint32_t name, std::uint32_t inputs, std::uint32_t outputs, std::uint32_t points,
                    const Matrix3& matrix, std::uint32_t inputSamples, std::uint32_t outputSamples) {
        begin(name, icc::lookup16);
        for (const std::uint32_t field : {inputs, outputs, points, 0u})
            writer_.u8(field);
        for (const Vector3& row : matrix)
            numbers({row[0], row[1], row[2]});
        writer_.u16(inputSamples);
        writer_.u16(outputSamples);
    }

    void numbers(std::initializer_list<double> values) {
        for (const double value : values)
            writer_.s15Fixed16(value);
    }

    ByteWriter writer_;
    std::size_t nextEntry_ = 0;
    std::size_t start_ = 0;
};

Vector3 column(const Matrix3& matrix, std::size_t index) { return {matrix[0][index], matrix[1][index], matrix[2][index]}; }

} // namespace

std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Vector3& white) {
    constexpr std::uint32_t commonTags = 3;
    struct Shape {
        std::uint32_t profileClass;
        std::uint32_t colorSpace;
        std::uint32_t tags;
    };
    const Shape shape = space.model == ColorModel::gray   ? Shape{icc::displayClass, icc::graySpace, 1}
                        : space.model == ColorModel::cmyk ? Shape{icc::colorSpaceClass, icc::cmykSpace, 2}
                                                          : Shape{icc::displayClass, icc::rgbSpace, 6};
    ProfileWriter writer(commonTags + shape.tags);
    writer.header(shape.profileClass, shape.colorSpace);
    writer.description(space.name);
    writer.text(icc::copyright, u"No copyright, use freely");
    writer.xyz(icc::whitePoint, white);
    if (space.model == ColorModel::gray) {
        writer.curve({icc::grayCurve}, space.curves[0]);
    } else if (space.model == ColorModel::cmyk) {
        writer.complementToPcs(*space.complement);
        writer.complementFromPcs(*space.complement);
    } else {
        writer.curve({icc::redCurve, icc::greenCurve, icc::blueCurve}, space.curves[0]);
        writer.xyz(icc::redColorant, column(space.toXyz, 0));
        writer.xyz(icc::greenColorant, column(space.toXyz, 1));
        writer.xyz(icc::blueColorant, column(space.toXyz, 2));
    }
    return writer.finish();
}

} // namespace chroma::builtin
