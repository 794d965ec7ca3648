// The result of checking an expression: a computed value, or a place that can also be assigned to or passed by reference.
#pragma once

#include "language/checking/scopes.h"
#include "language/running/bound_calls.h"
#include "language/running/code.h"

#include <variant>

namespace host::language {

// A value with its static type.
struct Value {
    Type type;
    CodePtr code;
    bool whole = false; // a number that its computation leaves without a fraction
};

class Operand {
public:
    static Operand result(Type type, CodePtr code); // may also have an effect; the type may be Void
    static Operand call(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);
    static Operand computed(Type type, CodePtr code);
    static Operand variable(const Variable& variable);
    static Operand element(Type type, CodePtr array, CodePtr index, Offset offset);
    static Operand property(const Property& property, CodePtr object, Offset offset);

    const Type& type() const { return type_; }
    // Returns whether a number has no fraction because of how it is computed: an Integer, the result of Floor, a sum of
    // such numbers.
    bool isWhole() const { return whole_ || !type_.is(Kind::real); }
    Operand markedAsWhole(bool whole) && {
        whole_ = whole;
        return std::move(*this);
    }
    // Returns whether it can be a statement.
    bool hasEffect() const { return std::holds_alternative<Result>(form_) || std::holds_alternative<Call>(form_); }
    // Returns the method if it is a call of a bound function, otherwise null.
    const Method* method() const {
        const auto* const call = std::get_if<Call>(&form_);
        return call ? call->method : nullptr;
    }
    // Returns the property if it is one, otherwise null.
    const Property* property() const;
    // Returns whether it can be passed by reference: a variable or an element.
    bool isAssignable() const;
    // Returns whether `assign` can be called: variables, elements, and properties and methods with a setter.
    bool isWritable() const;

    // Returns whether an assignment only stores the value, without another effect, and the empty value is accepted too.
    bool canBeEmptied() const;

    // Returns the same place a second time, or nullopt if it is not a place. The actions that this adds compute the place's
    // parts once, into variables without a name.
    std::optional<Operand> twin(Scopes& scopes, Actions& actions);

    // Each of these functions uses up the operand. A property that is read must have a getter.
    CodePtr read();
    ArgumentCode byReference();      // requires isAssignable
    ActionPtr assign(CodePtr value); // requires isWritable; the value has the operand's type

private:
    struct Result {
        CodePtr code;
    };
    struct Call {
        const Method* method;
        CodePtr receiver;
        std::vector<ArgumentCode> arguments;
        Offset offset;
    };
    struct Computed {
        CodePtr code;
    };
    struct ElementPlace {
        CodePtr array;
        CodePtr index;
        Offset offset;
    };
    struct PropertyPlace {
        const Property* property;
        CodePtr object;
        Offset offset;
    };
    using Form = std::variant<Result, Call, Computed, VariablePlace, ElementPlace, PropertyPlace>;

    Operand(Type type, Form form) : type_(std::move(type)), form_(std::move(form)) {}

    Type type_;
    Form form_;
    bool whole_ = false;
};

} // namespace host::language
