// Which values stand for values of another type, and how they become them.
#pragma once

#include "model/strings.h"
#include "model/types.h"

#include <optional>

namespace host {

// What a value is wanted for. Each admits what the one before does, and more.
enum class Purpose : unsigned char {
    argument,   // equal types, a subclass for its superclass, Nil, an Integer for a Double, Integer and Color, Variants
    assignment, // a Double for an Integer, whose fraction is cut off
    cast,       // Integer(value) and its like: text that is a number or a colour
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

// How a value of type `from` becomes one of type `to`; nullopt when it does not.
std::optional<Conversion> conversionTo(const Type& to, const Type& from, Purpose purpose);

// The value itself, for `none` and the conversions of numbers and colours.
Slot convertedNumber(Conversion conversion, Slot value);

// Cuts off the fraction. Numbers beyond the range give its nearest end, what is not a number gives 0.
HostInteger truncated(double value);

// A Double, an Integer or a Color from the whole text, blanks around it aside: a number as a literal writes it, with a sign
// or none; a colour as its literal or by its name in CSS. Raises TypeMismatchException and answers false when it is none.
bool readText(const String* string, const Type& type, Slot& value);

// The number that the whole text is; none for other text.
std::optional<double> numberIn(std::string_view text);

} // namespace host
