// The static types of the host language, as declarations and scripts write them.
#pragma once

#include "text/letters.h"

#include <string>
#include <string_view>

namespace host {

enum class Kind : unsigned char { nothing, boolean, integer, real, color, string, object, variant };

struct Type {
    Kind kind = Kind::nothing;
    bool isArray = false; // one-dimensional, of `kind`; the value is an array object or Nil
    // Kind::object only: the class as the declaration wrote it, "Object" for any. Empty for the type of the literal Nil. The
    // class may not exist, or not yet; whoever uses the type asks the registry.
    std::string className;

    static Type plain(Kind kind) { return {kind, false, {}}; } // of a kind that needs no class
    static Type nil() { return {Kind::object, false, {}}; }
    static Type object(std::string name) { return {Kind::object, false, std::move(name)}; }

    bool is(Kind wanted) const { return kind == wanted && !isArray; }
    bool isNumber() const { return is(Kind::integer) || is(Kind::real) || is(Kind::color); }
    bool isNil() const { return kind == Kind::object && !isArray && className.empty(); }
    // Whether a value is one reference to a host object: objects, variants and arrays.
    bool isObjectReference() const { return isArray || kind == Kind::object || kind == Kind::variant; }

    Type element() const { return {kind, false, className}; }
    Type arrayOf() const { return {kind, true, className}; }
};

bool operator==(const Type& a, const Type& b);
bool operator!=(const Type& a, const Type& b);

// "double" and "Double" give Kind::real; a name that is none of the built-in types names a class.
Type typeNamed(std::string_view name);

// As the language spells it: "Double()", "NSColorZRX", "Nil"; empty for Void.
std::string nameOf(const Type& type);

} // namespace host
