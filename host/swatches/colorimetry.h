// Computes what pages show of colours besides their components: the contrast, and the distance from the nearest colour on a
// screen.
#pragma once

namespace host::swatches {

// A colour in sRGB. Alpha is from 0.0 to 1.0. The other components are outside that range for a colour that an sRGB screen
// cannot show.
struct ScreenColor {
    double red, green, blue, alpha;
};

// Returns the colour with each component clamped to the range of the screen.
ScreenColor clipped(const ScreenColor& color);

// Returns the visible colour of `above` on an opaque `below`.
ScreenColor composed(const ScreenColor& above, const ScreenColor& below);

// Returns the contrast ratio of text and its background, from 1.0 to 21.0, as WCAG 2.2 defines it. Both must be opaque.
double contrastRatio(const ScreenColor& text, const ScreenColor& background);

// A colour in CIE L*a*b* under D50.
struct Lab {
    double lightness, a, b;
};

// Convert an sRGB value without its alpha, and X, Y and Z relative to those of white.
Lab labOf(const ScreenColor& color);
Lab labOfRelativeXYZ(double x, double y, double z);

// X, Y and Z relative to those of the white D50.
struct RelativeXYZ {
    double x, y, z;
};
RelativeXYZ xyzOfLab(const Lab& color);
RelativeXYZ xyzOfOklab(const Lab& color); // lightness from 0.0 to 1.0

// Returns the colour whose a and b have this length and angle.
Lab labOfPolar(double lightness, double chroma, double hueInDegrees);

// Returns the perceived difference, CIEDE2000. About 1.0 is the smallest difference that people notice.
double distance(const Lab& first, const Lab& second);

} // namespace host::swatches
