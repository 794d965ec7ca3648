#include "sibling/exceptions.h"

#include "bridge/frame.h"
#include "bridge/strings.h"
#include "platform/selectors.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::sibling {
namespace {

void NSExceptionConstructor(REALobjectStruct*) {}

void NSExceptionDestructor(REALobjectStruct* object) {
    guarded([&] { dropNative(object); });
}

REALstringStruct* text(REALobjectStruct* object, Message<id()>& message) {
    REALstringStruct* result = nullptr;
    quiet([&] { result = NSStringRB(message(nativeObject(object))); });
    return result;
}

REALstringStruct* name(REALobjectStruct* object, REALword) { return text(object, sel::name); }
REALstringStruct* reason(REALobjectStruct* object, REALword) { return text(object, sel::reason); }

// clang-format off
REALproperty NSExceptionProperties[] = {
    CHROMA_PROPERTY(name, "String"),
    CHROMA_PROPERTY(reason, "String"),
    CHROMA_HANDLE_PROPERTY,
};
// clang-format on

} // namespace

REALclassDefinition NSExceptionClass =
    CHROMA_CLASS("NSExceptionZRX", "RuntimeException", NSExceptionConstructor, NSExceptionDestructor,
                 CHROMA_ROWS(NSExceptionProperties), CHROMA_NO_ROWS, CHROMA_NO_ROWS, CHROMA_NO_ROWS);

REALobjectStruct* newHostException(id exception) {
    REALobjectStruct* const object = REALnewInstance("NSExceptionZRX");
    if (!object) return nullptr;
    onThrow(
        [&] {
            setNativeObject(object, sel::retain(exception));
            REALstringStruct* const message = reason(object, 0);
            withCleanup([&] { REALSetPropValueString(object, "Message", message); },
                        [&] {
                            if (message) REALUnlockString(message);
                        });
            REALSetPropValueInteger(object, "ErrorNumber", 0);
        },
        [&] { REALUnlockObject(object); });
    return object;
}

} // namespace chroma::sibling
