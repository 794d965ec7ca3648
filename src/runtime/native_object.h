// Host objects that hold native objects, and the instance registry that gives a native object the same host object each
// time.
//
// A host object owns exactly one retain of its native object. The registry maps native objects to the live host objects that
// hold them; it belongs to a sibling plugin, holds no references, and may be absent: then identity is not kept, and
// everything else works alike.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"

#include <cstddef>

namespace chroma {

// The registry, once the lazy initialisation has found it; null without a sibling plugin.
extern CFMutableDictionaryRef instances;

// Whether initCocoa has run.
extern bool CocoaInited;

// Fetches the registry and prepares exception bridging, the first time it is called. What is absent then stays absent for
// the life of the process. May throw what the sibling throws.
void fetchFromSibling();
inline void initCocoa() {
    if (!CocoaInited) fetchFromSibling();
}

// Whether a host object that gets a native object is entered in the registry.
enum class Entry { made, none };

// A host object of the named class that holds `native`: the one that the registry has, with one reference more, or a new
// one. The caller owns one reference. Null for nil, and when the host makes no such object; native is not retained then.
REALobjectStruct* wrapNative(id native, const char* className, Entry entry = Entry::made);

inline REALobjectStruct* NewNSColorZRX(id color) { return wrapNative(color, "NSColorZRX"); }
inline REALobjectStruct* NewNSColorSpaceZRX(id space) { return wrapNative(space, "NSColorSpaceZRX"); }
inline REALobjectStruct* NewNSImageZRX(id image) { return wrapNative(image, "NSImageZRX"); }

// Stores a native object that the caller has retained for the host object, and enters the pair in the registry. Nil is
// stored and not entered. `offset` is that of the class's instance data.
void holdNative(REALobjectStruct* object, id retained, Entry entry = Entry::made,
                std::ptrdiff_t offset = REALinstanceDataOffset);

// Gives up the held native object, if any, and this host object's registry entry; the host object is empty afterwards.
void dropNative(REALobjectStruct* object, std::ptrdiff_t offset = REALinstanceDataOffset);

} // namespace chroma
