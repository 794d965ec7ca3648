#include "classes/color/color.h"

#include "bridge/arrays.h"
#include "bridge/frame.h"
#include "bridge/scratch.h"
#include "bridge/strings.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"

#include <utility>

namespace chroma::color {
namespace {

enum class OtherKind { Raises, Converts };

void put(double* output, double value) {
    if (output) *output = value;
}

// Without a loop, since this is called for every colour of a picture.
template <OtherKind otherKind, std::size_t... index>
void readOut(REALobjectStruct* object, Selector& message, double* const (&outputs)[sizeof...(index)], double* alphaOutput,
             std::index_sequence<index...>) {
    (put(outputs[index], 0.0), ...);
    put(alphaOutput, 0.0);
    guarded([=, &message] {
        const id color = nativeObject(object);
        if (!color) return;
        CGFloat values[sizeof...(index)] = {}, alpha = 0;
        const auto read = [&](id source) { send<void>(source, message, &values[index]..., alphaOutput ? &alpha : nullptr); };
        if constexpr (otherKind == OtherKind::Raises)
            read(color);
        else if (!quiet([&] { read(color); }))
            read(send<id>(color, sel::colorUsingColorSpaceName_, NSCalibratedRGBColorSpace));
        (put(outputs[index], values[index]), ...);
        put(alphaOutput, alpha);
    });
}

// Reads the components that `message` writes, and alpha, into the outputs. A null alpha output is not asked of the platform.
template <OtherKind otherKind, std::size_t count>
void readOut(REALobjectStruct* object, Selector& message, double* const (&outputs)[count], double* alpha) {
    readOut<otherKind>(object, message, outputs, alpha, std::make_index_sequence<count>());
}

// Single precision, truncated; not-a-number is 0.
HostColor channel(CGFloat value) {
    const float product = static_cast<float>(value) * 255.0F;
    if (!(product > 0.0F)) return 0;
    return product < 255.0F ? static_cast<HostColor>(product) : 255;
}

double number(REALobjectStruct* object, Selector& message) {
    double result = 0.0;
    quiet([=, &result, &message] { result = send<CGFloat>(nativeObject(object), message); });
    return result;
}

REALstringStruct* text(REALobjectStruct* object, Selector& message) {
    REALstringStruct* result = nullptr;
    quiet([&] { result = NSStringRB(send<id>(nativeObject(object), message)); });
    return result;
}

} // namespace

void getCyan(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black) {
    getCyanA(object, cyan, magenta, yellow, black, nullptr);
}

void getCyanA(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black, double* alpha) {
    readOut<OtherKind::Raises>(object, sel::getCyan_magenta_yellow_black_alpha_, {cyan, magenta, yellow, black}, alpha);
}

void getWhite(REALobjectStruct* object, double* white) { getWhiteA(object, white, nullptr); }

void getWhiteA(REALobjectStruct* object, double* white, double* alpha) {
    readOut<OtherKind::Raises>(object, sel::getWhite_alpha_, {white}, alpha);
}

void getHue(REALobjectStruct* object, double* hue, double* saturation, double* brightness) {
    readOut<OtherKind::Raises>(object, sel::getHue_saturation_brightness_alpha_, {hue, saturation, brightness}, nullptr);
}

void getHueA(REALobjectStruct* object, double* hue, double* saturation, double* brightness, double* alpha) {
    readOut<OtherKind::Converts>(object, sel::getHue_saturation_brightness_alpha_, {hue, saturation, brightness}, alpha);
}

void getRed(REALobjectStruct* object, double* red, double* green, double* blue) {
    readOut<OtherKind::Raises>(object, sel::getRed_green_blue_alpha_, {red, green, blue}, nullptr);
}

void getRedA(REALobjectStruct* object, double* red, double* green, double* blue, double* alpha) {
    readOut<OtherKind::Converts>(object, sel::getRed_green_blue_alpha_, {red, green, blue}, alpha);
}

REALarrayDouble* getComponents(REALobjectStruct* object) {
    constexpr NSInteger most = 32;
    auto* const array = static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1));
    const auto fill = [&] {
        const id color = nativeObject(object);
        const auto reported = send<NSInteger>(color, sel::numberOfComponents);
        if (reported <= 0) return;
        // The platform writes as many as it reports; the array keeps the first of them.
        withScratch<CGFloat, most>(static_cast<std::size_t>(reported), [&](CGFloat* values) {
            if (!values) return;
            send<void>(color, sel::getComponents_, values);
            for (NSInteger i = 0; i < reported && i < most; ++i)
                REALInsertArrayValueDouble(array, static_cast<std::int32_t>(i), values[i]);
        });
    };
    guarded(fill, [&] { REALUnlockArray(array); });
    return array;
}

HostColor colorValue(REALobjectStruct* object, REALword) {
    HostColor result = 0;
    guarded([&] {
        const id color = nativeObject(object);
        if (!color) return;
        CGFloat red = 0, green = 0, blue = 0, alpha = 0;
        const auto read = [&](id source) { send<void>(source, sel::getRed_green_blue_alpha_, &red, &green, &blue, &alpha); };
        if (!quiet([&] { read(color); }))
            read(send<id>(color, sel::colorUsingColorSpace_, send<id>(cls::NSColorSpace, sel::genericRGBColorSpace)));
        result = channel(red) << 16 | channel(green) << 8 | channel(blue);
    });
    return result;
}

HostInteger numberOfComponents(REALobjectStruct* object, REALword) {
    HostInteger result = 0;
    guarded([&] { result = send<NSInteger>(nativeObject(object), sel::numberOfComponents); });
    return result;
}

#define CHROMA_NUMBER_GETTER(name)                                                                                          \
    double name(REALobjectStruct* object, REALword) { return number(object, sel::name); }
CHROMA_COLOR_NUMBERS(CHROMA_NUMBER_GETTER)

#define CHROMA_STRING_GETTER(name)                                                                                          \
    REALstringStruct* name(REALobjectStruct* object, REALword) { return text(object, sel::name); }
CHROMA_COLOR_STRINGS(CHROMA_STRING_GETTER)

} // namespace chroma::color
