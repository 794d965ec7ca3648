// The sibling's exported function, and the class methods through which plugins of this family share the instance registry
// and bridge exceptions.
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/start.h"
#include "sibling/class_methods.h"
#include "sibling/exceptions.h"
#include "sibling/images.h"

namespace chroma {

extern "C" CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex capacity, const void* keyCallBacks,
                                                            const void* valueCallBacks);

} // namespace chroma

namespace chroma::sibling {

namespace {

// Created at its first use, with plain pointers as keys and values; it lives as long as the process.
CFMutableDictionaryRef instancesDictionary(id, SEL) {
    static const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    return dictionary;
}

// Host exceptions are created when they are needed, so this does nothing.
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
