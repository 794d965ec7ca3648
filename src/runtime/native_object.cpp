#include "runtime/native_object.h"

#include "platform/guard.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"

namespace chroma {

CFMutableDictionaryRef instances = nullptr;
bool CocoaInited = false;

namespace {

bool ExceptionsInitialized = false;

bool exceptionClassRespondsTo(Selector& message) { return sel::respondsToSelector_(cls::NSException, message.get()) != 0; }

// Returns the live host object that holds `native`, borrowed, or null if there is none.
REALobjectStruct* liveObject(id native) {
    if (!instances) return nullptr;
    return static_cast<REALobjectStruct*>(const_cast<void*>(CFDictionaryGetValue(instances, native)));
}

} // namespace

void fetchFromSibling() {
    CocoaInited = true;
    if (!instances && exceptionClassRespondsTo(sel::GetInstancesDictionaryZRX))
        instances = sel::GetInstancesDictionaryZRX(cls::NSException);
    if (!ExceptionsInitialized && exceptionClassRespondsTo(sel::PrepareNSExceptionZRX)) {
        sel::PrepareNSExceptionZRX(cls::NSException);
        ExceptionsInitialized = true;
    }
}

REALobjectStruct* wrapNative(id native, const char* className, Entry entry) {
    if (!native) return nullptr;
    if (REALobjectStruct* const live = liveObject(native)) {
        REALLockObject(live);
        return live;
    }
    REALobjectStruct* const object = REALnewInstance(className);
    if (!object) return nullptr;
    onThrow([&] { holdNative(object, sel::retain(native), entry); }, [&] { REALUnlockObject(object); });
    return object;
}

void holdNative(REALobjectStruct* object, id retained, Entry entry, std::ptrdiff_t offset) {
    setNativeObject(object, retained, offset);
    if (retained && instances && entry == Entry::added) CFDictionarySetValue(instances, retained, object);
}

void dropNative(REALobjectStruct* object, std::ptrdiff_t offset) {
    const id native = nativeObject(object, offset);
    if (!native) return;
    if (liveObject(native) == object) CFDictionaryRemoveValue(instances, native);
    setNativeObject(object, nullptr, offset); // before the release: a release that throws must not be repeated
    sel::release(native);
}

} // namespace chroma
