// The variables of a program while it is checked: where each is visible, and its place.
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
    Type type;       // Kind::nothing after an invalid declaration, so that uses do not cause further errors
    Offset declared; // where it is declared
    std::optional<Literal> constant = {};
};

// Blocks nest. A name is declared once among all blocks around a place. The blocks of the program and of a procedure count
// separately, so a procedure may hide the program's names. Places are never shared: every declaration has its own.
class Scopes {
public:
    void open() { blocks_.emplace_back(); }
    // Closes the innermost block and returns its variables that carry references, in order of declaration.
    std::vector<ScopeVariable> close();

    // From here until endProcedure, variables belong to a procedure, which sees the variables of the blocks that are open
    // now.
    void beginProcedure();
    std::size_t endProcedure(); // returns the number of the procedure's variables
    bool atOutermost() const { return blocks_.size() == 1; }
    bool inProcedure() const { return procedureBlock_ != 0; }

    const Variable* find(std::string_view name) const;         // null if it is not declared
    const Variable* findDeclared(std::string_view name) const; // null unless it prevents a declaration of the name here

    // Declares a name that is not declared here yet.
    const Variable& declare(std::string_view name, Type type, Offset offset);
    const Variable& declareByReference(std::string_view name, Type type, Offset offset); // a parameter by reference
    void declareConstant(std::string_view name, Literal value, Offset offset);
    // Adds a variable that has no name in the program.
    VariablePlace declareHidden(const Type& type);

    // Record the declared variables, by their places, that should be used and have not been used yet.
    void expectUse(const syntax::Name& name) { unused_.insert_or_assign(name.offset, std::string(name.text)); }
    void use(const Variable& variable) { unused_.erase(variable.declared); }
    const std::map<Offset, std::string>& unused() const { return unused_; }

    std::vector<std::string> names() const; // of everything visible
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
    std::size_t procedureBlock_ = 0; // the outermost block of the procedure; 0 outside of procedures
    std::uint32_t programCount_ = 0;
    std::uint32_t procedureCount_ = 0;
};

} // namespace host::language
