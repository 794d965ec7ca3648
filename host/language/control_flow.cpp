#include "language/control_flow.h"

#include "language/places.h"

#include "model/arrays.h"
#include "model/platform.h"

#include <ostream>

namespace host::language {
namespace {

// Runs the body and then the end, which must not throw, on every path. An exception that becomes pending at the end is raised
// when the body ended well and dropped when another one is already on its way.
template <class Body, class End>
auto withEnd(Offset offset, Body body, End end) {
    struct Guard {
        End& end;
        bool armed = true;
        ~Guard() {
            if (!armed) return;
            end();
            unlock(takePendingException());
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

template <class Body>
auto runKeeping(Frame& frame, Offset offset, Body body) {
    const Frame::Mark mark = frame.mark();
    return withEnd(offset, body, [&frame, mark] { frame.release(mark); });
}

template <class Body>
auto runPooled(Frame& frame, Offset offset, Body body) {
    const platform::AutoreleasePool pool;
    return runKeeping(frame, offset, body);
}

HostInteger opposite(HostInteger step) { return static_cast<HostInteger>(-static_cast<std::uintptr_t>(step)); }
double opposite(double step) { return -step; }

// Counts on; false when the range of integers ends there.
bool advance(HostInteger& value, HostInteger step) { return !__builtin_add_overflow(value, step, &value); }
bool advance(double& value, double step) {
    value += step;
    return true;
}

// `member` is the part of a slot that holds the loop's numbers.
template <class Number>
ActionPtr countingLoop(ForLoop loop, Number Slot::*member) {
    return makeAction([loop = std::move(loop), member](Frame& frame) {
        Number value = loop.first->evaluate(frame).*member;
        const Number last = loop.last->evaluate(frame).*member;
        Number step = loop.step ? loop.step->evaluate(frame).*member : Number(1);
        if (step == Number(0)) throwNew(loop.offset, "RuntimeException", "The step of a loop cannot be 0.");
        if (loop.down) step = opposite(step);
        Slot& variable = frame.variable(loop.variable);
        variable = Slot();
        for (variable.*member = value; step > Number(0) ? value <= last : value >= last; variable.*member = value) {
            loop.body->execute(frame);
            value = variable.*member;
            if (!advance(value, step)) break;
        }
    });
}

} // namespace

ActionPtr step(ActionPtr action, bool pool, Offset offset) {
    if (pool) {
        return makeAction([action = std::move(action), offset](Frame& frame) {
            runPooled(frame, offset, [&] { action->execute(frame); });
        });
    }
    return makeAction(
        [action = std::move(action), offset](Frame& frame) { runKeeping(frame, offset, [&] { action->execute(frame); }); });
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
        for (const ActionPtr& action : actions)
            action->execute(frame);
    });
}

ActionPtr scope(ActionPtr body, std::vector<ScopeVariable> variables, Offset offset) {
    if (variables.empty()) return body;
    return makeAction([body = std::move(body), variables = std::move(variables), offset](Frame& frame) {
        withEnd(
            offset, [&] { body->execute(frame); },
            [&] {
                for (auto variable = variables.rbegin(); variable != variables.rend(); ++variable)
                    store(frame, variable->index, variable->counting, Slot());
            });
    });
}

ActionPtr branches(std::vector<Branch> list) {
    return makeAction([list = std::move(list)](Frame& frame) {
        for (const Branch& branch : list) {
            if (branch.condition && branch.condition->evaluate(frame).boolean == 0) continue;
            return branch.body->execute(frame);
        }
    });
}

ActionPtr whileLoop(CodePtr condition, ActionPtr body) {
    return makeAction([condition = std::move(condition), body = std::move(body)](Frame& frame) {
        while (condition->evaluate(frame).boolean != 0)
            body->execute(frame);
    });
}

ActionPtr forLoop(ForLoop loop) {
    return loop.kind == Kind::Integer ? countingLoop(std::move(loop), &Slot::integer)
                                      : countingLoop(std::move(loop), &Slot::real);
}

ActionPtr forEachLoop(std::size_t array, std::size_t index, ActionPtr assign, ActionPtr body, Offset offset) {
    return makeAction([array, index, assign = std::move(assign), body = std::move(body), offset](Frame& frame) {
        const Array* const elements = requireArray(frame.variable(array).object, offset);
        for (HostInteger i = 0; inBounds(elements, i); ++i) {
            frame.variable(index) = Slot::ofInteger(i);
            assign->execute(frame);
            body->execute(frame);
        }
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
                if (handler.variable) store(frame, *handler.variable, Counting::object, Slot::ofObject(raised.exception()));
                break;
            }
            if (!chosen) throw;
        }
        chosen->body->execute(frame);
    });
    if (!finally) return guarded;
    return makeAction([guarded = std::move(guarded), finally = std::move(finally)](Frame& frame) {
        std::optional<Raised> raised;
        try {
            guarded->execute(frame);
        } catch (const Raised& caught) {
            raised.emplace(caught);
        } finally->execute(frame);
        if (raised) throw Raised(*raised);
    });
}

ActionPtr print(std::vector<CodePtr> texts) {
    return makeAction([texts = std::move(texts)](Frame& frame) {
        std::string line;
        for (std::size_t i = 0; i < texts.size(); ++i)
            line.append(i == 0 ? "" : " ").append(utf8Of(texts[i]->evaluate(frame).string));
        frame.output() << line << '\n';
    });
}

ActionPtr discard(CodePtr value) {
    return makeAction([value = std::move(value)](Frame& frame) { value->evaluate(frame); });
}

} // namespace host::language
