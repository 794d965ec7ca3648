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

// Rising and falling curves are searched alike; of a curve that does neither, some point with the value is as good as another.
double invert(const std::vector<double>& samples, double linear) {
    const bool isRising = samples.front() <= samples.back();
    const auto isBefore = [isRising](double sample, double value) { return isRising ? sample < value : sample > value; };
    const auto after = std::lower_bound(samples.begin() + 1, samples.end() - 1, linear, isBefore);
    const double low = *(after - 1);
    const double high = *after;
    const double fraction = high == low ? 0 : std::clamp((linear - low) / (high - low), 0.0, 1.0);
    return (static_cast<double>(after - 1 - samples.begin()) + fraction) / static_cast<double>(samples.size() - 1);
}

} // namespace

double TransferCurve::toLinear(double encoded) const {
    if (!samples.empty()) return interpolate(samples, encoded);
    return encoded >= d ? std::pow(std::max(a * encoded + b, 0.0), gamma) + e : c * encoded + f;
}

double TransferCurve::toEncoded(double linear) const {
    if (!samples.empty()) return invert(samples, linear);
    if (c != 0 && linear < c * d + f) return (linear - f) / c;
    return (std::pow(std::max(linear - e, 0.0), 1 / gamma) - b) / a;
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
