#include "language/running/control_flow.h"

#include "language/running/call_stack.h"

#include "language/running/array_operations.h"
#include "language/running/places.h"
#include "language/running/run.h"

#include "model/arrays.h"
#include "values/platform.h"

#include <cerrno>
#include <cstdint>
#include <new>
#include <ostream>
#include <stdexcept>
#include <system_error>

namespace host::language {
namespace {

// Runs the body and then the end, which must not throw, on every path. An exception that becomes pending at the end is
// raised if the body succeeded. It is dropped if another exception is already propagating.
template <class Body, class End>
auto withEnd(Offset offset, Body body, End end) {
    struct Guard {
        End& end;
        bool armed = true;
        ~Guard() {
            if (!armed) return;
            end();
            const Owned<Object> dropped(takePendingException());
        }
    } guard{end};
    const auto finish = [&] {
        guard.armed = false;
        end();
        checkPending(offset);
    };
    if constexpr (std::is_void_v<decltype(body())>) {
        body();
        finish();
    } else {
        const auto result = body();
        finish();
        return result;
    }
}

// Runs the body and then releases its temporaries. Raises OutOfMemoryException if memory is exhausted in the body; the
// program can continue without the result.
template <class Body>
auto runKeeping(Frame& frame, Offset offset, Body body) {
    const Frame::Mark mark = frame.mark();
    const auto allocating = [&] {
        try {
            return body();
        } catch (const std::bad_alloc&) {
        } catch (const std::length_error&) {
        }
        throwNew(offset, "OutOfMemoryException", "There is not enough memory.");
    };
    return withEnd(offset, allocating, [&frame, mark] { frame.release(mark); });
}

template <class Body>
auto runPooled(Frame& frame, Offset offset, Body body) {
    const platform::AutoreleasePool pool;
    return runKeeping(frame, offset, body);
}

HostInteger opposite(HostInteger step) { return static_cast<HostInteger>(-static_cast<std::uintptr_t>(step)); }
double opposite(double step) { return -step; }

// Adds the step. Returns false if the result is outside the range of integers.
bool advance(HostInteger& value, HostInteger step) { return !__builtin_add_overflow(value, step, &value); }
bool advance(double& value, double step) {
    value += step;
    return true;
}

// Runs a loop's body once. Returns whether the loop continues; otherwise `completion` is how the loop ends.
bool runOnce(Frame& frame, const LoopBody& loop, Completion& completion) {
    checkInterrupt(loop.offset);
    completion = loop.body->execute(frame);
    const bool own =
        !completion.isNormal() && completion.ending != Completion::Ending::leaveProcedure && completion.loop == loop.depth;
    const bool continues = completion.isNormal() || (own && completion.ending == Completion::Ending::continueLoop);
    if (own) completion = {};
    return continues;
}

// `member` names the member of a slot that holds the loop's numbers.
template <class Number>
ActionPtr countingLoop(ForLoop form, Number Slot::*member) {
    return makeAction([loop = std::move(form), member](Frame& frame) {
        Completion completion;
        Number value = loop.first->evaluate(frame).*member;
        const Number last = loop.last->evaluate(frame).*member;
        Number step = loop.step ? loop.step->evaluate(frame).*member : Number(1);
        if (step == Number(0)) throwNew(loop.loop.offset, "RuntimeException", "The step of a loop cannot be 0.");
        if (loop.down) step = opposite(step);
        Slot& variable = frame.variable(loop.variable);
        variable = Slot();
        for (variable.*member = value; step > Number(0) ? value <= last : value >= last; variable.*member = value) {
            if (!runOnce(frame, loop.loop, completion)) break;
            value = variable.*member;
            if (!advance(value, step)) break;
        }
        return completion;
    });
}

} // namespace

ActionPtr step(ActionPtr action, bool pool, Offset offset) {
    if (pool) {
        return makeAction([action = std::move(action), offset](Frame& frame) {
            return runPooled(frame, offset, [&] { return action->execute(frame); });
        });
    }
    return makeAction([action = std::move(action), offset](Frame& frame) {
        return runKeeping(frame, offset, [&] { return action->execute(frame); });
    });
}

CodePtr step(CodePtr value, bool pool, Offset offset) {
    if (pool) {
        return makeCode([value = std::move(value), offset](Frame& frame) {
            return runPooled(frame, offset, [&] { return value->evaluate(frame); });
        });
    }
    return makeCode([value = std::move(value), offset](Frame& frame) {
        return runKeeping(frame, offset, [&] { return value->evaluate(frame); });
    });
}

ActionPtr sequence(Actions actions) {
    if (actions.size() == 1) return std::move(actions.front());
    return makeAction([actions = std::move(actions)](Frame& frame) {
        for (const ActionPtr& action : actions) {
            const Completion completion = action->execute(frame);
            if (!completion.isNormal()) return completion;
        }
        return Completion();
    });
}

ActionPtr scope(ActionPtr body, std::vector<ScopeVariable> variables, Offset offset) {
    if (variables.empty()) return body;
    return makeAction([body = std::move(body), variables = std::move(variables), offset](Frame& frame) {
        return withEnd(
            offset, [&] { return body->execute(frame); },
            [&] {
                for (auto variable = variables.rbegin(); variable != variables.rend(); ++variable)
                    store(frame, variable->place, variable->counting, Slot());
            });
    });
}

ActionPtr branches(std::vector<Branch> list) {
    return makeAction([list = std::move(list)](Frame& frame) {
        for (const Branch& branch : list) {
            if (branch.condition && branch.condition->evaluate(frame).boolean == 0) continue;
            return branch.body->execute(frame);
        }
        return Completion();
    });
}

ActionPtr conditionLoop(CodePtr before, CodePtr after, LoopBody loop) {
    return makeAction([before = std::move(before), after = std::move(after), loop = std::move(loop)](Frame& frame) {
        Completion completion;
        while (!before || before->evaluate(frame).boolean != 0) {
            if (!runOnce(frame, loop, completion)) break;
            if (after && after->evaluate(frame).boolean == 0) break;
        }
        return completion;
    });
}

ActionPtr forLoop(ForLoop form) {
    return form.kind == Kind::integer ? countingLoop(std::move(form), &Slot::integer)
                                      : countingLoop(std::move(form), &Slot::real);
}

ActionPtr forEachLoop(VariablePlace array, VariablePlace index, ActionPtr assign, LoopBody loop) {
    return makeAction([array, index, assign = std::move(assign), loop = std::move(loop)](Frame& frame) {
        Completion completion;
        const Array* const elements = requireArray(frame.variable(array).object, loop.offset);
        for (HostInteger i = 0; inBounds(elements, i); ++i) {
            frame.variable(index) = Slot::ofInteger(i);
            assign->execute(frame);
            if (!runOnce(frame, loop, completion)) break;
        }
        return completion;
    });
}

ActionPtr leave(Completion completion) {
    return makeAction([completion](Frame&) { return completion; });
}

ActionPtr returnValue(CodePtr value) {
    return makeAction([value = std::move(value)](Frame& frame) {
        frame.setResult(value->evaluate(frame));
        return Completion{Completion::Ending::leaveProcedure, 0};
    });
}

ActionPtr raiseException(CodePtr exception, Offset offset) {
    return makeAction([exception = std::move(exception), offset](Frame& frame) {
        Object* const raised = exception->evaluate(frame).object;
        if (!raised) throwNew(offset, "NilObjectException", "Nil cannot be raised.");
        throw Raised(Owned<Object>::shared(raised), offset);
    });
}

ActionPtr tryBlock(ActionPtr body, std::vector<Handler> handlers, ActionPtr finally) {
    ActionPtr guarded = makeAction([body = std::move(body), handlers = std::move(handlers)](Frame& frame) {
        const Handler* chosen = nullptr;
        try {
            return body->execute(frame);
        } catch (const Raised& raised) {
            for (const Handler& handler : handlers) {
                if (handler.info && !raised.exception()->info->isOrDescendsFrom(*handler.info)) continue;
                chosen = &handler;
                if (handler.variable) {
                    setExceptionStack(raised.exception(), stackOf(raised, frame.execution()));
                    store(frame, *handler.variable, Counting::object, Slot::ofObject(raised.exception()));
                }
                break;
            }
            if (!chosen) throw;
        }
        return chosen->body->execute(frame);
    });
    if (!finally) return guarded;
    return makeAction([guarded = std::move(guarded), finally = std::move(finally)](Frame& frame) {
        std::optional<Raised> raised;
        Completion completion;
        try {
            completion = guarded->execute(frame);
        } catch (const Raised& caught) {
            raised.emplace(caught);
        }
        const Completion last = finally->execute(frame);
        if (!last.isNormal()) return last;
        if (raised) throw Raised(*raised);
        return completion;
    });
}

namespace {

// Throws if the output cannot be written, which ends the program: nobody would see its further output.
void requireWritten(std::ostream& output) {
    if (output.good()) return;
    const int reason = errno == 0 ? EIO : errno;
    if (reason != EINTR) throw std::system_error(reason, std::generic_category(), "the output cannot be written");
    output.clear(); // a signal interrupted the write; after Ctrl-C, the next loop or call ends the program
}

} // namespace

ActionPtr print(std::vector<CodePtr> texts, bool endsLine) {
    return makeAction([texts = std::move(texts), endsLine](Frame& frame) {
        std::string line;
        for (std::size_t i = 0; i < texts.size(); ++i)
            line.append(i == 0 ? "" : " ").append(utf8Of(texts[i]->evaluate(frame).string));
        if (endsLine) line += '\n';
        frame.execution().output << line;
        requireWritten(frame.execution().output);
    });
}

ActionPtr present(CodePtr value, const Type& type) {
    return makeAction([value = std::move(value), type](Frame& frame) {
        const Slot result = value->evaluate(frame);
        if (Presenter* const presenter = frame.execution().presenter) presenter->present(type, result);
        requireWritten(frame.execution().output);
    });
}

ActionPtr discard(CodePtr value) {
    return makeAction([value = std::move(value)](Frame& frame) { value->evaluate(frame); });
}

} // namespace host::language
