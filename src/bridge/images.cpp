#include "bridge/images.h"

#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma {
namespace {

struct Search {
    const REALobjectStruct* wanted;
    id image;
};

void compareEntry(const void* key, const void* value, void* context) {
    auto& search = *static_cast<Search*>(context);
    if (value == search.wanted) search.image = static_cast<id>(const_cast<void*>(key));
}

// For hosts that cannot report an object's class: returns whether the registry maps an image to the object. The registry's
// keys are native objects, so this searches all entries.
bool isRegisteredImage(const REALobjectStruct* object) {
    if (!instances) return false;
    Search search{object, nullptr};
    CFDictionaryApplyFunction(instances, compareEntry, &search);
    return sel::isKindOfClass_(search.image, cls::NSImage.get()) != 0;
}

} // namespace

id imageOf(REALobjectStruct* object) {
    if (!object) return nullptr;
    const bool isImage =
        ChromaObjectIsA.isOffered() ? ChromaObjectIsA(object, "NSImageZRX") != 0 : isRegisteredImage(object);
    return isImage ? nativeObject(object) : nullptr;
}

} // namespace chroma
