#include "cases.h"

#include "session.h"
#include "work.h"

#include "builtin/corefoundation.h"
#include "builtin/objc_runtime.h"
#include "model/arrays.h"
#include "model/classes.h"
#include "model/exceptions.h"
#include "values/platform.h"
#include "values/strings.h"

#include <stdexcept>
#include <utility>

namespace bench {
namespace {

using chroma::id;
using chroma::SEL;
using host::Object;

constexpr const char* boundClass = "NSColorZRX";

void require(bool holds, const char* what) {
    if (!holds || host::hasPendingException()) throw std::runtime_error(std::string("wrong result: ") + what);
}

id colorClass() { return chroma::objc_getClass("NSColor"); }

Case makeCase(const std::string& key, Work bound, Work baseline) {
    bound(batch);
    baseline(batch);
    require(true, key.c_str());
    return {key, {key + ".bound", std::move(bound), fewColors}, {key + ".baseline", std::move(baseline), fewColors}};
}

Object* newColor(double red, double green, double blue) {
    static const auto construct = bound<void (*)(Object*, double, double, double, double)>(
        boundClass, "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)");
    static host::ClassInfo& info = *host::registry().find(boundClass);
    Object* const object = host::newObject(info);
    construct(object, red, green, blue, 1.0);
    return object;
}

// `Component` is double or float. The platforms that this program measures once used single precision in 64 bits too.
template <class Component>
Case getRGB() {
    Object* const object = newColor(1.0, 0.5, 0.25);
    const id native = nativeColor(object);
    const SEL message = selector("getRed:green:blue:alpha:");
    const auto get = bound<void (*)(Object*, double*, double*, double*)>(
        boundClass, "getRGB(byref red as double, byref green as double, byref blue as double)");
    double red = 0, green = 0, blue = 0;
    get(object, &red, &green, &blue);
    require(red == 1.0 && green == 0.5 && blue == 0.25, "getRGB");
    Component baseline[3];
    send<void>(native, message, &baseline[0], &baseline[1], &baseline[2], static_cast<Component*>(nullptr));
    require(baseline[0] == 1 && baseline[1] == 0.5f && baseline[2] == 0.25f, "getRed:green:blue:alpha:");
    return makeCase("getRGB", repeated([=] {
                        double values[3];
                        get(object, &values[0], &values[1], &values[2]);
                        use(values);
                    }),
                    repeated([=] {
                        Component values[3];
                        send<void>(native, message, &values[0], &values[1], &values[2], static_cast<Component*>(nullptr));
                        use(values);
                    }));
}

template <class Component>
Case component() {
    Object* const object = newColor(0.5, 0, 0);
    const id native = nativeColor(object);
    const SEL message = selector("redComponent");
    const auto get = bound<double (*)(Object*, REALword)>(boundClass, "redComponent");
    require(get(object, 0) == 0.5 && send<Component>(native, message) == 0.5f, "redComponent");
    return makeCase("component", repeated([=] {
                        double value = get(object, 0);
                        use(value);
                    }),
                    repeated([=] {
                        auto value = send<Component>(native, message);
                        use(value);
                    }));
}

// Measures redComponent of a grey colour, which raises an exception. The exception is dropped, and host code reads 0.
Case dropped() {
    Object* const object = bound<Object* (*)()>(boundClass, "grayColor as NSColorZRX")();
    const auto get = bound<double (*)(Object*, REALword)>(boundClass, "redComponent");
    Case created;
    created.key = "dropped";
    created.bound = {"dropped.bound", repeated([=] {
                         double value = get(object, 0);
                         use(value);
                     }),
                     fewColors};
    created.bound.work(batch);
    require(get(object, 0) == 0, "redComponent of a grey colour");
    return created;
}

// A class message that returns the same colour each time, and the shared method that wraps it.
struct SharedColor {
    SEL message;
    Object* (*get)();
};

// Returns redColor, or a system colour if the platform creates a new red each time.
SharedColor sharedColor() {
    const SEL redColor = selector("redColor"), controlColor = selector("controlColor");
    const host::platform::AutoreleasePool pool;
    if (send<id>(colorClass(), redColor) == send<id>(colorClass(), redColor))
        return {redColor, bound<Object* (*)()>(boundClass, "redColor as NSColorZRX")};
    require(send<id>(colorClass(), controlColor) == send<id>(colorClass(), controlColor), "controlColor");
    return {controlColor, bound<Object* (*)()>(boundClass, "controlColor as NSColorZRX")};
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
    return makeCase("wrap_hit", registryHit(shared), repeated([dictionary, cls = colorClass(), message = shared.message] {
                        const void* value = chroma::CFDictionaryGetValue(dictionary, send<id>(cls, message));
                        use(value);
                    }));
}

template <class Component>
Case createDestroy() {
    const SEL make = selector("colorWithCalibratedRed:green:blue:alpha:"), retain = selector("retain"),
              release = selector("release");
    return makeCase("create_destroy", repeated([] { host::unlock(newColor(0.5, 0.25, 0.75)); }),
                    repeated([=, cls = colorClass()] {
                        constexpr Component red = 0.5, green = 0.25, blue = 0.75, alpha = 1;
                        const id color = send<id>(cls, make, red, green, blue, alpha);
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

// Compares with the host's copy of the same text, which the host gets from the platform's string by UTF8String.
Case stringFair() {
    Object* const object = newColor(0.5, 0, 0);
    const auto get = bound<host::String* (*)(Object*, REALword)>(boundClass, "colorSpaceName");
    return makeCase(
        "string_fair", repeated([=] { host::unlock(get(object, 0)); }),
        repeated([native = nativeColor(object), name = selector("colorSpaceName"), utf8 = selector("UTF8String")] {
            host::unlock(host::newString(send<const char*>(send<id>(native, name), utf8)));
        }));
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

// Measures the same hit twice. Only the number of colours in the registry differs.
Case manyLive(const SharedColor& shared) {
    Case created = makeCase("live_1e6", registryHit(shared), registryHit(shared));
    created.bound.liveColors = manyColors;
    return created;
}

} // namespace

namespace {

template <class Component>
std::vector<Case> casesOf() {
    const SharedColor shared = sharedColor();
    std::vector<Case> cases = {getRGB<Component>(), component<Component>(), wrapHit(shared), createDestroy<Component>(),
                               stringShort(),       stringFair(),           dropped(),       array(),
                               manyLive(shared)};
    for (Case& c : cases)
        c.isAllocationFree = c.key == "getRGB" || c.key == "component" || c.key == "wrap_hit";
    return cases;
}

} // namespace

std::vector<Case> makeCases() {
    double white[2] = {};
    send<void>(nativeColor(newColor(1, 1, 1)), selector("getRed:green:blue:alpha:"), &white[0], &white[1], &white[1],
               &white[1]);
    const bool isDouble = white[0] == 1; // earlier revisions of the platforms used single precision everywhere
    std::vector<Case> cases = isDouble ? casesOf<double>() : casesOf<float>();
#if defined(CHROMA_MEASURES_CONVERSIONS)
    if (isDouble)
        for (Case& conversion : conversionCases())
            cases.push_back(std::move(conversion));
#endif
    return cases;
}

} // namespace bench
