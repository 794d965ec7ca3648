#include "language/running/array_operations.h"

#include "language/presentation.h"

#include "model/arrays.h"
#include "model/variants.h"
#include "system/interruption.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <numeric>
#include <stdexcept>

namespace host::language {
namespace {

std::int32_t requireBound(HostInteger bound, Offset offset) {
    if (bound < -1 || bound >= std::numeric_limits<std::int32_t>::max())
        throwNew(offset, "OutOfBoundsException", "An array cannot have the upper bound " + textOf(bound) + ".");
    return static_cast<std::int32_t>(bound);
}

// Calls a function that may allocate a complete array. Raises OutOfMemoryException if memory is exhausted.
template <class Function>
auto allocating(Offset offset, Function function) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    throwNew(offset, "OutOfMemoryException", "There is not enough memory for this array.");
}

// Not-a-number sorts after all other numbers.
bool isLess(Kind kind, Slot a, Slot b) {
    switch (kind) {
    case Kind::boolean: return a.boolean < b.boolean;
    case Kind::integer: return a.integer < b.integer;
    case Kind::real: return a.real < b.real || (std::isnan(b.real) && !std::isnan(a.real));
    case Kind::color: return a.color < b.color;
    default: return compare(a.string, b.string, false) < 0;
    }
}

bool isEqual(Kind kind, Slot a, Slot b) {
    if (kind == Kind::variant) return areEqual(heldIn(a.object), heldIn(b.object));
    return areEqual({kind, a}, {kind, b});
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

CodePtr makeArray(const Type& elementType, CodePtr upperBound, Offset offset) {
    return makeCode([elementType, upperBound = std::move(upperBound), offset](Frame& frame) {
        const std::int32_t bound = requireBound(upperBound->evaluate(frame).integer, offset);
        Array* const array = allocating(offset, [&] { return newArray(elementType, bound); });
        return frame.keep(Counting::object, Slot::ofObject(array));
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

ActionPtr resizeArray(CodePtr array, CodePtr upperBound, Offset offset) {
    return makeAction([array = std::move(array), upperBound = std::move(upperBound), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const std::int32_t bound = requireBound(upperBound->evaluate(frame).integer, offset);
        allocating(offset, [&] { return resize(object, bound), true; });
    });
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

ActionPtr writeElement(CodePtr array, CodePtr index, CodePtr value, Offset offset) {
    return makeAction([array = std::move(array), index = std::move(index), value = std::move(value), offset](Frame& frame) {
        Array* const object = requireArray(array->evaluate(frame).object, offset);
        const HostInteger position = index->evaluate(frame).integer;
        const Slot element = value->evaluate(frame);
        requireIndex(object, position, offset); // checked now, because evaluating the value may change the array
        setElement(object, position, element);
    });
}

CodePtr upperBoundOf(CodePtr array, Offset offset) {
    return transform(std::move(array),
                     [offset](Slot object) { return Slot::ofInteger(upperBound(requireArray(object.object, offset))); });
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

bool isOrdered(const Type& elementType) {
    return elementType.isNumber() || elementType.is(Kind::boolean) || elementType.is(Kind::string);
}

CodePtr sortArray(CodePtr array, CodePtr keys, const Type& keyType, Offset offset) {
    return makeCode([array = std::move(array), keys = std::move(keys), kind = keyType.kind, offset](Frame& frame) {
        Array* const sorted = requireArray(array->evaluate(frame).object, offset);
        Array* const by = keys ? requireArray(keys->evaluate(frame).object, offset) : sorted;
        if (upperBound(by) != upperBound(sorted))
            throwNew(offset, "OutOfBoundsException", "The numbers of keys and elements differ.");
        std::vector<std::size_t> order(static_cast<std::size_t>(upperBound(sorted) + 1));
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            checkInterruption();
            return isLess(kind, elementAt(by, static_cast<HostInteger>(a)), elementAt(by, static_cast<HostInteger>(b)));
        });
        reorder(sorted, order);
        if (by != sorted) reorder(by, order);
        return Slot();
    });
}

CodePtr reverseArray(CodePtr array, Offset offset) {
    return transform(std::move(array), [offset](Slot object) {
        Array* const reversed = requireArray(object.object, offset);
        std::vector<std::size_t> order(static_cast<std::size_t>(upperBound(reversed) + 1));
        std::iota(order.rbegin(), order.rend(), std::size_t{0});
        reorder(reversed, order);
        return Slot();
    });
}

CodePtr indexInArray(CodePtr array, CodePtr value, CodePtr start, const Type& elementType, Offset offset) {
    return makeCode([array = std::move(array), value = std::move(value), start = std::move(start), kind = elementType.kind,
                     offset](Frame& frame) {
        const Array* const searched = requireArray(array->evaluate(frame).object, offset);
        const Slot wanted = value->evaluate(frame);
        HostInteger index = start ? std::max(start->evaluate(frame).integer, HostInteger{0}) : 0;
        while (inBounds(searched, index) && !isEqual(kind, elementAt(searched, index), wanted)) {
            checkInterruption();
            ++index;
        }
        return Slot::ofInteger(inBounds(searched, index) ? index : -1);
    });
}

CodePtr popFromArray(CodePtr array, const Type& elementType, Offset offset) {
    return makeCode([array = std::move(array), counting = countingOf(elementType), offset](Frame& frame) {
        Array* const popped = requireArray(array->evaluate(frame).object, offset);
        const std::int32_t last = upperBound(popped);
        requireIndex(popped, last, offset);
        const Slot element = elementAt(popped, last);
        lock(counting, element);
        frame.keep(counting, element);
        removeElement(popped, last);
        return element;
    });
}

CodePtr sliceOfArray(CodePtr array, CodePtr start, CodePtr count, const Type& elementType, Offset offset) {
    return makeCode(
        [array = std::move(array), start = std::move(start), count = std::move(count), elementType, offset](Frame& frame) {
            const Array* const source = requireArray(array->evaluate(frame).object, offset);
            const HostInteger first = start->evaluate(frame).integer;
            const HostInteger length = upperBound(source) + HostInteger{1};
            if (first != length) requireIndex(source, first, offset);
            const HostInteger taken =
                count ? std::clamp(count->evaluate(frame).integer, HostInteger{0}, length - first) : length - first;
            Owned<Array> slice(newArray(elementType));
            for (HostInteger i = first; i < first + taken; ++i) {
                checkInterruption();
                appendElement(slice.get(), elementAt(source, i));
            }
            return frame.keep(Counting::object, Slot::ofObject(slice.release()));
        });
}

} // namespace host::language
