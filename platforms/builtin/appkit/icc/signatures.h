// The four-character names in ICC profiles, and the offsets of the header's fields.
#pragma once

#include <cstddef>
#include <cstdint>

namespace chroma::builtin::icc {

constexpr std::uint32_t signature(const char (&name)[5]) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<std::uint8_t>(name[i]);
    return value;
}

constexpr std::size_t headerSize = 128;
constexpr std::size_t tagEntrySize = 12; // signature, offset, size; the table follows a count after the header

// Offsets in the header, in bytes.
constexpr std::size_t sizeField = 0;
constexpr std::size_t versionField = 8;
constexpr std::size_t classField = 12;
constexpr std::size_t colorSpaceField = 16;
constexpr std::size_t connectionSpaceField = 20;
constexpr std::size_t dateField = 24;
constexpr std::size_t magicField = 36;
constexpr std::size_t illuminantField = 68;

constexpr std::uint32_t magic = signature("acsp");
constexpr std::uint32_t displayClass = signature("mntr");
constexpr std::uint32_t colorSpaceClass = signature("spac");
constexpr std::uint32_t abstractClass = signature("abst");
constexpr std::uint32_t linkClass = signature("link");
constexpr std::uint32_t namedColorClass = signature("nmcl");

constexpr std::uint32_t graySpace = signature("GRAY");
constexpr std::uint32_t rgbSpace = signature("RGB ");
constexpr std::uint32_t cmykSpace = signature("CMYK");
constexpr std::uint32_t labSpace = signature("Lab ");
constexpr std::uint32_t xyzSpace = signature("XYZ ");

constexpr std::uint32_t description = signature("desc"); // a tag, and the version 2 type of its value
constexpr std::uint32_t copyright = signature("cprt");
constexpr std::uint32_t whitePoint = signature("wtpt");
constexpr std::uint32_t perceptualToPcs = signature("A2B0");
constexpr std::uint32_t colorimetricToPcs = signature("A2B1");
constexpr std::uint32_t saturationToPcs = signature("A2B2");
constexpr std::uint32_t perceptualFromPcs = signature("B2A0");
constexpr std::uint32_t colorimetricFromPcs = signature("B2A1");
constexpr std::uint32_t saturationFromPcs = signature("B2A2");
constexpr std::uint32_t grayCurve = signature("kTRC");
constexpr std::uint32_t redCurve = signature("rTRC");
constexpr std::uint32_t greenCurve = signature("gTRC");
constexpr std::uint32_t blueCurve = signature("bTRC");
constexpr std::uint32_t redColorant = signature("rXYZ");
constexpr std::uint32_t greenColorant = signature("gXYZ");
constexpr std::uint32_t blueColorant = signature("bXYZ");

constexpr std::uint32_t plainText = signature("text");
constexpr std::uint32_t localizedText = signature("mluc");
constexpr std::uint32_t xyzType = signature("XYZ ");
constexpr std::uint32_t sampledCurve = signature("curv");
constexpr std::uint32_t parametricCurve = signature("para");
constexpr std::uint32_t lookup8 = signature("mft1");
constexpr std::uint32_t lookup16 = signature("mft2");
constexpr std::uint32_t lookupToPcs = signature("mAB ");
constexpr std::uint32_t lookupFromPcs = signature("mBA ");

} // namespace chroma::builtin::icc
