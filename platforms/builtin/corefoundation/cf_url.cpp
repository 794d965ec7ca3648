#include "corefoundation/cf_url.h"

#include "builtin/corefoundation.h"
#include "runtime/bootstrap.h"
#include "runtime/export.h"
#include "text/digits.h"
#include "text/encoding.h"

#include <climits>
#include <cstdint>
#include <string>
#include <unistd.h>

namespace chroma::builtin {

ClassObject URL::cls;

ClassTable tableOfNSURL() { return classTable<URL>("NSURL", &NSObject::cls, {}); }

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Reads the two digits of the escape whose percent sign is at the index.
bool readEscape(std::string_view text, std::size_t index, std::uint8_t& byte) {
    return text.size() - index >= 3 && readHex(text.substr(index + 1, 2), byte);
}

// Returns whether every character is allowed in a URL and every percent sign starts an escape.
bool isURLText(std::string_view text) {
    constexpr std::string_view marks = "-._~:/?#[]@!$&'()*+,;=";
    std::uint8_t byte;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '%') {
            if (!readEscape(text, i, byte)) return false;
            i += 2;
        } else if (!isLetter(c) && !isDigit(c) && marks.find(c) == std::string_view::npos) {
            return false;
        }
    }
    return !text.empty();
}

// Returns the length of the scheme with its colon, or 0 if there is none.
std::size_t schemeEnd(std::string_view text) {
    if (!isLetter(text.front())) return 0;
    std::size_t end = 0;
    while (end < text.size() && (isLetter(text[end]) || isDigit(text[end]) ||
                                 std::string_view("+-.").find(text[end]) != std::string_view::npos)) {
        ++end;
    }
    return end < text.size() && text[end] == ':' ? end + 1 : 0;
}

// Returns the path between scheme and authority on the left, query and fragment on the right, with its escapes.
std::string_view pathPart(std::string_view url) {
    std::string_view rest = url.substr(schemeEnd(url));
    rest = rest.substr(0, rest.find_first_of("?#"));
    if (rest.substr(0, 2) != "//") return rest;
    const std::size_t start = rest.find('/', 2);
    return start == std::string_view::npos ? std::string_view() : rest.substr(start);
}

std::string withoutEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint8_t byte;
        if (text[i] == '%' && readEscape(text, i, byte)) {
            plain.push_back(static_cast<char>(byte));
            i += 2;
        } else {
            plain.push_back(text[i]);
        }
    }
    return plain;
}

std::string absolutePath(std::string path) {
    if (path.front() == '/') return path;
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) ? std::string(folder) + "/" + path : path;
}

// Returns a URL with the path, or without one if the path is empty, not UTF-8, or contains a NUL.
URL* newURL(std::string_view path) {
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    std::u16string text;
    const bool isPath =
        !path.empty() && path.find('\0') == std::string_view::npos && decodeText(path, encoding::utf8, false, text);
    URL* const url = make<URL>();
    try {
        if (isPath) url->path.adopt(newString(text));
    } catch (...) {
        deallocate(url);
        throw;
    }
    return url;
}

} // namespace
} // namespace chroma::builtin

namespace chroma {

using builtin::String;
using builtin::URL;

constexpr CFURLPathStyle posixStyle = 0;

BUILTIN_EXPORT CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle style, Boolean) {
    builtin::ensurePlatform();
    return builtin::orNull([&]() -> CFURLRef {
        const char* const text = path ? builtin::utf8Of(static_cast<String*>(path)) : nullptr;
        if (!text || !*text || style != posixStyle) return nullptr;
        return builtin::newURL(builtin::absolutePath(text));
    });
}

BUILTIN_EXPORT CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base) {
    builtin::ensurePlatform();
    return builtin::orNull([&]() -> CFURLRef {
        const char* const url = text ? builtin::utf8Of(static_cast<String*>(text)) : nullptr;
        if (!url || base || !builtin::isURLText(url)) return nullptr;
        return builtin::newURL(builtin::withoutEscapes(builtin::pathPart(url)));
    });
}

BUILTIN_EXPORT CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style) {
    return url && style == posixStyle ? builtin::retain(static_cast<URL*>(url)->path.get()) : nullptr;
}

} // namespace chroma
