// A correct plugin, unless the environment variable CHROMA_FAULT names a fault: the check that detects it, a dot and a word.
#include "chromabridge/host_abi.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace {

bool has(const char* fault) {
    static const char* const chosen = std::getenv("CHROMA_FAULT");
    return chosen && std::strcmp(chosen, fault) == 0;
}

void crash() { std::raise(SIGFPE); }      // a signal that sanitizers do not handle
volatile int* volatile nowhere = nullptr; // address 0
void throwAnything() { throw std::domain_error("of the plugin"); }

REALresolver resolve = nullptr;

template <class Procedure>
Procedure entry(const char* name) {
    return reinterpret_cast<Procedure>(resolve(name));
}

void lockObject(REALobjectStruct* object) {
    if (const auto lock = entry<REALLockObjectProc>("REALLockObject")) lock(object);
}
void unlockObject(REALobjectStruct* object) {
    if (const auto unlock = entry<REALUnlockObjectProc>("REALUnlockObject")) unlock(object);
}
void lockString(REALstringStruct* string) {
    if (const auto lock = entry<REALLockStringProc>("REALLockString")) lock(string);
}
void unlockString(REALstringStruct* string) {
    if (const auto unlock = entry<REALUnlockStringProc>("REALUnlockString")) unlock(string);
}
REALstringStruct* build(const char* text) {
    const auto build = entry<REALBuildStringProc>("REALBuildString");
    return build ? build(text, static_cast<int32_t>(std::strlen(text))) : nullptr;
}

void raise(const char* className) {
    const auto make = entry<PluginNewInstanceProc>("PluginNewInstance");
    const auto raiseException = entry<RuntimeRaiseExceptionProc>("RuntimeRaiseException");
    REALobjectStruct* const exception = make && raiseException ? make(className) : nullptr;
    if (!exception) return;
    try {
        raiseException(exception);
    } catch (...) {
        unlockObject(exception);
        throw;
    }
    unlockObject(exception);
}

// ---- Objects: a name, and numbers that the host reads itself

struct Data {
    REALstringStruct* name;
    HostInteger number, spare[2];
};
static_assert(sizeof(Data) == (sizeof(void*) == 8 ? 32 : 16));

Data& dataOf(REALobjectStruct* object) {
    return *reinterpret_cast<Data*>(reinterpret_cast<char*>(object) + REALinstanceDataOffset);
}

void writeBeyond(REALobjectStruct* object) { *reinterpret_cast<char*>(&dataOf(object) + 1) = 1; }

REALobjectStruct* lastDestroyed = nullptr;
REALstringStruct* cached = nullptr;

void construct(REALobjectStruct* object) {
    if (has("instance-data.constructor")) writeBeyond(object);
}

void destroy(REALobjectStruct* object) {
    lastDestroyed = object;
    unlockString(dataOf(object).name);
}

REALstringStruct* name(REALobjectStruct* object, REALword) {
    if (has("setters.unreadable")) raise("RuntimeException");
    if (!object || !dataOf(object).name) return nullptr;
    if (!has("owned-results.stored")) lockString(dataOf(object).name);
    return dataOf(object).name;
}

void setName(REALobjectStruct* object, REALword, REALstringStruct* value) {
    if (has("setters.crash")) *nowhere = 1;
    if (has("setters.throws")) throwAnything();
    if (!object || has("setters.ignored")) return;
    lockString(value);
    REALstringStruct* const before = dataOf(object).name;
    dataOf(object).name = value;
    unlockString(before);
}

HostInteger number(REALobjectStruct* object, REALword) { return object ? dataOf(object).number : 0; }
void setNumber(REALobjectStruct* object, REALword, HostInteger value) {
    if (object) dataOf(object).number = value;
}

// ---- Functions

int32_t lengthOf(REALstringStruct* words) {
    int32_t length = 0;
    std::memcpy(&length, reinterpret_cast<const char*>(words) + REALstringLengthOffset, sizeof length);
    return length;
}

// Returns the first byte of the text.
HostInteger firstOf(REALstringStruct* words) {
    const unsigned char* buffer = nullptr;
    std::memcpy(&buffer, reinterpret_cast<const char*>(words) + REALstringBufferOffset, sizeof buffer);
    return lengthOf(words) > 0 ? buffer[1] : 0;
}

