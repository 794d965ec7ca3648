// The colour of a colour object, through the members of its class.
#include "language/library/object_color.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "text/literals.h"
#include "values/platform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace host::language {
namespace {

// Returns the object that the method returns. If the method raises, returns Nil with the exception pending.
Owned<Object> called(const Method& method, std::array<Slot, 2> arguments) {
    Slot result;
    method.invoke(method.function, arguments.data(), &result);
    return Owned<Object>(result.object);
}

// Returns Nil if the class of the object cannot convert, or if the conversion fails.
Owned<Object> inSRGB(Object* object) {
    const OverloadSet converters = object->info->findMethods("colorUsingColorSpace");
    const bool converts = converters.size() == 1 && converters.front()->signature.parameters.size() == 1;
    const ClassInfo* const spaces =
        converts ? registry().find(converters.front()->signature.parameters.front().type.className) : nullptr;
    const OverloadSet makers = spaces ? spaces->findSharedMethods("sRGBColorSpace") : OverloadSet();
    if (makers.size() != 1) return {};
    const Owned<Object> space = called(*makers.front(), {});
    return called(*converters.front(), {Slot::ofObject(object), Slot::ofObject(space.get())});
}

// Returns 0 to 255.
HostColor channel(Object* color, const char* name) {
    const Property* const component = color->info->findProperty(name);
    const double value = component && component->type.is(Kind::real) ? readProperty(*component, color).real : 0;
    return static_cast<HostColor>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

} // namespace

String* hexOfObject(Object* object) {
    if (!object) {
        raise("NilObjectException", "Hex was called with Nil.");
        return nullptr;
    }
    const platform::AutoreleasePool pool;
    const Owned<Object> color = inSRGB(object);
    if (!color) raise("TypeMismatchException", "This " + object->info->name() + " is not a colour that sRGB can show.");
    if (hasPendingException()) return nullptr;
    const HostColor rgb = channel(color.get(), "redComponent") << 16 | channel(color.get(), "greenComponent") << 8 |
                          channel(color.get(), "blueComponent");
    return newString(literalOf(channel(color.get(), "alphaComponent") << 24 | rgb));
}

} // namespace host::language
