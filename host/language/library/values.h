// Values as text, and numbers turned into others.
#pragma once

#include "model/types.h"
#include "model/values.h"

#include <string>

namespace host::language {

// As Print shows it: numbers in the shortest form that reads back the same, colours as &hAARRGGBB, True, False and Nil,
// objects as they describe themselves, arrays as their elements in parentheses, variants as what they hold. In UTF-8.
std::string textOf(const Type& type, Slot value);

std::string textOf(double value);
std::string textOf(HostInteger value);
std::string textOf(bool value);
std::string hexOf(std::uintptr_t value, std::size_t digits); // filled with zeros to `digits`

// Cuts off the fraction. Numbers beyond the range give its nearest end, what is not a number gives 0.
HostInteger truncated(double value);

// A colour is its number; an integer gives its lower 32 bits.
inline HostColor colorOf(HostInteger value) { return static_cast<HostColor>(static_cast<std::uintptr_t>(value)); }
inline HostInteger integerOf(HostColor value) { return static_cast<HostInteger>(static_cast<std::uintptr_t>(value)); }

} // namespace host::language
