// What a plugin of this family does when the host loads it.
#pragma once

#include "chromabridge/host_abi.h"

#include <initializer_list>

namespace chroma {

// Keeps the resolver, asks the host's version, announces the control version and registers the classes in order. A null
// resolver is kept, and nothing is called or registered.
void startPlugin(REALresolver resolver, std::initializer_list<REALclassDefinition*> classes);

} // namespace chroma
