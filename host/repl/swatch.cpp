#include "repl/swatch.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "swatches/program.h"
#include "values/platform.h"

#include <stdexcept>

namespace host::repl {
namespace {

using swatches::ScreenColor;
ScreenColor opaque(HostColor color) {
    const auto channel = [color](unsigned shift) { return (color >> shift & 0xFF) / 255.0; };
    return {channel(16), channel(8), channel(0), 1.0};
}

// Returns the colour in sRGB, or in generic RGB if the platform does not provide sRGB.
ScreenColor shown(Object* color) {
    try {
        return swatches::clipped(swatches::inSRGB(Owned<Object>::shared(color)));
    } catch (const std::runtime_error&) {
    }
    const Property* const value = color->info->findProperty("colorValue");
    const HostColor found = value ? readProperty(*value, color).color : 0;
    const Owned<Object> dropped(takePendingException());
    return opaque(found);
}

} // namespace

std::string swatch(HostColor color, ColorDepth depth) {
    if (depth == ColorDepth::none) return {};
    ScreenColor shown = opaque(color);
    shown.alpha = (color >> 24) / 255.0;
    return cells(shown, depth);
}

std::string swatch(Object* object, ColorDepth depth) {
    const ClassInfo* const colors = registry().find("NSColorZRX");
    if (depth == ColorDepth::none || !colors || !object->info->isOrDescendsFrom(*colors)) return {};
    const platform::AutoreleasePool pool;
    return cells(shown(object), depth);
}

std::vector<ListedColor> colorsOfList(Object* object) {
    const ClassInfo* const lists = registry().find("NSColorListZRX");
    std::vector<ListedColor> colors;
    if (!lists || !object->info->isOrDescendsFrom(*lists)) return colors;
    const Owned<Object> list = Owned<Object>::shared(object);
    try {
        for (const std::string& key : swatches::keysOf(list))
            colors.push_back({key, swatches::colorWithKey(list, key)});
    } catch (const std::runtime_error&) { // the platform does not provide the keys or the colour
    }
    return colors;
}

} // namespace host::repl
