#include "classes/color/color.h"

#include "bridge/errors.h"
#include "bridge/frame.h"
#include "classes/color/color_values.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::color {
namespace {

void fillCalibratedRGB(REALobjectStruct* object, double red, double green, double blue, double alpha) {
    const id color = send<id>(cls::NSColor, sel::colorWithCalibratedRed_green_blue_alpha_, component(red), component(green),
                              component(blue), component(alpha));
    holdNative(object, send<id>(color, sel::retain));
}

double channel(HostColor c, int shift) { return ((c >> shift) & 0xFF) / 255.0; }

bool isAccepted(double value) { return !(value > 2.0 || value < -1.0); }

} // namespace

void NSColorConstructor(REALobjectStruct*) { constructed(); }

void NSColorDestructor(REALobjectStruct* object) {
    guarded([=] { dropNative(object); });
}

void ConstructorColor(REALobjectStruct* object, HostColor c) {
    if (!mayInitialise(object)) return;
    guarded([=] { fillCalibratedRGB(object, channel(c, 16), channel(c, 8), channel(c, 0), channel(c, 24)); });
}

void ConstructorRGB(REALobjectStruct* object, double red, double green, double blue, double alpha) {
    if (!mayInitialise(object)) return;
    if (!isAccepted(red) || !isAccepted(green) || !isAccepted(blue))
        return RaiseException("OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.");
    guarded([=] { fillCalibratedRGB(object, red, green, blue, alpha); });
}

HostInteger getCGColor(REALobjectStruct* object) {
    HostInteger handle = 0;
    guarded([&] { handle = asHandle(send<const void*>(nativeObject(object), sel::CGColor)); });
    return handle;
}

REALobjectStruct* DummyException(REALobjectStruct*) { return nullptr; }

} // namespace chroma::color
