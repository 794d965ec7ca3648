// The functions that the plugin's records bind, and the expectations about them.
#include "driver.h"

#include "classes/color/color.h"
#include "classes/color_list/color_list.h"
#include "classes/color_space/color_space.h"
#include "entries/entries.h"
#include "values/platform.h"

#include <cstdlib>
#include <dlfcn.h>

extern "C" void REALPluginMain(REALresolver resolver);
// Files of these tests need not survive a loss of power.
extern "C" __attribute__((visibility("default"))) int fsync(int) { return 0; }

namespace matrix {

std::set<std::string> missingEntries;
bool hasSibling = true;

namespace {

void addFunctions(std::vector<Function>& functions, const host::ClassInfo& info) {
    using host::validator::lifecycleFunction;
    std::vector<host::validator::Function> bound = functionsOf(info, nativeForms);
    for (const auto& [name, address] :
         {std::pair("destructor", info.record()->destructor), {"constructor", info.record()->constructor}})
        bound.insert(bound.begin(), lifecycleFunction(info, name, address, nativeForms));
    for (host::validator::Function& function : bound) {
        const host::Signature& signature = function.signature;
        const host::Property* const property = info.findProperty(signature.name);
        const bool isQuiet = info.name() == "NSColorZRX" && property &&
                             (property->type.is(host::Kind::real) || property->type.is(host::Kind::string));
        const bool converts =
            ((signature.name == "getRGB" || signature.name == "getHSV") && signature.parameters.size() == 4) ||
            signature.name == "colorValue";
        functions.push_back({std::move(function), isQuiet, converts});
    }
}

} // namespace

std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling) {
    host::startHost({version, missing});
    missingEntries = {missing.begin(), missing.end()};
    hasSibling = withSibling;
    const host::platform::AutoreleasePool pool;
    REALPluginMain(host::validator::observedEntry);
    if (withSibling) {
        void* const library = dlopen(CHROMA_SIBLING, RTLD_NOW | RTLD_LOCAL);
        if (!library) std::abort();
        reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"))(host::validator::observedEntry);
    }
    prepareNatives();
    std::vector<Function> functions;
    for (REALclassDefinition* record :
         {&chroma::color::NSColorClass, &chroma::color_space::NSColorSpaceClass, &chroma::color_list::NSColorListClass}) {
        if (!host::registry().find(record->name)) host::registry().add(*record); // the host does not accept classes
        addFunctions(functions, *host::registry().find(record->name));
    }
    return functions;
}

} // namespace matrix
