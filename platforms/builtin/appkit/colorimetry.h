// The arithmetic of device-independent colour, in double precision: XYZ relative to the D50 white point.
#pragma once

#include <array>

namespace chroma::builtin {

using Vector3 = std::array<double, 3>;
using Matrix3 = std::array<Vector3, 3>; // rows

constexpr Vector3 d50White{0.9642, 1.0, 0.8249};

Vector3 operator*(const Matrix3& matrix, const Vector3& vector);
Matrix3 operator*(const Matrix3& left, const Matrix3& right);
double determinant(const Matrix3& matrix);
Matrix3 inverse(const Matrix3& matrix); // the determinant must not be 0

// CIE 1976 L*a*b*, L* in 0..100. The two functions of lightness use L* / 100: a cube root above (6/29)^3, a straight line
// below.
double lightOfLightness(double lightness);
double lightnessOfLight(double light);
Vector3 xyzFromLab(const Vector3& lab);
Vector3 labFromXyz(const Vector3& xyz);

// The chromaticity coordinates of a light.
struct Chromaticity {
    double x;
    double y;
};

constexpr Chromaticity d65{0.3127, 0.3290};

Vector3 xyzOf(Chromaticity light); // Y is 1

// Returns the linear Bradford transform from XYZ under the white point to XYZ under D50.
Matrix3 adaptationToD50(Chromaticity white);

// Returns the matrix from linear RGB with these primaries and white point to XYZ, adapted to D50.
Matrix3 rgbToXyz(Chromaticity red, Chromaticity green, Chromaticity blue, Chromaticity white);

// Returns the matrix whose columns are the colorants. If their sum, white, is D50 within the precision of profiles, each
// row is scaled so that white is exactly D50 and neutral colours stay neutral. Any other white is kept.
Matrix3 colorantsToXyz(const Vector3& red, const Vector3& green, const Vector3& blue);

} // namespace chroma::builtin
