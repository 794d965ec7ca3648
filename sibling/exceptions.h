// NSExceptionZRX, the host exception that represents an NSException.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

namespace chroma::sibling {

extern REALclassDefinition NSExceptionClass;

// Returns a new host exception that holds the NSException: "Message" is its reason, "ErrorNumber" 0. The caller owns the
// reference. Returns null if the host cannot create the object.
REALobjectStruct* newHostException(id exception);

} // namespace chroma::sibling
