#include "classes/color/color.h"

#include "bridge/arrays.h"
#include "bridge/frame.h"
#include "bridge/scratch.h"
#include "bridge/strings.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace chroma::color {
namespace {

enum class OtherKind { raises, converts };

void put(double* output, double value) {
    if (output) *output = value;
}

// A message that writes components and alpha, the body that sends it, and its outputs. They are in one object and without a
// loop, because this code runs for every colour of a picture.
template <OtherKind otherKind, class... Pointers>
struct ComponentRead {
    static constexpr std::size_t count = sizeof...(Pointers) - 1;

    id color;
    Message<void(Pointers...)>& message;
    CGFloat* values; // then alpha
    bool wantsAlpha;

    void operator()() {
        if constexpr (otherKind == OtherKind::raises) {
            ask(color);
        } else if (!quiet([&] { ask(color); })) {
            ask(sel::colorUsingColorSpaceName_(color, NSCalibratedRGBColorSpace));
        }
    }

private:
    void ask(id source) { ask(source, std::make_index_sequence<count>()); }

    template <std::size_t... index>
    void ask(id source, std::index_sequence<index...>) {
        message(source, &values[index]..., wantsAlpha ? &values[count] : nullptr);
    }
};

// Reads the components that `message` writes, and alpha, into the outputs. If the alpha output is null, passes null for it
// to the platform.
template <OtherKind otherKind, class... Pointers, class... Outputs>
[[gnu::always_inline]] inline void readOut(REALobjectStruct* object, Message<void(Pointers...)>& message, double* alpha,
                                           Outputs... outputs) {
    (put(outputs, 0.0), ...);
    put(alpha, 0.0);
    const id color = nativeObject(object);
    if (!color) return;
    CGFloat values[sizeof...(Pointers)] = {};
    ComponentRead<otherKind, Pointers...> read{color, message, values, alpha != nullptr};
    if (!guarded(read)) return;
    const CGFloat* value = values;
    (put(outputs, *value++), ...);
    put(alpha, *value);
}

// Single precision, truncated; not-a-number is 0.
HostColor channel(CGFloat value) {
    const float product = static_cast<float>(value) * 255.0F;
    if (!(product > 0.0F)) return 0;
    return product < 255.0F ? static_cast<HostColor>(product) : 255;
}

double number(REALobjectStruct* object, Message<CGFloat()>& message) {
    Getter<CGFloat> getter{nativeObject(object), message};
    quiet(getter);
    return getter.result;
}

REALstringStruct* text(REALobjectStruct* object, Message<id()>& message) {
    REALstringStruct* result = nullptr;
    quiet([&] { result = NSStringRB(message(nativeObject(object))); });
    return result;
}

} // namespace

void getCyan(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black) {
    getCyanA(object, cyan, magenta, yellow, black, nullptr);
}

void getCyanA(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black, double* alpha) {
    readOut<OtherKind::raises>(object, sel::getCyan_magenta_yellow_black_alpha_, alpha, cyan, magenta, yellow, black);
}

void getWhite(REALobjectStruct* object, double* white) { getWhiteA(object, white, nullptr); }

void getWhiteA(REALobjectStruct* object, double* white, double* alpha) {
    readOut<OtherKind::raises>(object, sel::getWhite_alpha_, alpha, white);
}

void getHue(REALobjectStruct* object, double* hue, double* saturation, double* brightness) {
    readOut<OtherKind::raises>(object, sel::getHue_saturation_brightness_alpha_, nullptr, hue, saturation, brightness);
}

void getHueA(REALobjectStruct* object, double* hue, double* saturation, double* brightness, double* alpha) {
    readOut<OtherKind::converts>(object, sel::getHue_saturation_brightness_alpha_, alpha, hue, saturation, brightness);
}

void getRed(REALobjectStruct* object, double* red, double* green, double* blue) {
    readOut<OtherKind::raises>(object, sel::getRed_green_blue_alpha_, nullptr, red, green, blue);
}

void getRedA(REALobjectStruct* object, double* red, double* green, double* blue, double* alpha) {
    readOut<OtherKind::converts>(object, sel::getRed_green_blue_alpha_, alpha, red, green, blue);
}

REALarrayDouble* getComponents(REALobjectStruct* object) {
    constexpr NSInteger most = 32;
    auto* const array = static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1));
    const auto fill = [&] {
        const id color = nativeObject(object);
        const NSInteger reported = std::max(sel::numberOfComponents(color), NSInteger{0});
        // The platform writes all components that it reports; the array keeps the first ones.
        withScratch<CGFloat, most>(static_cast<std::size_t>(reported), [&](CGFloat* values) {
            if (!values) return RaiseException("OutOfMemoryException", "Failed to allocate memory.");
            sel::getComponents_(color, values);
            for (NSInteger i = 0; i < reported && i < most; ++i)
                REALInsertArrayValueDouble(array, static_cast<std::int32_t>(i), values[i]);
        });
    };
    guarded(fill, [&] { REALUnlockArray(array); });
    return array;
}

HostColor colorValue(REALobjectStruct* object, REALword) {
    return guardedResult([&]() -> HostColor {
        const id color = nativeObject(object);
        if (!color) return 0;
        CGFloat red = 0, green = 0, blue = 0, alpha = 0;
        const auto read = [&](id source) { sel::getRed_green_blue_alpha_(source, &red, &green, &blue, &alpha); };
        if (!quiet([&] { read(color); }))
            read(sel::colorUsingColorSpace_(color, sel::genericRGBColorSpace(cls::NSColorSpace)));
        return channel(red) << 16 | channel(green) << 8 | channel(blue);
    });
}

HostInteger numberOfComponents(REALobjectStruct* object, REALword) {
    Getter<NSInteger> getter{nativeObject(object), sel::numberOfComponents};
    guarded(getter);
    return getter.result;
}

#define CHROMA_NUMBER_GETTER(name)                                                                                          \
    double name(REALobjectStruct* object, REALword) { return number(object, sel::name); }
CHROMA_COLOR_NUMBERS(CHROMA_NUMBER_GETTER)

#define CHROMA_STRING_GETTER(name)                                                                                          \
    REALstringStruct* name(REALobjectStruct* object, REALword) { return text(object, sel::name); }
CHROMA_COLOR_STRINGS(CHROMA_STRING_GETTER)

} // namespace chroma::color
