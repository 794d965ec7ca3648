#include "language/running/array_members.h"

#include "language/running/frame.h"
#include "language/running/places.h"

#include "model/arrays.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace host::language {
namespace {

// Numbers that are none stand behind all others.
bool isLess(Kind kind, Slot a, Slot b) {
    switch (kind) {
    case Kind::boolean: return a.boolean < b.boolean;
    case Kind::integer: return a.integer < b.integer;
    case Kind::real: return a.real < b.real || (std::isnan(b.real) && !std::isnan(a.real));
    case Kind::color: return a.color < b.color;
    default: return compare(a.string, b.string, false) < 0;
    }
}

bool isEqual(const Type& type, Slot a, Slot b) {
    switch (type.kind) {
    case Kind::boolean: return (a.boolean != 0) == (b.boolean != 0);
    case Kind::integer: return a.integer == b.integer;
    case Kind::real: return a.real == b.real;
    case Kind::color: return a.color == b.color;
    case Kind::string: return compare(a.string, b.string, false) == 0;
    default: return a.object == b.object;
    }
}

} // namespace

bool isOrdered(const Type& elementType) {
    return elementType.isNumber() || elementType.is(Kind::boolean) || elementType.is(Kind::string);
}

CodePtr sortArray(CodePtr array, CodePtr keys, const Type& keyType, Offset offset) {
    return makeCode([array = std::move(array), keys = std::move(keys), kind = keyType.kind, offset](Frame& frame) {
        Array* const sorted = requireArray(array->evaluate(frame).object, offset);
        Array* const by = keys ? requireArray(keys->evaluate(frame).object, offset) : sorted;
        if (upperBound(by) != upperBound(sorted))
            throwNew(offset, "OutOfBoundsException", "The keys are not as many as the elements.");
        std::vector<std::size_t> order(static_cast<std::size_t>(upperBound(sorted) + 1));
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
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
    return makeCode(
        [array = std::move(array), value = std::move(value), start = std::move(start), elementType, offset](Frame& frame) {
            const Array* const searched = requireArray(array->evaluate(frame).object, offset);
            const Slot wanted = value->evaluate(frame);
            HostInteger index = start ? std::max(start->evaluate(frame).integer, HostInteger{0}) : 0;
            while (inBounds(searched, index) && !isEqual(elementType, elementAt(searched, index), wanted))
                ++index;
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
            const Array* const whole = requireArray(array->evaluate(frame).object, offset);
            const HostInteger first = start->evaluate(frame).integer;
            const HostInteger length = upperBound(whole) + HostInteger{1};
            if (first != length) requireIndex(whole, first, offset);
            const HostInteger taken =
                count ? std::clamp(count->evaluate(frame).integer, HostInteger{0}, length - first) : length - first;
            Owned<Array> slice(newArray(elementType));
            for (HostInteger i = first; i < first + taken; ++i)
                appendElement(slice.get(), elementAt(whole, i));
            return frame.keep(Counting::object, Slot::ofObject(slice.release()));
        });
}

} // namespace host::language
