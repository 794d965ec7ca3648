// The host's version and what the plugin concludes from it. Written by REALPluginMain, read everywhere else.
#pragma once

#include <cstdint>

namespace chroma {

// As the host reports it, such as 2013.04; 0.0 when it reports none.
extern double rbversion_rbversion;

// 9 to 13: which layout of the class records the host understands. 9 is the legacy layout.
extern std::int32_t CurrentREALControlVersion;

// The control version for a host version; not-a-number counts as oldest.
std::int32_t controlVersionFor(double hostVersion);

// From these versions on the host serves strings, paths, and memory blocks and arrays through newer entries.
inline bool hostBuildsStringsWithEncoding() { return rbversion_rbversion >= 2012.0; }
inline bool hostConvertsUTF32() { return rbversion_rbversion >= 2013.0; }
inline bool hostHasNativePaths() { return rbversion_rbversion >= 2013.0; }
inline bool hostHidesStorage() { return rbversion_rbversion >= 2017.0; }

} // namespace chroma
