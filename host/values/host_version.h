// The version of the host that this process simulates. startHost (entries/entries.h) sets it, once.
#pragma once

#include "chromabridge/host_abi.h"

namespace host {

inline double simulatedVersion = 0.0;

inline double hostVersion() { return simulatedVersion; }

// Returns whether memory blocks and double arrays expose their storage at the offsets of the contract: hosts older than
// 2017.0 do. On newer hosts those bytes are 0, and plugins call entry points for the storage.
inline bool exposesStorage() { return simulatedVersion < REAL_SINCE_HIDDEN_STORAGE; }

} // namespace host
