#include "classes/color/color_shared.h"

#include "bridge/arrays.h"
#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/images.h"
#include "classes/color/color_values.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

#include <cstdint>

namespace chroma::color {
namespace {

// The body of every factory: `make` sends the class message, and the result is wrapped.
template <class Make>
REALobjectStruct* wrapped(Make make) {
    REALobjectStruct* result = nullptr;
    guarded([&] {
        initCocoa();
        result = NewNSColorZRX(make());
    });
    return result;
}

template <class... Parameters, class... Components>
REALobjectStruct* fromComponents(Message<id(Parameters...)>& message, Components... components) {
    return wrapped([&] { return message(cls::NSColor, component(components)...); });
}

} // namespace

REALobjectStruct* colorWithDisplayP3Red(double red, double green, double blue, double alpha) {
    return fromComponents(sel::colorWithDisplayP3Red_green_blue_alpha_, red, green, blue, alpha);
}

REALobjectStruct* colorWithGenericGamma22White(double white, double alpha) {
    return fromComponents(sel::colorWithGenericGamma22White_alpha_, white, alpha);
}

REALobjectStruct* colorWithDeviceCyan(double cyan, double magenta, double yellow, double black, double alpha) {
    return fromComponents(sel::colorWithDeviceCyan_magenta_yellow_black_alpha_, cyan, magenta, yellow, black, alpha);
}

REALobjectStruct* colorWithDeviceRed(double red, double green, double blue, double alpha) {
    return fromComponents(sel::colorWithDeviceRed_green_blue_alpha_, red, green, blue, alpha);
}

REALobjectStruct* colorWithDeviceHue(double hue, double saturation, double brightness, double alpha) {
    return fromComponents(sel::colorWithDeviceHue_saturation_brightness_alpha_, hue, saturation, brightness, alpha);
}

REALobjectStruct* colorWithDeviceWhite(double white, double alpha) {
    return fromComponents(sel::colorWithDeviceWhite_alpha_, white, alpha);
}

REALobjectStruct* colorWithSRGBRed(double red, double green, double blue, double alpha) {
    return fromComponents(sel::colorWithSRGBRed_green_blue_alpha_, red, green, blue, alpha);
}

REALobjectStruct* colorWithCalibratedRed(double red, double green, double blue, double alpha) {
    return fromComponents(sel::colorWithCalibratedRed_green_blue_alpha_, red, green, blue, alpha);
}

REALobjectStruct* colorWithCalibratedHue(double hue, double saturation, double brightness, double alpha) {
    return fromComponents(sel::colorWithCalibratedHue_saturation_brightness_alpha_, hue, saturation, brightness, alpha);
}

REALobjectStruct* colorWithCalibratedWhite(double white, double alpha) {
    return fromComponents(sel::colorWithCalibratedWhite_alpha_, white, alpha);
}

REALobjectStruct* colorWithColorSpaceHSV(REALobjectStruct* space, double hue, double saturation, double brightness,
                                         double alpha) {
    return wrapped([&] {
        return sel::colorWithColorSpace_hue_saturation_brightness_alpha_(cls::NSColor, nativeObject(space), component(hue),
                                                                         component(saturation), component(brightness),
                                                                         component(alpha));
    });
}

REALobjectStruct* colorWithColorSpace(REALobjectStruct* space, REALarrayDouble* components) {
    constexpr std::int32_t lowestBound = 1, pastHighestBound = 20;
    return wrapped([&]() -> id {
        const id nativeSpace = nativeObject(space);
        if (!nativeSpace) {
            RaiseException("NilObjectException", "Colorspace is nil!");
            return nullptr;
        }
        const std::int32_t bound = REALGetArrayUBound(components);
        if (bound < lowestBound || bound >= pastHighestBound) {
            RaiseOutOfBoundsException(bound, lowestBound, pastHighestBound, "values ubound", "colorWithColorSpace");
            return nullptr;
        }
        CGFloat values[pastHighestBound] = {};
        for (std::int32_t i = 0; i <= bound; ++i)
            values[i] = component(REALGetArrayValueDouble(components, i));
        return sel::colorWithColorSpace_components_count_(cls::NSColor, nativeSpace, values, NSInteger{bound + 1});
    });
}

REALobjectStruct* colorWithCGColor(HostInteger handle) {
    return wrapped([&] { return sel::colorWithCGColor_(cls::NSColor, fromHandle(handle)); });
}

REALobjectStruct* colorFromPasteboard() {
    return wrapped([] { return sel::colorFromPasteboard_(cls::NSColor, sel::generalPasteboard(cls::NSPasteboard)); });
}

REALobjectStruct* colorWithPatternImage(REALobjectStruct* image) {
    return wrapped([&]() -> id {
        const id nativeImage = imageOf(image);
        return nativeImage ? sel::colorWithPatternImage_(cls::NSColor, nativeImage) : nullptr;
    });
}

REALobjectStruct* scrubberTexturedBackgroundColor() { return fromComponents(sel::scrubberTexturedBackgroundColor); }

#define CHROMA_SYSTEM_COLOR(name)                                                                                           \
    REALobjectStruct* get##name() { return fromComponents(sel::name); }
CHROMA_SYSTEM_COLORS(CHROMA_SYSTEM_COLOR)

} // namespace chroma::color
