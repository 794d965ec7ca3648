#include "model/variants.h"

#include "model/arrays.h"
#include "model/classes.h"
#include "model/exceptions.h"
#include "values/strings.h"

#include <array>
#include <functional>
#include <new>

namespace host {

namespace {

// The box of each kind, with the value outside the instance data. The instance data is one zeroed word, so a plugin that
// takes any variant for one of its objects finds an empty object.
struct Box {
    Kind kind;
    ClassInfo info;

    Box(Kind boxed, void (*destructor)(Object*))
        : kind(boxed), info("boxed " + nameOf({boxed, false, {}}), 16, destructor) {}
};

std::array<Box, 5>& boxes() {
    static std::array<Box, 5> all = {
        Box(Kind::boolean, nullptr),
        Box(Kind::integer, nullptr),
        Box(Kind::real, nullptr),
        Box(Kind::color, nullptr),
        Box(Kind::string, [](Object* object) { unlock(object->own.string); }),
    };
    return all;
}

void raiseMismatch(const char* className, const Type& held, const Type& wanted) {
    raise(className, "The variant holds " + nameOf(held) + ", not " + nameOf(wanted) + ".");
}

// Returns equal numbers in the same form: whole numbers as an Integer.
Held normalized(Held held) {
    if (held.kind == Kind::color)
        return {Kind::integer, Slot::ofInteger(static_cast<HostInteger>(std::uintptr_t{held.value.color}))};
    if (held.kind != Kind::real) return held;
    const HostInteger whole = truncated(held.value.real);
    if (static_cast<double>(whole) != held.value.real) return held;
    return {Kind::integer, Slot::ofInteger(whole)};
}

} // namespace

Object* newVariant(const Type& type, Slot value) {
    if (type.isObjectReference()) {
        lock(value.object);
        return value.object;
    }
    for (Box& box : boxes()) {
        if (box.kind != type.kind) continue;
        Object* const object = newObject(box.info);
        if (!object) throw std::bad_alloc();
        lock(type, value);
        object->own = value;
        return object;
    }
    return nullptr;
}

Type typeInVariant(const Object* variant) {
    if (!variant) return Type::nil();
    if (isArray(variant)) return elementType(static_cast<const Array*>(variant)).arrayOf();
    for (const Box& box : boxes())
        if (variant->info == &box.info) return {box.kind, false, {}};
    return Type::object(variant->info->name());
}

bool readVariant(Object* variant, const Type& type, Slot& value, Purpose purpose) {
    value = Slot();
    if (!variant) return true;
    const Type held = typeInVariant(variant);
    const std::optional<Conversion> conversion = conversionTo(type, held, purpose);
    if (!conversion) {
        const bool betweenClasses = held.kind == Kind::object && type.kind == Kind::object && !held.isArray && !type.isArray;
        raiseMismatch(betweenClasses ? "IllegalCastException" : "TypeMismatchException", held, type);
        return false;
    }
    if (type.isObjectReference()) {
        value = Slot::ofObject(variant);
        return true;
    }
    if (*conversion == Conversion::fromText) return readText(variant->own.string, type, value);
    value = convertedNumber(*conversion, variant->own);
    return true;
}

Held heldIn(Object* variant) {
    if (variant) {
        for (const Box& box : boxes())
            if (variant->info == &box.info) return {box.kind, variant->own};
    }
    return {Kind::object, Slot::ofObject(variant)};
}

Object* newVariant(Held held) { return newVariant(Type::plain(held.kind), held.value); }

void lock(Held held) {
    if (held.kind == Kind::object) lock(held.value.object);
    if (held.kind == Kind::string) lock(held.value.string);
}
void unlock(Held held) {
    if (held.kind == Kind::object) unlock(held.value.object);
    if (held.kind == Kind::string) unlock(held.value.string);
}

bool areEqual(Held first, Held second) {
    const Held a = normalized(first), b = normalized(second);
    if (a.kind != b.kind) return false;
    switch (a.kind) {
    case Kind::boolean: return (a.value.boolean != 0) == (b.value.boolean != 0);
    case Kind::integer: return a.value.integer == b.value.integer;
    case Kind::real: return a.value.real == b.value.real;
    case Kind::string: return compare(a.value.string, b.value.string, false) == 0;
    default: return a.value.object == b.value.object;
    }
}

std::size_t hashOf(Held held) {
    const Held value = normalized(held);
    switch (value.kind) {
    case Kind::boolean: return value.value.boolean != 0 ? 1 : 2;
    case Kind::integer: return std::hash<HostInteger>()(value.value.integer);
    case Kind::real: return std::hash<double>()(value.value.real);
    case Kind::string: return std::hash<std::string_view>()(TextOf(value.value.string).bytes());
    default: return std::hash<const Object*>()(value.value.object);
    }
}

} // namespace host
