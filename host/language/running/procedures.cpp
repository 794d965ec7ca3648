#include "language/running/procedures.h"

#include "language/running/argument_passing.h"
#include "language/running/run.h"

#include <algorithm>

namespace host::language {
namespace {

// Registers a call with the execution for as long as the call lasts.
class CallInProgress {
public:
    CallInProgress(Execution& execution, const Procedure& procedure, Offset offset)
        : execution_(execution), call_{offset, &procedure, execution.innermost} {
        checkInterrupt(offset);
        if (execution_.depth >= maxCallDepth || isStackLow())
            throwNew(offset, "StackOverflowException", "Calls are nested too deeply.");
        ++execution_.depth;
        execution_.innermost = &call_;
    }
    ~CallInProgress() {
        --execution_.depth;
        execution_.innermost = call_.caller;
    }
    CallInProgress(const CallInProgress&) = delete;
    CallInProgress& operator=(const CallInProgress&) = delete;

    const ActiveCall& call() const { return call_; }

private:
    Execution& execution_;
    const ActiveCall call_;
};

// A call of a procedure whose arguments are in place.
class PreparedCall {
public:
    PreparedCall(const Procedure& procedure, Frame& callee, Offset offset)
        : procedure_(procedure), callee_(callee), offset_(offset) {}

    Slot run(Frame& caller, const Slot* arguments) const {
        const CallInProgress call(caller.execution(), procedure_, offset_);
        for (std::size_t i = 0; i < procedure_.parameters.size(); ++i)
            lock(procedure_.parameters[i], arguments[i]);
        try {
            procedure_.body->execute(callee_);
        } catch (Raised& raised) {
            raised.end(call.call());
            throw;
        }
        return caller.keep(procedure_.result, callee_.takeResult());
    }

    Offset offset() const { return offset_; }

private:
    const Procedure& procedure_;
    Frame& callee_;
    Offset offset_;
};

bool sameParameters(const Method& a, const Method& b) {
    const auto& first = a.signature.parameters;
    const auto& second = b.signature.parameters;
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](const Parameter& x, const Parameter& y) { return x.type == y.type; });
}

} // namespace

const Procedure* Procedures::findSame(const Procedure& procedure) const {
    for (const Method* const known : find(procedure.signature.name))
        if (sameParameters(*known, procedure)) return static_cast<const Procedure*>(known);
    return nullptr;
}

Procedure& Procedures::add(std::unique_ptr<Procedure> procedure) {
    const Procedure* const same = findSame(*procedure);
    OverloadSet& overloads = byName_[procedure->signature.name];
    overloads.erase(std::remove(overloads.begin(), overloads.end(), same), overloads.end());
    overloads.push_back(procedure.get());
    all_.push_back(std::move(procedure));
    return *all_.back();
}

OverloadSet Procedures::find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? OverloadSet() : found->second;
}

CodePtr callProcedure(const Procedure& procedure, std::vector<ArgumentCode> arguments, Offset offset) {
    return withArguments(std::move(arguments), [&](auto passing) {
        return makeCode([&procedure, passing = std::move(passing), offset](Frame& frame) {
            Frame callee(frame, procedure.variableCount, procedure.result);
            return passing.pass(frame, PreparedCall(procedure, callee, offset), callee.procedureVariables(), 0);
        });
    });
}

} // namespace host::language
