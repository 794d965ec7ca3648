#include "text/encoding.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace chroma {
namespace {

// Mac Roman above ASCII.
constexpr char16_t macRomanUpper[128] = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5, 0x00E7, 0x00E9,
    0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4, 0x00F6, 0x00F5, 0x00FA, 0x00F9,
    0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6, 0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8,
    0x2260, 0x00C6, 0x00D8, 0x221E, 0x00B1, 0x2264, 0x2265, 0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA,
    0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF, 0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0,
    0x00C0, 0x00C3, 0x00D5, 0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178,
    0x2044, 0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1, 0x00CB,
    0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9, 0x0131, 0x02C6, 0x02DC,
    0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

// Windows Latin-1 from 0x80 to 0x9F, 0 where it has no character; the rest is Latin-1.
constexpr char16_t windowsUpper[32] = {
    0x20AC, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x0000, 0x017D, 0x0000, 0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0000, 0x017E, 0x0178,
};

constexpr char32_t noCharacter = 0xFFFFFFFF;
constexpr char32_t byteOrderMark = 0xFEFF;

bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xE000; }

// Returns false if it is not a Unicode scalar value.
bool append(std::u16string& text, char32_t character) {
    if (character > 0x10FFFF || isSurrogate(character)) return false;
    if (character < 0x10000) {
        text.push_back(static_cast<char16_t>(character));
    } else {
        text.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
    }
    return true;
}

// Returns the character of a byte in a single-byte encoding.
char32_t characterOfByte(unsigned char byte, std::uint32_t encoding) {
    if (byte < 0x80) return byte;
    switch (encoding) {
    case encoding::macRoman: return macRomanUpper[byte - 0x80];
    case encoding::latin1: return byte;
    case encoding::windowsLatin1: {
        if (byte >= 0xA0) return byte;
        const char16_t character = windowsUpper[byte - 0x80];
        return character ? character : noCharacter;
    }
    default: return noCharacter; // ASCII
    }
}

int byteOfCharacter(char32_t character, std::uint32_t encoding) {
    if (character < 0x80) return static_cast<int>(character);
    for (int byte = 0x80; byte < 0x100; ++byte)
        if (characterOfByte(static_cast<unsigned char>(byte), encoding) == character) return byte;
    return -1;
}

bool isSingleByte(std::uint32_t encoding) {
    return encoding == encoding::macRoman || encoding == encoding::latin1 || encoding == encoding::windowsLatin1 ||
           encoding == encoding::ascii;
}

bool decodeSingleBytes(std::string_view bytes, std::uint32_t encoding, std::u16string& text) {
    for (const char byte : bytes) {
        const char32_t character = characterOfByte(static_cast<unsigned char>(byte), encoding);
        if (character == noCharacter) return false;
        text.push_back(static_cast<char16_t>(character));
    }
    return true;
}

// Returns the character at `start` and advances `start`; noCharacter if the sequence is malformed or overlong.
char32_t nextUtf8Character(std::string_view bytes, std::size_t& start) {
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000}; // by sequence length
    const auto lead = static_cast<unsigned char>(bytes[start]);
    if (lead < 0x80) {
        ++start;
        return lead;
    }
    const std::size_t count = lead >= 0xF8 ? 0 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (count == 0 || count > bytes.size() - start) return noCharacter;
    char32_t character = lead & (0x7Fu >> count);
    for (std::size_t i = 1; i < count; ++i) {
        const auto next = static_cast<unsigned char>(bytes[start + i]);
        if ((next & 0xC0) != 0x80) return noCharacter;
        character = character << 6 | (next & 0x3F);
    }
    start += count;
    return character < smallest[count] ? noCharacter : character;
}

bool decodeUtf8(std::string_view bytes, bool honoursMark, std::u16string& text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::size_t start = honoursMark && bytes.substr(0, mark.size()) == mark ? mark.size() : 0;
    while (start < bytes.size())
        if (!append(text, nextUtf8Character(bytes, start))) return false;
    return true;
}

// The units of UTF-16 and UTF-32 in the machine's byte order or in that of a byte order mark.
template <class Unit>
class Units {
public:
    Units(std::string_view bytes, bool honoursMark) : bytes_(bytes) {
        if (!honoursMark || isAtEnd()) return;
        const char32_t first = peek();
        isSwapped_ = first == swap(byteOrderMark);
        if (isSwapped_ || first == byteOrderMark) next();
    }

    bool isAtEnd() const { return start_ == bytes_.size(); }

    char32_t peek() const {
        Unit unit;
        std::memcpy(&unit, bytes_.data() + start_, sizeof unit);
        return isSwapped_ ? swap(unit) : unit;
    }

    char32_t next() {
        const char32_t unit = peek();
        start_ += sizeof(Unit);
        return unit;
    }

private:
    static char32_t swap(char32_t unit) {
        auto narrow = static_cast<Unit>(unit);
        auto* const bytes = reinterpret_cast<unsigned char*>(&narrow);
        std::reverse(bytes, bytes + sizeof narrow);
        return narrow;
    }

    std::string_view bytes_;
    std::size_t start_ = 0;
    bool isSwapped_ = false;
};

bool decodeUtf16(std::string_view bytes, bool honoursMark, std::u16string& text) {
    if (bytes.size() % sizeof(char16_t) != 0) return false;
    Units<char16_t> units(bytes, honoursMark);
    while (!units.isAtEnd()) {
        const char32_t unit = units.next();
        text.push_back(static_cast<char16_t>(unit));
        if (!isSurrogate(unit)) continue;
        if (isLowSurrogate(unit) || units.isAtEnd() || !isLowSurrogate(units.peek())) return false;
        text.push_back(static_cast<char16_t>(units.next()));
    }
    return true;
}

