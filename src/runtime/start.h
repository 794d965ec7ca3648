// The start of a plugin of this family, when the host loads it.
#pragma once

#include "chromabridge/host_abi.h"

#include <initializer_list>

namespace chroma {

// Stores the resolver, queries the host's version, announces the control version and registers the classes in order. A null
// resolver registers nothing. After a call with a resolver, further calls do nothing, even with another resolver.
void startPlugin(REALresolver resolver, std::initializer_list<REALclassDefinition*> classes);

} // namespace chroma
