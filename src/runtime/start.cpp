#include "runtime/start.h"

#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

namespace chroma {
namespace {

// For entries that are asked for at this one call; nothing of them is kept.
template <class Procedure>
Procedure resolve(const char* entryName) {
    return reinterpret_cast<Procedure>(gResolver(entryName));
}

} // namespace

void startPlugin(REALresolver resolver, std::initializer_list<REALclassDefinition*> classes) {
    gResolver = resolver;
    if (resolver)
        if (const auto hostVersion = resolve<REALGetRBVersionProc>("REALGetRBVersion")) rbversion_rbversion = hostVersion();
    CurrentREALControlVersion = controlVersionFor(rbversion_rbversion);
    if (!resolver) return;
    if (const auto announce = resolve<RegisterPluginVersionProc>("RegisterPluginVersion"))
        announce(CurrentREALControlVersion);
    for (REALclassDefinition* const record : classes)
        MyREALRegisterClass(record);
}

} // namespace chroma