// The platform. This plugin needs one of its messages.
extern "C" {
void* objc_getClass(const char* name);
void* sel_registerName(const char* name);
void* (*objc_msg_lookup(void* receiver, void* selector))(void* receiver, void* selector);
void CFDictionarySetValue(void* dictionary, const void* key, const void* value);
}

// Enters the object under a key that nobody removes.
void enterInRegistry(const REALobjectStruct* object) {
    static uintptr_t key = 4096;
    void* const owner = objc_getClass("NSException");
    void* const message = sel_registerName("GetInstancesDictionaryZRX");
    key += 16;
    CFDictionarySetValue(objc_msg_lookup(owner, message)(owner, message), reinterpret_cast<void*>(key), object);
}

void misuse(REALobjectStruct* object, REALstringStruct* words) {
    if (has("arguments.exit")) std::exit(0);
    if (has("arguments.hang")) {
        std::fprintf(stderr, "process %d\n", static_cast<int>(getpid()));
        alarm(0);
        for (;;)
            pause();
    }
    if (has("arguments.throws") && !words) throwAnything();
    if (has("empty-receivers.throws")) throwAnything();
    if (has("empty-receivers.crash") && !dataOf(object).name) crash();
    if (has("arguments.filled") && dataOf(object).name) crash();
    if (has("balance.object")) lockObject(object);
    if (has("balance.string")) build("left behind");
    if (has("balance.registry")) enterInRegistry(object);
    if (has("destroyed-values.entry") && lastDestroyed) lockObject(lastDestroyed);
    if (has("destroyed-values.written") && lastDestroyed) dataOf(lastDestroyed).number = 1;
    if (has("destroyed-values.borrowed")) unlockString(words);
    if (has("destroyed-values.receiver")) unlockObject(object);
    if (has("instance-data.method")) writeBeyond(object);
    if (has("one-thread.joined")) {
        std::thread([] {
            resolve("REALGetRBVersion");
            lockObject(nullptr);
        }).join();
    }
    if (has("one-thread.detached")) std::thread([] { lockObject(nullptr); }).detach();
    if (has("host-versions.crash") && !resolve("memoryBlockGetPtr")) crash();
}

HostInteger first(REALobjectStruct* object, REALstringStruct* words) {
    if (!object) {
        if (has("null-receivers.crash")) crash();
        if (has("null-receivers.raises")) raise("RuntimeException");
        if (has("null-receivers.throws")) throwAnything();
        return has("null-receivers.result") ? 1 : 0;
    }
    if (has("arguments.crash") && !words) {
        std::fprintf(stderr, "words of the plugin\n");
        crash();
    }
    misuse(object, words);
    if (!words) return 0;
    if (has("locked-text.argument")) return firstOf(words);
    lockString(words);
    const HostInteger result = resolve("REALLockString") ? firstOf(words) : 0;
    unlockString(words);
    return result;
}

REALstringStruct* echo(REALobjectStruct* object, REALstringStruct* words) {
    if (!object) return nullptr;
    const auto convert = entry<REALConvertStringProc>("REALConvertString");
    if (has("locked-text.converted")) firstOf(convert(words, 0x0100));
    if (has("owned-results.cached")) {
        if (!cached) cached = build("cached");
        return cached;
    }
    if (!has("owned-results.argument")) lockString(words);
    return words;
}

REALobjectStruct* self(REALobjectStruct* object) {
    if (!has("owned-results.receiver")) lockObject(object);
    return object;
}

HostInteger at(REALobjectStruct* object, HostInteger index) {
    if (!object || index == 0) return 0;
    raise("OutOfBoundsException");
    return has("exception-results.both") ? 1 : 0;
}

// Creates two strings and returns the second.
REALstringStruct* text() {
    const auto build = entry<REALBuildStringProc>("REALBuildString");
    if (!build && has("missing-entries.crash")) crash();
    if (!build) return nullptr;
    if (has("host-exceptions.crash")) return [&]() noexcept { return build("text", 4); }();
    REALstringStruct* const first = build("text", 4);
    if (!first && has("host-nulls.crash")) crash();
    if (!first && has("host-nulls.throws")) throwAnything();
    REALstringStruct* second = nullptr;
    try {
        second = build("more", 4);
    } catch (...) {
        if (!has("host-exceptions.left")) unlockString(first);
        throw;
    }
    if (!second && has("host-nulls.left")) return nullptr;
    try {
        unlockString(first);
    } catch (...) {
        unlockString(second);
        throw;
    }
    return second;
}

