// Evaluates and passes the arguments of a call, for every kind of callee. A callee has run(frame, slots) -> Slot and
// offset(), and its arguments are in the slots from `first` on.
#pragma once

#include "language/running/array_operations.h"
#include "language/running/bound_calls.h"

#include <utility>
#include <vector>

namespace host::language {

// Arguments without an element by reference.
class Values {
public:
    explicit Values(std::vector<ArgumentCode> arguments) {
        for (ArgumentCode& argument : arguments)
            codes_.push_back(std::move(argument.value));
    }

    template <class Callee>
    Slot pass(Frame& frame, const Callee& callee, Slot* slots, std::size_t first) const {
        for (std::size_t i = 0; i < codes_.size(); ++i)
            slots[first + i] = codes_[i]->evaluate(frame);
        const Slot result = callee.run(frame, slots);
        checkPending(callee.offset());
        return result;
    }

private:
    std::vector<CodePtr> codes_;
};

// An array element while it is passed by reference.
struct ElementCopy {
    ElementCopy() = default;
    ElementCopy(const ElementCopy&) = delete;
    ElementCopy& operator=(const ElementCopy&) = delete;
    ~ElementCopy() { unlock(counting, value); }

    Array* array = nullptr; // kept alive by the frame; null if the argument is not an element
    HostInteger index = 0;
    Counting counting = Counting::none;
    Slot value;
};

class ValuesAndElements {
public:
    explicit ValuesAndElements(std::vector<ArgumentCode> arguments) : arguments_(std::move(arguments)) {}

    template <class Callee>
    Slot pass(Frame& frame, const Callee& callee, Slot* slots, std::size_t first) const {
        std::vector<ElementCopy> copies(arguments_.size());
        for (std::size_t i = 0; i < arguments_.size(); ++i) {
            const ArgumentCode& argument = arguments_[i];
            slots[first + i] =
                argument.value ? argument.value->evaluate(frame) : copyIn(frame, argument, copies[i], callee.offset());
        }
        try {
            const Slot result = callee.run(frame, slots);
            writeBack(copies);
            checkPending(callee.offset());
            return result;
        } catch (const Raised&) {
            writeBack(copies);
            throw;
        }
    }

private:
    static void writeBack(std::vector<ElementCopy>& copies) {
        for (ElementCopy& copy : copies) {
            Array* const array = std::exchange(copy.array, nullptr);
            if (array && inBounds(array, copy.index)) setElement(array, copy.index, copy.value);
        }
    }

    static Slot copyIn(Frame& frame, const ArgumentCode& argument, ElementCopy& copy, Offset offset) {
        Array* const array = requireArray(argument.array->evaluate(frame).object, offset);
        copy.index = argument.index->evaluate(frame).integer;
        requireIndex(array, copy.index, offset);
        copy.value = elementAt(array, copy.index);
        copy.counting = argument.counting;
        lock(copy.counting, copy.value);
        copy.array = array;
        return Slot::ofAddress(&copy.value);
    }

    std::vector<ArgumentCode> arguments_;
};

// Calls `make` with the arguments in the form that suits them.
template <class Make>
CodePtr withArguments(std::vector<ArgumentCode> arguments, Make make) {
    for (const ArgumentCode& argument : arguments)
        if (!argument.value) return make(ValuesAndElements(std::move(arguments)));
    return make(Values(std::move(arguments)));
}

} // namespace host::language
