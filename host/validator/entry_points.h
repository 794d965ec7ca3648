// The entry points of a host, each behind a function of the same type, so that a listener hears of every call and may
// answer, or throw, in the host's place.
#pragma once

#include "chromabridge/host_abi.h"

#include <string_view>

namespace entries {

// Names, types, and the host version from which on they are there. The older name of the insert procedures serves arrays of
// both kinds.
using AnyInsertProc = void* (*)(void* array);
#define CHROMA_HOST_ENTRIES(X)                                                                                              \
    X(REALGetRBVersion, REALGetRBVersionProc, 0)                                                                            \
    X(RegisterPluginVersion, RegisterPluginVersionProc, 0)                                                                  \
    X(PluginRegisterClass, PluginRegisterClassProc, 0)                                                                      \
    X(PluginNewInstance, PluginNewInstanceProc, 0)                                                                          \
    X(ChromaObjectIsA, ChromaObjectIsAProc, 0)                                                                              \
    X(REALLockObject, REALLockObjectProc, 0)                                                                                \
    X(REALUnlockObject, REALUnlockObjectProc, 0)                                                                            \
    X(REALLockString, REALLockStringProc, 0)                                                                                \
    X(REALUnlockString, REALUnlockStringProc, 0)                                                                            \
    X(RuntimeRaiseException, RuntimeRaiseExceptionProc, 0)                                                                  \
    X(REALSetPropValueString, REALSetPropValueStringProc, 0)                                                                \
    X(REALSetPropValueInteger, REALSetPropValueIntegerProc, 2013)                                                           \
    X(REALSetPropValueInt, REALSetPropValueIntegerProc, 0)                                                                  \
    X(REALGetPropValueString, REALGetPropValueStringProc, 0)                                                                \
    X(REALBuildString, REALBuildStringProc, 0)                                                                              \
    X(REALBuildStringWithEncoding, REALBuildStringWithEncodingProc, 2012)                                                   \
    X(REALGetStringEncoding, REALGetStringEncodingProc, 0)                                                                  \
    X(REALSetStringEncoding, REALSetStringEncodingProc, 0)                                                                  \
    X(REALConvertString, REALConvertStringProc, 0)                                                                          \
    X(REALGetStringCFString, REALGetStringCFStringProc, 0)                                                                  \
    X(RuntimeArrayCreateSingleDimBoundedArray, RuntimeArrayCreateProc, 0)                                                   \
    X(RuntimeUBound, RuntimeUBoundProc, 0)                                                                                  \
    X(PluginDoubleArrayInsertProc, PluginDoubleArrayInsertProc, 2013)                                                       \
    X(PluginObjectArrayInsertProc, PluginObjectArrayInsertProc, 2013)                                                       \
    X(PluginDoubleArrayGetProc, PluginDoubleArrayGetProc, 2013)                                                             \
    X(RuntimeArrayDirectGetInsertProc, entries::AnyInsertProc, 0)                                                           \
    X(RuntimeArrayDirectGetGetProc, PluginDoubleArrayGetProc, 0)                                                            \
    X(newMemoryBlock, NewMemoryBlockProc, 0)                                                                                \
    X(memoryBlockGetPtr, MemoryBlockGetPtrProc, 2017)                                                                       \
    X(memoryBlockGetSize, MemoryBlockGetSizeProc, 2017)

// One function for each entry, told apart by its place in the list.
template <class Listener, int place, class Procedure>
struct Around;

template <class Listener, int place, class Result, class... Arguments>
struct Around<Listener, place, Result (*)(Arguments...)> {
    static inline const char* entry = nullptr;
    static inline Result (*target)(Arguments...) = nullptr;

    static Result call(Arguments... arguments) { return Listener::answer(entry, target, arguments...); }
};

template <class Listener, int place, class Procedure>
void* around(const char* entry, void* address) {
    using Function = Around<Listener, place, Procedure>;
    Function::entry = entry;
    Function::target = reinterpret_cast<Procedure>(address);
    return reinterpret_cast<void*>(Function::call);
}

enum Place {
#define CHROMA_PLACE(name, Procedure, since) at##name,
    CHROMA_HOST_ENTRIES(CHROMA_PLACE)
#undef CHROMA_PLACE
};

// The address of the function that asks Listener::answer(entry, target, arguments...) in place of the entry at `address`;
// null for a null one.
template <class Listener>
void* heard(std::string_view name, void* address) {
    if (!address) return nullptr;
#define CHROMA_HEARD(entry, Procedure, since)                                                                               \
    if (name == #entry) return around<Listener, at##entry, Procedure>(#entry, address);
    CHROMA_HOST_ENTRIES(CHROMA_HEARD)
#undef CHROMA_HEARD
    return address;
}

} // namespace entries
