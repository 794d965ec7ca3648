#include "runtime/host_version.h"

#include <cstdint>

namespace chroma {

double rbversion_rbversion = 0.0;
std::int32_t CurrentREALControlVersion = 13;

std::int32_t controlVersionFor(double hostVersion) {
    static constexpr struct {
        double from;
        std::int32_t controlVersion;
    } steps[] = {{2013.04, 13}, {2013.03, 12}, {2013.0, 11}, {2012.0, 10}};
    for (const auto& step : steps)
        if (hostVersion >= step.from) return step.controlVersion;
    return 9;
}

} // namespace chroma
