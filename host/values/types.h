// The static types of the host language, as declarations and programs write them.
#pragma once

#include "text/characters.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class Kind : unsigned char { nothing, boolean, integer, real, color, string, object, variant };

struct Type {
    Kind kind = Kind::nothing;
    bool isArray = false; // one-dimensional, of `kind`; the value is an array object or Nil
    // Kind::object only: the class as declared, "Object" for any, empty for the type of the literal Nil. The class may not
    // exist, or not yet; users of the type look it up in the registry.
    std::string className;

    static Type plain(Kind kind) { return {kind, false, {}}; } // of a kind other than object
    static Type nil() { return {Kind::object, false, {}}; }
    static Type object(std::string name) { return {Kind::object, false, std::move(name)}; }

    bool is(Kind wanted) const { return kind == wanted && !isArray; }
    bool isNumber() const { return is(Kind::integer) || is(Kind::real) || is(Kind::color); }
    bool isNil() const { return kind == Kind::object && !isArray && className.empty(); }
    // Returns whether a value is a reference to a host object: objects, variants and arrays.
    bool isObjectReference() const { return isArray || kind == Kind::object || kind == Kind::variant; }

    Type element() const { return {kind, false, className}; }
    Type arrayOf() const { return {kind, true, className}; }
};

bool operator==(const Type& a, const Type& b);
bool operator!=(const Type& a, const Type& b);

// Returns the type of a name in any case: "double" and "Double" return Kind::real; an unknown name is a class.
Type typeNamed(std::string_view name);

// Returns the names of the types that are not classes, and Object.
std::vector<std::string_view> typeNames();

// Returns the type's spelling in the language: "Double()", "NSColorZRX", "Nil"; empty for Void.
std::string nameOf(const Type& type);

} // namespace host
