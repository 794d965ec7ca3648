// A plugin that keeps every promise but the one that FAULT names, which the build defines.
#include "chromabridge/host_abi.h"

#include <csignal>
#include <cstdint>

namespace {

constexpr bool same(const char* a, const char* b) { return *a == *b && (*a == '\0' || same(a + 1, b + 1)); }
constexpr bool has(const char* fault) { return same(FAULT, fault); }

REALresolver resolve = nullptr;

template <class Procedure>
Procedure entry(const char* name) {
    return reinterpret_cast<Procedure>(resolve(name));
}

// Of two strings it hands out the second.
REALstringStruct* text() {
    const auto build = entry<REALBuildStringProc>("REALBuildString");
    const auto giveUp = entry<REALUnlockStringProc>("REALUnlockString");
    if (!build && !has("missing-entries")) return nullptr;
    if (has("host-exceptions.crash")) return [&]() noexcept { return build("text", 4); }();
    REALstringStruct* const first = build("text", 4);
    if (!first && has("host-nulls")) std::raise(SIGBUS);
    const auto giveUpString = [&](REALstringStruct* string) {
        if (string && giveUp) giveUp(string);
    };
    REALstringStruct* second = nullptr;
    try {
        second = build("more", 4);
    } catch (...) {
        if (!has("host-exceptions.left")) giveUpString(first);
        throw;
    }
    try {
        giveUpString(first);
    } catch (...) {
        giveUpString(second);
        throw;
    }
    return second;
}

// The platform, of which this plugin needs a single message.
extern "C" {
void* objc_getClass(const char* name);
void* sel_registerName(const char* name);
void* (*objc_msg_lookup(void* receiver, void* selector))(void* receiver, void* selector);
void CFDictionarySetValue(void* dictionary, const void* key, const void* value);
}

// Under a key that nobody takes out again.
void enter(const REALobjectStruct* object) {
    static std::uintptr_t key = 4096;
    void* const owner = objc_getClass("NSException");
    void* const message = sel_registerName("GetInstancesDictionaryZRX");
    key += 16;
    CFDictionarySetValue(objc_msg_lookup(owner, message)(owner, message), reinterpret_cast<void*>(key), object);
}

bool isSet(const REALobjectStruct* object) {
    return *(reinterpret_cast<const unsigned char*>(object) + REALinstanceDataOffset) != 0;
}

void construct(REALobjectStruct*) {}

HostInteger length(REALobjectStruct* object, REALstringStruct* words) {
    if (!object) return has("null-receivers") ? 1 : 0;
    if (has("empty-receivers") && !isSet(object)) std::raise(SIGABRT); // a signal that sanitizers let be
    if (has("arguments") && !words) std::raise(SIGFPE);
    if (has("balance.object")) entry<REALLockObjectProc>("REALLockObject")(object);
    if (has("balance.entry")) enter(object);
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
    if (has("records-whole.count")) record.constantCount = 3;
    if (has("records-whole.group")) {
        static REALproperty property = {"Group", "Field", "Integer", 6, REALstandardAccessor, REALstandardAccessor, 0, {}};
        record.properties = &property;
        record.propertyCount = 1;
    }
    if (has("records-whole.further")) sharedMethods[0].further[1] = 1;
    if (announce) announce(10);
    if (announce && has("announces-once")) announce(10);
    const auto addAll = [&]() noexcept(has("host-exceptions.start")) {
        if (add) add(&record);
    };
    addAll();
}
