#include "language/checking/flow.h"

#include "text/characters.h"

namespace host::language {
namespace {

using namespace syntax;

bool isTrue(const ExpressionPtr& condition) {
    const auto* const literal = std::get_if<Literal>(&condition->form);
    const auto* const value = literal ? std::get_if<bool>(&literal->value) : nullptr;
    return value && *value;
}

bool isQuit(const Expression& expression) {
    const auto* const call = std::get_if<Call>(&expression.form);
    const auto* const name = std::get_if<Identifier>(call ? &call->callee->form : &expression.form);
    return name && equalIgnoringCase(name->name, "Quit");
}

class Flow {
public:
    // Returns whether control can continue after the block.
    bool completes(const Block& block) {
        for (const Statement& statement : block)
            if (!std::visit([&](const auto& form) { return completesForm(form); }, statement.form)) return false;
        return true;
    }
    bool leavesProcedure() const { return leavesProcedure_; }

private:
    struct Loop {
        Surrounding what;
        bool isLeft = false;
        bool continues = false; // the body reaches its end, or a Continue
    };

    Loop walk(Surrounding what, const Block& body) {
        loops_.push_back({what});
        const bool completed = completes(body);
        Loop loop = loops_.back();
        loops_.pop_back();
        loop.continues = loop.continues || completed;
        return loop;
    }

    template <class Form>
    bool completesForm(const Form&) {
        return true;
    }
    bool completesForm(const Raise&) { return false; }
    bool completesForm(const Return&) { return false; }
    bool completesForm(const Evaluation& evaluation) { return !isQuit(*evaluation.call); }
    bool completesForm(const Leave& leave) {
        if (leave.what == Surrounding::sub || leave.what == Surrounding::function) leavesProcedure_ = true;
        for (auto loop = loops_.rbegin(); loop != loops_.rend(); ++loop) {
            if (leave.what != Surrounding::anyLoop && leave.what != loop->what) continue;
            (leave.continues ? loop->continues : loop->isLeft) = true;
            break;
        }
        return false;
    }
    bool completesForm(const If& form) {
        bool any = form.branches.back().condition != nullptr;
        for (const If::Branch& branch : form.branches)
            any = completes(branch.block) || any;
        return any;
    }
    bool completesForm(const Select& form) {
        bool any = form.cases.empty() || !form.cases.back().tests.empty();
        for (const Select::Case& branch : form.cases)
            any = completes(branch.block) || any;
        return any;
    }
    bool completesForm(const While& form) {
        return walk(Surrounding::whileLoop, form.block).isLeft || !isTrue(form.condition);
    }
    bool completesForm(const Do& form) {
        const Loop loop = walk(Surrounding::doLoop, form.block);
        const bool endsBefore = form.before && !isTrue(form.before);
        return loop.isLeft || endsBefore || (loop.continues && form.after && !isTrue(form.after));
    }
    bool completesForm(const For& form) { return walk(Surrounding::forLoop, form.block), true; }
    bool completesForm(const ForEach& form) { return walk(Surrounding::forLoop, form.block), true; }
    bool completesForm(const Try& form) {
        bool any = completes(form.block);
        for (const Try::Catch& handler : form.catches)
            any = completes(handler.block) || any;
        return (!form.finally || completes(*form.finally)) && any;
    }

    std::vector<Loop> loops_; // around the current place, the innermost last
    bool leavesProcedure_ = false;
};

} // namespace

bool reachesEnd(const Block& procedure) {
    Flow flow;
    return flow.completes(procedure) || flow.leavesProcedure();
}

} // namespace host::language
