// Conversions between the types of values.
#pragma once

#include "values/strings.h"
#include "values/types.h"

#include <optional>

namespace host {

// The purpose of a conversion. Each purpose permits what the previous one does, and more.
enum class Purpose : unsigned char {
    argument,   // equal types, a subclass for its superclass, Nil, an Integer for a Double, Integer and Color, Variants
    assignment, // a Double for an Integer, whose fraction is cut off
    cast,       // Integer(value) and similar calls: text that contains a number or a colour
};

enum class Conversion : unsigned char {
    none, // same value
    integerToReal,
    realToInteger,
    integerToColor, // a colour is its number
    colorToInteger,
    fromText,    // readText: may raise
    toVariant,   // newVariant: a new reference
    fromVariant, // readVariant: may raise
};

// Returns the conversion from type `from` to type `to`, or nullopt if there is none.
std::optional<Conversion> conversionTo(const Type& to, const Type& from, Purpose purpose);

// Returns the converted value, for `none` and the conversions of numbers and colours.
Slot convertedNumber(Conversion conversion, Slot value);

// Removes the fraction. Returns the nearest limit for a number outside the range, and 0 for not-a-number.
HostInteger truncated(double value);

// Reads a Double, an Integer or a Color from the complete text, ignoring blanks around it. A number is written as a
// literal, with or without a sign; a colour as a literal or as a CSS name. Otherwise raises TypeMismatchException and
// returns false.
bool readText(const String* string, const Type& type, Slot& value);

// Returns the number that the complete text represents, or nullopt.
std::optional<double> numberIn(std::string_view text);

} // namespace host
