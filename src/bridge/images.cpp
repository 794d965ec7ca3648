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

// For hosts that do not tell an object's class: the native object that the registry maps to it, if that is an image.
id registeredImage(const REALobjectStruct* object) {
    if (!instances) return nullptr;
    Search search{object, nullptr};
    CFDictionaryApplyFunction(instances, compareEntry, &search);
    return sel::isKindOfClass_(search.image, cls::NSImage.get()) ? search.image : nullptr;
}

} // namespace

id imageOf(REALobjectStruct* object) {
    if (!object) return nullptr;
    if (!ChromaObjectIsA.isOffered()) return registeredImage(object);
    return ChromaObjectIsA(object, "NSImageZRX") ? nativeObject(object) : nullptr;
}

} // namespace chroma
