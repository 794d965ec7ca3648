// The tables of a profile, A2B0 to A2B2 and B2A0 to B2A2, convert device colours to the profile connection space (PCS) and
// back. The PCS is XYZ or Lab; outside a table it is always XYZ relative to D50.
#pragma once

#include "appkit/channels.h"
#include "appkit/colorimetry.h"
#include "appkit/transfer_curve.h"

#include <cstddef>
#include <variant>
#include <vector>

namespace chroma::builtin::icc {

// The elements of a table. A grid and a sampled curve clip their input to 0..1. A parametric curve and a matrix do not, so
// that values above 1 survive until another element brings them back into range: the curves of high dynamic range need
// that.

struct Curves {
    std::vector<TransferCurve> channels;
};

struct Matrix {
    Matrix3 matrix;
    Vector3 offset;
};

// A colour lookup table (CLUT). It interpolates linearly in each input. Colorants are the exception: the last three inputs
// use the tetrahedron of their cell, whose edge is the diagonal. So neutral colours are interpolated between neutral ones,
// from four points instead of eight. In a cell of Lab neutral colours lie along an edge.
struct Grid {
    struct Axis {
        std::size_t points; // two or more
        std::size_t stride; // from a point to the next, in `values`
    };

    std::vector<Axis> axes; // one per input; the last one varies fastest
    std::size_t outputs = 0;
    std::vector<float> values;
    bool isOfLab = false; // the inputs are PCS Lab
};

using Element = std::variant<Curves, Matrix, Grid>;

// What 0 and 1 mean in a channel.
enum class Encoding {
    device,
    xyz,   // 0 to 1 + 32767/32768
    lab,   // L* 0 to 100, a* and b* -128 to 127
    lab16, // the same in 16 bits of version 2, where they are FF00h parts
};

struct Table {
    std::vector<Element> elements; // in the order of the conversion
    Encoding deviceEncoding = Encoding::device;
    Encoding connectionEncoding = Encoding::xyz;
    Vector3 black{}; // in the PCS; black of the table's medium
};

// Converts a device colour to XYZ with black 0 through an A2B table, and back through a B2A table. The components of a Lab
// space are L*, a* and b*; they are clipped to their ranges, and not-a-number becomes the minimum. Other components are
// 0..1.
Vector3 toXyz(const Table& table, const Channels& components);
Channels fromXyz(const Table& table, const Vector3& xyz);

} // namespace chroma::builtin::icc