// ---- Records

REALproperty properties[] = {
    {nullptr, "Name", "String", 0, reinterpret_cast<REALfunction>(name), reinterpret_cast<REALfunction>(setName), 0, {}},
    {nullptr,
     "Number",
     "Integer",
     0,
     reinterpret_cast<REALfunction>(number),
     reinterpret_cast<REALfunction>(setNumber),
     0,
     {}},
};
REALmethodDefinition methods[] = {
    {reinterpret_cast<REALfunction>(first), nullptr, "first(words as string) as integer", 0, {}},
    {reinterpret_cast<REALfunction>(first), nullptr, "again(words as string) as integer", 0, {}},
    {reinterpret_cast<REALfunction>(echo), nullptr, "echo(words as string) as string", 0, {}},
    {reinterpret_cast<REALfunction>(self), nullptr, "self() as Faulty", 0, {}},
    {reinterpret_cast<REALfunction>(at), nullptr, "at(index as integer) as integer", 0, {}},
};
REALmethodDefinition sharedMethods[] = {{reinterpret_cast<REALfunction>(text), nullptr, "text() as string", 0, {}}};
REALconstant constants[] = {{"limit=3", 0, 0, {}}, {"least=1", 0, 0, {}}};
REALclassDefinition record = {};

void prepareRecord() {
    record.version = 10;
    record.name = "Faulty";
    record.instanceDataSize = sizeof(Data);
    record.constructor = reinterpret_cast<REALfunction>(construct);
    record.destructor = reinterpret_cast<REALfunction>(destroy);
    record.properties = properties;
    record.propertyCount = 2;
    record.methods = methods;
    record.methodCount = 5;
    record.sharedMethods = sharedMethods;
    record.sharedMethodCount = 1;
    record.constants = constants;
    record.constantCount = 2;
    if (has("records-parse.method")) methods[0].declaration = "first(words as) as integer";
    if (has("records-parse.record")) record.instanceDataSize = 7;
    if (has("records-complete.count")) record.eventCount = 3;
    if (has("records-complete.table")) record.constantCount = 0;
    if (has("records-complete.group")) properties[0].group = "Group";
    if (has("records-complete.property")) properties[1].further[1] = 1;
    if (has("records-complete.method")) methods[2].further[1] = 1;
    if (has("records-complete.shared")) sharedMethods[0].further[0] = 1;
    if (has("records-complete.constant")) constants[1].further[0] = 1;
    if (has("types-known.parameter")) methods[0].declaration = "first(words as Elsewhere) as integer";
    if (has("types-known.result")) methods[3].declaration = "self() as Elsewhere";
    if (has("members-unique.method")) methods[1].declaration = "First(others as string) as integer";
    if (has("members-unique.property")) properties[1].name = "name";
    if (has("members-unique.constant")) constants[1].declaration = "LIMIT=4";
}

} // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED void REALPluginMain(REALresolver resolver);
EXPORTED void another();
extern "C" void missing();

#ifdef FAULT_EXPORTS
EXPORTED void another() {}
#endif

EXPORTED void REALPluginMain(REALresolver resolver) {
#ifdef FAULT_UNBOUND
    missing();
#endif
    if (!resolver && !has("null-resolver.crash")) return;
    resolve = resolver;
    const auto announce = entry<RegisterPluginVersionProc>("RegisterPluginVersion");
    const auto add = entry<PluginRegisterClassProc>("PluginRegisterClass");
    if (has("announces-once.crash")) crash();
    prepareRecord();
    const bool isLate = has("announces-once.late");
    if (announce && !isLate && !has("announces-once.never")) announce(has("announces-once.unknown") ? 8 : 10);
    if (announce && has("announces-once.twice")) announce(10);
    const auto addAll = [&] {
        if (add && !has("nothing.registered")) add(&record);
    };
    if (has("host-exceptions.start")) {
        [&]() noexcept { addAll(); }();
    } else {
        addAll();
    }
    if (announce && isLate) announce(10);
}
