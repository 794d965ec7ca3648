#include "appkit/colorimetry.h"

#include <cmath>
#include <cstddef>

namespace chroma::builtin {
namespace {

constexpr Matrix3 bradford{{{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}};

Matrix3 columns(const Vector3& first, const Vector3& second, const Vector3& third) {
    Matrix3 matrix;
    for (std::size_t row = 0; row < 3; ++row)
        matrix[row] = {first[row], second[row], third[row]};
    return matrix;
}

Matrix3 diagonal(const Vector3& values) { return {{{values[0], 0, 0}, {0, values[1], 0}, {0, 0, values[2]}}}; }

} // namespace

Vector3 operator*(const Matrix3& matrix, const Vector3& vector) {
    Vector3 product;
    for (std::size_t row = 0; row < 3; ++row)
        product[row] = matrix[row][0] * vector[0] + matrix[row][1] * vector[1] + matrix[row][2] * vector[2];
    return product;
}

Matrix3 operator*(const Matrix3& left, const Matrix3& right) {
    Matrix3 product;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            product[row][column] =
                left[row][0] * right[0][column] + left[row][1] * right[1][column] + left[row][2] * right[2][column];
        }
    }
    return product;
}

double determinant(const Matrix3& m) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

Matrix3 inverse(const Matrix3& m) {
    const double scale = 1.0 / determinant(m);
    Matrix3 result;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            // The cofactor of the transposed place; the cyclic indices carry its sign.
            const std::size_t r1 = (column + 1) % 3, r2 = (column + 2) % 3;
            const std::size_t c1 = (row + 1) % 3, c2 = (row + 2) % 3;
            result[row][column] = scale * (m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1]);
        }
    }
    return result;
}

Vector3 xyzOf(Chromaticity light) { return {light.x / light.y, 1.0, (1.0 - light.x - light.y) / light.y}; }

Matrix3 adaptationToD50(Chromaticity white) {
    const Vector3 from = bradford * xyzOf(white);
    const Vector3 to = bradford * d50White;
    return inverse(bradford) * (diagonal({to[0] / from[0], to[1] / from[1], to[2] / from[2]}) * bradford);
}

Matrix3 rgbToXyz(Chromaticity red, Chromaticity green, Chromaticity blue, Chromaticity white) {
    const Matrix3 primaries = columns(xyzOf(red), xyzOf(green), xyzOf(blue));
    const Vector3 strengths = inverse(primaries) * xyzOf(white);
    return adaptationToD50(white) * (primaries * diagonal(strengths));
}

Matrix3 colorantsToXyz(const Vector3& red, const Vector3& green, const Vector3& blue) {
    constexpr double precision = 0.002;
    const Matrix3 matrix = columns(red, green, blue);
    Matrix3 scaled = matrix;
    for (std::size_t row = 0; row < 3; ++row) {
        const double sum = matrix[row][0] + matrix[row][1] + matrix[row][2];
        if (std::abs(sum - d50White[row]) > precision) return matrix;
        for (double& value : scaled[row])
            value *= d50White[row] / sum;
    }
    return scaled;
}

namespace {

constexpr double slope = 24389.0 / 27 / 100;
constexpr double breakLight = 216.0 / 24389;

} // namespace

double lightOfLightness(double lightness) {
    if (lightness <= slope * breakLight) return lightness / slope;
    const double root = (lightness + 0.16) / 1.16;
    return root * root * root;
}

double lightnessOfLight(double light) { return light > breakLight ? 1.16 * std::cbrt(light) - 0.16 : slope * light; }

Vector3 xyzFromLab(const Vector3& lab) {
    const double lightness = lab[0] / 100;
    const double shares[] = {lightness + 1.16 * lab[1] / 500, lightness, lightness - 1.16 * lab[2] / 200};
    Vector3 xyz;
    for (std::size_t i = 0; i < 3; ++i)
        xyz[i] = d50White[i] * lightOfLightness(shares[i]);
    return xyz;
}

Vector3 labFromXyz(const Vector3& xyz) {
    Vector3 share;
    for (std::size_t i = 0; i < 3; ++i)
        share[i] = lightnessOfLight(xyz[i] / d50White[i]);
    return {100 * share[1], 500 / 1.16 * (share[0] - share[1]), 200 / 1.16 * (share[1] - share[2])};
}

} // namespace chroma::builtin
