#include "language/library/text_functions.h"

#include "text/utf8.h"

#include "model/exceptions.h"
#include "model/owned.h"
#include "system/interruption.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cwctype>
#include <string>
#include <utility>

namespace host::language::text {
namespace {

constexpr std::string_view blanks = " \t\r\n";

String* trimmed(String* text, bool left, bool right) {
    const std::string bytes = utf8Of(text);
    const std::size_t first = left ? bytes.find_first_not_of(blanks) : 0;
    if (first == std::string::npos) return nullptr;
    const std::size_t last = right ? bytes.find_last_not_of(blanks) + 1 : bytes.size();
    return last > first ? newString(std::string_view(bytes).substr(first, last - first)) : nullptr;
}

// Returns false and records the exception if a text would have too many bytes.
bool fits(std::size_t bytes) {
    if (bytes <= maxTextBytes) return true;
    raise("OutOfMemoryException", "A text cannot have more than 256 MB.");
    return false;
}

// The parts of a pattern for numbers.
struct Pattern {
    std::string prefix;
    std::string suffix;
    std::size_t wholeDigits = 0;    // at least
    std::size_t digits = 0;         // after the point, at least
    std::size_t optionalDigits = 0; // further ones, without trailing zeros
    bool grouped = false;
    bool percent = false;
};

Pattern parsePattern(std::string_view text) {
    Pattern pattern;
    bool afterPoint = false;
    bool inNumber = false;
    std::string* literal = &pattern.prefix;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool escaped = c == '\\' && i + 1 < text.size();
        const bool ofNumber =
            literal == &pattern.prefix && (c == '0' || c == '#' || (c == '.' && !afterPoint) || (c == ',' && inNumber));
        if (!escaped && ofNumber) {
            inNumber = true;
            if (c == '.') afterPoint = true;
            if (c == ',' && !afterPoint) pattern.grouped = true;
            if (c == '0' && !afterPoint) ++pattern.wholeDigits;
            if (c == '0' && afterPoint) pattern.digits += 1 + std::exchange(pattern.optionalDigits, 0);
            if (c == '#' && afterPoint) ++pattern.optionalDigits;
            continue;
        }
        if (inNumber) literal = &pattern.suffix;
        if (c == '%' && !escaped) pattern.percent = true;
        *literal += escaped ? text[++i] : c;
    }
    return pattern;
}

// The digits of a number as Print shows them, and the index of the digit that follows the decimal point.
struct Digits {
    std::string digits;
    std::size_t point;
};

Digits digitsOf(double magnitude) {
    char buffer[400]; // the shortest form has at most 309 digits before the point or 324 zeros after it
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::fixed);
    std::string digits(buffer, written.ptr);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    if (point < digits.size()) digits.erase(point, 1);
    return {std::move(digits), point};
}

// Rounds the number to `count` digits after the point. Halves go up.
void roundTo(Digits& number, std::size_t count) {
    const std::size_t size = number.point + count;
    const bool up = number.digits.size() > size && number.digits[size] >= '5';
    number.digits.resize(size, '0');
    if (!up) return;
    std::size_t at = size;
    while (at > 0 && number.digits[at - 1] == '9')
        number.digits[--at] = '0';
    if (at > 0) {
        ++number.digits[at - 1];
    } else {
        number.digits.insert(0, 1, '1');
        ++number.point;
    }
}

struct NamedEncoding {
    std::string_view name;
    Encoding encoding;
};

constexpr NamedEncoding encodings[] = {
    {"UTF-8", encoding::utf8},         {"UTF-16", encoding::utf16},         {"UTF-32", encoding::utf32},
    {"US-ASCII", encoding::ascii},     {"ISO-8859-1", encoding::isoLatin1}, {"windows-1252", encoding::windowsLatin1},
    {"macintosh", encoding::macRoman},
};

// Returns null and records the exception for other names.
const NamedEncoding* findEncoding(String* name) {
    const TextOf wanted(name);
    for (const NamedEncoding& known : encodings)
        if (equalIgnoringCase(known.name, wanted.bytes())) return &known;
    raise("TypeMismatchException", "There is no encoding \"" + std::string(wanted.bytes()) + "\".");
    return nullptr;
}

