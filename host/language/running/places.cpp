#include "language/running/places.h"

#include "language/library/values.h"

#include "model/arrays.h"

#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

namespace host::language {
namespace {

std::int32_t requireBound(HostInteger bound, Offset offset) {
    if (bound < -1 || bound >= std::numeric_limits<std::int32_t>::max())
        throwNew(offset, "OutOfBoundsException", "An array cannot have the upper bound " + textOf(bound) + ".");
    return static_cast<std::int32_t>(bound);
}

// Runs what may allocate a whole array.
template <class Function>
auto allocating(Offset offset, Function function) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    throwNew(offset, "OutOfMemoryException", "There is not enough memory for this array.");
}

} // namespace

Array* requireArray(Object* array, Offset offset) {
    Array* const found = asArray(array);
    if (!found) throwNew(offset, "NilObjectException", "An array that is Nil was used.");
    return found;
}

void requireIndex(const Array* array, HostInteger index, Offset offset) {
    if (inBounds(array, index)) return;
    const HostInteger bound = upperBound(array);
    throwNew(offset, "OutOfBoundsException",
             "The index " + textOf(index) +
                 (bound < 0 ? " is used on an empty array." : " is outside the range 0 to " + textOf(bound) + "."));
}

void store(Frame& frame, VariablePlace place, Counting counting, Slot value) {
    lock(counting, value);
    unlock(counting, std::exchange(frame.variable(place), value)); // last: a destructor may run
}

CodePtr readVariable(VariablePlace place, const Type& type) {
    const Counting counting = countingOf(type);
    if (counting == Counting::none) return makeCode([place](Frame& frame) { return frame.variable(place); });
    // Assigning to the variable later in the same step must not take the value away.
    return makeCode([place, counting](Frame& frame) {
        const Slot value = frame.variable(place);
        lock(counting, value);
        return frame.keep(counting, value);
    });
}

CodePtr addressOfVariable(VariablePlace place) {
    return makeCode([place](Frame& frame) { return Slot::ofAddress(&frame.variable(place)); });
}

CodePtr readElement(CodePtr array, CodePtr index, const Type& elementType, Offset offset) {
    const Counting counting = countingOf(elementType);
    return makeCode([array = std::move(array), index = std::move(index), counting, offset](Frame& frame) {
        const Array* const object = requireArray(array->evaluate(frame).object, offset);
        const HostInteger position = index->evaluate(frame).integer;
        requireIndex(object, position, offset);
        const Slot value = elementAt(object, position);
        lock(counting, value);
        return frame.keep(counting, value);
    });
}

CodePtr upperBoundOf(CodePtr array, Offset offset) {
    return transform(std::move(array),
                     [offset](Slot object) { return Slot::ofInteger(upperBound(requireArray(object.object, offset))); });
}

CodePtr readProperty(const Property& property, CodePtr object, Offset offset) {
    const Counting counting = countingOf(property.type);
    return makeCode([&property, object = std::move(object), counting, offset](Frame& frame) {
        Object* const owner = requireObject(object->evaluate(frame).object, offset);
        const Slot value = frame.keep(counting, host::readProperty(property, owner));
        checkPending(offset);
        return value;
    });
}

ActionPtr writeVariable(VariablePlace place, const Type& type, CodePtr value) {
    const Counting counting = countingOf(type);
    if (counting == Counting::none) {
        return makeAction(
            [place, value = std::move(value)](Frame& frame) { frame.variable(place) = value->evaluate(frame); });
    }
    return makeAction([place, counting, value = std::move(value)](Frame& frame) {
        store(frame, place, counting, value->evaluate(frame));
    });
}

// The variable is read before the texts, whose evaluation may change it.
ActionPtr appendToVariable(VariablePlace place, std::vector<CodePtr> texts, Offset offset) {
    return makeAction([place, texts = std::move(texts), offset](Frame& frame) {
        Owned<String> text = Owned<String>::shared(frame.variable(place).string);
        std::vector<String*> parts;
        for (const CodePtr& part : texts)
            parts.push_back(part->evaluate(frame).string);
        Slot& variable = frame.variable(place);
        if (variable.string == text.get()) unlock(std::exchange(variable.string, nullptr));
        bool failed = false;
        try {
            for (const String* part : parts) {
                String* const joined = append(text.get(), part);
                text.release();
                text = Owned<String>(joined);
            }
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        unlock(std::exchange(variable.string, text.release()));
        if (failed) failMemory(offset);
    });
}

ActionPtr writeElement(CodePtr array, CodePtr index, CodePtr value, Offset offset) {
    return makeAction([array = std::move(array), index = std::move(index), value = std::move(value), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const HostInteger position = index->evaluate(frame).integer;
        const Slot element = value->evaluate(frame);
        requireIndex(object, position, offset); // now, for the value's evaluation may change the array
        setElement(object, position, element);
    });
}

ActionPtr writeProperty(const Property& property, CodePtr object, CodePtr value, Offset offset) {
    return makeAction([&property, object = std::move(object), value = std::move(value), offset](Frame& frame) {
        Object* const owner = requireObject(object->evaluate(frame).object, offset);
        host::writeProperty(property, owner, value->evaluate(frame));
        checkPending(offset);
    });
}

CodePtr makeArray(const Type& elementType, CodePtr upperBound, Offset offset) {
    return makeCode([elementType, upperBound = std::move(upperBound), offset](Frame& frame) {
        const std::int32_t bound = requireBound(upperBound->evaluate(frame).integer, offset);
        Array* const array = allocating(offset, [&] { return newArray(elementType, bound); });
        return frame.keep(Counting::object, Slot::ofObject(array));
    });
}

ActionPtr resizeArray(CodePtr array, CodePtr upperBound, Offset offset) {
    return makeAction([array = std::move(array), upperBound = std::move(upperBound), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const std::int32_t bound = requireBound(upperBound->evaluate(frame).integer, offset);
        allocating(offset, [&] { return resize(object, bound), true; });
    });
}

CodePtr appendToArray(CodePtr array, CodePtr value, Offset offset) {
    return makeCode([array = std::move(array), value = std::move(value), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const Slot element = value->evaluate(frame);
        allocating(offset, [&] { return appendElement(object, element), true; });
        return Slot();
    });
}

CodePtr insertIntoArray(CodePtr array, CodePtr index, CodePtr value, Offset offset) {
    return makeCode([array = std::move(array), index = std::move(index), value = std::move(value), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const HostInteger position = index->evaluate(frame).integer;
        const Slot element = value->evaluate(frame);
        if (position != upperBound(object) + 1) requireIndex(object, position, offset);
        allocating(offset, [&] { return insertElement(object, position, element), true; });
        return Slot();
    });
}

CodePtr removeFromArray(CodePtr array, CodePtr index, Offset offset) {
    return makeCode([array = std::move(array), index = std::move(index), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const HostInteger position = index->evaluate(frame).integer;
        requireIndex(object, position, offset);
        removeElement(object, position);
        return Slot();
    });
}

} // namespace host::language
