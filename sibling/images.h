// NSImageZRX, a host class around one NSImage.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::sibling {

extern REALclassDefinition NSImageClass;

} // namespace chroma::sibling
