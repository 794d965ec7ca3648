#include "appkit/pasteboard.h"

namespace chroma::builtin {

ClassObject Pasteboard::cls;

namespace {

Pasteboard* generalPasteboard(ClassObject*, SEL) {
    static Pasteboard* const pasteboard = makeImmortal(make<Pasteboard>());
    return pasteboard;
}

void clearContents(Pasteboard* self, SEL) {
    self->hasColor = false;
    self->color = {};
}

} // namespace

ClassTable tableOfNSPasteboard() {
    static const MethodEntry methods[] = {method<clearContents>("clearContents")};
    static const MethodEntry classMethods[] = {method<generalPasteboard>("generalPasteboard")};
    return classTable<Pasteboard>("NSPasteboard", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin
