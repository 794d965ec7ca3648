// Host objects that hold native objects, and the instance registry, which ensures that a native object always gets the same
// host object.
//
// A host object owns exactly one retain of its native object. The registry maps native objects to the live host objects
// that hold them. It belongs to a sibling plugin and holds no references. Without it identity is not kept; everything else
// works the same.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"

#include <cstddef>

namespace chroma {

// The registry, set by the lazy initialisation; null without a sibling plugin.
extern CFMutableDictionaryRef instances;

// Whether initCocoa has run.
extern bool CocoaInited;

// Fetches the registry and prepares exception bridging at the first call. If the sibling is absent at that time, it counts
// as absent for the life of the process. May throw an exception of the sibling.
void fetchFromSibling();
inline void initCocoa() {
    if (!CocoaInited) fetchFromSibling();
}

// Whether storing a native object also adds the pair to the registry.
enum class Entry { added, none };

// Returns a host object of the named class that holds `native`: the registry's object with one more reference, or a new
// one. The caller owns one reference. Returns null for nil, and without retaining `native` if the host does not create the
// object.
REALobjectStruct* wrapNative(id native, const char* className, Entry entry = Entry::added);

inline REALobjectStruct* NewNSColorZRX(id color) { return wrapNative(color, "NSColorZRX"); }
inline REALobjectStruct* NewNSColorSpaceZRX(id space) { return wrapNative(space, "NSColorSpaceZRX"); }
inline REALobjectStruct* NewNSImageZRX(id image) { return wrapNative(image, "NSImageZRX"); }

// Stores a native object that the caller has retained for the host object, and adds the pair to the registry. Nil is stored
// but not added. `offset` is the offset of the class's instance data.
void holdNative(REALobjectStruct* object, id retained, Entry entry = Entry::added,
                std::ptrdiff_t offset = REALinstanceDataOffset);

// Removes this host object's registry entry and releases the held native object, if any. The host object is empty
// afterwards.
void dropNative(REALobjectStruct* object, std::ptrdiff_t offset = REALinstanceDataOffset);

} // namespace chroma
