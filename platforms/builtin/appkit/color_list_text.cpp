#include "appkit/color_list_text.h"

#include "text/digits.h"
#include "text/encoding.h"

#include <cstdint>
#include <cstring>

namespace chroma::builtin {
namespace {

bool isPair(std::u16string_view text, std::size_t index) {
    return (text[index] & 0xFC00) == 0xD800 && index + 1 < text.size() && (text[index + 1] & 0xFC00) == 0xDC00;
}

void writeUtf8(std::u16string_view character, std::string& text) {
    char bytes[4];
    text.append(bytes, encodeText(character, encoding::utf8, bytes, sizeof bytes).bytes);
}

} // namespace

void writeKey(std::u16string_view key, std::string& text) {
    text.push_back('"');
    for (std::size_t i = 0; i < key.size(); ++i) {
        const char16_t unit = key[i];
        if (unit == u'"' || unit == u'\\') {
            text.push_back('\\');
            text.push_back(static_cast<char>(unit));
        } else if (isPair(key, i)) {
            writeUtf8(key.substr(i++, 2), text);
        } else if (unit < 0x20 || unit == 0x7F || (unit & 0xF800) == 0xD800) {
            text += "\\u";
            writeHex(unit, 4, text);
        } else {
            writeUtf8(key.substr(i, 1), text);
        }
    }
    text.push_back('"');
}

void writeFloat(float value, std::string& text) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    text.push_back(' ');
    writeHex(bits, 8, text);
}

void writeMeasure(CGFloat value, std::string& text) {
    const auto single = static_cast<float>(value);
    if (value != value || static_cast<CGFloat>(single) == value) return writeFloat(single, text);
    const double number = value;
    std::uint64_t bits;
    std::memcpy(&bits, &number, sizeof bits);
    text.push_back(' ');
    writeHex(bits, 16, text);
}

void writeBytes(const std::vector<std::uint8_t>& bytes, std::string& text) {
    for (const std::uint8_t byte : bytes)
        writeHex(byte, 2, text);
}

bool LineReader::endWord() {
    if (rest_.empty()) return true;
    if (rest_.front() != ' ') return false;
    rest_.remove_prefix(1);
    return !rest_.empty();
}

bool LineReader::word(std::string_view& word) {
    word = rest_.substr(0, rest_.find(' '));
    rest_.remove_prefix(word.size());
    return !word.empty() && endWord();
}

bool LineReader::keyword(std::string_view expected) {
    std::string_view found;
    return word(found) && found == expected;
}

bool LineReader::number(std::size_t& value) {
    std::string_view digits;
    return word(digits) && readDigits(digits, value, 10);
}

bool LineReader::key(std::u16string& key) {
    if (rest_.empty() || rest_.front() != '"') return false;
    rest_.remove_prefix(1);
    for (;;) {
        const std::size_t plain = rest_.find_first_of("\"\\");
        if (plain == std::string_view::npos || !decodeText(rest_.substr(0, plain), encoding::utf8, false, key)) return false;
        const bool isEnd = rest_[plain] == '"';
        rest_.remove_prefix(plain + 1);
        if (isEnd) return endWord();
        if (rest_.empty()) return false;
        const char escaped = rest_.front();
        rest_.remove_prefix(1);
        std::uint16_t unit = static_cast<unsigned char>(escaped);
        if (escaped == 'u') {
            if (rest_.size() < 4 || !readHex(rest_.substr(0, 4), unit)) return false;
            rest_.remove_prefix(4);
        } else if (escaped != '"' && escaped != '\\') {
            return false;
        }
        key.push_back(static_cast<char16_t>(unit));
    }
}

bool LineReader::float32(float& value) {
    std::string_view digits;
    std::uint32_t bits = 0;
    if (!word(digits) || digits.size() != 8 || !readHex(digits, bits)) return false;
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

bool LineReader::measure(CGFloat& value) {
    std::string_view digits = rest_.substr(0, rest_.find(' '));
    if (digits.size() == 16) {
        std::uint64_t bits = 0;
        double number;
        if (!word(digits) || !readHex(digits, bits)) return false;
        std::memcpy(&number, &bits, sizeof number);
        value = static_cast<CGFloat>(number); // in 32 bits the nearest value
        return true;
    }
    float single;
    if (!float32(single)) return false;
    value = single;
    return true;
}

bool LineReader::bytes(std::vector<std::uint8_t>& bytes) {
    std::string_view digits;
    if (!word(digits) || digits.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        std::uint8_t byte;
        if (!readHex(digits.substr(i, 2), byte)) return false;
        bytes.push_back(byte);
    }
    return true;
}

} // namespace chroma::builtin
