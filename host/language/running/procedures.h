// The Subs and Functions of a program. They are declared like bound functions, so that the same overload resolution finds
// them.
#pragma once

#include "language/running/bound_calls.h"
#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace host::language {

// `function` and `invoke` of the method stay null: its calls run `body`.
struct Procedure : Method {
    std::string text; // of the declaration
    ActionPtr body;   // null until it is checked; it releases the parameters
    std::size_t variableCount = 0;
    Counting result = Counting::none;
    std::vector<Counting> parameters; // Counting::none for those by reference
};

class Procedures {
public:
    // The procedures that can be called. Replaced procedures stay alive for the code that calls them.
    using Visible = std::map<std::string, OverloadSet, LessIgnoringCase>;
    const Visible& visible() const { return byName_; }
    void restore(Visible before) { byName_ = std::move(before); }

    // Returns the procedure with the same name and parameter types, or null if there is none.
    const Procedure* findSame(const Procedure& procedure) const;

    // Adds the procedure, and replaces the same one if there is one.
    Procedure& add(std::unique_ptr<Procedure> procedure);

    // Returns the procedures with the name, ignoring case; all methods are Procedures. Empty if there are none.
    OverloadSet find(std::string_view name) const;

private:
    Visible byName_;
    std::vector<std::unique_ptr<Procedure>> all_;
};

// Calls the procedure, which must outlive the code.
CodePtr callProcedure(const Procedure& procedure, std::vector<ArgumentCode> arguments, Offset offset);

} // namespace host::language
