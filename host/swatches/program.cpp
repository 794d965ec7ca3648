#include "swatches/program.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/platform.h"
#include "model/strings.h"

#include <algorithm>
#include <stdexcept>

namespace host::swatches {

namespace {

constexpr const char* colorClass = "NSColorZRX";
constexpr const char* spaceClass = "NSColorSpaceZRX";
constexpr const char* listClass = "NSColorListZRX";

// A string argument for one call.
class Text {
public:
    explicit Text(const std::string& text) : string_(newString(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { unlock(string_); }

    operator Slot() const { return Slot::ofString(string_); }

private:
    String* string_;
};

Slot real(double value) { return Slot::ofReal(value); }

ClassInfo& classNamed(const char* name) {
    if (ClassInfo* const info = registry().find(name)) return *info;
    throw std::runtime_error(std::string("no plugin has the class ") + name);
}

void throwPending() {
    if (!hasPendingException()) return;
    const Reference exception(takePendingException());
    throw std::runtime_error(exceptionMessage(exception.get()));
}

// The overload with so many parameters; the receiver of a method is the first of the arguments.
Slot call(const ClassInfo& info, const char* name, const OverloadSet& overloads, const std::vector<Slot>& arguments) {
    for (const Method* method : overloads) {
        if (method->signature.parameters.size() + (method->shared ? 0 : 1) != arguments.size()) continue;
        const platform::AutoreleasePool pool;
        Slot result;
        method->invoke(method->function, arguments.data(), &result);
        throwPending();
        return result;
    }
    throw std::runtime_error(info.name() + " has no such member " + name);
}

Reference callShared(const char* className, const char* name, const std::vector<Slot>& arguments) {
    const ClassInfo& info = classNamed(className);
    return Reference(call(info, name, info.findSharedMethods(name), arguments).object);
}

Slot callMethod(const Reference& object, const char* name, std::vector<Slot> arguments) {
    const ClassInfo& info = *object.get()->info;
    arguments.insert(arguments.begin(), Slot::ofObject(object.get()));
    return call(info, name, info.findMethods(name), arguments);
}

double withinUnit(double value) { return std::clamp(value, 0.0, 1.0); }

} // namespace

Reference newColorList(const std::string& name, const std::string& path) {
    Reference list(newObject(classNamed(listClass)));
    if (!list) throw std::runtime_error("out of memory");
    const Text nameText(name), pathText(path);
    return callMethod(list, "Create", {nameText, pathText}).boolean ? std::move(list) : Reference();
}

Reference colorWithKey(const Reference& list, const std::string& key) {
    const Text text(key);
    return Reference(callMethod(list, "colorWithKey", {text}).object);
}

Reference namedColor(const std::string& name) { return callShared(colorClass, name.c_str(), {}); }

Reference sRGBColor(const ScreenColor& color) {
    return callShared(colorClass, "colorWithSRGB",
                      {real(color.red), real(color.green), real(color.blue), real(color.alpha)});
}

Reference namedSpace(const std::string& name) { return callShared(spaceClass, name.c_str(), {}); }

Reference converted(const Reference& color, const Reference& space) {
    return Reference(callMethod(color, "colorUsingColorSpace", {Slot::ofObject(space.get())}).object);
}

std::string textProperty(const Reference& object, const char* name) {
    const Property* const property = object.get()->info->findProperty(name);
    if (!property || property->type.kind != Kind::String)
        throw std::runtime_error(object.get()->info->name() + " has no text " + name);
    const platform::AutoreleasePool pool;
    String* const string = readProperty(*property, object.get()).string;
    const std::string text = utf8Of(string);
    unlock(string);
    throwPending();
    return text;
}

std::vector<double> componentsOf(const Reference& color) {
    const Reference array(callMethod(color, "Components", {}).object);
    std::vector<double> components;
    const Array* const values = asArray(array.get());
    for (std::int32_t i = 0; values && i <= upperBound(values); ++i)
        components.push_back(elementAt(values, i).real);
    return components;
}

ScreenColor onScreen(const Reference& color) {
    const Reference shown = converted(color, namedSpace("sRGBColorSpace"));
    if (!shown) return {0, 0, 0, 0};
    Slot values[4];
    callMethod(shown, "getRGB",
               {Slot::ofReference(&values[0]), Slot::ofReference(&values[1]), Slot::ofReference(&values[2]),
                Slot::ofReference(&values[3])});
    return {withinUnit(values[0].real), withinUnit(values[1].real), withinUnit(values[2].real), withinUnit(values[3].real)};
}

std::vector<std::string> sharedMakers(const char* className) {
    std::vector<std::string> names;
    for (const Method& method : classNamed(className).sharedMethods()) {
        const Type& result = method.signature.result;
        if (method.signature.parameters.empty() && !result.isArray && equalIgnoringCase(result.className, className))
            names.push_back(method.signature.name);
    }
    return names;
}

} // namespace host::swatches
