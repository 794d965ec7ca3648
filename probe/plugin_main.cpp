// A plugin that tests a host. While it is loaded it calls every entry point of the contract and reports each violation. Its
// class ChromaProbe returns the report to host code, which completes it: see probe/classes.cpp.
#include "probe/host.h"

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    static bool isLoaded = false;
    if (!resolver || isLoaded) return; // nothing can be tested, or everything was tested already
    isLoaded = true;
    auto& report = *new probe::Report; // both live as long as the process, for calls from host code
    auto& host = *new probe::Host{resolver, 0.0, report};
    report.trying("(resolver)");
    if (const auto version = host.entry(probe::entries::REALGetRBVersion)) host.version = version();
    report.start(host.version);
    probe::checkStart(host);
    probe::checkStrings(host);
    probe::checkObjects(host);
    probe::checkArrays(host);
    probe::checkBlocks(host);
    report.end();
}
