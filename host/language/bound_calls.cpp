#include "language/bound_calls.h"

#include "language/places.h"

#include "model/arrays.h"
#include "model/calls.h"

#include <array>

namespace host::language {
namespace {

// A method as its calls need it. The arguments follow the receiver, if there is one, in the slots of a call.
class Callee {
public:
    Callee(const Method& method, Offset offset)
        : invoke_(method.invoke), function_(method.function), counting_(countingOf(method.signature.result)),
          offset_(offset) {}

    static Callee setterOf(const Method& method, Offset offset) {
        Callee callee(method, offset);
        callee.invoke_ = method.invokeSetter;
        callee.function_ = method.setter;
        callee.counting_ = Counting::none;
        return callee;
    }

    // The result is in the frame's keeping before anything raises.
    Slot run(Frame& frame, const Slot* slots) const {
        Slot result;
        invoke_(function_, slots, &result);
        return frame.keep(counting_, result);
    }

    Offset offset() const { return offset_; }

private:
    Invoker invoke_;
    REALfunction function_;
    Counting counting_;
    Offset offset_;
};

using Slots = std::array<Slot, maximumArguments>;

// Arguments none of which is an element by reference.
class Values {
public:
    explicit Values(std::vector<ArgumentCode> arguments) {
        for (ArgumentCode& argument : arguments)
            codes_.push_back(std::move(argument.value));
    }

    Slot pass(Frame& frame, const Callee& callee, Slots& slots, std::size_t first) const {
        for (std::size_t i = 0; i < codes_.size(); ++i)
            slots[first + i] = codes_[i]->evaluate(frame);
        const Slot result = callee.run(frame, slots.data());
        checkPending(callee.offset());
        return result;
    }

private:
    std::vector<CodePtr> codes_;
};

// An element while it is passed by reference.
struct ElementCopy {
    ElementCopy() = default;
    ElementCopy(const ElementCopy&) = delete;
    ElementCopy& operator=(const ElementCopy&) = delete;
    ~ElementCopy() { unlock(counting, value); }

    Array* array = nullptr; // kept by the frame; null: not an element
    HostInteger index = 0;
    Counting counting = Counting::none;
    Slot value;
};

class ValuesAndElements {
public:
    explicit ValuesAndElements(std::vector<ArgumentCode> arguments) : arguments_(std::move(arguments)) {}

    Slot pass(Frame& frame, const Callee& callee, Slots& slots, std::size_t first) const {
        std::array<ElementCopy, maximumArguments> copies;
        for (std::size_t i = 0; i < arguments_.size(); ++i) {
            const ArgumentCode& argument = arguments_[i];
            slots[first + i] = argument.value ? argument.value->evaluate(frame) : copyIn(frame, argument, copies[i], callee);
        }
        const Slot result = callee.run(frame, slots.data());
        for (const ElementCopy& copy : copies)
            if (copy.array && inBounds(copy.array, copy.index)) setElement(copy.array, copy.index, copy.value);
        checkPending(callee.offset());
        return result;
    }

private:
    static Slot copyIn(Frame& frame, const ArgumentCode& argument, ElementCopy& copy, const Callee& callee) {
        Array* const array = requireArray(argument.array->evaluate(frame).object, callee.offset());
        copy.index = argument.index->evaluate(frame).integer;
        requireIndex(array, copy.index, callee.offset());
        copy.value = elementAt(array, copy.index);
        copy.counting = argument.counting;
        lock(copy.counting, copy.value);
        copy.array = array;
        return Slot::ofReference(&copy.value);
    }

    std::vector<ArgumentCode> arguments_;
};

// Gives `make` the arguments in the form that suits them.
template <class Make>
CodePtr withArguments(std::vector<ArgumentCode> arguments, Make make) {
    for (const ArgumentCode& argument : arguments)
        if (!argument.value) return make(ValuesAndElements(std::move(arguments)));
    return make(Values(std::move(arguments)));
}

CodePtr call(const Callee& callee, bool shared, CodePtr receiver, std::vector<ArgumentCode> arguments) {
    return withArguments(std::move(arguments), [&](auto passing) {
        if (shared) {
            return makeCode([callee, passing = std::move(passing)](Frame& frame) {
                Slots slots;
                return passing.pass(frame, callee, slots, 0);
            });
        }
        return makeCode([callee, receiver = std::move(receiver), passing = std::move(passing)](Frame& frame) {
            Slots slots;
            slots[0] = Slot::ofObject(requireObject(receiver->evaluate(frame).object, callee.offset()));
            return passing.pass(frame, callee, slots, 1);
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
        Object* const object = newObject(info);
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
            passing.pass(frame, callee, slots, 1);
            return object;
        });
    });
}

CodePtr makeArrayOf(const Type& elementType, std::vector<CodePtr> elements) {
    return makeCode([elementType, elements = std::move(elements)](Frame& frame) {
        Array* const array = newArray(elementType);
        frame.keep(array);
        for (const CodePtr& element : elements)
            appendElement(array, element->evaluate(frame));
        return Slot::ofObject(array);
    });
}

CodePtr isOfClass(CodePtr object, const ClassInfo* info) {
    return transform(std::move(object), [info](Slot value) {
        return Slot::ofBoolean(value.object && (!info || value.object->info->isOrDescendsFrom(*info)));
    });
}

} // namespace host::language
