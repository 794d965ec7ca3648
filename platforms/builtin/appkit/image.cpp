#include "appkit/image.h"

namespace chroma::builtin {

ClassObject Image::cls;

namespace {

Image* initWithSize(Image* self, SEL, Size size) {
    self->size = size;
    return self;
}

Size sizeOf(Image* self, SEL) { return self->size; }

void setBackgroundColor(Image* self, SEL, id color) {
    static const Message colorSpaceName{"colorSpaceName"};
    self->backgroundColor = argument<Color>(color, colorSpaceName);
}

Color* backgroundColor(Image* self, SEL) { return self->backgroundColor.get(); }

} // namespace

ClassTable tableOfNSImage() {
    static const MethodEntry methods[] = {
        initialiser<initWithSize>("initWithSize:"),
        method<sizeOf>("size"),
        method<setBackgroundColor>("setBackgroundColor:"),
        method<backgroundColor>("backgroundColor"),
    };
    return classTable<Image>("NSImage", &NSObject::cls, methods);
}

} // namespace chroma::builtin
