#include "corefoundation/cf_dictionary.h"

#include "builtin/corefoundation.h"
#include "runtime/bootstrap.h"
#include "runtime/export.h"

#include <cstdint>

namespace chroma::builtin {

ClassObject Dictionary::cls;

static std::uintptr_t count(Dictionary* self, SEL) { return self->values.size(); }

ClassTable tableOfNSMutableDictionary() {
    static const MethodEntry methods[] = {method<count>("count")};
    return classTable<Dictionary>("NSMutableDictionary", &NSObject::cls, methods);
}

} // namespace chroma::builtin

namespace chroma {

using builtin::Dictionary;

static auto& valuesOf(CFMutableDictionaryRef dictionary) { return static_cast<Dictionary*>(dictionary)->values; }

BUILTIN_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex, const void* keyCallBacks,
                                                                const void* valueCallBacks) {
    builtin::ensurePlatform();
    if (keyCallBacks || valueCallBacks) return nullptr;
    return builtin::orNull(builtin::make<Dictionary>);
}

BUILTIN_EXPORT CFIndex CFDictionaryGetCount(CFMutableDictionaryRef dictionary) {
    return static_cast<CFIndex>(valuesOf(dictionary).size());
}

BUILTIN_EXPORT const void* CFDictionaryGetValue(CFMutableDictionaryRef dictionary, const void* key) {
    return valuesOf(dictionary).find(key);
}

BUILTIN_EXPORT void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value) {
    builtin::orExhausted([&] { valuesOf(dictionary).set(key, value); }, builtin::raiseMemoryExhausted);
}

BUILTIN_EXPORT void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key) {
    valuesOf(dictionary).remove(key);
}

BUILTIN_EXPORT void CFDictionaryApplyFunction(CFMutableDictionaryRef dictionary,
                                              void (*function)(const void* key, const void* value, void*), void* context) {
    valuesOf(dictionary).forEach([&](const void* key, const void* value) { function(key, value, context); });
}

} // namespace chroma
