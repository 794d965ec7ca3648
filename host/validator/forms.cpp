#include "validator/forms.h"

#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "validator/child.h"
#include "validator/watch.h"

#include <array>
#include <cstdint>
#include <limits>
#include <sstream>

namespace host::validator {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr HostInteger highest = std::numeric_limits<HostInteger>::max(), lowest = std::numeric_limits<HostInteger>::min();
constexpr std::array doubles = {0.5, 0.0, -1.5, 1e308, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
constexpr std::array<HostColor, 3> colors = {0xFF804020, 0, 0xFFFFFFFF};
constexpr std::array<std::int32_t, 5> arraySizes = {4, 0, 1, 21, 300};
constexpr std::array<std::int32_t, 3> blockSizes = {16, 0, 1};
// An "integer" may be a pointer, which cannot be invented. Only a parameter that is called an index gets values other than
// 0. The value of a setter is not a pointer either, unless the property's name says so.
constexpr std::array<HostInteger, 5> integers = {0, 1, -1, highest, lowest}, values = {7, 0, -1, highest, lowest};

struct Text {
    const char* name;
    std::string bytes;
    Encoding encoding;
};
const std::array<Text, 7> texts = {{
    {"\"key\"", "key", encoding::utf8},
    {"the empty text", "", encoding::utf8},
    {"bytes that are not UTF-8", "\xFF\xFE", encoding::utf8},
    {"text of unknown encoding", "\x8A\x9F", encoding::unknown},
    {"UTF-16 of three bytes", "odd", encoding::utf16},
    {"text of 700 characters", std::string(700, 'x'), encoding::isoLatin1},
    {"text of an encoding that does not exist", "encoding without a name", 0x12345678},
}};

const Form null = {[] { return Slot(); }, nullptr, "null"};

// Names the running function for its lifetime, so that a crash is not attributed to the function that the argument is for.
// Converts to false if the function is unusable.
class Use {
public:
    explicit Use(const std::string& name) : isUsable_(unusableFunctions().count(name) == 0), before_(currentStep()) {
        if (isUsable_) step(name + ", called for an argument");
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() {
        if (isUsable_) step(before_);
    }
    explicit operator bool() const { return isUsable_; }

private:
    const bool isUsable_;
    const std::string before_;
};

Object* newEmpty(const std::string& className) {
    ClassInfo* const info = registry().find(className);
    if (!info) return nullptr;
    const std::string name = info->name() + ".constructor";
    const Use use(name);
    Object* const object = use ? newObject(*info) : nullptr;
    checkMemory(name);
    return object;
}

bool takeException() { return Owned<Object>(takePendingException()).get() != nullptr; }

std::string nameFor(const ClassInfo& info, const Signature& signature, const char* suffix = "") {
    const std::size_t count = signature.parameters.size() + (*suffix != '\0' ? 1 : 0);
    return info.name() + "." + signature.name + suffix + "/" + std::to_string(count);
}

// Returns the object that a shared method without parameters returns, or null if none does.
Object* returnedBySharedMethod(const ClassInfo& info) {
    for (const Method& method : info.sharedMethods()) {
        const Signature& signature = method.signature;
        if (!signature.parameters.empty() || !equalIgnoringCase(nameOf(signature.result), info.name())) continue;
        const Use use(nameFor(info, signature));
        if (!use) continue;
        Slot created;
        method.invoke(method.function, nullptr, &created);
        takeException();
        if (created.object) return created.object;
    }
    return nullptr;
}

std::vector<Form> formsOf(const Parameter& parameter);

// Returns an object that one of its constructors has filled from numbers, text and the like, or null if none has.
Object* constructed(const ClassInfo& info) {
    for (const Method* const constructor : info.constructors()) {
        const std::vector<Parameter>& parameters = constructor->signature.parameters;
        Owned<Object> object(newEmpty(info.name()));
        const Use use(nameFor(info, constructor->signature));
        if (!use) continue;
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

// Sets every property that has a setter to the first value of its type. A setter may refuse that.
void fill(const ClassInfo& info, Object* object) {
    for (const Property& property : info.properties()) {
        if (!property.setter || property.setter == REALstandardAccessor || property.type.isObjectReference()) continue;
        const Use use(nameFor(info, {property.name, {}, {}}, "="));
        if (!use) continue;
        const Slot value = formsOf({"value", property.type, false, false, {}}).front().make();
        if (!isAddress(property)) writeProperty(property, object, value);
        unlock(property.type, value);
        takeException();
    }
}

Form empty(const std::string& className) {
    return {[=] { return Slot::ofObject(newEmpty(className)); }, nullptr, "an empty object"};
}

Form filled(const std::string& className) {
    const auto make = [=] {
        const ClassInfo* const info = registry().find(className);
        Object* object = info ? returnedBySharedMethod(*info) : nullptr;
        if (info && !object) object = constructed(*info);
        if (!object) object = newEmpty(className);
        if (object) fill(*info, object);
        return Slot::ofObject(object);
    };
    return {make, nullptr, "a filled object"};
}

std::vector<Form> andNull(std::vector<Form> forms) {
    forms.push_back(null);
    return forms;
}

std::string textOf(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::vector<Form> formsOf(const Parameter& parameter) {
    const Type& type = parameter.type;
    const auto number = [](auto value) { return std::to_string(value); };
    const auto newArrayOf = [element = type.element()](std::int32_t size) {
        return Slot::ofObject(newArray(element, size - 1));
    };
    if (type.isArray)
        return andNull(each(arraySizes, newArrayOf, [](auto size) { return "an array of " + std::to_string(size); }));
    switch (type.kind) {
    case Kind::boolean:
        return each(std::array{true, false}, Slot::ofBoolean, [](bool value) { return value ? "true" : "false"; });
    case Kind::integer:
        if (equalIgnoringCase(parameter.name, "index")) return each(integers, Slot::ofInteger, number);
        if (parameter.name == "value") return each(values, Slot::ofInteger, number);
        return {null};
    case Kind::real: return each(doubles, Slot::ofReal, textOf);
    case Kind::color: return each(colors, Slot::ofColor, number);
    case Kind::string: {
        const auto newText = [](const Text& text) { return Slot::ofString(newString(text.bytes, text.encoding)); };
        return each(texts, newText, [](const Text& text) { return text.name; });
    }
    case Kind::object:
        if (!equalIgnoringCase(type.className, "MemoryBlock"))
            return andNull({filled(type.className), empty(type.className)});
        return andNull(each(
            blockSizes, [](std::int32_t size) { return Slot::ofObject(newMemoryBlock(size)); },
            [](auto size) { return "a block of " + std::to_string(size) + " bytes"; }));
    case Kind::nothing:
    case Kind::variant: break;
    }
    return {null};
}

std::vector<Form> receiversOf(const std::string& className) { return {null, empty(className), filled(className)}; }

} // namespace

std::set<std::string>& unusableFunctions() {
    static std::set<std::string> names;
    return names;
}

const Forms declaredForms = {receiversOf, formsOf};

} // namespace host::validator
