#include "entries/plugin.h"

#include "entries/entries.h"
#include "model/classes.h"
#include "values/platform.h"

#include <dlfcn.h>

#include <filesystem>
#include <set>
#include <stdexcept>

namespace host {

namespace {

struct Library {
    void* handle;
    REALPluginMainProc main;
};

Library open(const std::string& path) {
    std::error_code error;
    // A path that exists is used as it is, even without a slash; the loader searches for any other name.
    const std::string file = std::filesystem::exists(path, error) ? std::filesystem::absolute(path, error).string() : path;
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) throw std::runtime_error("cannot load the plugin " + path + ": " + dlerror());
    void* const symbol = dlsym(library, "REALPluginMain");
    if (!symbol) throw std::runtime_error(path + " is not a plugin: it has no REALPluginMain");
    return {library, reinterpret_cast<REALPluginMainProc>(symbol)};
}

} // namespace

REALPluginMainProc openPlugin(const std::string& path) { return open(path).main; }

void loadPlugin(const std::string& path) {
    const Library library = open(path);
    static std::set<void*> loaded; // the loader identifies a library whatever its path is
    if (!loaded.insert(library.handle).second) return;
    const std::size_t before = registry().problems().size();
    {
        const platform::AutoreleasePool pool;
        library.main(resolveEntry);
    }
    if (registry().problems().size() == before) return;
    std::string message = path + ": the host cannot register all of its class records";
    for (std::size_t i = before; i < registry().problems().size(); ++i)
        message += "\n    " + registry().problems()[i];
    throw std::runtime_error(message);
}

std::string bundledPlugin(const std::string& file) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return file;
    const std::filesystem::path folder = program.parent_path();
    const std::filesystem::path installed = (folder / CHROMA_INSTALLED_LIBRARIES / file).lexically_normal();
    if (std::filesystem::exists(installed, error)) return installed.string();
    return (folder.parent_path() / "lib" / file).string(); // in the build tree
}

} // namespace host
