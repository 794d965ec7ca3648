// Colours made from a colour, and what a colour refers to. None of these changes the colour that the object holds.
#include "classes/color/color.h"

#include "bridge/frame.h"
#include "bridge/images.h"
#include "bridge/strings.h"
#include "classes/color/color_values.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::color {
namespace {

// Inside the frame: asks `derive` for another colour of the one that the object holds.
template <class Derive>
REALobjectStruct* derived(REALobjectStruct* object, Derive derive) {
    REALobjectStruct* result = nullptr;
    guarded([&] {
        const id color = nativeObject(object);
        if (color) result = NewNSColorZRX(derive(color));
    });
    return result;
}

} // namespace

REALobjectStruct* blendedColorWithFraction(REALobjectStruct* object, double alpha, REALobjectStruct* c) {
    return derived(object, [&](id color) {
        return send<id>(color, sel::blendedColorWithFraction_ofColor_, component(alpha), nativeObject(c));
    });
}

REALobjectStruct* colorWithAlphaComponent(REALobjectStruct* object, double alpha) {
    return derived(object, [&](id color) { return send<id>(color, sel::colorWithAlphaComponent_, component(alpha)); });
}

REALobjectStruct* colorUsingColorSpaceName(REALobjectStruct* object, REALstringStruct* name) {
    return derived(object,
                   [&](id color) { return send<id>(color, sel::colorUsingColorSpaceName_, autoreleasedString(name)); });
}

REALobjectStruct* colorUsingColorSpace(REALobjectStruct* object, REALobjectStruct* space) {
    return derived(object, [&](id color) { return send<id>(color, sel::colorUsingColorSpace_, nativeObject(space)); });
}

REALobjectStruct* shadowWithLevel(REALobjectStruct* object, double level) {
    return derived(object, [&](id color) { return send<id>(color, sel::shadowWithLevel_, component(level)); });
}

REALobjectStruct* highlightWithLevel(REALobjectStruct* object, double level) {
    return derived(object, [&](id color) { return send<id>(color, sel::highlightWithLevel_, component(level)); });
}

REALobjectStruct* colorSpace(REALobjectStruct* object) {
    REALobjectStruct* result = nullptr;
    guarded([&] { result = NewNSColorSpaceZRX(send<id>(nativeObject(object), sel::colorSpace)); });
    return result;
}

REALobjectStruct* patternImage(REALobjectStruct* object) {
    REALobjectStruct* result = nullptr;
    guarded([&] { result = NewNSImageZRX(send<id>(nativeObject(object), sel::patternImage)); });
    return result;
}

void writeToPasteboard(REALobjectStruct* object) {
    guarded([&] {
        const id color = nativeObject(object);
        if (color) send<void>(color, sel::writeToPasteboard_, send<id>(cls::NSPasteboard, sel::generalPasteboard));
    });
}

} // namespace chroma::color
