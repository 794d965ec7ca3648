#include "start.h"

#include "calls.h"
#include "model/entries.h"
#include "model/platform.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <unistd.h>

extern "C" void REALPluginMain(REALresolver resolver);

// What is written here need not survive a loss of power.
extern "C" __attribute__((visibility("default"))) int fsync(int) { return 0; }

namespace matrix {
namespace {

// Removed with everything in it when the process ends.
struct WorkingFolder {
    std::filesystem::path path;

    WorkingFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "matrix-XXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        path = name;
        std::filesystem::current_path(path);
        setenv("HOME", name.c_str(), 1);
        unsetenv("XDG_DATA_HOME");
    }
    ~WorkingFolder() { std::filesystem::remove_all(path); }
};

void loadSibling() {
    void* const library = dlopen(CHROMA_SIBLING, RTLD_NOW | RTLD_LOCAL);
    if (!library) std::abort();
    reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"))(resolveEntry);
}

} // namespace

std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling) {
    static const WorkingFolder folder;
    host::startHost({version, missing});
    missingEntries = {missing.begin(), missing.end()};
    const host::platform::AutoreleasePool pool;
    REALPluginMain(resolveEntry);
    if (withSibling) loadSibling();
    prepareThrownObjects();
    prepareNatives();
    const std::vector<Function> functions = boundFunctions();
    for (const Function& function : functions)
        for (const Choice& choice : choicesFor(function))
            call(function, choice, {});
    return functions;
}

} // namespace matrix
