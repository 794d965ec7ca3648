#include "model/arrays.h"

#include "model/classes.h"
#include "values/host_version.h"
#include "values/storage.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace host {

namespace {

// The slots before `first` are unused, so that removing and inserting at the start take constant time on average.
struct Elements {
    Type type;
    std::vector<Slot> slots;
    std::size_t first = 0;

    std::size_t count() const { return slots.size() - first; }
    std::vector<Slot>::iterator at(std::size_t index) {
        return slots.begin() + static_cast<std::vector<Slot>::difference_type>(first + index);
    }
};

Elements& elementsOf(const Array* array) { return *static_cast<Elements*>(array->own.address); }

void destroyElements(Object* object) {
    const std::unique_ptr<Elements> elements(static_cast<Elements*>(object->own.address));
    for (auto slot = elements->at(0); slot != elements->slots.end(); ++slot)
        unlock(elements->type, *slot);
}

ClassInfo& arrayClass() {
    static ClassInfo info("Array", 16, destroyElements);
    return info;
}

// Plugins on older hosts read the elements of a double array directly from its record.
void publish(Array* array) {
    Elements& elements = elementsOf(array);
    if (elements.type.kind != Kind::real || !exposesStorage()) return;
    writeAt<const void*>(array, REALarrayElementsOffset, elements.count() == 0 ? nullptr : &*elements.at(0));
}

constexpr std::size_t fewest = 16; // an array with fewer slots gets no unused ones before them

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
std::int32_t upperBound(const Array* array) { return static_cast<std::int32_t>(elementsOf(array).count()) - 1; }

Slot elementAt(const Array* array, HostInteger index) { return *elementsOf(array).at(static_cast<std::size_t>(index)); }

void setElement(Array* array, HostInteger index, Slot value) {
    Elements& elements = elementsOf(array);
    const Slot old = std::exchange(*elements.at(static_cast<std::size_t>(index)), value);
    lock(elements.type, value);
    unlock(elements.type, old); // last: a destructor may run and use the array
}

void insertElement(Array* array, HostInteger index, Slot value) {
    Elements& elements = elementsOf(array);
    if (index == 0 && elements.first == 0 && elements.count() >= fewest) {
        const std::size_t room = elements.count() / 2;
        elements.slots.insert(elements.slots.begin(), room, Slot());
        elements.first = room;
    }
    if (index == 0 && elements.first > 0) {
        --elements.first;
        *elements.at(0) = value;
    } else {
        elements.slots.insert(elements.at(static_cast<std::size_t>(index)), value);
    }
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
    if (index == 0) {
        ++elements.first;
        if (elements.first >= fewest && elements.first > elements.count()) {
            elements.slots.erase(elements.slots.begin(), elements.at(0));
            elements.first = 0;
        }
    } else {
        elements.slots.erase(elements.at(static_cast<std::size_t>(index)));
    }
    publish(array);
    unlock(elements.type, old);
}

void reorder(Array* array, const std::vector<std::size_t>& order) {
    Elements& elements = elementsOf(array);
    const std::vector<Slot> before(elements.at(0), elements.slots.end());
    for (std::size_t i = 0; i < order.size(); ++i)
        *elements.at(i) = before[order[i]];
}

void resize(Array* array, std::int32_t upperBound) {
    Elements& elements = elementsOf(array);
    const auto count = static_cast<std::size_t>(upperBound + 1);
    std::vector<Slot> cut;
    if (count < elements.count()) cut.assign(elements.at(count), elements.slots.end());
    elements.slots.resize(elements.first + count);
    publish(array);
    for (const Slot slot : cut)
        unlock(elements.type, slot);
}

} // namespace host
