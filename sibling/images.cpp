#include "sibling/images.h"

#include "bridge/frame.h"
#include "platform/selectors.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::sibling {
namespace {

struct NSSize {
    CGFloat width, height;
};

Message<id()> backgroundColorMessage{"backgroundColor"};
Message<id(NSSize)> initWithSize_{"initWithSize:"};
Message<void(id)> setBackgroundColor_{"setBackgroundColor:"};
Message<NSSize()> sizeMessage{"size"};

void NSImageConstructor(REALobjectStruct*) { constructed(); }

void NSImageDestructor(REALobjectStruct* object) {
    guarded([&] { dropNative(object); });
}

// Fills an empty object with an image of that size in points and with the colour of an NSColorZRX object, or none for null.
void ConstructorSize(REALobjectStruct* object, double width, double height, REALobjectStruct* color) {
    if (!mayInitialise(object)) return;
    guarded([&] {
        const NSSize size{static_cast<CGFloat>(width), static_cast<CGFloat>(height)};
        const id image = initWithSize_(sel::alloc(cls::NSImage), size);
        holdNative(object, image);
        if (const id native = nativeObject(color)) setBackgroundColor_(image, native);
    });
}

NSSize sizeOf(REALobjectStruct* object) {
    return guardedResult([&] { return sizeMessage(nativeObject(object)); });
}

double width(REALobjectStruct* object, REALword) { return sizeOf(object).width; }
double height(REALobjectStruct* object, REALword) { return sizeOf(object).height; }

// Returns a new reference to the NSColorZRX object of the image's colour, or nil. The sibling never adds the other plugin's
// objects to the registry: a plugin that was loaded before the sibling does not know the registry and would not remove the
// entry.
REALobjectStruct* backgroundColor(REALobjectStruct* object) {
    return guardedResult(
        [&] { return wrapNative(backgroundColorMessage(nativeObject(object)), "NSColorZRX", Entry::none); });
}

// clang-format off
REALproperty NSImageProperties[] = {
    CHROMA_PROPERTY(width, "double"),
    CHROMA_PROPERTY(height, "double"),
    CHROMA_HANDLE_PROPERTY,
};

REALmethodDefinition NSImageMethods[] = {
    CHROMA_METHOD(ConstructorSize, "Constructor(width as double, height as double, c as NSColorZRX = nil)"),
    CHROMA_METHOD(backgroundColor, "backgroundColor as NSColorZRX"),
};
// clang-format on

} // namespace

REALclassDefinition NSImageClass =
    CHROMA_CLASS("NSImageZRX", nullptr, NSImageConstructor, NSImageDestructor, CHROMA_ROWS(NSImageProperties),
                 CHROMA_ROWS(NSImageMethods), CHROMA_NO_ROWS, CHROMA_NO_ROWS);

} // namespace chroma::sibling
