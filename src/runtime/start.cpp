#include "runtime/start.h"

#include "runtime/class_records.h"
#include "runtime/host_entries.h"
#include "runtime/host_version.h"

namespace chroma {

void startPlugin(REALresolver resolver, std::initializer_list<REALclassDefinition*> classes) {
    if (gResolver) return; // the host has the records already, perhaps in the legacy layout
    gResolver = resolver;
    if (resolver)
        if (const auto hostVersion = resolveOnce(entries::REALGetRBVersion)) rbversion_rbversion = hostVersion();
    CurrentREALControlVersion = controlVersionFor(rbversion_rbversion);
    if (!resolver) return;
    if (const auto announce = resolveOnce(entries::RegisterPluginVersion)) announce(CurrentREALControlVersion);
    for (REALclassDefinition* const record : classes)
        MyREALRegisterClass(record);
}

} // namespace chroma
