// The functions that the plugin's records bind, with what they promise.
#include "driver.h"

#include "classes/color/color.h"
#include "classes/colorlist/colorlist.h"
#include "classes/colorspace/colorspace.h"
#include "model/entries.h"
#include "model/platform.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

extern "C" void REALPluginMain(REALresolver resolver);
extern "C" void __lsan_disable() __attribute__((weak)); // null without a sanitizer
// What is written here need not survive a loss of power.
extern "C" __attribute__((visibility("default"))) int fsync(int) { return 0; }

namespace matrix {

void* resolveEntry(const char* name); // host_entries.cpp

namespace {

// Removed with everything in it when the process ends.
struct WorkingFolder {
    std::string path = (std::filesystem::temp_directory_path() / "matrix-XXXXXX").string();

    WorkingFolder() {
        if (!mkdtemp(path.data())) std::abort();
        std::filesystem::current_path(path);
        setenv("XDG_DATA_HOME", path.c_str(), 1);
    }
    ~WorkingFolder() { std::filesystem::remove_all(path); }
};

void addFunctions(std::vector<Function>& functions, const host::ClassInfo& info) {
    const bool isColor = info.name() == "NSColorZRX";
    const auto add = [&](REALfunction address, const host::Invoker& invoke, const host::Signature& signature,
                         bool isShared) {
        const std::size_t count = signature.parameters.size();
        const bool isRead = (signature.name == "getRGB" || signature.name == "getHSV") && count == 4;
        functions.push_back({info.name() + "." + signature.name + "/" + std::to_string(count),
                             address,
                             invoke,
                             signature,
                             isShared ? std::vector<Form>() : receiversOf(info.name()),
                             {},
                             false,
                             isRead || signature.name == "colorValue"});
        for (const host::Parameter& parameter : signature.parameters)
            functions.back().arguments.push_back(formsOf(parameter));
    };
    const host::Invoker invokeLifecycle(host::Signature(), true);
    add(info.record()->constructor, invokeLifecycle, {"constructor", {}, {}}, false);
    add(info.record()->destructor, invokeLifecycle, {"destructor", {}, {}}, false);
    for (const host::Property& property : info.properties()) {
        if (property.getter == REALstandardAccessor) continue; // the host's own
        add(property.getter, property.invokeGetter, {property.name, {}, property.type}, false);
        const host::Kind kind = property.type.kind;
        functions.back().isQuiet = isColor && (kind == host::Kind::real || kind == host::Kind::string);
    }
    for (const host::Method& method : info.methods())
        add(method.function, method.invoke, method.signature, false);
    for (const host::Method& method : info.sharedMethods())
        add(method.function, method.invoke, method.signature, true);
}

} // namespace

std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling) {
    static const WorkingFolder folder;
    host::startHost({version, missing});
    missingEntries = {missing.begin(), missing.end()};
    if (__lsan_disable && !hostCounts()) __lsan_disable();
    const host::platform::AutoreleasePool pool;
    REALPluginMain(resolveEntry);
    if (withSibling) {
        void* const library = dlopen(CHROMA_SIBLING, RTLD_NOW | RTLD_LOCAL);
        if (!library) std::abort();
        reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"))(resolveEntry);
    }
    prepareNatives();
    std::vector<Function> functions;
    for (REALclassDefinition* record :
         {&chroma::color::NSColorClass, &chroma::colorspace::NSColorSpaceClass, &chroma::colorlist::NSColorListClass}) {
        if (!host::registry().find(record->name)) host::registry().add(*record); // a host that takes no classes
        addFunctions(functions, *host::registry().find(record->name));
    }
    return functions;
}

} // namespace matrix
