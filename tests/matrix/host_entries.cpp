// The reference host's entries, each behind a function of the same type that can fail and inside which nothing is counted.
#include "faults.h"

#include "model/entries.h"

#include <cstring>
#include <stdexcept>
#include <type_traits>

namespace matrix {

std::set<std::string> missingEntries;

void countRaised();

namespace {

template <int index, class Procedure>
struct Entry;

template <int index, class Result, class... Arguments>
struct Entry<index, Result (*)(Arguments...)> {
    static inline Result (*target)(Arguments...) = nullptr;

    static Result call(Arguments... arguments) {
        constexpr bool isValue = std::is_same_v<Result, REALstringStruct*> || std::is_same_v<Result, REALmemoryBlockStruct*>;
        if constexpr (std::is_pointer_v<Result>)
            if (strikes(Fault::HostAnswersNull, Fault::HostAnswersNull)) return nullptr;
        if constexpr (isValue)
            if (strikes(Fault::HostThrows, Fault::HostThrows)) throw std::range_error("thrown by the host");
        const Suspension suspension;
        return target(arguments...);
    }

    static void* around(void* address) {
        target = reinterpret_cast<Result (*)(Arguments...)>(address);
        return target ? reinterpret_cast<void*>(call) : nullptr;
    }
};

void (*hostRaise)(REALobjectStruct*) = nullptr;

void raiseCounted(REALobjectStruct* exception) {
    countRaised();
    hostRaise(exception);
}

#define CHROMA_ENTRIES(X)                                                                                                   \
    X(PluginRegisterClass, PluginRegisterClassProc)                                                                         \
    X(PluginNewInstance, PluginNewInstanceProc)                                                                             \
    X(ChromaObjectIsA, ChromaObjectIsAProc)                                                                                 \
    X(REALLockObject, REALLockObjectProc)                                                                                   \
    X(REALUnlockObject, REALUnlockObjectProc)                                                                               \
    X(REALLockString, REALLockStringProc)                                                                                   \
    X(REALUnlockString, REALUnlockStringProc)                                                                               \
    X(REALSetPropValueString, REALSetPropValueStringProc)                                                                   \
    X(REALSetPropValueInteger, REALSetPropValueIntegerProc)                                                                 \
    X(REALSetPropValueInt, REALSetPropValueIntegerProc)                                                                     \
    X(REALGetPropValueString, REALGetPropValueStringProc)                                                                   \
    X(REALBuildString, REALBuildStringProc)                                                                                 \
    X(REALBuildStringWithEncoding, REALBuildStringWithEncodingProc)                                                         \
    X(REALConvertString, REALConvertStringProc)                                                                             \
    X(REALGetStringCFString, REALGetStringCFStringProc)                                                                     \
    X(RuntimeArrayCreateSingleDimBoundedArray, RuntimeArrayCreateProc)                                                      \
    X(newMemoryBlock, NewMemoryBlockProc)                                                                                   \
    X(memoryBlockGetPtr, MemoryBlockGetPtrProc)

enum Index {
#define CHROMA_INDEX(name, Procedure) index##name,
    CHROMA_ENTRIES(CHROMA_INDEX)
};

} // namespace

void* resolveEntry(const char* name) {
    const Suspension suspension;
    if (missingEntries.count(name)) return nullptr;
    void* const address = host::resolveEntry(name);
    if (address && std::strcmp(name, "RuntimeRaiseException") == 0) {
        hostRaise = reinterpret_cast<RuntimeRaiseExceptionProc>(address);
        return reinterpret_cast<void*>(raiseCounted);
    }
#define CHROMA_AROUND(entry, Procedure)                                                                                     \
    if (std::strcmp(name, #entry) == 0) return Entry<index##entry, Procedure>::around(address);
    CHROMA_ENTRIES(CHROMA_AROUND)
    return address; // what allocates nothing and makes nothing
}

} // namespace matrix
