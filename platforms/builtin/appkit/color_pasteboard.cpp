// Colours to the pasteboard and back. The pasteboard keeps what the colour is, not the object: what comes back is equal.
#include "appkit/color.h"
#include "appkit/pasteboard.h"

namespace chroma::builtin {
namespace {

const Message clearContents{"clearContents"};

// Takes the place of what was there.
void writeToPasteboard(Color* self, SEL, id object) {
    Pasteboard* const pasteboard = argument<Pasteboard>(object, clearContents);
    if (!pasteboard) return;
    pasteboard->color = self->contents;
    pasteboard->hasColor = true;
}

// nil when there is no colour on it.
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
