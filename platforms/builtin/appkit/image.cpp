#include "appkit/image.h"

namespace chroma::builtin {

ClassObject Image::cls;

namespace {

Image* initWithSize(Image* self, SEL, Size size) {
    self->size = size;
    return self;
}

Size sizeOf(Image* self, SEL) { return self->size; }

} // namespace

ClassTable tableOfNSImage() {
    static const MethodEntry methods[] = {
        method("initWithSize:", initWithSize),
        method("size", sizeOf),
    };
    return classTable<Image>("NSImage", &NSObject::cls, methods);
}

} // namespace chroma::builtin
