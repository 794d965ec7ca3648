// The host's version and the decisions that depend on it. Only REALPluginMain writes these variables.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>

namespace chroma {

// The version as the host reports it, such as 2013.04; 0.0 if the host reports none.
extern double rbversion_rbversion;

// The layout of the class records that the host understands, 9 to 13. 9 is the legacy layout.
extern std::int32_t CurrentREALControlVersion;

// Returns the control version for a host version; not-a-number counts as the oldest version.
std::int32_t controlVersionFor(double hostVersion);

// From these versions on the host provides newer entries for strings, paths, and memory blocks and arrays.
inline bool hostBuildsStringsWithEncoding() { return rbversion_rbversion >= REAL_SINCE_ENCODED_STRINGS; }
inline bool hostConvertsUTF32() { return rbversion_rbversion >= REAL_SINCE_NATIVE_PATHS; }
inline bool hostHasNativePaths() { return rbversion_rbversion >= REAL_SINCE_NATIVE_PATHS; }
inline bool hostHidesStorage() { return rbversion_rbversion >= REAL_SINCE_HIDDEN_STORAGE; }

} // namespace chroma
