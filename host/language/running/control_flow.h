// Actions that control other actions, and the steps of which all actions consist.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

#include <cstdint>
#include <optional>

namespace host::language {

// Creates a step. With `pool`, for code that calls bound functions which may autorelease, the step has an autorelease pool.
ActionPtr step(ActionPtr action, bool pool, Offset offset);
CodePtr step(CodePtr value, bool pool, Offset offset); // for a value that carries no reference

ActionPtr sequence(Actions actions);

// A variable of a block that carries references. At the end of the block, however it ends, the last declared variable is
// released first.
struct ScopeVariable {
    VariablePlace place;
    Counting counting;
};
ActionPtr scope(ActionPtr body, std::vector<ScopeVariable> variables, Offset offset);

struct Branch {
    CodePtr condition; // null for Else
    ActionPtr body;
};
ActionPtr branches(std::vector<Branch> list);

// The common parts of all loops. `depth` is the number of loops around the body, including this one.
struct LoopBody {
    ActionPtr body;
    std::uint16_t depth;
    Offset offset;
};

// Repeats the body while the conditions before and after it hold; a null condition always holds.
ActionPtr conditionLoop(CodePtr before, CodePtr after, LoopBody loop);

// A For over a variable of kind Integer or Double. `step` is null for 1. With `down` the step is subtracted; otherwise a
// negative step counts down too. A step of 0 raises.
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

// `array` is a variable with the array; `assign` stores the element at the index in variable `index`. The array may change
// its length while the loop runs.
ActionPtr forEachLoop(VariablePlace array, VariablePlace index, ActionPtr assign, LoopBody loop);

ActionPtr leave(Completion completion);
ActionPtr returnValue(CodePtr value);
ActionPtr raiseException(CodePtr exception, Offset offset);

struct Handler {
    const ClassInfo* info; // null for every exception
    std::optional<VariablePlace> variable;
    ActionPtr body;
};
ActionPtr tryBlock(ActionPtr body, std::vector<Handler> handlers,
                   ActionPtr finally); // finally may be null; if it leaves a construct, that takes effect

// Prints the texts, separated by blanks. With `endsLine`, also ends the line.
ActionPtr print(std::vector<CodePtr> texts, bool endsLine);

// Passes the value to the presenter.
ActionPtr present(CodePtr value, const Type& type);

// Evaluates the value for its effect.
ActionPtr discard(CodePtr value);

} // namespace host::language
