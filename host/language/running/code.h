// A checked program in executable form: a tree of closures with every name, overload, variable and conversion resolved. The
// tree is untyped; the checker knows the type of each value and combines only what fits.
#pragma once

#include "values/types.h"
#include "values/values.h"

#include <cstdint>
#include <memory>
#include <type_traits>
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

// How an action ends: normally, or by a statement that leaves an enclosing construct.
struct Completion {
    enum class Ending : std::uint8_t { normal, exitLoop, continueLoop, leaveProcedure };
    Ending ending = Ending::normal;
    std::uint16_t loop = 0; // when a loop is left or continues: the number of loops around its body, including the loop

    bool isNormal() const { return ending == Ending::normal; }
};

class Action {
public:
    virtual ~Action() = default;
    virtual Completion execute(Frame& frame) const = 0; // throws Raised and Interrupted
};
using ActionPtr = std::unique_ptr<Action>;
using Actions = std::vector<ActionPtr>;

// Returns a value from a closure (Frame&) -> Slot.
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

// Returns an action from a closure (Frame&) -> void, which ends normally, or (Frame&) -> Completion.
template <class Function>
ActionPtr makeAction(Function function) {
    class Closure final : public Action {
    public:
        explicit Closure(Function&& f) : function_(std::move(f)) {}
        Completion execute(Frame& frame) const override {
            if constexpr (std::is_void_v<decltype(function_(frame))>) {
                function_(frame);
                return {};
            } else {
                return function_(frame);
            }
        }

    private:
        Function function_;
    };
    return std::make_unique<Closure>(std::move(function));
}

// Returns a value that (Slot, Slot) -> Slot computes from two others, of which the left one is evaluated first.
template <class Function>
CodePtr combine(CodePtr left, CodePtr right, Function function) {
    return makeCode([left = std::move(left), right = std::move(right), function](Frame& frame) {
        const Slot a = left->evaluate(frame);
        const Slot b = right->evaluate(frame);
        return function(a, b);
    });
}

// Returns a value that (Slot) -> Slot computes from another.
template <class Function>
CodePtr transform(CodePtr operand, Function function) {
    return makeCode([operand = std::move(operand), function](Frame& frame) { return function(operand->evaluate(frame)); });
}

} // namespace host::language
