#include "validator/calls.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/memory_blocks.h"
#include "model/platform.h"
#include "model/strings.h"
#include "validator/child.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <utility>

namespace host::validator {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::array doubles = {0.5, 0.0, -1.5, 1e308, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
constexpr std::array<HostColor, 3> colors = {0xFF804020, 0, 0xFFFFFFFF};
constexpr std::array<std::int32_t, 5> arraySizes = {4, 0, 1, 21, 300};
constexpr std::array<std::int32_t, 3> blockSizes = {16, 0, 1};
// An "integer" may carry a pointer, which nobody can make up: only a parameter that is called an index gets others than 0.
constexpr std::array<HostInteger, 5> integers = {0, 1, -1, std::numeric_limits<HostInteger>::max(),
                                                 std::numeric_limits<HostInteger>::min()};

const std::pair<std::string, Encoding> texts[] = {
    {"key", encoding::utf8},
    {"", encoding::utf8},
    {"\xFF\xFE", encoding::utf8},
    {"\x8A\x9F", encoding::unknown},
    {"odd", encoding::utf16},
    {std::string(700, 'x'), encoding::isoLatin1},
    {"encoding without a name", 0x12345678},
};

Object* newFilled(const ClassInfo& info) {
    for (const Method& method : info.sharedMethods()) {
        const Signature& signature = method.signature;
        if (!signature.parameters.empty() || signature.result.isArray ||
            !equalIgnoringCase(signature.result.className, info.name()))
            continue;
        Slot made;
        method.invoke(method.function, nullptr, &made);
        unlock(takePendingException());
        if (made.object) return made.object;
    }
    return nullptr;
}

Object* newEmpty(const std::string& className) {
    ClassInfo* const info = registry().find(className);
    return info ? newObject(*info) : nullptr;
}

bool isIndex(const Parameter& parameter) { return equalIgnoringCase(parameter.name, "index"); }

std::size_t formCount(const Parameter& parameter) {
    if (parameter.byRef) return 2;
    if (parameter.type.isArray) return arraySizes.size() + 1;
    switch (parameter.type.kind) {
    case Kind::boolean: return 2;
    case Kind::integer: return isIndex(parameter) ? integers.size() : 1;
    case Kind::real: return doubles.size();
    case Kind::color: return colors.size();
    case Kind::string: return std::size(texts);
    case Kind::object: return equalIgnoringCase(parameter.type.className, "MemoryBlock") ? blockSizes.size() + 1 : 3;
    case Kind::nothing:
    case Kind::variant: break;
    }
    return 1;
}

Slot newObjectArgument(const std::string& className, std::size_t form) {
    if (equalIgnoringCase(className, "MemoryBlock"))
        return Slot::ofObject(form < blockSizes.size() ? newMemoryBlock(blockSizes[form]) : nullptr);
    if (form == 1) return {};
    const ClassInfo* const info = registry().find(className);
    Object* const filled = form == 0 && info ? newFilled(*info) : nullptr;
    return Slot::ofObject(filled ? filled : newEmpty(className));
}

// By value; the caller owns what is counted. The last form of what can be null is null.
Slot newArgument(const Parameter& parameter, std::size_t form) {
    const Type& type = parameter.type;
    if (type.isArray)
        return Slot::ofObject(form < arraySizes.size() ? newArray(type.element(), arraySizes[form] - 1) : nullptr);
    switch (type.kind) {
    case Kind::boolean: return Slot::ofBoolean(form == 0);
    case Kind::integer: return Slot::ofInteger(integers[form]);
    case Kind::real: return Slot::ofReal(doubles[form]);
    case Kind::color: return Slot::ofColor(colors[form]);
    case Kind::string: return Slot::ofString(newString(texts[form].first, texts[form].second));
    case Kind::object: return newObjectArgument(type.className, form);
    case Kind::nothing:
    case Kind::variant: break;
    }
    return {};
}

Object* newReceiver(const Bound& function, Receiver receiver) {
    if (receiver == Receiver::null) return nullptr;
    Object* const filled = receiver == Receiver::filled ? newFilled(*function.owner) : nullptr;
    return filled ? filled : newEmpty(function.owner->name());
}

bool isNullValue(const Type& type, Slot value) {
    if (type.is(Kind::nothing)) return true;
    if (type.isArray) return !value.object || upperBound(asArray(value.object)) < 0;
    return type.is(Kind::real) ? value.real == 0 : value.integer == 0;
}

} // namespace

std::vector<Bound> functionsOf(const std::vector<const ClassInfo*>& classes) {
    std::vector<Bound> all;
    for (const ClassInfo* info : classes) {
        for (const std::vector<Method>* methods : {&info->methods(), &info->sharedMethods()}) {
            for (const Method& method : *methods) {
                all.push_back({info->name() + "." + method.signature.name, info, method.function, method.invoke,
                               method.signature, !method.shared, false, 0});
            }
        }
        for (const Property& property : info->properties()) {
            if (property.getter && property.getter != REALstandardAccessor) {
                all.push_back({info->name() + "." + property.name, info, property.getter, property.invokeGetter,
                               Signature{property.name, {}, property.type}, true, true, property.parameter});
            }
        }
    }
    return all;
}

std::vector<Choice> ordinaryChoicesFor(const Bound& function) {
    if (!function.hasReceiver) return {{Receiver::null, 0, 0}};
    return {{Receiver::null, 0, 0}, {Receiver::empty, 0, 0}, {Receiver::filled, 0, 0}};
}

std::vector<Choice> choicesFor(const Bound& function) {
    std::vector<Choice> choices = ordinaryChoicesFor(function);
    for (const Receiver receiver : {Receiver::empty, Receiver::filled}) {
        for (std::size_t i = 0; i < function.signature.parameters.size(); ++i) {
            for (std::size_t form = 1; form < formCount(function.signature.parameters[i]); ++form)
                choices.push_back({receiver, i, form});
        }
    }
    return choices;
}

Outcome call(const Bound& function, const Choice& choice) {
    step(function.name + (function.hasReceiver && choice.receiver == Receiver::null ? " of null" : ""));
    const platform::AutoreleasePool pool;
    const std::vector<Parameter>& parameters = function.signature.parameters;
    Slot slots[maximumArguments + 1] = {}, outputs[maximumArguments] = {}, result = {};
    const std::size_t first = function.hasReceiver ? 1 : 0;
    if (function.hasReceiver) slots[0] = Slot::ofObject(newReceiver(function, choice.receiver));
    if (function.isGetter) slots[1] = Slot::ofInteger(function.parameter);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const std::size_t form = i == choice.argument ? choice.form : 0;
        if (!parameters[i].byRef) {
            slots[first + i] = newArgument(parameters[i], form);
        } else if (form == 0) {
            slots[first + i] = Slot::ofAddress(&outputs[i]);
        }
    }

    Outcome outcome;
    try {
        function.invoke(function.function, slots, &result);
    } catch (...) { // of whatever language
        outcome.threw = true;
        result = {};
    }
    Object* const exception = takePendingException();
    outcome.raised = exception != nullptr;
    outcome.isNull = isNullValue(function.signature.result, result);

    unlock(exception);
    unlock(function.signature.result, result);
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (!parameters[i].byRef) unlock(parameters[i].type, slots[first + i]);
    if (function.hasReceiver) unlock(slots[0].object);
    return outcome;
}

} // namespace host::validator
