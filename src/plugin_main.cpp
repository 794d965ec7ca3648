// The library's one export.
#include "chromabridge/host_abi.h"
#include "classes/color/color.h"
#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

namespace chroma {

namespace {

// These two are asked for at this one call, and nothing of them is kept.
template <class Procedure>
Procedure resolve(const char* entryName) {
    return reinterpret_cast<Procedure>(gResolver(entryName));
}

void start(REALresolver resolver) {
    gResolver = resolver;
    if (resolver)
        if (const auto hostVersion = resolve<REALGetRBVersionProc>("REALGetRBVersion")) rbversion_rbversion = hostVersion();
    CurrentREALControlVersion = controlVersionFor(rbversion_rbversion);
    if (!resolver) return;
    if (const auto announce = resolve<RegisterPluginVersionProc>("RegisterPluginVersion"))
        announce(CurrentREALControlVersion);
    MyREALRegisterClass(&color::NSColorClass);
}

} // namespace
} // namespace chroma

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) { chroma::start(resolver); }
