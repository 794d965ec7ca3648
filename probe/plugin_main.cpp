// A plugin for those who make hosts. While it is loaded it asks the host for every entry of the contract, takes each at its
// word, and reports what broke it. Its class ChromaProbe tells host code of the report, and raises an exception for it.
#include "probe/host.h"

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    if (!resolver) return;             // nothing can be asked
    auto& report = *new probe::Report; // both live as long as the process, for calls from host code
    auto& host = *new probe::Host{resolver, 0.0, report};
    if (const auto version = host.entry(probe::entries::REALGetRBVersion)) host.version = version();
    report.hostVersion = host.version;
    probe::askStart(host);
    probe::askObjects(host);
    probe::askStrings(host);
    probe::askArrays(host);
    probe::askBlocks(host);
    report.end();
    probe::publish(report);
}
