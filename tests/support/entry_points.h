// The entry points of a host, each behind a function of the same type, so that a test hears of every call and may answer, or
// throw, in the host's place.
#pragma once

#include "chromabridge/host_abi.h"

#include <string_view>

namespace entries {

// Names and types. The older name of the insert procedures serves arrays of both kinds.
using AnyInsertProc = void* (*)(void* array);
#define CHROMA_HOST_ENTRIES(X)                                                                                              \
    X(REALGetRBVersion, REALGetRBVersionProc)                                                                               \
    X(RegisterPluginVersion, RegisterPluginVersionProc)                                                                     \
    X(PluginRegisterClass, PluginRegisterClassProc)                                                                         \
    X(PluginNewInstance, PluginNewInstanceProc)                                                                             \
    X(ChromaObjectIsA, ChromaObjectIsAProc)                                                                                 \
    X(REALLockObject, REALLockObjectProc)                                                                                   \
    X(REALUnlockObject, REALUnlockObjectProc)                                                                               \
    X(REALLockString, REALLockStringProc)                                                                                   \
    X(REALUnlockString, REALUnlockStringProc)                                                                               \
    X(RuntimeRaiseException, RuntimeRaiseExceptionProc)                                                                     \
    X(REALSetPropValueString, REALSetPropValueStringProc)                                                                   \
    X(REALSetPropValueInteger, REALSetPropValueIntegerProc)                                                                 \
    X(REALSetPropValueInt, REALSetPropValueIntegerProc)                                                                     \
    X(REALGetPropValueString, REALGetPropValueStringProc)                                                                   \
    X(REALBuildString, REALBuildStringProc)                                                                                 \
    X(REALBuildStringWithEncoding, REALBuildStringWithEncodingProc)                                                         \
    X(REALGetStringEncoding, REALGetStringEncodingProc)                                                                     \
    X(REALSetStringEncoding, REALSetStringEncodingProc)                                                                     \
    X(REALConvertString, REALConvertStringProc)                                                                             \
    X(REALGetStringCFString, REALGetStringCFStringProc)                                                                     \
    X(RuntimeArrayCreateSingleDimBoundedArray, RuntimeArrayCreateProc)                                                      \
    X(RuntimeUBound, RuntimeUBoundProc)                                                                                     \
    X(PluginDoubleArrayInsertProc, PluginDoubleArrayInsertProc)                                                             \
    X(PluginObjectArrayInsertProc, PluginObjectArrayInsertProc)                                                             \
    X(PluginDoubleArrayGetProc, PluginDoubleArrayGetProc)                                                                   \
    X(RuntimeArrayDirectGetInsertProc, entries::AnyInsertProc)                                                              \
    X(RuntimeArrayDirectGetGetProc, PluginDoubleArrayGetProc)                                                               \
    X(newMemoryBlock, NewMemoryBlockProc)                                                                                   \
    X(memoryBlockGetPtr, MemoryBlockGetPtrProc)                                                                             \
    X(memoryBlockGetSize, MemoryBlockGetSizeProc)

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
#define CHROMA_PLACE(name, Procedure) at##name,
    CHROMA_HOST_ENTRIES(CHROMA_PLACE)
#undef CHROMA_PLACE
};

// The address of the function that asks Listener::answer(entry, target, arguments...) in place of the entry at `address`;
// null for a null one.
template <class Listener>
void* heard(std::string_view name, void* address) {
    if (!address) return nullptr;
#define CHROMA_HEARD(entry, Procedure)                                                                                      \
    if (name == #entry) return around<Listener, at##entry, Procedure>(#entry, address);
    CHROMA_HOST_ENTRIES(CHROMA_HEARD)
#undef CHROMA_HEARD
    return address;
}

} // namespace entries
