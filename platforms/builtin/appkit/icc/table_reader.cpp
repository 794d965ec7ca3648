#include "appkit/icc/table_reader.h"

#include "appkit/icc/curve_reader.h"
#include "appkit/icc/signatures.h"

#include <cstdint>
#include <utility>

namespace chroma::builtin::icc {
namespace {

// Numbers of one or two bytes whose maximum means 1.
struct Fractions {
    const ByteReader& value;
    std::size_t width;

    double at(std::size_t start, std::size_t index) const {
        return width == 1 ? value.u8(start + index) / 255.0 : value.u16(start + 2 * index) / 65535.0;
    }
};

// Reads the same number of samples for each channel.
Curves readSampledCurves(const Fractions& fractions, std::size_t start, std::size_t channels, std::size_t samples) {
    Curves curves;
    curves.channels.resize(channels);
    for (std::size_t i = 0; i < channels * samples; ++i)
        curves.channels[i / samples].samples.push_back(fractions.at(start, i));
    return curves;
}

Grid gridBetween(const TableSides& sides) {
    Grid grid;
    grid.axes.resize(sides.inputs());
    grid.outputs = sides.outputs();
    grid.isOfLab = !sides.isToPcs && !sides.isXyz;
    return grid;
}

// Computes the axes' strides and reads the values. Returns false if the profile has fewer bytes than needed.
bool readGrid(const Fractions& fractions, std::size_t start, Grid& grid) {
    std::size_t count = grid.outputs;
    for (auto axis = grid.axes.rbegin(); axis != grid.axes.rend(); ++axis) {
        axis->stride = count;
        if (axis->points < 2 || count > fractions.value.size() / axis->points) return false;
        count *= axis->points;
    }
    grid.values.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        grid.values.push_back(static_cast<float>(fractions.at(start, i)));
    return true;
}

// Reads the matrix row by row, followed by the offsets if there are any.
Matrix readMatrix(const ByteReader& value, std::size_t start, bool hasOffsets) {
    Matrix element{};
    for (std::size_t i = 0; i < 9; ++i)
        element.matrix[i / 3][i % 3] = value.s15Fixed16(start + 4 * i);
    for (std::size_t i = 0; hasOffsets && i < 3; ++i)
        element.offset[i] = value.s15Fixed16(start + 4 * (9 + i));
    return element;
}

// mft1 and mft2: a matrix (only for XYZ), a curve per input, a grid with the same number of points in each axis, a curve
// per output. Curves of mft1 have 256 samples.
bool readLookup(const ByteReader& value, std::size_t width, const TableSides& sides, Table& table) {
    const std::size_t inputs = sides.inputs(), outputs = sides.outputs();
    if (value.u8(8) != inputs || value.u8(9) != outputs) return false;
    const std::size_t inputSamples = width == 1 ? 256 : value.u16(48);
    const std::size_t outputSamples = width == 1 ? 256 : value.u16(50);
    if (inputSamples < 2 || outputSamples < 2) return false;

    const Fractions fractions{value, width};
    const std::size_t inputStart = width == 1 ? 48 : 52;
    const std::size_t gridStart = inputStart + width * inputs * inputSamples;
    Grid grid = gridBetween(sides);
    grid.axes.assign(inputs, {value.u8(10), 0});
    if (!sides.isToPcs && sides.isXyz) table.elements.emplace_back(readMatrix(value, 12, false));
    table.elements.emplace_back(readSampledCurves(fractions, inputStart, inputs, inputSamples));
    if (!readGrid(fractions, gridStart, grid)) return false;
    const std::size_t outputStart = gridStart + width * grid.values.size();
    table.elements.emplace_back(std::move(grid));
    table.elements.emplace_back(readSampledCurves(fractions, outputStart, outputs, outputSamples));
    return true;
}

// Curves one after the other, each aligned to four bytes.
bool readCurves(const ByteReader& value, std::size_t start, std::size_t channels, Table& table) {
    Curves curves;
    curves.channels.resize(channels);
    for (TransferCurve& curve : curves.channels) {
        const ByteReader rest = value.from(start);
        if (!readCurve(rest, curve)) return false;
        start += (sizeOfCurve(rest) + 3) / 4 * 4;
    }
    table.elements.emplace_back(std::move(curves));
    return true;
}

// The grid of mAB and mBA: the number of points per input, room for sixteen inputs, then the width of the values.
bool readOwnGrid(const ByteReader& value, std::size_t start, const TableSides& sides, Table& table) {
    Grid grid = gridBetween(sides);
    for (std::size_t axis = 0; axis < grid.axes.size(); ++axis)
        grid.axes[axis].points = value.u8(start + axis);
    const Fractions fractions{value, value.u8(start + 16)};
    if (fractions.width != 1 && fractions.width != 2) return false;
    if (!readGrid(fractions, start + 20, grid)) return false;
    table.elements.emplace_back(std::move(grid));
    return true;
}

// mAB and mBA: elements at their offsets, 0 for a missing one. Towards the PCS a colour passes A curves, CLUT, M curves,
// matrix and B curves; from the PCS the reverse.
bool readElements(const ByteReader& value, const TableSides& sides, Table& table) {
    if (value.u8(8) != sides.inputs() || value.u8(9) != sides.outputs()) return false;
    struct Part {
        std::size_t offset;
        enum Kind { curves, matrix, grid } kind;
        std::size_t channels;
    };
    const Part parts[] = {{value.u32(28), Part::curves, sides.deviceChannels},
                          {value.u32(24), Part::grid, 0},
                          {value.u32(20), Part::curves, 3},
                          {value.u32(16), Part::matrix, 3},
                          {value.u32(12), Part::curves, 3}};
    if (parts[1].offset == 0 && sides.inputs() != sides.outputs()) return false;
    for (std::size_t i = 0; i < std::size(parts); ++i) {
        const auto& [offset, kind, channels] = parts[sides.isToPcs ? i : std::size(parts) - 1 - i];
        if (offset == 0) continue;
        if (kind == Part::matrix) table.elements.emplace_back(readMatrix(value, offset, true));
        if (kind == Part::curves && !readCurves(value, offset, channels, table)) return false;
        if (kind == Part::grid && !readOwnGrid(value, offset, sides, table)) return false;
    }
    return true;
}

} // namespace

bool readTable(const ByteReader& value, const TableSides& sides, Table& table) {
    const std::uint32_t type = value.u32(0);
    bool isKnown = false;
    if (type == lookup8) isKnown = readLookup(value, 1, sides, table);
    if (type == lookup16) isKnown = readLookup(value, 2, sides, table);
    if (type == (sides.isToPcs ? lookupToPcs : lookupFromPcs)) isKnown = readElements(value, sides, table);
    const Encoding lab = type == lookup16 ? Encoding::lab16 : Encoding::lab;
    table.deviceEncoding = sides.isLabDevice ? lab : Encoding::device;
    table.connectionEncoding = sides.isXyz ? Encoding::xyz : lab;
    return isKnown && value.isInBounds();
}

} // namespace chroma::builtin::icc
