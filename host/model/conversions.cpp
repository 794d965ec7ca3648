#include "model/conversions.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "text/characters.h"
#include "text/css_colors.h"
#include "text/literals.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace host {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// Returns an Integer or a Double, or nullopt if the text is not a number.
std::optional<Slot> number(std::string_view whole, Kind& kind) {
    std::string_view text = trimmed(whole);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    if (text.empty() || !(isDigit(text[0]) || text[0] == '.' || text[0] == '&')) return std::nullopt;
    try {
        const ScannedLiteral scanned = scanLiteral(text, negative);
        if (scanned.size != text.size()) return std::nullopt;
        const auto* const integer = std::get_if<HostInteger>(&scanned.value);
        kind = integer ? Kind::integer : Kind::real;
        return integer ? Slot::ofInteger(*integer) : Slot::ofReal(std::get<double>(scanned.value));
    } catch (const LiteralError&) {
        return std::nullopt;
    }
}

std::optional<Slot> color(std::string_view text) {
    const std::string_view name = trimmed(text);
    const bool isHex = !name.empty() && name.front() == '#';
    const std::optional<HostColor> value = isHex ? colorOfHex(name.substr(1)) : cssColor(name);
    return value ? std::optional(Slot::ofColor(*value)) : std::nullopt;
}

} // namespace

std::optional<Conversion> conversionTo(const Type& to, const Type& from, Purpose purpose) {
    if (from.kind == Kind::nothing) return std::nullopt;
    if (from == to) return Conversion::none;
    if (from.isNil() && to.isObjectReference()) return Conversion::none;
    if (to.is(Kind::variant)) return Conversion::toVariant;
    if (from.is(Kind::variant)) return Conversion::fromVariant;
    if (from.isArray || to.isArray) return std::nullopt;
    if (from.kind == Kind::integer && to.kind == Kind::real) return Conversion::integerToReal;
    if (from.kind == Kind::integer && to.kind == Kind::color) return Conversion::integerToColor;
    if (from.kind == Kind::color && to.kind == Kind::integer) return Conversion::colorToInteger;
    if (from.kind == Kind::object && to.kind == Kind::object && isSubclass(from.className, to.className))
        return Conversion::none;
    if (purpose == Purpose::argument) return std::nullopt;
    if (from.kind == Kind::real && to.kind == Kind::integer) return Conversion::realToInteger;
    if (purpose == Purpose::cast && from.kind == Kind::string && to.isNumber()) return Conversion::fromText;
    return std::nullopt;
}

Slot convertedNumber(Conversion conversion, Slot value) {
    switch (conversion) {
    case Conversion::integerToReal: return Slot::ofReal(static_cast<double>(value.integer));
    case Conversion::realToInteger: return Slot::ofInteger(truncated(value.real));
    case Conversion::integerToColor: return Slot::ofColor(static_cast<HostColor>(value.integer));
    case Conversion::colorToInteger: return Slot::ofInteger(static_cast<HostInteger>(std::uintptr_t{value.color}));
    default: return value;
    }
}

HostInteger truncated(double value) {
    constexpr HostInteger lowest = std::numeric_limits<HostInteger>::min();
    constexpr HostInteger highest = std::numeric_limits<HostInteger>::max();
    if (std::isnan(value)) return 0;
    if (value <= static_cast<double>(lowest)) return lowest;
    if (value >= static_cast<double>(highest)) return highest;
    return static_cast<HostInteger>(value);
}

bool readText(const String* string, const Type& type, Slot& value) {
    const TextOf text(string);
    Kind found = Kind::color;
    const std::optional<Slot> read = type.kind == Kind::color ? color(text.bytes()) : number(text.bytes(), found);
    if (!read) {
        constexpr std::size_t maxShown = 40;
        const std::string shown = text.bytes().size() > maxShown ? "The text" : '"' + std::string(text.bytes()) + '"';
        raise("TypeMismatchException", shown + (type.kind == Kind::color ? " is not a colour." : " is not a number."));
        return false;
    }
    const auto conversion = conversionTo(type, Type::plain(found), Purpose::assignment);
    value = convertedNumber(conversion.value_or(Conversion::none), *read);
    return true;
}

std::optional<double> numberIn(std::string_view text) {
    Kind kind = Kind::nothing;
    const std::optional<Slot> read = number(text, kind);
    if (!read) return std::nullopt;
    return kind == Kind::integer ? static_cast<double>(read->integer) : read->real;
}

} // namespace host
