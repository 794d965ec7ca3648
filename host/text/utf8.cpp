#include "text/utf8.h"

#include <clocale>
#include <cstdint>
#include <cwchar>

#include <algorithm>

namespace host::utf8 {
namespace {

struct Decoded {
    std::size_t size; // in bytes; 0 if the bytes are malformed
    std::uint32_t code;
};

Decoded decode(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80) return {1, lead};
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + size > text.size()) return {0, 0};
    std::uint32_t code = lead & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if (startsCharacter(text[at + i])) return {0, 0};
        code = (code << 6) | (byte(at + i) & 0x3Fu);
    }
    const bool overlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (overlong || surrogate || code > 0x10FFFF) return {0, 0};
    return {size, code};
}

void append(std::string& text, std::uint32_t code) {
    const auto put = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) return put(code);
    if (code < 0x800) {
        put(0xC0 | (code >> 6));
    } else {
        if (code < 0x10000) {
            put(0xE0 | (code >> 12));
        } else {
            put(0xF0 | (code >> 18));
            put(0x80 | ((code >> 12) & 0x3F));
        }
        put(0x80 | ((code >> 6) & 0x3F));
    }
    put(0x80 | (code & 0x3F));
}

} // namespace

std::size_t length(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

std::size_t floor(std::string_view text, std::size_t offset) {
    if (offset >= text.size()) return text.size();
    while (offset > 0 && !startsCharacter(text[offset]))
        --offset;
    return offset;
}

std::size_t offsetOf(std::string_view text, std::size_t index) {
    std::size_t offset = 0;
    for (; offset < text.size(); ++offset)
        if (startsCharacter(text[offset]) && index-- == 0) break;
    return offset;
}

std::size_t findInvalid(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = decode(text, at).size;
        if (size == 0) return at;
        at += size;
    }
    return std::string_view::npos;
}

std::string encoded(std::uint32_t code) {
    std::string text;
    append(text, code);
    return text;
}

std::optional<std::uint32_t> firstOf(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const Decoded first = decode(text, 0);
    return first.size == 0 ? std::nullopt : std::optional<std::uint32_t>(first.code);
}

std::optional<std::size_t> columnsOf(std::uint32_t code) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const locale_t before = unicode ? uselocale(unicode) : nullptr;
    const int columns = wcwidth(static_cast<wchar_t>(code));
    if (before) uselocale(before);
    return columns < 0 || code == 0 ? std::nullopt : std::optional<std::size_t>(columns);
}

std::string map(std::string_view text, std::uint32_t (*mapping)(std::uint32_t)) {
    std::string mapped;
    mapped.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Decoded character = decode(text, at);
        if (character.size == 0) {
            mapped += text[at++];
        } else {
            append(mapped, mapping(character.code));
            at += character.size;
        }
    }
    return mapped;
}

} // namespace host::utf8
