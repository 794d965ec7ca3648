#include "swatches/program.h"

#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "values/platform.h"
#include "values/strings.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace host::swatches {

namespace {

constexpr const char* colorClass = "NSColorZRX";
constexpr const char* spaceClass = "NSColorSpaceZRX";
constexpr const char* listClass = "NSColorListZRX";

Owned<String> text(const std::string& bytes) { return Owned<String>(newString(bytes)); }

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

// Calls the overload with this number of parameters. For a method, the first argument is the receiver.
Slot call(const ClassInfo& info, const char* name, const OverloadSet& overloads, const std::vector<Slot>& arguments) {
    for (const Method* const method : overloads) {
        if (method->signature.parameters.size() + (method->shared ? 0 : 1) != arguments.size()) continue;
        const platform::AutoreleasePool pool;
        Slot result;
        method->invoke(method->function, arguments.data(), &result);
        throwPending();
        return result;
    }
    throw std::runtime_error(info.name() + " has no member " + name);
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

// Returns a minimal ICC profile for a space whose components are X, Y and Z relative to those of white. It has three linear
// colorants, each with one of the coordinates. All visible colours are inside the space, as in no space that AppKit names.
std::string relativeXYZProfile() {
    const auto number = [](std::uint32_t value) {
        std::string bytes;
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>(value >> shift & 0xFF);
        return bytes;
    };
    constexpr std::uint32_t white[] = {0xF6D6, 0x10000, 0xD32D}; // D50, in units of 1/65536
    constexpr std::uint32_t headerSize = 128, tagCount = 6, curveSize = 12, colorantSize = 20;
    const std::uint32_t curve = headerSize + 4 + tagCount * 12, colorants = curve + curveSize;

    std::string tags = number(tagCount), values = "curv" + number(0) + number(0); // a curve without samples is linear
    for (std::uint32_t i = 0; i < 3; ++i) {
        const std::string channel(1, "rgb"[i]);
        tags += channel + "TRC" + number(curve) + number(curveSize);
        tags += channel + "XYZ" + number(colorants + i * colorantSize) + number(colorantSize);
        values += "XYZ " + number(0);
        for (std::uint32_t coordinate = 0; coordinate < 3; ++coordinate)
            values += number(coordinate == i ? white[i] : 0);
    }
    std::string header = number(colorants + 3 * colorantSize) + number(0) + number(0x02100000) + "mntrRGB XYZ ";
    header += std::string(12, '\0') + "acsp"; // a date, and the signature of profiles
    header += std::string(28, '\0') + number(white[0]) + number(white[1]) + number(white[2]);
    header.resize(headerSize);
    return header + tags + values;
}

Reference spaceOfProfile(const std::string& profile) {
    MemoryBlock* const block = newMemoryBlock(static_cast<std::int32_t>(profile.size()));
    const Reference data(block);
    if (!data) throw std::runtime_error("out of memory");
    std::memcpy(bytesOf(block), profile.data(), profile.size());
    const ClassInfo& info = classNamed(spaceClass);
    for (const Method* const maker : info.findSharedMethods("ColorSpaceWithICCProfileData")) {
        if (equalIgnoringCase(maker->signature.parameters[0].type.className, "MemoryBlock"))
            return Reference(call(info, maker->signature.name.c_str(), {maker}, {Slot::ofObject(block)}).object);
    }
    throw std::runtime_error("no plugin creates a space from a profile");
}

} // namespace

Reference newColorList(const std::string& name, const std::string& path) {
    Reference list(newObject(classNamed(listClass)));
    if (!list) throw std::runtime_error("out of memory");
    const Owned<String> nameText = text(name), pathText = text(path);
    return callMethod(list, "Create", {Slot::ofString(nameText.get()), Slot::ofString(pathText.get())}).boolean
               ? std::move(list)
               : Reference();
}

Reference colorWithKey(const Reference& list, const std::string& key) {
    const Owned<String> keyText = text(key);
    return Reference(callMethod(list, "colorWithKey", {Slot::ofString(keyText.get())}).object);
}

Reference namedColor(const std::string& name) { return callShared(colorClass, name.c_str(), {}); }

Reference sRGBColor(const ScreenColor& color) {
    return callShared(colorClass, "colorWithSRGB",
                      {real(color.red), real(color.green), real(color.blue), real(color.alpha)});
}

Reference colorInSpace(const Reference& space, const std::vector<double>& components) {
    const Reference array(newArray(Type::plain(Kind::real)));
    for (const double component : components)
        appendElement(asArray(array.get()), real(component));
    return callShared(colorClass, "colorWithColorSpace", {Slot::ofObject(space.get()), Slot::ofObject(array.get())});
}

Reference colorOfXYZ(const RelativeXYZ& color, double alpha) {
    return colorInSpace(spaceOfProfile(relativeXYZProfile()), {color.x, color.y, color.z, alpha});
}

Reference namedSpace(const std::string& name) { return callShared(spaceClass, name.c_str(), {}); }

Reference displayP3Space() {
    return spaceOf(callShared(colorClass, "colorWithDisplayP3", {real(0), real(0), real(0), real(1)}));
}

Reference spaceOf(const Reference& color) { return Reference(callMethod(color, "colorSpace", {}).object); }

Reference converted(const Reference& color, const Reference& space) {
    return Reference(callMethod(color, "colorUsingColorSpace", {Slot::ofObject(space.get())}).object);
}

std::string textProperty(const Reference& object, const char* name) {
    const Property* const property = object.get()->info->findProperty(name);
    if (!property || property->type.kind != Kind::string)
        throw std::runtime_error(object.get()->info->name() + " has no text property " + name);
    const platform::AutoreleasePool pool;
    const Owned<String> text(readProperty(*property, object.get()).string);
    throwPending();
    return utf8Of(text.get());
}

std::vector<double> componentsOf(const Reference& color) {
    const Reference array(callMethod(color, "Components", {}).object);
    std::vector<double> components;
    const Array* const values = asArray(array.get());
    for (std::int32_t i = 0; values && i <= upperBound(values); ++i)
        components.push_back(elementAt(values, i).real);
    return components;
}

ScreenColor inSRGB(const Reference& color) {
    const Reference there = converted(color, namedSpace("sRGBColorSpace"));
    if (!there) return {0, 0, 0, 0};
    Slot values[4];
    callMethod(there, "getRGB",
               {Slot::ofAddress(&values[0]), Slot::ofAddress(&values[1]), Slot::ofAddress(&values[2]),
                Slot::ofAddress(&values[3])});
    return {values[0].real, values[1].real, values[2].real, values[3].real};
}

Lab labOf(const Reference& color) {
    const std::vector<double> xyz = componentsOf(converted(color, spaceOfProfile(relativeXYZProfile())));
    if (xyz.size() < 3) throw std::runtime_error("a colour cannot be converted to XYZ");
    return labOfRelativeXYZ(xyz[0], xyz[1], xyz[2]);
}

std::vector<std::string> keysOf(const Reference& list) {
    void* native = nullptr;
    std::memcpy(&native, instanceData(list.get()), sizeof native);
    const platform::AutoreleasePool pool;
    return platform::keysOfColorList(native);
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
