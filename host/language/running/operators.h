// Code for the operators and for conversions between types. The checker has brought both operands to the one type that each
// of these works on.
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
// The last two have only equality: that of the keys of a Dictionary, and identity.
CodePtr comparison(syntax::Operator operation, Kind kind, CodePtr left, CodePtr right);

// And, Or, Xor on Boolean, the right side evaluated only when it decides, or on the bits of Integer.
CodePtr logic(syntax::Operator operation, Kind kind, CodePtr left, CodePtr right);

CodePtr choice(CodePtr condition, CodePtr yes, CodePtr no); // only one of both is computed

CodePtr negated(Kind kind, CodePtr operand);  // Integer, Double
CodePtr inverted(Kind kind, CodePtr operand); // Boolean, Integer

CodePtr joined(CodePtr left, CodePtr right, Offset offset); // strings

// The value as a string, in the form of Print.
CodePtr asText(CodePtr value, const Type& type);

// The conversion of a value, of a type that has one for the purpose. From variants and text it may raise.
CodePtr converted(CodePtr value, const Type& from, const Type& to, Offset offset, Purpose purpose = Purpose::assignment);

} // namespace host::language