// Returns a locale that knows the letters of all scripts, whatever the locale of the process, or null if the system does
// not have its tables.
locale_t unicodeLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}
std::uint32_t upperCharacter(std::uint32_t code) {
    checkInterruption();
    const auto letter = static_cast<wint_t>(code);
    return static_cast<std::uint32_t>(unicodeLocale() ? towupper_l(letter, unicodeLocale()) : std::towupper(letter));
}
std::uint32_t lowerCharacter(std::uint32_t code) {
    checkInterruption();
    const auto letter = static_cast<wint_t>(code);
    return static_cast<std::uint32_t>(unicodeLocale() ? towlower_l(letter, unicodeLocale()) : std::towlower(letter));
}

} // namespace

String* trim(String* text) { return trimmed(text, true, true); }
String* trimLeft(String* text) { return trimmed(text, true, false); }
String* trimRight(String* text) { return trimmed(text, false, true); }

String* replace(String* text, String* wanted, String* by) {
    const std::string bytes = utf8Of(text);
    const std::string from = utf8Of(wanted);
    const std::string to = utf8Of(by);
    if (from.empty()) return newString(bytes);
    std::string result;
    std::size_t start = 0;
    for (std::size_t at = indexOf(bytes, from, 0); at != std::string::npos; at = indexOf(bytes, from, start)) {
        checkInterruption();
        result.append(bytes, start, at - start).append(to);
        if (!fits(result.size())) return nullptr;
        start = at + from.size();
    }
    return ownString(result.append(bytes, start, std::string::npos)).release();
}

String* repeat(String* text, HostInteger count) {
    const std::string bytes = utf8Of(text);
    if (count <= 0 || bytes.empty()) return nullptr;
    const auto times = static_cast<std::size_t>(count);
    if (!fits(times > maxTextBytes ? times : bytes.size() * std::min(times, maxTextBytes / bytes.size() + 1)))
        return nullptr;
    std::string result;
    result.reserve(bytes.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        checkInterruption();
        result += bytes;
    }
    return ownString(result).release();
}

Array* split(String* text, String* delimiter) {
    const TextOf source(text), separator(delimiter);
    const std::string_view between = separator.bytes();
    Owned<Array> parts(newArray(Type::plain(Kind::string)));
    const auto append = [&](std::string_view part) {
        checkInterruption();
        appendElement(parts.get(), Slot::ofString(ownString(part).get()));
    };
    std::string_view rest = source.bytes();
    if (between.empty()) {
        for (; !rest.empty(); rest.remove_prefix(utf8::offsetOf(rest, 1)))
            append(rest.substr(0, utf8::offsetOf(rest, 1)));
        return parts.release();
    }
    for (std::size_t at = indexOf(rest, between, 0); at != std::string_view::npos; at = indexOf(rest, between, 0)) {
        append(rest.substr(0, at));
        rest.remove_prefix(at + between.size());
    }
    append(rest);
    return parts.release();
}

String* join(Array* parts, String* delimiter) {
    if (!parts) {
        raise("NilObjectException", "An array that is Nil was used.");
        return nullptr;
    }
    const TextOf between(delimiter);
    std::string result;
    for (HostInteger i = 0; i <= upperBound(parts); ++i) {
        checkInterruption();
        if (i > 0) result.append(between.bytes());
        result.append(TextOf(elementAt(parts, i).string).bytes());
        if (!fits(result.size())) return nullptr;
    }
    return ownString(result).release();
}

String* character(HostInteger code) {
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < 0 || code > 0x10FFFF || surrogate) {
        raise("OutOfBoundsException", "There is no character with the number " + std::to_string(code) + ".");
        return nullptr;
    }
    return newString(utf8::encoded(static_cast<std::uint32_t>(code)));
}

