// One call of one bound function, and what is wrong with it.
#pragma once

#include "arguments.h"
#include "faults.h"

namespace matrix {

// Which receiver, and which argument is not the ordinary one: -1 for none.
struct Choice {
    std::size_t receiver;
    int parameter;
    std::size_t form;
};

std::vector<Choice> choicesFor(const Function& function);

struct Verdict {
    bool struck;           // whether the planned fault struck
    std::string complaint; // empty: all promises were kept
};

Verdict call(const Function& function, const Choice& choice, Plan plan);

} // namespace matrix
