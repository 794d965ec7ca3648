#include "appkit/transfer_curve.h"

#include "appkit/channels.h"
#include "appkit/colorimetry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace chroma::builtin {
namespace {

double interpolate(const std::vector<double>& samples, double encoded) {
    const double position = clip(encoded) * static_cast<double>(samples.size() - 1);
    const std::size_t index = std::min(static_cast<std::size_t>(position), samples.size() - 2);
    const double fraction = position - static_cast<double>(index);
    return samples[index] + fraction * (samples[index + 1] - samples[index]);
}

// Returns where rising samples reach the value, in 0..1. If the samples do not rise, any place with the value is correct.
// In a flat part the end counts: a value that reaches a flat top within the precision of the samples is white.
template <class Iterator>
double placeInRising(Iterator first, Iterator last, double wanted) {
    constexpr double precision = 0.5 / 65535;
    const double value = std::max(wanted, *first);
    const double top = *(last - 1);
    if (value > top - precision && *(last - 2) == top) return 1;
    const auto after = std::upper_bound(first + 1, last - 1, value);
    const double low = *(after - 1);
    const double high = *after;
    const double fraction = high == low ? 0 : std::clamp((value - low) / (high - low), 0.0, 1.0);
    return (static_cast<double>(after - 1 - first) + fraction) / static_cast<double>(last - first - 1);
}

// Falling samples are searched from the other end.
double invert(const std::vector<double>& samples, double linear) {
    const bool isRising = samples.front() <= samples.back();
    return isRising ? placeInRising(samples.begin(), samples.end(), linear)
                    : 1 - placeInRising(samples.rbegin(), samples.rend(), linear);
}

double valueAt(const TransferCurve& curve, double encoded) {
    if (!curve.samples.empty()) return interpolate(curve.samples, encoded);
    if (encoded < curve.d) return curve.c * encoded + curve.f;
    return std::pow(std::max(curve.a * encoded + curve.b, 0.0), curve.gamma) + curve.e;
}

double placeOf(const TransferCurve& curve, double value) {
    if (!curve.samples.empty()) return invert(curve.samples, value);
    if (curve.c != 0 && value < curve.c * curve.d + curve.f) return (value - curve.f) / curve.c;
    return (std::pow(std::max(value - curve.e, 0.0), 1 / curve.gamma) - curve.b) / curve.a;
}

} // namespace

double TransferCurve::toLinear(double encoded) const {
    const double value = valueAt(*this, encoded);
    return isLightness ? lightOfLightness(value) : value;
}

double TransferCurve::toEncoded(double linear) const {
    return placeOf(*this, isLightness ? lightnessOfLight(linear) : linear);
}

TransferCurve gammaCurve(double gamma) {
    TransferCurve curve;
    curve.gamma = gamma;
    return curve;
}

TransferCurve srgbCurve() {
    TransferCurve curve;
    curve.gamma = 2.4;
    curve.a = 1 / 1.055;
    curve.b = 0.055 / 1.055;
    curve.c = 1 / 12.92;
    curve.d = 0.04045;
    return curve;
}

} // namespace chroma::builtin
