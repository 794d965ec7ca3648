// The static types of the host language, as declarations and scripts write them.
#pragma once

#include "text/letters.h"

#include <string>
#include <string_view>

namespace host {

enum class Kind : unsigned char { Void, Boolean, Integer, Double, Color, String, Object, Variant };

struct Type {
    Kind kind = Kind::Void;
    bool isArray = false; // one-dimensional, of `kind`; the value is an array object or Nil
    // Kind::Object only: the class as the declaration wrote it, "Object" for any. Empty for the type of the literal Nil. The
    // class may not exist, or not yet; whoever uses the type asks the registry.
    std::string className;

    static Type plain(Kind kind) { return {kind, false, {}}; } // of a kind that needs no class
    static Type nil() { return {Kind::Object, false, {}}; }
    static Type object(std::string name) { return {Kind::Object, false, std::move(name)}; }

    bool is(Kind wanted) const { return kind == wanted && !isArray; }
    bool isNumber() const { return is(Kind::Integer) || is(Kind::Double) || is(Kind::Color); }
    bool isNil() const { return kind == Kind::Object && !isArray && className.empty(); }
    // Whether a value is one reference to a host object: objects, variants and arrays.
    bool isObjectReference() const { return isArray || kind == Kind::Object || kind == Kind::Variant; }
    // Whether a value carries a reference count of its own: the above and strings.
    bool isCounted() const { return isObjectReference() || kind == Kind::String; }

    Type element() const { return {kind, false, className}; }
    Type arrayOf() const { return {kind, true, className}; }
};

bool operator==(const Type& a, const Type& b);
bool operator!=(const Type& a, const Type& b);

// "double" and "Double" give Kind::Double; a name that is none of the built-in types names a class.
Type typeNamed(std::string_view name);

// As the language spells it: "Double()", "NSColorZRX", "Nil"; empty for Void.
std::string nameOf(const Type& type);

} // namespace host
