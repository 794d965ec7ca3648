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

// The chromaticity coordinates of a light.
struct Chromaticity {
    double x;
    double y;
};

constexpr Chromaticity d65{0.3127, 0.3290};

// The linear Bradford transform of XYZ under the white point to XYZ under D50.
Matrix3 adaptationToD50(Chromaticity white);

// The matrix from linear RGB of the primaries under the white point to XYZ, adapted to D50.
Matrix3 rgbToXyz(Chromaticity red, Chromaticity green, Chromaticity blue, Chromaticity white);

// The matrix whose columns are the colorants, each row scaled so that white, the sum of the three, is exactly D50: neutral
// colours stay neutral, whatever precision the colorants were written down with. All zero when a row has no positive sum.
Matrix3 colorantsToXyz(const Vector3& red, const Vector3& green, const Vector3& blue);

} // namespace chroma::builtin
