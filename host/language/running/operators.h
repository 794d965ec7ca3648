// Code for the operators and for conversions between types. The checker has converted both operands to the type that the
// operator works on.
#pragma once

#include "language/reading/source.h"
#include "language/reading/syntax.h"
#include "language/running/code.h"

#include "model/conversions.h"

namespace host::language {

CodePtr constant(Slot value); // a value that carries no reference
CodePtr stringConstant(std::string text);

// + - * on Integer or Double; / and ^ on Double; \ and Mod on Integer. Integers wrap around; \ and Mod by 0 raise.
CodePtr arithmetic(syntax::Operator operation, Kind kind, CodePtr left, CodePtr right, Offset offset);

// Comparisons of Integer, Double, Boolean, String (by code points), Variant and Object, which represents every reference.
// Variant and Object have only equality: that of the keys of a Dictionary, and identity.
CodePtr comparison(syntax::Operator operation, Kind kind, CodePtr left, CodePtr right);

// And, Or, Xor on Boolean, which evaluate the right side only if it decides, or on the bits of Integer.
CodePtr logic(syntax::Operator operation, Kind kind, CodePtr left, CodePtr right);

CodePtr choice(CodePtr condition, CodePtr yes, CodePtr no); // computes only one of the two

CodePtr negated(Kind kind, CodePtr operand);  // Integer, Double
CodePtr inverted(Kind kind, CodePtr operand); // Boolean, Integer

CodePtr joined(CodePtr left, CodePtr right, Offset offset); // strings

// Returns the value as a string, in the form of Print.
CodePtr asText(CodePtr value, const Type& type);

// Converts a value of a type that can be converted for the purpose. A conversion from a variant or text may raise.
CodePtr converted(CodePtr value, const Type& from, const Type& to, Offset offset, Purpose purpose = Purpose::assignment);

} // namespace host::language
