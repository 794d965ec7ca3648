#include "appkit/transfer_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace chroma::builtin {
namespace {

double interpolate(const std::vector<double>& samples, double encoded) {
    const double position = std::clamp(encoded, 0.0, 1.0) * static_cast<double>(samples.size() - 1);
    const std::size_t index = std::min(static_cast<std::size_t>(position), samples.size() - 2);
    const double fraction = position - static_cast<double>(index);
    return samples[index] + fraction * (samples[index + 1] - samples[index]);
}

// Rising and falling curves are searched alike; of a curve that does neither, some point with the value is as good as
// another.
double invert(const std::vector<double>& samples, double linear) {
    const bool isRising = samples.front() <= samples.back();
    const auto isBefore = [isRising](double sample, double value) { return isRising ? sample < value : sample > value; };
    const auto after = std::lower_bound(samples.begin() + 1, samples.end() - 1, linear, isBefore);
    const double low = *(after - 1);
    const double high = *after;
    const double fraction = high == low ? 0 : std::clamp((linear - low) / (high - low), 0.0, 1.0);
    return (static_cast<double>(after - 1 - samples.begin()) + fraction) / static_cast<double>(samples.size() - 1);
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

// CIE 1976 lightness, as L* / 100: a cube root of the light above (6/29)^3, a straight line below.
constexpr double slope = 24389.0 / 27 / 100;
constexpr double breakLight = 216.0 / 24389;

double lightOf(double lightness) {
    return lightness > slope * breakLight ? std::pow((lightness + 0.16) / 1.16, 3) : lightness / slope;
}

double lightnessOf(double light) { return light > breakLight ? 1.16 * std::cbrt(light) - 0.16 : slope * light; }

} // namespace

double TransferCurve::toLinear(double encoded) const {
    const double value = valueAt(*this, encoded);
    return isLightness ? lightOf(value) : value;
}

double TransferCurve::toEncoded(double linear) const { return placeOf(*this, isLightness ? lightnessOf(linear) : linear); }

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
