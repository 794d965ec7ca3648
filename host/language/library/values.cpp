#include "language/presentation.h"

#include "model/arrays.h"
#include "model/variants.h"
#include "system/interruption.h"
#include "text/literals.h"
#include "values/strings.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace host::language {
namespace {

// Long enough for every shortest form. The longest are fixed forms near the limits below.
using Buffer = char[64];

template <class... How>
std::string written(double value, How... how) {
    Buffer buffer;
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, how...).ptr};
}

// An array that is being written, in a list with the arrays that contain it.
struct Around {
    const Array* array;
    const Around* outer; // the array that contains it; null if none
    unsigned depth;
};

void append(std::string& text, const Type& type, Slot value, const Around* around);

// Writes an array. An array inside itself, or at too deep a level of nesting, is written as (...).
void appendArray(std::string& text, const Array* array, const Around* outer) {
    constexpr unsigned maxDepth = 100;
    const Around here{array, outer, outer ? outer->depth + 1 : 0};
    bool isShown = here.depth < maxDepth;
    for (const Around* around = outer; around && isShown; around = around->outer)
        isShown = around->array != array;
    if (!isShown) {
        text += "(...)";
        return;
    }
    text += '(';
    for (HostInteger i = 0; inBounds(array, i); ++i) {
        checkInterruption();
        if (text.size() > maxTextBytes) throw std::length_error("the text of an array is longer than a text can be");
        text += i == 0 ? "" : ", ";
        append(text, elementType(array), elementAt(array, i), &here);
    }
    text += ')';
}

void append(std::string& text, const Type& type, Slot value, const Around* around) {
    const bool isVariant = type.is(Kind::variant) && value.object;
    const Held held = isVariant ? heldIn(value.object) : Held{type.kind, value};
    const Array* const array = isVariant || type.isArray ? asArray(value.object) : nullptr;
    if (array) return appendArray(text, array, around);
    text += textOf(isVariant ? Type::plain(held.kind) : type, held.value);
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
    if (value.object && (type.isArray || type.is(Kind::variant))) {
        std::string text;
        append(text, type, value, nullptr);
        return text;
    }
    if (type.isArray) return "Nil";
    switch (type.kind) {
    case Kind::nothing: return {};
    case Kind::boolean: return textOf(value.boolean != 0);
    case Kind::integer: return textOf(value.integer);
    case Kind::real: return textOf(value.real);
    case Kind::color: return literalOf(value.color);
    case Kind::string: return utf8Of(value.string);
    case Kind::object: return value.object ? textOf(value.object) : "Nil";
    case Kind::variant: return "Nil"; // all others are handled above
    }
    return {};
}

} // namespace host::language
