// Checks of the library and its start.
#include "validator/checks.h"

#include "entries/entries.h"
#include "entries/plugin.h"
#include "validator/exports.h"
#include "validator/watch.h"

#include <stdexcept>

#include <dlfcn.h>

namespace host::validator {

void loads(Run& run) {
    run.child("", [&] {
        step("loading the library");
        try {
            openPlugin(run.trial().plugin);
        } catch (const std::runtime_error& error) {
            complain(error.what());
        }
        tested();
    });
}

void exportsOneFunction(Run& run) {
    run.child("", [&] {
        Dl_info info = {};
        const REALPluginMainProc main = openPlugin(run.trial().plugin);
        if (dladdr(reinterpret_cast<void*>(main), &info) == 0) throw std::runtime_error("the library's file is unknown");
        for (const std::string& name : exportedFunctions(info.dli_fname))
            if (name != "REALPluginMain") complain("it exports " + name + " too");
        tested();
    });
}

void acceptsNullResolver(Run& run) {
    run.child("", [&] {
        startCheckedHost();
        const REALPluginMainProc main = openPlugin(run.trial().plugin);
        step("REALPluginMain of null");
        main(nullptr);
        tested();
    });
}

void announcesOnce(Run& run) {
    run.classes([](const std::vector<const ClassInfo*>& classes) {
        const std::vector<std::int32_t>& versions = announcement().versions;
        if (classes.empty() && versions.empty()) return;
        if (versions.size() != 1) complain("it announces " + std::to_string(versions.size()) + " control versions");
        for (const std::int32_t version : versions)
            if (version < 9 || version > 13) complain("it announces the control version " + std::to_string(version));
        if (announcement().afterClass) complain("it announces a control version after a class");
        tested();
    });
}

} // namespace host::validator
