#include "appkit/icc/table.h"

#include <algorithm>

namespace chroma::builtin::icc {
namespace {

void pass(const Curves& curves, Channels& channels) {
    for (std::size_t i = 0; i < curves.channels.size(); ++i)
        channels[i] = curves.channels[i].toLinear(channels[i]);
}

void pass(const Matrix& element, Channels& channels) {
    const Vector3 product = element.matrix * Vector3{channels[0], channels[1], channels[2]};
    for (std::size_t i = 0; i < product.size(); ++i)
        channels[i] = product[i] + element.offset[i];
}

// Interpolates over the axes from `axis` on.
class Interpolation {
public:
    Interpolation(const Grid& grid, const Channels& inputs) : grid_(grid), node_(grid.values.data()) {
        for (std::size_t axis = 0; axis < grid.axes.size(); ++axis) {
            const auto& [points, stride] = grid.axes[axis];
            const double position = clip(inputs[axis]) * static_cast<double>(points - 1);
            const std::size_t index = std::min(static_cast<std::size_t>(position), points - 2);
            fractions_[axis] = position - static_cast<double>(index);
            node_ += index * stride;
        }
    }

    void result(Channels& outputs) const { blend(0, node_, outputs); }

private:
    void blend(std::size_t axis, const float* node, Channels& outputs) const {
        const std::size_t left = grid_.axes.size() - axis;
        if (left == 0) {
            std::copy_n(node, grid_.outputs, outputs.begin());
        } else if (left == 3 && !grid_.isOfLab) {
            blendTetrahedron(axis, node, outputs);
        } else {
            blend(axis + 1, node, outputs);
            const double fraction = fractions_[axis];
            if (fraction == 0) return;
            Channels next;
            blend(axis + 1, node + grid_.axes[axis].stride, next);
            for (std::size_t i = 0; i < grid_.outputs; ++i)
                outputs[i] += fraction * (next[i] - outputs[i]);
        }
    }

    // Walks from corner to corner of the cell, along the axis with the greatest fraction first.
    void blendTetrahedron(std::size_t axis, const float* node, Channels& outputs) const {
        std::size_t first = axis, second = axis + 1, third = axis + 2;
        if (fractions_[first] < fractions_[second]) std::swap(first, second);
        if (fractions_[second] < fractions_[third]) std::swap(second, third);
        if (fractions_[first] < fractions_[second]) std::swap(first, second);

        const float* const one = node + grid_.axes[first].stride;
        const float* const two = one + grid_.axes[second].stride;
        const float* const three = two + grid_.axes[third].stride;
        const double shares[] = {1 - fractions_[first], fractions_[first] - fractions_[second],
                                 fractions_[second] - fractions_[third], fractions_[third]};
        for (std::size_t i = 0; i < grid_.outputs; ++i)
            outputs[i] = shares[0] * node[i] + shares[1] * one[i] + shares[2] * two[i] + shares[3] * three[i];
    }

    const Grid& grid_;
    const float* node_;
    Channels fractions_{};
};

void pass(const Grid& grid, Channels& channels) {
    const Interpolation interpolation(grid, channels);
    interpolation.result(channels);
}

void passAll(const Table& table, Channels& channels) {
    for (const Element& element : table.elements)
        std::visit([&channels](const auto& each) { pass(each, channels); }, element);
}

// Maps one medium's black to another's; white stays the same.
Vector3 scaledBlack(const Vector3& xyz, const Vector3& from, const Vector3& to) {
    Vector3 scaled = xyz;
    for (std::size_t i = 0; from != to && i < scaled.size(); ++i) {
        const double white = d50White[i];
        scaled[i] = white - (white - xyz[i]) * (white - to[i]) / (white - from[i]);
    }
    return scaled;
}

constexpr double xyzRange = 1 + 32767.0 / 32768;
constexpr double lab16Range = 65535.0 / 0xFF00;

double labRange(Encoding encoding) { return encoding == Encoding::lab16 ? lab16Range : 1; }

Vector3 decodedLab(const Channels& channels, Encoding encoding) {
    const double range = labRange(encoding);
    return {100 * range * channels[0], 255 * range * channels[1] - 128, 255 * range * channels[2] - 128};
}

void encodeLab(const Vector3& lab, Encoding encoding, Channels& channels) {
    const double range = labRange(encoding);
    channels[0] = clip(lab[0] / 100) / range;
    channels[1] = clip((lab[1] + 128) / 255) / range;
    channels[2] = clip((lab[2] + 128) / 255) / range;
}

} // namespace

Vector3 toXyz(const Table& table, const Channels& components) {
    Channels channels = components;
    if (table.deviceEncoding != Encoding::device)
        encodeLab({components[0], components[1], components[2]}, table.deviceEncoding, channels);
    passAll(table, channels);
    const Vector3 xyz = table.connectionEncoding == Encoding::xyz
                            ? Vector3{xyzRange * channels[0], xyzRange * channels[1], xyzRange * channels[2]}
                            : xyzFromLab(decodedLab(channels, table.connectionEncoding));
    return scaledBlack(xyz, table.black, {});
}

Channels fromXyz(const Table& table, const Vector3& xyz) {
    const Vector3 ofTable = scaledBlack(xyz, {}, table.black);
    Channels channels{};
    if (table.connectionEncoding == Encoding::xyz) {
        std::transform(ofTable.begin(), ofTable.end(), channels.begin(),
                       [](double value) { return clip(value / xyzRange); });
    } else {
        encodeLab(labFromXyz(ofTable), table.connectionEncoding, channels);
    }
    passAll(table, channels);
    for (double& channel : channels)
        channel = clip(channel);
    if (table.deviceEncoding == Encoding::device) return channels;
    const auto [lightness, a, b] = decodedLab(channels, table.deviceEncoding);
    return {std::min(lightness, 100.0), std::min(a, 127.0), std::min(b, 127.0)};
}

} // namespace chroma::builtin::icc
