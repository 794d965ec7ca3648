// Parser for the declarations in class records:
#pragma once

#include "values/types.h"
#include "values/values.h"

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
    // Returns the value with one reference for the caller.
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
    std::vector<Parameter> parameters; // parameters with a default and a paramarray come last
    Type result;
};

struct Constant {
    std::string name;
    Literal value;
};

// Thrown for malformed text. what() contains the reason, the column (from 1) and the text.
class DeclarationError : public std::runtime_error {
public:
    DeclarationError(const std::string& reason, std::size_t where, std::string_view text);

    std::size_t position; // byte offset into the text, from 0
};

Signature parseSignature(std::string_view text);
Constant parseConstant(std::string_view text);

// Parses the type of a property: "Integer", "double()".
Type parseType(std::string_view text);

} // namespace host
