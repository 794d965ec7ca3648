// The sibling's one export, and the class methods through which plugins of this family share the instance registry and the
// bridging of exceptions.
#include "builtin/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/start.h"
#include "sibling/class_methods.h"
#include "sibling/exceptions.h"
#include "sibling/images.h"

namespace chroma::sibling {

namespace {

// Created when it is first asked for; plain pointers on both sides, and it lives as long as the process.
CFMutableDictionaryRef instancesDictionary(id, SEL) {
    static const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    return dictionary;
}

// Host exceptions are made when they are needed; there is nothing to prepare.
void prepareExceptions(id, SEL) {}

REALobjectStruct* newException(id, SEL, id exception) { return newHostException(exception); }

void start(REALresolver resolver) {
    if (resolver) {
        addClassMethod(cls::NSException, sel::GetInstancesDictionaryZRX, instancesDictionary);
        addClassMethod(cls::NSException, sel::PrepareNSExceptionZRX, prepareExceptions);
        addClassMethod(cls::NSException, sel::NewNSExceptionZRX_, newException);
    }
    startPlugin(resolver, {&NSExceptionClass, &NSImageClass});
}

} // namespace
} // namespace chroma::sibling

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    chroma::sibling::start(resolver);
}
