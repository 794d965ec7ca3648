// Initialises and releases a colour object, derives colours, and returns related objects. Components are read in
// color_components.cpp.
#include "classes/color/color.h"

#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"
#include "classes/color/color_values.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::color {
namespace {

void fillCalibratedRGB(REALobjectStruct* object, double red, double green, double blue, double alpha) {
    const id color = sel::colorWithCalibratedRed_green_blue_alpha_(cls::NSColor, component(red), component(green),
                                                                   component(blue), component(alpha));
    holdNative(object, sel::retain(color));
}

double channel(HostColor c, int shift) { return ((c >> shift) & 0xFF) / 255.0; }

bool isAccepted(double value) { return !(value > 2.0 || value < -1.0); }

// Inside the frame: wraps the colour that `derive` creates from the object's colour.
template <class Derive>
REALobjectStruct* derived(REALobjectStruct* object, Derive derive) {
    return guardedResult([&] {
        const id color = nativeObject(object);
        return color ? NewNSColorZRX(derive(color)) : nullptr;
    });
}

} // namespace

void NSColorConstructor(REALobjectStruct*) { constructed(); }

void NSColorDestructor(REALobjectStruct* object) {
    guarded([=] { dropNative(object); });
}

void ConstructorColor(REALobjectStruct* object, HostColor c) {
    guarded([=] {
        if (!mayInitialise(object)) return;
        fillCalibratedRGB(object, channel(c, 16), channel(c, 8), channel(c, 0), channel(c, 24));
    });
}

void ConstructorRGB(REALobjectStruct* object, double red, double green, double blue, double alpha) {
    guarded([=] {
        if (!isAccepted(red) || !isAccepted(green) || !isAccepted(blue))
            return RaiseException("OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.");
        if (mayInitialise(object)) fillCalibratedRGB(object, red, green, blue, alpha);
    });
}

HostInteger getCGColor(REALobjectStruct* object) {
    return guardedResult([&] { return asHandle(sel::CGColor(nativeObject(object))); });
}

REALobjectStruct* DummyException(REALobjectStruct*) { return nullptr; }

REALobjectStruct* blendedColorWithFraction(REALobjectStruct* object, double alpha, REALobjectStruct* c) {
    return derived(
        object, [&](id color) { return sel::blendedColorWithFraction_ofColor_(color, component(alpha), nativeObject(c)); });
}

REALobjectStruct* colorWithAlphaComponent(REALobjectStruct* object, double alpha) {
    return derived(object, [&](id color) { return sel::colorWithAlphaComponent_(color, component(alpha)); });
}

REALobjectStruct* colorUsingColorSpaceName(REALobjectStruct* object, REALstringStruct* name) {
    return derived(object, [&](id color) { return sel::colorUsingColorSpaceName_(color, autoreleasedString(name)); });
}

REALobjectStruct* colorUsingColorSpace(REALobjectStruct* object, REALobjectStruct* space) {
    return derived(object, [&](id color) { return sel::colorUsingColorSpace_(color, nativeObject(space)); });
}

REALobjectStruct* shadowWithLevel(REALobjectStruct* object, double level) {
    return derived(object, [&](id color) { return sel::shadowWithLevel_(color, component(level)); });
}

REALobjectStruct* highlightWithLevel(REALobjectStruct* object, double level) {
    return derived(object, [&](id color) { return sel::highlightWithLevel_(color, component(level)); });
}

REALobjectStruct* colorSpace(REALobjectStruct* object) {
    return guardedResult([&] { return NewNSColorSpaceZRX(sel::colorSpace(nativeObject(object))); });
}

REALobjectStruct* patternImage(REALobjectStruct* object) {
    return guardedResult([&] { return NewNSImageZRX(sel::patternImage(nativeObject(object))); });
}

void writeToPasteboard(REALobjectStruct* object) {
    guarded([&] {
        const id color = nativeObject(object);
        if (color) sel::writeToPasteboard_(color, sel::generalPasteboard(cls::NSPasteboard));
    });
}

} // namespace chroma::color
