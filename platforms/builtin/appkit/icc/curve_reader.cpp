#include "appkit/icc/curve_reader.h"

#include "appkit/icc/signatures.h"

#include <iterator>

namespace chroma::builtin::icc {
namespace {

// A count and that many samples. No sample means the identity, one sample is a gamma.
bool readSampledCurve(const ByteReader& value, TransferCurve& curve) {
    const std::size_t count = value.u32(8);
    if (count > value.size() / 2) return false;
    if (count == 1) {
        curve.gamma = value.u16(12) / 256.0;
    } else {
        for (std::size_t i = 0; i < count; ++i)
            curve.samples.push_back(value.u16(12 + 2 * i) / 65535.0);
    }
    return curve.gamma > 0;
}

constexpr std::size_t parameterCounts[] = {1, 3, 4, 5, 7};

// Five forms. Each has the parameters of the previous form and more, in the order of TransferCurve's members. The second
// and third form leave the break and the offset to be computed.
bool readParametricCurve(const ByteReader& value, TransferCurve& curve) {
    const std::size_t form = value.u16(8);
    if (form >= std::size(parameterCounts)) return false;

    double* const parameters[] = {&curve.gamma, &curve.a, &curve.b, &curve.c, &curve.d, &curve.e, &curve.f};
    for (std::size_t i = 0; i < parameterCounts[form]; ++i)
        *parameters[i] = value.s15Fixed16(12 + 4 * i);
    if (!(curve.gamma > 0) || !(curve.a > 0)) return false;
    if (form == 2) curve.e = curve.f = curve.c;
    if (form == 1 || form == 2) {
        curve.c = 0;
        curve.d = -curve.b / curve.a;
    }
    return true;
}

} // namespace

bool readCurve(const ByteReader& value, TransferCurve& curve) {
    bool isKnown = false;
    if (value.u32(0) == sampledCurve) isKnown = readSampledCurve(value, curve);
    if (value.u32(0) == parametricCurve) isKnown = readParametricCurve(value, curve);
    return isKnown && value.isInBounds();
}

std::size_t sizeOfCurve(const ByteReader& value) {
    if (value.u32(0) == sampledCurve) return 12 + 2 * std::size_t{value.u32(8)};
    return 12 + 4 * parameterCounts[value.u16(8)];
}

} // namespace chroma::builtin::icc
