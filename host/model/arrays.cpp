#include "model/arrays.h"

#include "model/classes.h"
#include "model/entries.h"
#include "model/storage.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace host {

namespace {

struct Elements {
    Type type;
    std::vector<Slot> slots;
};

Elements& elementsOf(const Array* array) { return *static_cast<Elements*>(array->own.address); }

void destroyElements(Object* object) {
    const std::unique_ptr<Elements> elements(static_cast<Elements*>(object->own.address));
    for (const Slot slot : elements->slots)
        unlock(elements->type, slot);
}

ClassInfo& arrayClass() {
    static ClassInfo info("Array", 16, destroyElements);
    return info;
}

// Plugins on older hosts read the elements of a double array directly from its record.
void publish(Array* array) {
    Elements& elements = elementsOf(array);
    if (elements.type.kind != Kind::real || !exposesStorage()) return;
    writeAt<const void*>(array, REALarrayElementsOffset, elements.slots.empty() ? nullptr : elements.slots.data());
}

std::vector<Slot>::difference_type position(HostInteger index) {
    return static_cast<std::vector<Slot>::difference_type>(index);
}

} // namespace

Array* newArray(const Type& elementType, std::int32_t upperBound) {
    auto elements = std::make_unique<Elements>();
    elements->type = elementType;
    elements->slots.resize(static_cast<std::size_t>(upperBound + 1));
    Object* const object = newObject(arrayClass());
    if (!object) throw std::bad_alloc();
    object->own = Slot::ofAddress(elements.release());
    auto* const array = static_cast<Array*>(object);
    publish(array);
    return array;
}

bool isArray(const Object* object) { return object && object->info == &arrayClass(); }
Array* asArray(Object* object) { return isArray(object) ? static_cast<Array*>(object) : nullptr; }

const Type& elementType(const Array* array) { return elementsOf(array).type; }
std::int32_t upperBound(const Array* array) { return static_cast<std::int32_t>(elementsOf(array).slots.size()) - 1; }

Slot elementAt(const Array* array, HostInteger index) { return elementsOf(array).slots[static_cast<std::size_t>(index)]; }

void setElement(Array* array, HostInteger index, Slot value) {
    Elements& elements = elementsOf(array);
    const Slot old = elements.slots[static_cast<std::size_t>(index)];
    lock(elements.type, value);
    elements.slots[static_cast<std::size_t>(index)] = value;
    unlock(elements.type, old); // last: a destructor may run and use the array
}

void insertElement(Array* array, HostInteger index, Slot value) {
    Elements& elements = elementsOf(array);
    elements.slots.insert(elements.slots.begin() + position(index), value);
    lock(elements.type, value);
    publish(array);
}

void appendElement(Array* array, Slot value) {
    Elements& elements = elementsOf(array);
    elements.slots.push_back(value);
    lock(elements.type, value);
    publish(array);
}

void removeElement(Array* array, HostInteger index) {
    Elements& elements = elementsOf(array);
    const Slot old = elementAt(array, index);
    elements.slots.erase(elements.slots.begin() + position(index));
    publish(array);
    unlock(elements.type, old);
}

void reorder(Array* array, const std::vector<std::size_t>& order) {
    std::vector<Slot>& slots = elementsOf(array).slots;
    const std::vector<Slot> before = slots;
    for (std::size_t i = 0; i < order.size(); ++i)
        slots[i] = before[order[i]];
}

void resize(Array* array, std::int32_t upperBound) {
    Elements& elements = elementsOf(array);
    const auto count = static_cast<std::size_t>(upperBound + 1);
    std::vector<Slot> cut;
    if (count < elements.slots.size()) cut.assign(elements.slots.begin() + position(upperBound + 1), elements.slots.end());
    elements.slots.resize(count);
    publish(array);
    for (const Slot slot : cut)
        unlock(elements.type, slot);
}

} // namespace host
