// Actions that order other actions, and the steps that all of them are made of.
#pragma once

#include "language/code.h"
#include "language/frame.h"

#include "model/classes.h"

#include <optional>

namespace host::language {

// With `pool`, for code that calls bound functions which may autorelease, the step has a pool of its own.
ActionPtr step(ActionPtr action, bool pool, Offset offset);
CodePtr step(CodePtr value, bool pool, Offset offset); // of a value that carries no reference

ActionPtr sequence(Actions actions);

// The variables of a block that carry references: at its end, however it ends, the last declared is released first.
struct ScopeVariable {
    std::size_t index;
    Counting counting;
};
ActionPtr scope(ActionPtr body, std::vector<ScopeVariable> variables, Offset offset);

struct Branch {
    CodePtr condition; // null: Else
    ActionPtr body;
};
ActionPtr branches(std::vector<Branch> list);
ActionPtr whileLoop(CodePtr condition, ActionPtr body);

// For over a variable of kind Integer or Double. `step` is null for 1. With `down` the step is subtracted; otherwise a step below
// zero counts down too. A step of 0 raises.
struct ForLoop {
    std::size_t variable;
    Kind kind;
    CodePtr first;
    CodePtr last;
    CodePtr step;
    bool down;
    ActionPtr body;
    Offset offset;
};
ActionPtr forLoop(ForLoop loop);

// `array` is a variable that holds the array; `assign` stores the element at the index in variable `index`. The array may change
// its length while the loop runs.
ActionPtr forEachLoop(std::size_t array, std::size_t index, ActionPtr assign, ActionPtr body, Offset offset);

struct Handler {
    const ClassInfo* info; // null: every exception
    std::optional<std::size_t> variable;
    ActionPtr body;
};
ActionPtr tryBlock(ActionPtr body, std::vector<Handler> handlers, ActionPtr finally); // finally may be null

// Writes the texts that the values give, separated by blanks, and ends the line.
ActionPtr print(std::vector<CodePtr> texts);

// Evaluates for the effect.
ActionPtr discard(CodePtr value);

} // namespace host::language
