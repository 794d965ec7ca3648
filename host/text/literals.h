// Literals of programs, declarations and texts: 12, &hFF, &o17, &b101, 1.5e-3, "a ""quoted"" word", #FF8000.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace host {

struct ScannedLiteral {
    std::size_t size; // in bytes
    std::variant<HostInteger, double, HostColor, std::string> value;
};

struct LiteralError {
    std::size_t offset; // in the text
    std::string message;
};

// Returns whether one of these literals begins with the character; `next` is the following character.
bool startsLiteral(char first, char next);

// Scans the literal at the start of the text; the character after it is not part of a name. Throws LiteralError. `negative`
// means that a minus precedes the number, which may then be one larger; the value has the sign.
ScannedLiteral scanLiteral(std::string_view text, bool negative = false);

// Reads the digits of #RGB, #RGBA, #RRGGBB or #RRGGBBAA. The highest byte of the colour is its opacity.
std::optional<HostColor> colorOfHex(std::string_view digits);

// Returns the literal of a colour.
std::string literalOf(HostColor color);

// Returns the hexadecimal digits, at least `digits` of them.
std::string hexOf(std::uintptr_t value, std::size_t digits);

} // namespace host
