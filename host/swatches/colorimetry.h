// What pages tell of colours beyond their components: contrast, and how far a colour lies from what a screen shows.
#pragma once

namespace host::swatches {

// sRGB. Alpha is from 0.0 to 1.0; the others lie outside that range for a colour that an sRGB screen cannot show.
struct ScreenColor {
    double red, green, blue, alpha;
};

// The nearest colour of the screen in each component.
ScreenColor clipped(const ScreenColor& color);

// What one sees of `above` on an opaque `below`.
ScreenColor composed(const ScreenColor& above, const ScreenColor& below);

// The contrast ratio of text on what lies behind it, both opaque, from 1.0 to 21.0: WCAG 2.2.
double contrastRatio(const ScreenColor& text, const ScreenColor& background);

// CIE L*a*b* under D50.
struct Lab {
    double lightness, a, b;
};

// Of an sRGB value, alpha apart, and of X, Y and Z as parts of those of white.
Lab labOf(const ScreenColor& color);
Lab labOfRelativeXYZ(double x, double y, double z);

// X, Y and Z as parts of those of the white D50.
struct RelativeXYZ {
    double x, y, z;
};
RelativeXYZ xyzOfLab(const Lab& color);
RelativeXYZ xyzOfOklab(const Lab& color); // lightness from 0.0 to 1.0

// A colour whose a and b have this length and angle.
Lab labOfPolar(double lightness, double chroma, double hueInDegrees);

// The difference that an eye sees: CIEDE2000. 1.0 is about the least that one notices.
double distance(const Lab& first, const Lab& second);

} // namespace host::swatches
