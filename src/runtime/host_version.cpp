#include "runtime/host_version.h"

#include <cstdint>

namespace chroma {

double rbversion_rbversion = 0.0;
std::int32_t CurrentREALControlVersion = REALcontrolVersionCurrent;

std::int32_t controlVersionFor(double hostVersion) {
#define CHROMA_CONTROL_VERSION(from, controlVersion)                                                                        \
    if (hostVersion >= from) return controlVersion;
    REAL_CONTROL_VERSIONS(CHROMA_CONTROL_VERSION)
#undef CHROMA_CONTROL_VERSION
    return REALcontrolVersionLegacy;
}

} // namespace chroma