HostInteger codeOf(String* text) {
    const std::optional<std::uint32_t> first = utf8::firstOf(TextOf(text).bytes());
    return first ? static_cast<HostInteger>(*first) : -1;
}

String* uppercase(String* text) { return newString(utf8::map(utf8Of(text), upperCharacter)); }
String* lowercase(String* text) { return newString(utf8::map(utf8Of(text), lowerCharacter)); }

HostInteger order(String* a, String* b, HostBoolean ignoringCase) {
    if (!ignoringCase) return std::clamp(compare(a, b, false), -1, 1);
    const Owned<String> first(lowercase(a)), second(lowercase(b));
    return std::clamp(compare(first.get(), second.get(), false), -1, 1);
}

HostInteger findLast(HostInteger start, String* text, String* wanted) {
    const TextOf searched(text), part(wanted);
    if (start < 1) return 0;
    if (part.bytes().size() > searched.bytes().size()) return 0;
    std::size_t at =
        std::min(searched.offsetOf(static_cast<std::size_t>(start) - 1), searched.bytes().size() - part.bytes().size());
    while (searched.bytes().compare(at, part.bytes().size(), part.bytes()) != 0) {
        checkInterruption();
        if (at-- == 0) return 0;
    }
    return static_cast<HostInteger>(searched.characterAt(at)) + 1;
}

HostInteger byteCount(String* text) { return static_cast<HostInteger>(bytesOf(text).size()); }

MemoryBlock* bytes(String* text, String* encodingName) {
    const NamedEncoding* const into = findEncoding(encodingName);
    if (!into) return nullptr;
    const Owned<String> converted(convert(text, into->encoding));
    if (text && !converted) {
        raise("TypeMismatchException", "The text has characters that are not in " + std::string(into->name) + ".");
        return nullptr;
    }
    const std::string_view stored = bytesOf(converted.get());
    MemoryBlock* const block = newMemoryBlock(static_cast<std::int32_t>(stored.size()));
    if (!block) raise("OutOfMemoryException", "There is not enough memory for " + std::to_string(stored.size()) + " bytes.");
    if (block) std::copy(stored.begin(), stored.end(), bytesOf(block));
    return block;
}

String* defineEncoding(String* text, String* encodingName) {
    const NamedEncoding* const as = findEncoding(encodingName);
    if (!as) return nullptr;
    Owned<String> defined(newString(bytesOf(text), as->encoding));
    const std::string read = utf8Of(defined.get());
    if (text && (read.empty() || utf8::findInvalid(read) != std::string::npos)) {
        raise("TypeMismatchException", "The text's bytes are invalid in " + std::string(as->name) + ".");
        return nullptr;
    }
    return defined.release();
}

String* format(double value, String* patternText) {
    const Pattern pattern = parsePattern(utf8Of(patternText));
    constexpr std::size_t maxDigits = 30;
    if (!std::isfinite(value)) return newString(std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf");
    const std::size_t required = std::min(pattern.digits, maxDigits);
    const std::size_t most = std::min(required + pattern.optionalDigits, maxDigits);
    Digits number = digitsOf(std::fabs(value));
    if (pattern.percent) {
        number.point += 2;
        number.digits.resize(std::max(number.digits.size(), number.point), '0');
    }
    roundTo(number, most);
    std::string integer = number.digits.substr(0, number.point);
    std::string fraction = number.digits.substr(number.point);
    integer.erase(0, integer.find_first_not_of('0'));
    while (fraction.size() > required && fraction.back() == '0')
        fraction.pop_back();
    const bool negative = value < 0 && number.digits.find_first_not_of('0') != std::string::npos;
    if (integer.size() < pattern.wholeDigits)
        integer.insert(0, std::min(pattern.wholeDigits, maxDigits) - std::min(integer.size(), maxDigits), '0');
    for (std::size_t at = integer.size(); pattern.grouped && at > 3;)
        integer.insert(at -= 3, ",");
    return newString((negative ? "-" : "") + pattern.prefix + integer + (fraction.empty() ? "" : ".") + fraction +
                     pattern.suffix);
}

} // namespace host::language::text
