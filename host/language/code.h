// A checked program in the form that runs: a tree of closures with every name, overload, variable and conversion resolved. The
// tree itself is untyped; the checker knows the type of each value and puts together only what fits.
#pragma once

#include "model/types.h"
#include "model/values.h"

#include <memory>
#include <utility>
#include <vector>

namespace host::language {

class Frame;

class Code {
public:
    virtual ~Code() = default;

    // Counted values are borrowed: they live until the end of the step that evaluates them. Throws Raised.
    virtual Slot evaluate(Frame& frame) const = 0;
};
using CodePtr = std::unique_ptr<Code>;

class Action {
public:
    virtual ~Action() = default;
    virtual void execute(Frame& frame) const = 0; // throws Raised
};
using ActionPtr = std::unique_ptr<Action>;
using Actions = std::vector<ActionPtr>;

// A value from a closure (Frame&) -> Slot.
template <class Function>
CodePtr makeCode(Function function) {
    class Closure final : public Code {
    public:
        explicit Closure(Function&& f) : function_(std::move(f)) {}
        Slot evaluate(Frame& frame) const override { return function_(frame); }

    private:
        Function function_;
    };
    return std::make_unique<Closure>(std::move(function));
}

// An action from a closure (Frame&) -> void.
template <class Function>
ActionPtr makeAction(Function function) {
    class Closure final : public Action {
    public:
        explicit Closure(Function&& f) : function_(std::move(f)) {}
        void execute(Frame& frame) const override { function_(frame); }

    private:
        Function function_;
    };
    return std::make_unique<Closure>(std::move(function));
}

// A value computed from two others, the left one first, by (Slot, Slot) -> Slot.
template <class Function>
CodePtr combine(CodePtr left, CodePtr right, Function function) {
    return makeCode([left = std::move(left), right = std::move(right), function](Frame& frame) {
        const Slot a = left->evaluate(frame);
        const Slot b = right->evaluate(frame);
        return function(a, b);
    });
}

// A value computed from another by (Slot) -> Slot.
template <class Function>
CodePtr transform(CodePtr operand, Function function) {
    return makeCode([operand = std::move(operand), function](Frame& frame) { return function(operand->evaluate(frame)); });
}

struct Program {
    ActionPtr body;
    std::size_t variableCount = 0;
};

} // namespace host::language
