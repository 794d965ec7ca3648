// ICC profiles put together tag by tag, right or wrong: what the platform's reader is fed with.
#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chroma::test {

class ProfileBuilder {
public:
    explicit ProfileBuilder(std::string colorSpace, std::string connectionSpace = "XYZ ")
        : colorSpaces_(std::move(colorSpace) + std::move(connectionSpace)) {}

    ProfileBuilder& tag(std::string name, std::string_view value) {
        tags_.emplace_back(std::move(name), value);
        return *this;
    }

    ProfileBuilder& plainText(std::string name, const std::string& text) {
        return tag(std::move(name), "desc" + u32(0) + u32(text.size() + 1) + text + '\0');
    }

    ProfileBuilder& localizedText(std::string name, const std::vector<std::pair<std::string, std::u16string>>& texts) {
        std::string records, units;
        for (const auto& [language, text] : texts) {
            records += language + u32(2 * text.size()) + u32(16 + 12 * texts.size() + units.size());
            for (const char16_t unit : text) {
                units += u16(unit);
            }
        }
        return tag(std::move(name), "mluc" + u32(0) + u32(texts.size()) + u32(12) + records + units);
    }

    ProfileBuilder& gamma(std::string name, double gamma) {
        return tag(std::move(name), "curv" + u32(0) + u32(1) + u16(std::lround(gamma * 256)));
    }

    ProfileBuilder& samples(std::string name, const std::vector<double>& samples) {
        std::string value = "curv" + u32(0) + u32(samples.size());
        for (const double sample : samples) {
            value += u16(std::lround(sample * 65535));
        }
        return tag(std::move(name), value);
    }

    ProfileBuilder& parametric(std::string name, int form, const std::vector<double>& parameters) {
        std::string value = "para" + u32(0) + u16(form) + u16(0);
        for (const double parameter : parameters) {
            value += fixed(parameter);
        }
        return tag(std::move(name), value);
    }

    ProfileBuilder& xyz(std::string name, double x, double y, double z) {
        return tag(std::move(name), "XYZ " + u32(0) + fixed(x) + fixed(y) + fixed(z));
    }

    std::string finish() const {
        std::string table = u32(tags_.size()), values;
        const std::size_t start = 128 + 4 + 12 * tags_.size();
        for (const auto& [name, value] : tags_) {
            table += name + u32(start + values.size()) + u32(value.size());
            values += value;
        }
        std::string header = u32(start + values.size()) + std::string(12, '\0') + colorSpaces_;
        header.resize(36);
        header += "acsp";
        header.resize(128);
        return header + table + values;
    }

private:
    template <class Number>
    static std::string bytes(Number number, int count) {
        std::string text;
        for (int shift = 8 * (count - 1); shift >= 0; shift -= 8) {
            text.push_back(static_cast<char>(static_cast<unsigned long long>(number) >> shift));
        }
        return text;
    }

    template <class Number>
    static std::string u16(Number number) {
        return bytes(number, 2);
    }

    template <class Number>
    static std::string u32(Number number) {
        return bytes(number, 4);
    }

    static std::string fixed(double value) { return u32(std::lround(value * 65536)); }

    std::string colorSpaces_;
    std::vector<std::pair<std::string, std::string>> tags_;
};

} // namespace chroma::test
