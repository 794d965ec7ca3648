// Builds valid and invalid ICC profiles tag by tag for tests of the platform's reader.
#pragma once

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace chroma::test {

// Pairs of a four-character name and a value. The value is a four-character type, four zero bytes, and the contents.
using Tags = std::vector<std::pair<std::string, std::string>>;

// Returns a number in that many bytes, in big-endian order.
template <class Number>
std::string number(Number value, int bytes) {
    const long long rounded = std::llround(static_cast<double>(value));
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text.push_back(shift < 64 ? static_cast<char>(rounded >> shift) : '\0');
    return text;
}

inline std::string value(const char* type, const std::string& contents) { return type + number(0, 4) + contents; }

// Returns the values as fixed-point numbers of that many bytes. `parts` is the representation of 1.
inline std::string numbers(const std::vector<double>& values, int parts, int bytes) {
    std::string text;
    for (const double each : values)
        text += number(each * parts, bytes);
    return text;
}

inline std::string xyz(const std::vector<double>& values) { return value("XYZ ", numbers(values, 65536, 4)); }
inline std::string gammaCurve(double exponent) { return value("curv", number(1, 4) + number(exponent * 256, 2)); }

inline std::string sampledCurve(const std::vector<double>& samples) {
    return value("curv", number(samples.size(), 4) + numbers(samples, 65535, 2));
}

inline std::string parametricCurve(int form, const std::vector<double>& parameters) {
    return value("para", number(form, 2) + number(0, 2) + numbers(parameters, 65536, 4));
}

inline std::string plainText(const std::string& text) { return value("desc", number(text.size() + 1, 4) + text + '\0'); }

// Returns a multi-localised text from pairs of language and text.
inline std::string localizedText(const std::vector<std::pair<std::string, std::u16string>>& texts) {
    std::string records, units;
    for (const auto& [language, text] : texts) {
        const std::size_t start = 16 + 12 * texts.size() + units.size();
        records += language + number(2 * text.size(), 4) + number(start, 4);
        for (const char16_t unit : text)
            units += number(unit, 2);
    }
    return value("mluc", number(texts.size(), 4) + number(12, 4) + records + units);
}

// Returns the complete profile of a device with the given kind of colours and connection space.
inline std::string profile(const char* colors, const Tags& tags, const char* connection = "XYZ ") {
    std::string table = number(tags.size(), 4), values;
    const std::size_t start = 128 + 4 + 12 * tags.size();
    for (const auto& [name, value] : tags) {
        table += name + number(start + values.size(), 4) + number(value.size(), 4);
        values += value;
    }
    std::string header = number(start + values.size(), 4) + std::string(12, '\0') + colors + connection;
    header.resize(36);
    header += "acsp";
    header.resize(128);
    return header + table + values;
}

} // namespace chroma::test
