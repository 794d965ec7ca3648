#include "language/running/bound_calls.h"

#include "language/running/argument_passing.h"
#include "language/running/escaped.h"
#include "language/running/places.h"

#include "model/calls.h"

#include <array>
#include <new>

namespace host::language {
namespace {

// The parts of a method that its calls need. The arguments follow the receiver, if there is one, in the slots of a call.
class Callee {
public:
    Callee(const Method& method, Offset offset)
        : method_(method), invoke_(method.invoke), function_(method.function),
          counting_(countingOf(method.signature.result)), offset_(offset) {}

    static Callee setterOf(const Method& method, Offset offset) {
        Callee callee(method, offset);
        callee.invoke_ = method.invokeSetter;
        callee.function_ = method.setter;
        callee.counting_ = Counting::none;
        return callee;
    }

    // The frame owns the result before anything raises. Functions of the language may throw std::bad_alloc.
    Slot run(Frame& frame, const Slot* slots) const {
        Slot result;
        try {
            callMember(method_.owner, method_.signature.name, offset_, [&] { invoke_(function_, slots, &result); });
        } catch (const std::bad_alloc&) {
            failMemory(offset_);
        }
        return frame.keep(counting_, result);
    }

    Offset offset() const { return offset_; }

private:
    const Method& method_;
    Invoker invoke_;
    REALfunction function_;
    Counting counting_;
    Offset offset_;
};

using Slots = std::array<Slot, maximumArguments>;

CodePtr call(const Callee& callee, bool shared, CodePtr receiver, std::vector<ArgumentCode> arguments) {
    return withArguments(std::move(arguments), [&](auto passing) {
        if (shared) {
            return makeCode([callee, passing = std::move(passing)](Frame& frame) {
                Slots slots;
                return passing.pass(frame, callee, slots.data(), 0);
            });
        }
        return makeCode([callee, receiver = std::move(receiver), passing = std::move(passing)](Frame& frame) {
            Slots slots;
            slots[0] = Slot::ofObject(requireObject(frame, receiver->evaluate(frame).object, callee.offset()));
            return passing.pass(frame, callee, slots.data(), 1);
        });
    });
}

} // namespace

CodePtr callMethod(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset) {
    return call(Callee(method, offset), method.shared, std::move(receiver), std::move(arguments));
}

ActionPtr callSetter(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset) {
    CodePtr called = call(Callee::setterOf(method, offset), method.shared, std::move(receiver), std::move(arguments));
    return makeAction([called = std::move(called)](Frame& frame) { called->evaluate(frame); });
}

CodePtr makeObject(ClassInfo& info, const Method* constructor, std::vector<ArgumentCode> arguments, Offset offset) {
    const auto newInFrame = [&info, offset](Frame& frame) {
        Object* const object = callMember(&info, "constructor", offset, [&info] { return newObject(info); });
        if (!object) throwNew(offset, "OutOfMemoryException", "There is not enough memory for this object.");
        frame.keep(object);
        checkPending(offset);
        return Slot::ofObject(object);
    };
    if (!constructor) return makeCode(newInFrame);
    const Callee callee(*constructor, offset);
    return withArguments(std::move(arguments), [&](auto passing) {
        return makeCode([newInFrame, callee, passing = std::move(passing)](Frame& frame) {
            Slots slots;
            const Slot object = slots[0] = newInFrame(frame);
            passing.pass(frame, callee, slots.data(), 1);
            return object;
        });
    });
}

CodePtr isOfClass(CodePtr object, const ClassInfo* info) {
    return transform(std::move(object), [info](Slot value) {
        return Slot::ofBoolean(value.object && (!info || value.object->info->isOrDescendsFrom(*info)));
    });
}

} // namespace host::language
