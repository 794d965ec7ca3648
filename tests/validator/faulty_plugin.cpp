// A plugin that keeps every promise but the one that FAULT names, which the build defines.
#include "chromabridge/host_abi.h"

#include <csignal>

namespace {

constexpr bool same(const char* a, const char* b) { return *a == *b && (*a == '\0' || same(a + 1, b + 1)); }
constexpr bool has(const char* fault) { return same(FAULT, fault); }

REALresolver resolve = nullptr;

template <class Procedure>
Procedure entry(const char* name) {
    return reinterpret_cast<Procedure>(resolve(name));
}

REALstringStruct* text() {
    const auto build = entry<REALBuildStringProc>("REALBuildString");
    if (!build && !has("missing-entries")) return nullptr;
    if (!has("host-exceptions")) return build("text", 4);
    [&]() noexcept { build("text", 4); }();
    return nullptr;
}

bool isSet(const REALobjectStruct* object) {
    return *(reinterpret_cast<const unsigned char*>(object) + REALinstanceDataOffset) != 0;
}

void construct(REALobjectStruct*) {}

HostInteger length(REALobjectStruct* object, REALstringStruct* words) {
    if (!object) return has("null-receivers") ? 1 : 0;
    if (has("empty-receivers") && !isSet(object)) std::raise(SIGSEGV);
    if (has("arguments") && !words) std::raise(SIGFPE);
    if (has("balance")) entry<REALLockObjectProc>("REALLockObject")(object);
    if (has("host-versions") && !resolve("memoryBlockGetPtr")) std::raise(SIGILL);
    return 0;
}

REALmethodDefinition methods[] = {
    {reinterpret_cast<REALfunction>(length),
     nullptr,
     has("records-parse") ? "length(words as) as integer"
     : has("types-known") ? "length(words as Nowhere) as integer"
                          : "length(words as string) as integer",
     0,
     {}},
    {reinterpret_cast<REALfunction>(length),
     nullptr,
     has("members-unique") ? "Length(others as string) as integer" : "size(words as string) as integer",
     0,
     {}},
};
REALmethodDefinition sharedMethods[] = {{reinterpret_cast<REALfunction>(text), nullptr, "text() as string", 0, {}}};

REALclassDefinition record = {};

} // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED void REALPluginMain(REALresolver resolver);
EXPORTED void another();
extern "C" void nowhere();

#ifdef FAULT_EXPORTS
EXPORTED void another() {}
#endif

EXPORTED void REALPluginMain(REALresolver resolver) {
#ifdef FAULT_UNBOUND
    nowhere();
#endif
    if (!resolver && !has("null-resolver")) return;
    resolve = resolver;
    const auto announce = entry<RegisterPluginVersionProc>("RegisterPluginVersion");
    const auto add = entry<PluginRegisterClassProc>("PluginRegisterClass");
    record.version = 10;
    record.name = "Faulty";
    record.instanceDataSize = 16;
    record.constructor = reinterpret_cast<REALfunction>(construct);
    record.methods = methods;
    record.methodCount = 2;
    record.sharedMethods = sharedMethods;
    record.sharedMethodCount = 1;
    if (has("records-count")) record.constantCount = 3;
    if (announce) announce(10);
    if (announce && has("announces-once")) announce(10);
    if (add) add(&record);
}
