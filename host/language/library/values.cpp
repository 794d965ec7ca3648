#include "language/library/values.h"

#include "language/library/object_text.h"

#include "model/arrays.h"
#include "model/strings.h"
#include "model/variants.h"
#include "text/literals.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace host::language {
namespace {

// Every shortest form fits: the longest are fixed ones near the limits below.
using Buffer = char[64];

template <class... How>
std::string written(double value, How... how) {
    Buffer buffer;
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, how...).ptr};
}

std::string textOfArray(Object* object) {
    const Array* const array = asArray(object);
    if (!array) return "Nil";
    std::string text = "(";
    for (HostInteger i = 0; inBounds(array, i); ++i)
        text.append(i == 0 ? "" : ", ").append(textOf(elementType(array), elementAt(array, i)));
    return text + ")";
}

std::string textOfVariant(Object* variant) {
    const Type held = typeInVariant(variant);
    if (held.isObjectReference()) return textOf(held, Slot::ofObject(variant));
    Slot value;
    return readVariant(variant, held, value) ? textOf(held, value) : std::string();
}

} // namespace

std::string textOf(double value) {
    constexpr double smallestFixed = 1e-5;
    constexpr double largestFixed = 1e15;
    if (std::isnan(value)) return "nan"; // whatever its sign
    const double magnitude = std::fabs(value);
    const bool fixed = magnitude == 0 || (magnitude >= smallestFixed && magnitude < largestFixed);
    return fixed ? written(value, std::chars_format::fixed) : written(value);
}

std::string textOf(HostInteger value) { return std::to_string(value); }

std::string textOf(bool value) { return value ? "True" : "False"; }

std::string textOf(const Type& type, Slot value) {
    if (type.isArray) return textOfArray(value.object);
    switch (type.kind) {
    case Kind::nothing: return {};
    case Kind::boolean: return textOf(value.boolean != 0);
    case Kind::integer: return textOf(value.integer);
    case Kind::real: return textOf(value.real);
    case Kind::color: return literalOf(value.color);
    case Kind::string: return utf8Of(value.string);
    case Kind::object: return value.object ? textOf(value.object) : "Nil";
    case Kind::variant: return value.object ? textOfVariant(value.object) : "Nil";
    }
    return {};
}

} // namespace host::language
