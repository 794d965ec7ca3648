// Images, which belong to the sibling plugin's host class NSImageZRX.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

namespace chroma {

// Returns the NSImage that a host object holds, borrowed. Returns nil for null, for an empty image object, and for an
// object that is not known to be an NSImageZRX: this never reads memory of an object of another class.
id imageOf(REALobjectStruct* object);

} // namespace chroma
