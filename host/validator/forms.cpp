#include "validator/forms.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/memory_blocks.h"
#include "model/owned.h"

#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace host::validator {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr HostInteger highest = std::numeric_limits<HostInteger>::max(), lowest = std::numeric_limits<HostInteger>::min();
constexpr std::array doubles = {0.5, 0.0, -1.5, 1e308, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
constexpr std::array<HostColor, 3> colors = {0xFF804020, 0, 0xFFFFFFFF};
constexpr std::array<std::int32_t, 5> arraySizes = {4, 0, 1, 21, 300};
constexpr std::array<std::int32_t, 3> blockSizes = {16, 0, 1};
// An "integer" may carry a pointer, which nobody can make up: only a parameter that is called an index gets others than 0.
constexpr std::array<HostInteger, 5> integers = {0, 1, -1, highest, lowest};

const std::array<std::pair<std::string, Encoding>, 7> texts = {{
    {"key", encoding::utf8},
    {"", encoding::utf8},
    {"\xFF\xFE", encoding::utf8},
    {"\x8A\x9F", encoding::unknown},
    {"odd", encoding::utf16},
    {std::string(700, 'x'), encoding::isoLatin1},
    {"encoding without a name", 0x12345678},
}};

const Form null = {[] { return Slot(); }};

Object* newEmpty(const std::string& className) {
    ClassInfo* const info = registry().find(className);
    return info ? newObject(*info) : nullptr;
}

bool takeException() { return Owned<Object>(takePendingException()).get() != nullptr; }

// What a shared method without parameters hands out; null: none does.
Object* handedOut(const ClassInfo& info) {
    for (const Method& method : info.sharedMethods()) {
        const Signature& signature = method.signature;
        if (!signature.parameters.empty() || !equalIgnoringCase(nameOf(signature.result), info.name())) continue;
        Slot made;
        method.invoke(method.function, nullptr, &made);
        takeException();
        if (made.object) return made.object;
    }
    return nullptr;
}

std::vector<Form> formsOf(const Parameter& parameter);

// An object that one of its constructors has filled from numbers, text and the like; null: none has.
Object* constructed(const ClassInfo& info) {
    for (const Method* constructor : info.constructors()) {
        const std::vector<Parameter>& parameters = constructor->signature.parameters;
        Owned<Object> object(newEmpty(info.name()));
        Slot slots[maximumArguments] = {Slot::ofObject(object.get())}, none;
        for (std::size_t i = 0; i < parameters.size(); ++i)
            if (!parameters[i].type.isObjectReference()) slots[i + 1] = formsOf(parameters[i]).front().make();
        constructor->invoke(constructor->function, slots, &none);
        for (std::size_t i = 0; i < parameters.size(); ++i)
            unlock(parameters[i].type, slots[i + 1]);
        if (!takeException()) return object.release();
    }
    return nullptr;
}

Form empty(const std::string& className) {
    return {[=] { return Slot::ofObject(newEmpty(className)); }};
}

Form filled(const std::string& className) {
    return {[=] {
        const ClassInfo* const info = registry().find(className);
        Object* object = info ? handedOut(*info) : nullptr;
        if (info && !object) object = constructed(*info);
        return Slot::ofObject(object ? object : newEmpty(className));
    }};
}

std::vector<Form> andNull(std::vector<Form> forms) {
    forms.push_back(null);
    return forms;
}

std::vector<Form> formsOf(const Parameter& parameter) {
    const Type& type = parameter.type;
    const auto newArrayOf = [element = type.element()](std::int32_t size) {
        return Slot::ofObject(newArray(element, size - 1));
    };
    if (type.isArray) return andNull(each(arraySizes, newArrayOf));
    switch (type.kind) {
    case Kind::boolean: return each(std::array{true, false}, Slot::ofBoolean);
    case Kind::integer:
        if (equalIgnoringCase(parameter.name, "index")) return each(integers, Slot::ofInteger);
        return {null};
    case Kind::real: return each(doubles, Slot::ofReal);
    case Kind::color: return each(colors, Slot::ofColor);
    case Kind::string:
        return each(texts, [](const auto& text) { return Slot::ofString(newString(text.first, text.second)); });
    case Kind::object:
        if (!equalIgnoringCase(type.className, "MemoryBlock"))
            return andNull({filled(type.className), empty(type.className)});
        return andNull(each(blockSizes, [](std::int32_t size) { return Slot::ofObject(newMemoryBlock(size)); }));
    case Kind::nothing:
    case Kind::variant: break;
    }
    return {null};
}

std::vector<Form> receiversOf(const std::string& className) { return {null, empty(className), filled(className)}; }

} // namespace

const Forms declaredForms = {receiversOf, formsOf};

} // namespace host::validator