bool decodeUtf32(std::string_view bytes, bool honoursMark, std::u16string& text) {
    if (bytes.size() % sizeof(char32_t) != 0) return false;
    Units<char32_t> units(bytes, honoursMark);
    while (!units.isAtEnd())
        if (!append(text, units.next())) return false;
    return true;
}

// A buffer to fill with units. `put` returns false when the unit does not fit.
class Output {
public:
    Output(char* buffer, std::size_t capacity) : next_(buffer), end_(buffer + capacity) {}

    template <class Unit = unsigned char>
    bool put(char32_t value) {
        const auto unit = static_cast<Unit>(value);
        if (static_cast<std::size_t>(end_ - next_) < sizeof unit) return false;
        std::memcpy(next_, &unit, sizeof unit);
        next_ += sizeof unit;
        return true;
    }

    char* next() const { return next_; }

private:
    char* next_;
    char* end_;
};

// Copies leading ASCII, which has the same bytes in every encoding that is written here, in blocks. Returns the number of
// characters. Most text is ASCII.
std::size_t copyAsciiBlocks(std::u16string_view text, char* buffer, std::size_t capacity) {
    constexpr std::size_t block = 8;
    const std::size_t limit = std::min(text.size(), capacity);
    std::size_t copied = 0;
    for (; copied + block <= limit; copied += block) {
        char16_t units[block];
        char bytes[block];
        std::memcpy(units, text.data() + copied, sizeof units);
        unsigned all = 0;
        for (std::size_t i = 0; i < block; ++i) {
            all |= units[i];
            bytes[i] = static_cast<char>(units[i]);
        }
        if (all >= 0x80) break;
        std::memcpy(buffer + copied, bytes, sizeof bytes);
    }
    return copied;
}

bool putUtf8(Output& output, char32_t character) {
    if (character < 0x80) return output.put(character);
    if (character < 0x800) return output.put(0xC0 | character >> 6) && output.put(0x80 | (character & 0x3F));
    if (character < 0x10000) {
        return output.put(0xE0 | character >> 12) && output.put(0x80 | (character >> 6 & 0x3F)) &&
               output.put(0x80 | (character & 0x3F));
    }
    return output.put(0xF0 | character >> 18) && output.put(0x80 | (character >> 12 & 0x3F)) &&
           output.put(0x80 | (character >> 6 & 0x3F)) && output.put(0x80 | (character & 0x3F));
}

// May write a part of a character that does not fit; the caller counts only complete characters.
bool putCharacter(Output& output, char32_t character, std::uint32_t encoding) {
    switch (encoding) {
    case encoding::utf8: return putUtf8(output, character);
    case encoding::utf32: return output.put<char32_t>(character);
    case encoding::utf16:
        if (character < 0x10000) return output.put<char16_t>(character);
        return output.put<char16_t>(0xD800 + ((character - 0x10000) >> 10)) &&
               output.put<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    default: {
        const int byte = byteOfCharacter(character, encoding);
        return byte >= 0 && output.put(static_cast<char32_t>(byte));
    }
    }
}

} // namespace

bool extendsAscii(std::uint32_t encoding) { return encoding == encoding::utf8 || isSingleByte(encoding); }

// Reads word by word, because this runs over most text before it is copied.
bool isAscii(std::string_view bytes) {
    std::uint64_t all = 0;
    std::size_t index = 0;
    for (; index + sizeof all <= bytes.size(); index += sizeof all) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data() + index, sizeof word);
        all |= word;
    }
    for (; index < bytes.size(); ++index)
        all |= static_cast<unsigned char>(bytes[index]);
    return (all & 0x8080808080808080) == 0;
}

bool isAscii(std::u16string_view text) {
    unsigned all = 0;
    for (const char16_t unit : text)
        all |= unit;
    return all < 0x80;
}

bool decodeText(std::string_view bytes, std::uint32_t encoding, bool honoursMark, std::u16string& text) {
    if (isSingleByte(encoding)) return decodeSingleBytes(bytes, encoding, text);
    switch (encoding) {
    case encoding::utf8: return decodeUtf8(bytes, honoursMark, text);
    case encoding::utf16: return decodeUtf16(bytes, honoursMark, text);
    case encoding::utf32: return decodeUtf32(bytes, honoursMark, text);
    default: return false;
    }
}

Encoded encodeText(std::u16string_view text, std::uint32_t encoding, char* buffer, std::size_t capacity) {
    const bool isWide = encoding == encoding::utf16 || encoding == encoding::utf32;
    if (!isWide && !extendsAscii(encoding)) return {0, 0};
    std::size_t index = isWide ? 0 : copyAsciiBlocks(text, buffer, capacity);
    Encoded written = {index, index};
    Output output(buffer + index, capacity - index);
    while (index < text.size()) {
        char32_t character = text[index++];
        if (isSurrogate(character)) {
            if (isLowSurrogate(character) || index == text.size() || !isLowSurrogate(text[index])) break;
            character = 0x10000 + ((character & 0x3FF) << 10) + (text[index++] & 0x3FFu);
        }
        if (!putCharacter(output, character, encoding)) break;
        written = {index, static_cast<std::size_t>(output.next() - buffer)};
    }
    return written;
}

bool encodeCString(std::u16string_view text, std::uint32_t encoding, char* buffer, std::size_t capacity) {
    if (!extendsAscii(encoding)) return false;
    const Encoded written = encodeText(text, encoding, buffer, capacity);
    if (written.units < text.size() || written.bytes == capacity) return false;
    buffer[written.bytes] = '\0';
    return true;
}

} // namespace chroma
