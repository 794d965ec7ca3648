// NSExceptionZRX, the host exception that an NSException becomes.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

namespace chroma::sibling {

extern REALclassDefinition NSExceptionClass;

// A new host exception that holds the NSException: "Message" is its reason, "ErrorNumber" 0. The caller owns the reference;
// null when the host makes no such object.
REALobjectStruct* newHostException(id exception);

} // namespace chroma::sibling
