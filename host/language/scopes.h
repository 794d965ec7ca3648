// The variables of a program while it is checked: which are visible where, and the slot of each.
#pragma once

#include "language/control_flow.h"
#include "language/diagnostics.h"

#include "model/types.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host::language {

struct Variable {
    std::size_t index;
    Type type;       // Kind::Void when its declaration was wrong: uses of it then are no errors of their own
    Offset declared; // where
};

// Blocks nest, and a name is declared once among all blocks around a place. Slots are never shared: a program has as many as it
// has declarations.
class Scopes {
public:
    void open() { blocks_.emplace_back(); }
    // The variables of the innermost block that carry references, in order of declaration.
    std::vector<ScopeVariable> close();

    const Variable* find(std::string_view name) const; // null: not declared
    // The name must not be visible yet.
    const Variable& declare(std::string_view name, Type type, Offset offset);
    // A variable that has no name in the program.
    std::size_t declareHidden(const Type& type);

    void offerNames(NearestName& nearest) const;
    std::size_t variableCount() const { return count_; }

private:
    struct Block {
        std::map<std::string, Variable, LessIgnoringCase> variables;
        std::vector<ScopeVariable> counted;
    };
    std::vector<Block> blocks_;
    std::size_t count_ = 0;
};

} // namespace host::language
