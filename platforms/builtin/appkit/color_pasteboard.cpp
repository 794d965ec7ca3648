// Colours on the pasteboard. The pasteboard stores the contents, not the object: reading returns an equal colour.
#include "appkit/color.h"
#include "appkit/pasteboard.h"

namespace chroma::builtin {
namespace {

const Message clearContents{"clearContents"};

// Replaces the pasteboard's contents.
void writeToPasteboard(Color* self, SEL, id object) {
    Pasteboard* const pasteboard = argument<Pasteboard>(object, clearContents);
    if (!pasteboard) return;
    pasteboard->color = self->contents;
    pasteboard->hasColor = true;
}

// Returns nil if the pasteboard holds no colour.
Color* colorFromPasteboard(ClassObject*, SEL, id object) {
    const Pasteboard* const pasteboard = argument<Pasteboard>(object, clearContents);
    return pasteboard && pasteboard->hasColor ? newColor(pasteboard->color) : nullptr;
}

} // namespace

Category categoryOfColorPasteboard() {
    static const MethodEntry methods[] = {method<writeToPasteboard>("writeToPasteboard:")};
    static const MethodEntry classMethods[] = {method<colorFromPasteboard>("colorFromPasteboard:")};
    return {&Color::cls, methods, classMethods};
}

} // namespace chroma::builtin
