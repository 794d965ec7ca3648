// The transfer curve of a colour space: encoded component to linear light and back.
#pragma once

#include <vector>

namespace chroma::builtin {

// y = (a x + b)^gamma + e for x >= d, y = c x + f below: the parametric curve of colour profiles, of which a plain gamma is
// the simplest case. If there are samples, the curve is instead the polygon through them, spaced evenly over 0..1. Either
// form may yield lightness instead of light.
struct TransferCurve {
    double gamma = 1;
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 0;
    double e = 0;
    double f = 0;
    std::vector<double> samples; // none, or at least two
    bool isLightness = false;    // the curve's value is CIE lightness, as L* / 100

    double toLinear(double encoded) const;
    double toEncoded(double linear) const;
};

TransferCurve gammaCurve(double gamma);
TransferCurve srgbCurve();

} // namespace chroma::builtin
