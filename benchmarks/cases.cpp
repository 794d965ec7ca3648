#include "cases.h"

#include "session.h"

#include "builtin/corefoundation.h"
#include "model/arrays.h"
#include "model/classes.h"
#include "model/exceptions.h"
#include "model/platform.h"
#include "model/strings.h"

#include <stdexcept>
#include <utility>

namespace bench {
namespace {

using chroma::CGFloat;
using chroma::ClassName;
using chroma::id;
using chroma::Selector;
using chroma::send;
using host::Object;

ClassName colorClass{"NSColor"};

constexpr const char* boundClass = "NSColorZRX";

void require(bool holds, const char* what) {
    if (!holds || host::hasPendingException()) throw std::runtime_error(std::string("wrong result: ") + what);
}

// Keeps the compiler from leaving out work whose result nobody looks at.
template <class Value>
void use(Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// The body `times` times, under one autorelease pool.
template <class Body>
Work repeated(Body body) {
    return [body](std::size_t times) {
        const host::platform::AutoreleasePool pool;
        for (std::size_t i = 0; i < times; ++i)
            body();
    };
}

Case makeCase(const std::string& key, Work bound, Work bare) {
    bound(batch);
    bare(batch);
    require(true, key.c_str());
    return {key, {key + ".bound", std::move(bound), fewColors}, {key + ".bare", std::move(bare), fewColors}};
}

Object* newColor(double red, double green, double blue) {
    static const auto construct = bound<void (*)(Object*, double, double, double, double)>(
        boundClass, "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)");
    static host::ClassInfo& info = *host::registry().find(boundClass);
    Object* const object = host::newObject(info);
    construct(object, red, green, blue, 1.0);
    return object;
}

Case getRGB() {
    Object* const object = newColor(1.0, 0.5, 0.25);
    const id native = nativeColor(object);
    static Selector message{"getRed:green:blue:alpha:"};
    const auto get = bound<void (*)(Object*, double*, double*, double*)>(
        boundClass, "getRGB(byref red as double, byref green as double, byref blue as double)");
    double red = 0, green = 0, blue = 0;
    get(object, &red, &green, &blue);
    require(red == 1.0 && green == 0.5 && blue == 0.25, "getRGB");
    return makeCase("getRGB", repeated([=] {
                        double values[3];
                        get(object, &values[0], &values[1], &values[2]);
                        use(values);
                    }),
                    repeated([=] {
                        CGFloat values[3];
                        send<void>(native, message, &values[0], &values[1], &values[2], static_cast<CGFloat*>(nullptr));
                        use(values);
                    }));
}

Case component() {
    Object* const object = newColor(0.5, 0, 0);
    const id native = nativeColor(object);
    static Selector message{"redComponent"};
    const auto get = bound<double (*)(Object*, REALword)>(boundClass, "redComponent");
    require(get(object, 0) == 0.5, "redComponent");
    return makeCase("component", repeated([=] {
                        double value = get(object, 0);
                        use(value);
                    }),
                    repeated([=] {
                        auto value = send<CGFloat>(native, message);
                        use(value);
                    }));
}

// A class message that answers one and the same colour each time, and the shared method that wraps it.
struct SharedColor {
    Selector* message;
    Object* (*get)();
};

// redColor; where the platform makes a new red each time, a system colour.
SharedColor sharedColor() {
    static Selector redColor{"redColor"}, controlColor{"controlColor"};
    const host::platform::AutoreleasePool pool;
    if (send<id>(colorClass, redColor) == send<id>(colorClass, redColor))
        return {&redColor, bound<Object* (*)()>(boundClass, "redColor as NSColorZRX")};
    require(send<id>(colorClass, controlColor) == send<id>(colorClass, controlColor), "controlColor");
    return {&controlColor, bound<Object* (*)()>(boundClass, "controlColor as NSColorZRX")};
}

Work registryHit(const SharedColor& shared) {
    const auto get = shared.get;
    return repeated([get] { host::unlock(get()); });
}

Case wrapHit(const SharedColor& shared) {
    Object* const held = shared.get();
    Object* const again = shared.get();
    require(held && held == again, "wrap_hit");
    host::unlock(again);
    const id dictionary = chroma::CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    chroma::CFDictionarySetValue(dictionary, nativeColor(held), held);
    return makeCase("wrap_hit", registryHit(shared), repeated([=] {
                        const void* value = chroma::CFDictionaryGetValue(dictionary, send<id>(colorClass, *shared.message));
                        use(value);
                    }));
}

Case createDestroy() {
    static Selector make{"colorWithCalibratedRed:green:blue:alpha:"}, retain{"retain"}, release{"release"};
    return makeCase("create_destroy", repeated([] { host::unlock(newColor(0.5, 0.25, 0.75)); }), repeated([] {
                        constexpr CGFloat red = 0.5, green = 0.25, blue = 0.75, alpha = 1;
                        const id color = send<id>(colorClass, make, red, green, blue, alpha);
                        send<id>(color, retain);
                        send<void>(color, release);
                    }));
}

Case stringShort() {
    Object* const object = newColor(0.5, 0, 0);
    const auto get = bound<host::String* (*)(Object*, REALword)>(boundClass, "colorSpaceName");
    host::String* const name = get(object, 0);
    const std::string bytes = host::utf8Of(name);
    host::unlock(name);
    require(bytes == "NSCalibratedRGBColorSpace", "colorSpaceName");
    return makeCase("string_short", repeated([=] { host::unlock(get(object, 0)); }),
                    repeated([bytes] { host::unlock(host::newString(bytes)); }));
}

Case array() {
    Object* const object = newColor(0.5, 0.25, 0.75);
    const auto get = bound<host::Array* (*)(Object*)>(boundClass, "Components as double()");
    host::Array* const components = get(object);
    require(host::upperBound(components) == 3 && host::elementAt(components, 2).real == 0.75, "Components");
    host::unlock(components);
    return makeCase("array", repeated([=] { host::unlock(get(object)); }), repeated([] {
                        host::Array* const filled = host::newArray({host::Kind::real, false, {}});
                        for (const double value : {0.5, 0.25, 0.75, 1.0})
                            host::appendElement(filled, host::Slot::ofReal(value));
                        host::unlock(filled);
                    }));
}

// The same hit twice: what changes is how many colours the registry holds.
Case manyLive(const SharedColor& shared) {
    Case made = makeCase("live_1e6", registryHit(shared), registryHit(shared));
    made.bound.liveColors = manyColors;
    return made;
}

} // namespace

std::vector<Case> makeCases() {
    const SharedColor shared = sharedColor();
    std::vector<Case> cases = {getRGB(),      component(), wrapHit(shared), createDestroy(),
                               stringShort(), array(),     manyLive(shared)};
    for (Case& c : cases)
        c.isAllocationFree = c.key == "getRGB" || c.key == "component" || c.key == "wrap_hit";
    return cases;
}

} // namespace bench
