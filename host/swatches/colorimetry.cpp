#include "swatches/colorimetry.h"

#include <algorithm>
#include <cmath>

namespace host::swatches {

namespace {

constexpr double pi = 3.14159265358979323846;

// Decodes sRGB's transfer curve to linear light. Below 0.0 the curve continues as its mirror image.
double linear(double value) {
    const double magnitude = std::fabs(value);
    const double light = magnitude <= 0.04045 ? magnitude / 12.92 : std::pow((magnitude + 0.055) / 1.055, 2.4);
    return std::copysign(light, value);
}

double luminance(const ScreenColor& c) {
    return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
}

// Returns the hue in degrees, from 0 to 360.
double hueOf(double a, double b) {
    const double degrees = std::atan2(b, a) * 180.0 / pi;
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double sine(double degrees) { return std::sin(degrees * pi / 180.0); }
double cosine(double degrees) { return std::cos(degrees * pi / 180.0); }
double square(double value) { return value * value; }

// Returns how much less a difference of chroma counts at high chroma.
double seventhPower(double chroma) { return std::sqrt(std::pow(chroma, 7) / (std::pow(chroma, 7) + std::pow(25.0, 7))); }

// Converts linear sRGB, adapted to D50 as in profiles and CSS.
RelativeXYZ xyzOfLinear(double red, double green, double blue) {
    return {(0.4360747 * red + 0.3850649 * green + 0.1430804 * blue) / 0.9642200,
            0.2225045 * red + 0.7168786 * green + 0.0606169 * blue,
            (0.0139322 * red + 0.0971045 * green + 0.7141733 * blue) / 0.8252100};
}

} // namespace

Lab labOfRelativeXYZ(double x, double y, double z) {
    const auto f = [](double t) { return t > 216.0 / 24389.0 ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0; };
    return {116.0 * f(y) - 16.0, 500.0 * (f(x) - f(y)), 200.0 * (f(y) - f(z))};
}

RelativeXYZ xyzOfLab(const Lab& color) {
    const auto t = [](double f) { return f > 6.0 / 29.0 ? f * f * f : (116.0 * f - 16.0) * 27.0 / 24389.0; };
    const double y = (color.lightness + 16.0) / 116.0;
    return {t(y + color.a / 500.0), t(y), t(y - color.b / 200.0)};
}

// The published matrix leads to linear sRGB, so xyzOfLinear does the rest.
RelativeXYZ xyzOfOklab(const Lab& color) {
    const auto cube = [](double value) { return value * value * value; };
    const double l = cube(color.lightness + 0.3963377774 * color.a + 0.2158037573 * color.b);
    const double m = cube(color.lightness - 0.1055613458 * color.a - 0.0638541728 * color.b);
    const double s = cube(color.lightness - 0.0894841775 * color.a - 1.2914855480 * color.b);
    return xyzOfLinear(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
                       -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
                       -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s);
}

Lab labOfPolar(double lightness, double chroma, double hueInDegrees) {
    return {lightness, chroma * cosine(hueInDegrees), chroma * sine(hueInDegrees)};
}

Lab labOf(const ScreenColor& color) {
    const RelativeXYZ xyz = xyzOfLinear(linear(color.red), linear(color.green), linear(color.blue));
    return labOfRelativeXYZ(xyz.x, xyz.y, xyz.z);
}

// The variables have the names of the published formula, written out.
double distance(const Lab& first, const Lab& second) {
    const double meanC = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2.0;
    const double stretch = 1.5 - 0.5 * seventhPower(meanC);
    const double a1 = first.a * stretch, a2 = second.a * stretch;
    const double chroma1 = std::hypot(a1, first.b), chroma2 = std::hypot(a2, second.b);
    const double hue1 = hueOf(a1, first.b), hue2 = hueOf(a2, second.b);
    const bool isGray = chroma1 * chroma2 == 0.0;

    double hueStep = isGray ? 0.0 : hue2 - hue1;
    if (hueStep > 180.0) hueStep -= 360.0;
    if (hueStep < -180.0) hueStep += 360.0;
    const double hueDifference = 2.0 * std::sqrt(chroma1 * chroma2) * sine(hueStep / 2.0);

    double meanHue = hue1 + hue2;
    if (!isGray) {
        if (std::fabs(hue1 - hue2) > 180.0) meanHue += meanHue < 360.0 ? 360.0 : -360.0;
        meanHue /= 2.0;
    }
    const double meanLightness = (first.lightness + second.lightness) / 2.0, meanChroma = (chroma1 + chroma2) / 2.0;
    const double hueWeight = 1.0 - 0.17 * cosine(meanHue - 30.0) + 0.24 * cosine(2.0 * meanHue) +
                             0.32 * cosine(3.0 * meanHue + 6.0) - 0.20 * cosine(4.0 * meanHue - 63.0);
    const double fromMiddle = square(meanLightness - 50.0);
    const double lightnessStep =
        (second.lightness - first.lightness) / (1.0 + 0.015 * fromMiddle / std::sqrt(20.0 + fromMiddle));
    const double chromaStep = (chroma2 - chroma1) / (1.0 + 0.045 * meanChroma);
    const double hueTerm = hueDifference / (1.0 + 0.015 * meanChroma * hueWeight);
    const double turn = -sine(60.0 * std::exp(-square((meanHue - 275.0) / 25.0))) * 2.0 * seventhPower(meanChroma);
    return std::sqrt(square(lightnessStep) + square(chromaStep) + square(hueTerm) + turn * chromaStep * hueTerm);
}

ScreenColor clipped(const ScreenColor& color) {
    const auto within = [](double value) { return std::clamp(value, 0.0, 1.0); };
    return {within(color.red), within(color.green), within(color.blue), within(color.alpha)};
}

ScreenColor composed(const ScreenColor& above, const ScreenColor& below) {
    const auto mixed = [&](double front, double back) { return front * above.alpha + back * (1.0 - above.alpha); };
    return {mixed(above.red, below.red), mixed(above.green, below.green), mixed(above.blue, below.blue), 1.0};
}

double contrastRatio(const ScreenColor& text, const ScreenColor& background) {
    const double a = luminance(clipped(text)) + 0.05, b = luminance(clipped(background)) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

} // namespace host::swatches
