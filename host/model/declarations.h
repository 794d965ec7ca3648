// The declarations that class records carry, parsed:
//     getRGB(byref red as double, byref green as double)
//     colorWithColorSpace(ColorSpace as NSColorSpaceZRX, paramarray components as double) as NSColorZRX
//     Constructor(red as double, alpha as double = 1.0)
//     NSGrayColorSpaceModel=0
// Keywords and type names in any case; blanks anywhere between words.
#pragma once

#include "model/types.h"
#include "model/values.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace host {

// 12, -1, &hFF, 1.5, "text" ("" for a quote), true, false, #FF8000, nil.
struct Literal {
    std::variant<std::monostate, bool, HostInteger, double, HostColor, std::string> value; // monostate: nil

    Type type() const;
    // The value with one reference for the caller.
    Slot newSlot() const;
};

struct Parameter {
    std::string name;
    Type type; // of a paramarray: the array's type
    bool byRef = false;
    bool paramArray = false;
    std::optional<Literal> defaultValue; // already of the parameter's type
};

struct Signature {
    std::string name;
    std::vector<Parameter> parameters; // those with a default, and a paramarray, stand last
    Type result;
};

struct Constant {
    std::string name;
    Literal value;
};

// Thrown for malformed text: what() gives reason, column (from 1) and the text.
class DeclarationError : public std::runtime_error {
public:
    DeclarationError(const std::string& reason, std::size_t where, std::string_view text);

    std::size_t position; // byte offset into the text, from 0
};

Signature parseSignature(std::string_view text);
Constant parseConstant(std::string_view text);

// The type of a property: "Integer", "double()".
Type parseType(std::string_view text);

} // namespace host
