// Literals as programs, declarations and texts write them: 12, &hFF, &o17, &b101, 1.5e-3, "a ""quoted"" word", #FF8000.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>
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

// Whether a literal of these begins with the character; `next` is the one behind it.
bool startsLiteral(char first, char next);

// The literal at the start of the text, as far as it goes; what follows it is not a part of a name. Throws LiteralError.
// `negative` tells that a minus stands in front, which a number then may be as large as; the value has the sign.
ScannedLiteral scanLiteral(std::string_view text, bool negative = false);

// #RGB, #RRGGBB or #RRGGBBAA as a colour, whose highest byte is its opacity. Throws LiteralError.
HostColor scanColor(std::string_view text);

// The literal of a colour.
std::string literalOf(HostColor color);

// Hexadecimal digits, at least so many.
std::string hexOf(std::uintptr_t value, std::size_t digits);

} // namespace host
