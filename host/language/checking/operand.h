// What an expression turns out to be: a computed value, or a place that can also be assigned to or passed by reference.
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
    bool whole = false; // a number without a fraction by how it is made
};

class Operand {
public:
    static Operand result(Type type, CodePtr code); // done for an effect too; the type may be Void
    static Operand call(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);
    static Operand computed(Type type, CodePtr code);
    static Operand variable(const Variable& variable);
    static Operand element(Type type, CodePtr array, CodePtr index, Offset offset);
    static Operand property(const Property& property, CodePtr object, Offset offset);

    const Type& type() const { return type_; }
    // Whether a number has no fraction by how it is made: an Integer, the result of Floor, a sum of whole numbers.
    bool isWhole() const { return whole_ || !type_.is(Kind::real); }
    Operand markedWhole(bool whole) && {
        whole_ = whole;
        return std::move(*this);
    }
    // Whether it makes a statement of its own.
    bool hasEffect() const { return std::holds_alternative<Result>(form_) || std::holds_alternative<Call>(form_); }
    // Null unless it is a call of a bound function.
    const Method* method() const {
        const auto* const call = std::get_if<Call>(&form_);
        return call ? call->method : nullptr;
    }
    // Null unless it is a property.
    const Property* property() const;
    // Whether it can be passed by reference: a variable or an element.
    bool isAssignable() const;
    // Whether `assign` can be called: the above, and properties and methods with a setter.
    bool isWritable() const;

    // Whether it keeps what is assigned, does nothing else with it, and takes the empty value too.
    bool canBeEmptied() const;

    // The same place a second time. What it takes to get there is computed once, by the actions that this adds, into
    // variables without a name. None for what is no place.
    std::optional<Operand> twin(Scopes& scopes, Actions& actions);

    // Each of these uses the operand up. A property that is read must have a getter.
    CodePtr read();
    ArgumentCode byReference();      // isAssignable
    ActionPtr assign(CodePtr value); // isWritable; the value is of the operand's type

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
