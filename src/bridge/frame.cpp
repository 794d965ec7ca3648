#include "bridge/frame.h"

#include "runtime/host_values.h"

namespace chroma {

bool mayInitialise(const REALobjectStruct* object) {
    if (!nativeObject(object)) return object != nullptr;
    RaiseException("UnsupportedOperationException", "Constructor called too often. Object is already initialized.");
    return false;
}

} // namespace chroma
