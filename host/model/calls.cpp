#include "model/calls.h"

#include <array>
#include <utility>

namespace host {

namespace {

// A shape is the number of arguments, a mask of the arguments that are doubles, and whether the result is a double. Every
// other value is passed as a word whose low bytes are the narrower value, as an argument, as a result and in the slot.
template <bool isReal>
struct Place;
template <>
struct Place<false> {
    using Type = HostInteger;
    static Type read(const Slot& slot) { return slot.integer; }
    static void write(Slot& slot, Type value) { slot = Slot::ofInteger(value); }
};
template <>
struct Place<true> {
    using Type = double;
    static Type read(const Slot& slot) { return slot.real; }
    static void write(Slot& slot, Type value) { slot.real = value; }
};

template <unsigned realMask, std::size_t place>
using PlaceAt = Place<(realMask >> place & 1u) != 0>;

template <bool realResult, unsigned realMask, std::size_t... places>
void invoke(REALfunction function, const Slot* arguments, Slot* result, std::index_sequence<places...>) {
    using Function = typename Place<realResult>::Type (*)(typename PlaceAt<realMask, places>::Type...);
    const auto typed = reinterpret_cast<Function>(function);
    Place<realResult>::write(*result, typed(PlaceAt<realMask, places>::read(arguments[places])...));
}

template <bool realResult, std::size_t count, unsigned realMask>
void invokeShape(REALfunction function, const Slot* arguments, Slot* result) {
    invoke<realResult, realMask>(function, arguments, result, std::make_index_sequence<count>());
}

// The index of a shape in one table: the shapes of n arguments start at 2^n - 1.
constexpr std::size_t shapeIndex(std::size_t count, unsigned realMask) { return (std::size_t{1} << count) - 1 + realMask; }
constexpr std::size_t shapeCount = shapeIndex(maximumArguments + 1, 0);

constexpr std::size_t argumentsOf(std::size_t shape) {
    std::size_t count = 0;
    while (shapeIndex(count + 1, 0) <= shape)
        ++count;
    return count;
}

using ShapeRow = std::array<void (*)(REALfunction, const Slot*, Slot*), shapeCount>;

template <bool realResult, std::size_t... shapes>
constexpr ShapeRow makeShapes(std::index_sequence<shapes...>) {
    return {&invokeShape<realResult, argumentsOf(shapes),
                         static_cast<unsigned>(shapes - shapeIndex(argumentsOf(shapes), 0))>...};
}

constexpr ShapeRow wordShapes = makeShapes<false>(std::make_index_sequence<shapeCount>());
constexpr ShapeRow realShapes = makeShapes<true>(std::make_index_sequence<shapeCount>());

HostInteger maskOf(const Type& type) {
    if (type.is(Kind::nothing)) return 0;
    if (type.is(Kind::boolean)) return 0xFF;
    if (type.is(Kind::color)) return static_cast<HostInteger>(0xFFFFFFFFu);
    return -1;
}

} // namespace

Invoker::Invoker(const Type& result, std::size_t count, unsigned realMask)
    : shape_((result.is(Kind::real) ? realShapes : wordShapes)[shapeIndex(count, realMask)]), resultMask_(maskOf(result)) {}

Invoker::Invoker(const Signature& signature, bool hasReceiver) {
    std::size_t count = hasReceiver ? 1 : 0;
    if (signature.parameters.size() > maximumArguments - count) return;
    unsigned realMask = 0;
    for (const Parameter& parameter : signature.parameters) {
        if (parameter.type.is(Kind::real) && !parameter.byRef) realMask |= 1u << count;
        ++count;
    }
    *this = Invoker(signature.result, count, realMask);
}

Invoker Invoker::getter(const Type& type) { return {type, 2, 0}; }
Invoker Invoker::setter(const Type& type) { return {Type(), 3, type.is(Kind::real) ? 1u << 2 : 0}; }

} // namespace host
