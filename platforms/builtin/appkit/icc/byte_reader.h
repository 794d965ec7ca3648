// Big-endian numbers from untrusted bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace chroma::builtin {

// Checks every access against the bounds. A read outside returns 0 and sets `isInBounds` to false permanently; the results
// count only if it is still true at the end. The reader borrows the bytes.
class ByteReader {
public:
    ByteReader() = default;
    ByteReader(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    std::size_t size() const { return size_; }
    bool isInBounds() const { return isInBounds_; }

    std::uint8_t u8(std::size_t offset) const { return static_cast<std::uint8_t>(number(offset, 1)); }
    std::uint16_t u16(std::size_t offset) const { return static_cast<std::uint16_t>(number(offset, 2)); }
    std::uint32_t u32(std::size_t offset) const { return number(offset, 4); }

    // Signed fixed point with 16 fractional bits.
    double s15Fixed16(std::size_t offset) const { return static_cast<std::int32_t>(u32(offset)) / 65536.0; }

    // Returns the bytes from the offset on, with offsets from 0.
    ByteReader from(std::size_t offset) const { return range(offset, offset <= size_ ? size_ - offset : 0); }

    // Returns a range with offsets from 0; an empty one if the range is not inside.
    ByteReader range(std::size_t offset, std::size_t size) const {
        return has(offset, size) ? ByteReader(bytes_ + offset, size) : ByteReader();
    }

    std::string_view text(std::size_t offset, std::size_t size) const {
        return has(offset, size) ? std::string_view(reinterpret_cast<const char*>(bytes_) + offset, size)
                                 : std::string_view();
    }

private:
    bool has(std::size_t offset, std::size_t count) const {
        const bool isInside = offset <= size_ && count <= size_ - offset;
        isInBounds_ = isInBounds_ && isInside;
        return isInside;
    }

    std::uint32_t number(std::size_t offset, std::size_t count) const {
        if (!has(offset, count)) return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value = value << 8 | bytes_[offset + i];
        return value;
    }

    const std::uint8_t* bytes_ = nullptr;
    std::size_t size_ = 0;
    mutable bool isInBounds_ = true;
};

} // namespace chroma::builtin
