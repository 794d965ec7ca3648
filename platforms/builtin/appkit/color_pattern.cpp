// Pattern colours: an image instead of components.
#include "appkit/color.h"
#include "appkit/image.h"

namespace chroma::builtin {
namespace {

// Returns nil for nil.
Color* colorWithPatternImage(ClassObject*, SEL, id object) {
    static const Message size{"size"};
    Image* const image = argument<Image>(object, size);
    if (!image) return nullptr;
    Color* const color = newColor({});
    color->contents.image = image;
    return color;
}

id patternImage(Color* self, SEL selector) {
    if (self->contents.kind != Kind::pattern) raiseNotValid(self, selector);
    return self->contents.image.get();
}

} // namespace

Category categoryOfPatternColors() {
    static const MethodEntry methods[] = {method<patternImage>("patternImage")};
    static const MethodEntry classMethods[] = {method<colorWithPatternImage>("colorWithPatternImage:")};
    return {&Color::cls, methods, classMethods};
}

} // namespace chroma::builtin
