// The variables of a program while it is checked: which are visible where, and the place of each.
#pragma once

#include "language/reading/diagnostics.h"
#include "language/reading/syntax.h"
#include "language/running/control_flow.h"

#include "model/declarations.h"
#include "text/nearest_name.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host::language {

// A variable, or the name of a constant, which has a value but no place.
struct Variable {
    VariablePlace place;
    Type type;       // Kind::nothing when its declaration was wrong: uses of it then are no errors of their own
    Offset declared; // where
    std::optional<Literal> constant = {};
};

// Blocks nest, and a name is declared once among all blocks around a place, those of the program and of a procedure each for
// itself: a procedure may hide the program's names. Places are never shared: there are as many as declarations.
class Scopes {
public:
    void open() { blocks_.emplace_back(); }
    // The variables of the innermost block that carry references, in order of declaration.
    std::vector<ScopeVariable> close();

    // From here on, until endProcedure, variables belong to a procedure, which sees those of the blocks that are open now.
    void beginProcedure();
    std::size_t endProcedure(); // how many it has
    bool atOutermost() const { return blocks_.size() == 1; }
    bool inProcedure() const { return procedureBlock_ != 0; }

    const Variable* find(std::string_view name) const; // null: not declared
    const Variable*
    findDeclared(std::string_view name) const; // the same among those that hinder a declaration of the name here

    // The name must not be declared here yet.
    const Variable& declare(std::string_view name, Type type, Offset offset);
    const Variable& declareByReference(std::string_view name, Type type, Offset offset); // a parameter by reference
    void declareConstant(std::string_view name, Literal value, Offset offset);
    // A variable that has no name in the program.
    VariablePlace declareHidden(const Type& type);

    // The declared variables, by their places, that are to be used and were not yet.
    void expectUse(const syntax::Name& name) { unused_.insert_or_assign(name.offset, std::string(name.text)); }
    void use(const Variable& variable) { unused_.erase(variable.declared); }
    const std::map<Offset, std::string>& unused() const { return unused_; }

    std::vector<std::string> names() const; // of all that are visible
    void offerNames(NearestName& nearest) const;
    std::size_t variableCount() const { return programCount_; } // of the program

private:
    struct Block {
        std::map<std::string, Variable, LessIgnoringCase> variables;
        std::vector<ScopeVariable> counted;
    };
    const Variable* findFrom(std::size_t firstBlock, std::string_view name) const;
    VariablePlace newPlace();

    std::vector<Block> blocks_;
    std::map<Offset, std::string> unused_;
    std::size_t procedureBlock_ = 0; // the outermost block of the procedure; 0: in none
    std::uint32_t programCount_ = 0;
    std::uint32_t procedureCount_ = 0;
};

} // namespace host::language
