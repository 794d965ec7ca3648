#include "session.h"

#include "entries/entries.h"
#include "entries/plugin.h"
#include "model/classes.h"
#include "model/exceptions.h"
#include "values/platform.h"
#include "values/storage.h"

#include <dlfcn.h>

#include <algorithm>
#include <stdexcept>

namespace bench {
namespace {

std::size_t calls = 0;

void* countingResolver(const char* entryName) {
    ++calls;
    return host::resolveEntry(entryName);
}

void load(const std::string& file) {
    void* const library = dlopen(host::bundledPlugin(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const start = library ? dlsym(library, "REALPluginMain") : nullptr;
    if (!start) throw std::runtime_error("cannot load " + file + ": " + dlerror());
    reinterpret_cast<REALPluginMainProc>(start)(countingResolver);
}

const host::Method* findDeclared(const std::vector<host::Method>& methods, const std::string& declaration) {
    const auto found =
        std::find_if(methods.begin(), methods.end(), [&](const host::Method& m) { return m.declaration == declaration; });
    return found == methods.end() ? nullptr : &*found;
}

} // namespace

std::size_t resolverCalls() { return calls; }

void loadPlugins() {
    host::startHost();
    const host::platform::AutoreleasePool pool;
    load("libchromabridge.so");
    load("libchromasibling.so");
}

REALfunction boundFunction(const std::string& className, const std::string& declaration) {
    if (const host::ClassInfo* const info = host::registry().find(className)) {
        if (const host::Method* const method = findDeclared(info->methods(), declaration)) return method->function;
        if (const host::Method* const method = findDeclared(info->sharedMethods(), declaration)) return method->function;
        if (const host::Property* const property = info->findProperty(declaration)) return property->getter;
    }
    throw std::runtime_error(className + " has no " + declaration);
}

chroma::id nativeColor(const host::Object* object) { return host::readAt<chroma::id>(object, REALinstanceDataOffset); }

void LiveColors::growTo(std::size_t count) {
    using Constructor = void (*)(host::Object*, double, double, double, double);
    static const auto construct = bound<Constructor>(
        "NSColorZRX", "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)");
    host::ClassInfo& color = *host::registry().find("NSColorZRX");
    constexpr std::size_t batch = 1000;
    while (objects_.size() < count) {
        const host::platform::AutoreleasePool pool;
        for (std::size_t i = 0; i < batch && objects_.size() < count; ++i) {
            host::Object* const object = host::newObject(color);
            if (!object) throw std::bad_alloc();
            construct(object, 0.5, 0.25, static_cast<double>(objects_.size()) / 1e6, 1.0);
            objects_.push_back(object);
        }
    }
    if (host::hasPendingException()) throw std::runtime_error("a colour could not be created");
}

} // namespace bench
