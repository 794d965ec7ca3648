// Actions that order other actions, and the steps that all of them are made of.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

#include <cstdint>
#include <optional>

namespace host::language {

// With `pool`, for code that calls bound functions which may autorelease, the step has a pool of its own.
ActionPtr step(ActionPtr action, bool pool, Offset offset);
CodePtr step(CodePtr value, bool pool, Offset offset); // of a value that carries no reference

ActionPtr sequence(Actions actions);

// The variables of a block that carry references: at its end, however it ends, the last declared is released first.
struct ScopeVariable {
    VariablePlace place;
    Counting counting;
};
ActionPtr scope(ActionPtr body, std::vector<ScopeVariable> variables, Offset offset);

struct Branch {
    CodePtr condition; // null: Else
    ActionPtr body;
};
ActionPtr branches(std::vector<Branch> list);

// What every loop has. `depth` is the number of loops that it is in, itself included.
struct LoopBody {
    ActionPtr body;
    std::uint16_t depth;
    Offset offset;
};

// Goes on while the conditions, in front of the body and behind it, hold; null: always.
ActionPtr conditionLoop(CodePtr before, CodePtr after, LoopBody loop);

// For over a variable of kind Integer or Double. `step` is null for 1. With `down` the step is subtracted; otherwise a step
// below zero counts down too. A step of 0 raises.
struct ForLoop {
    VariablePlace variable;
    Kind kind;
    CodePtr first;
    CodePtr last;
    CodePtr step;
    bool down;
    LoopBody loop;
};
ActionPtr forLoop(ForLoop form);

// `array` is a variable that holds the array; `assign` stores the element at the index in variable `index`. The array may
// change its length while the loop runs.
ActionPtr forEachLoop(VariablePlace array, VariablePlace index, ActionPtr assign, LoopBody loop);

ActionPtr leave(Completion completion);
ActionPtr returnValue(CodePtr value);
ActionPtr raiseException(CodePtr exception, Offset offset);

struct Handler {
    const ClassInfo* info; // null: every exception
    std::optional<VariablePlace> variable;
    ActionPtr body;
};
ActionPtr tryBlock(ActionPtr body, std::vector<Handler> handlers,
                   ActionPtr finally); // finally may be null; what it leaves, it leaves

// Writes the texts that the values give, separated by blanks, and perhaps ends the line.
ActionPtr print(std::vector<CodePtr> texts, bool endsLine);

// Hands the value to the presenter.
ActionPtr present(CodePtr value, const Type& type);

// Evaluates for the effect.
ActionPtr discard(CodePtr value);

} // namespace host::language
