// The host's entry points: callable objects that look their address up by name at the first use.
//
// A missing entry is never an error: the call does nothing and returns zero, null or false.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>

namespace chroma {

// The host's resolver, stored by REALPluginMain. Nothing is looked up before a class is registered; from then on it is not
// null.
extern REALresolver gResolver;

// Looks up an entry that is used once, at the start. Returns null if the host does not provide the entry.
template <class Procedure>
Procedure resolveOnce(const char* entryName) {
    return reinterpret_cast<Procedure>(gResolver(entryName));
}

enum class Lookup {
    once, // looked up at the first use; a null result is final
    retry // looked up at each use until the host returns an address; the newer name first
};

template <Lookup lookup, class Procedure>
class HostEntry;

template <Lookup lookup, class Result, class... Arguments>
class HostEntry<lookup, Result (*)(Arguments...)> {
public:
    constexpr explicit HostEntry(const char* name, const char* olderName = nullptr) : name_(name), olderName_(olderName) {}

    // Returns whether the host provides the entry.
    bool isOffered() {
        if (!address_ && !(lookup == Lookup::once && asked_)) resolve();
        return address_ != nullptr;
    }

    Result operator()(Arguments... arguments) {
        if (!isOffered()) return Result();
        return reinterpret_cast<Result (*)(Arguments...)>(address_)(arguments...);
    }

private:
    [[gnu::noinline]] void resolve() {
        address_ = gResolver(name_);
        if (!address_ && olderName_) address_ = gResolver(olderName_);
        asked_ = true;
    }

    const char* name_;
    const char* olderName_;
    void* address_ = nullptr;
    bool asked_ = false;
};

template <class Procedure>
using OnceEntry = HostEntry<Lookup::once, Procedure>;
template <class Procedure>
using RetryEntry = HostEntry<Lookup::retry, Procedure>;

// Classes and objects
inline OnceEntry<PluginRegisterClassProc> REALRegisterClass{"PluginRegisterClass"};
inline OnceEntry<PluginNewInstanceProc> REALnewInstance{"PluginNewInstance"};
inline OnceEntry<REALLockObjectProc> REALLockObject{"REALLockObject"};
inline OnceEntry<REALUnlockObjectProc> REALUnlockObject{"REALUnlockObject"};
inline OnceEntry<RuntimeRaiseExceptionProc> REALRaiseException{"RuntimeRaiseException"};
inline OnceEntry<ChromaObjectIsAProc> ChromaObjectIsA{"ChromaObjectIsA"};
inline RetryEntry<REALSetPropValueStringProc> REALSetPropValueString{"REALSetPropValueString"};
inline RetryEntry<REALSetPropValueIntegerProc> REALSetPropValueInteger{"REALSetPropValueInteger", "REALSetPropValueInt"};
inline OnceEntry<REALGetPropValueStringProc> REALGetPropValueString{"REALGetPropValueString"};

// Strings
inline OnceEntry<REALBuildStringProc> originalREALBuildString{"REALBuildString"};
inline OnceEntry<REALBuildStringWithEncodingProc> REALBuildStringWithEncoding{"REALBuildStringWithEncoding"};
inline OnceEntry<REALGetStringEncodingProc> REALGetStringEncoding{"REALGetStringEncoding"};
inline OnceEntry<REALSetStringEncodingProc> REALSetStringEncoding{"REALSetStringEncoding"};
inline OnceEntry<REALConvertStringProc> REALConvertString{"REALConvertString"};
inline OnceEntry<REALLockStringProc> REALLockString{"REALLockString"};
inline OnceEntry<REALUnlockStringProc> REALUnlockString{"REALUnlockString"};
inline OnceEntry<REALGetStringCFStringProc> REALCopyStringCFString{"REALGetStringCFString"};
inline OnceEntry<REALGetStringCFStringProc> REALGetStringCFString{"REALGetStringCFString"};

// Arrays. The three *Procedure entries return the procedure for one array and are called at every use.
inline OnceEntry<RuntimeArrayCreateProc> REALCreateArray{"RuntimeArrayCreateSingleDimBoundedArray"};
inline OnceEntry<RuntimeUBoundProc> RuntimeUBound{"RuntimeUBound"};
inline RetryEntry<PluginDoubleArrayInsertProc> insertDoubleProcedure{"PluginDoubleArrayInsertProc",
                                                                     "RuntimeArrayDirectGetInsertProc"};
inline RetryEntry<PluginObjectArrayInsertProc> insertObjectProcedure{"PluginObjectArrayInsertProc",
                                                                     "RuntimeArrayDirectGetInsertProc"};
inline RetryEntry<PluginDoubleArrayGetProc> getDoubleProcedure{"PluginDoubleArrayGetProc", "RuntimeArrayDirectGetGetProc"};

// Memory blocks
inline RetryEntry<NewMemoryBlockProc> REALNewMemoryBlockOriginal{"newMemoryBlock"};
inline OnceEntry<MemoryBlockGetPtrProc> REALMemoryBlockGetPtr{"memoryBlockGetPtr"};
inline OnceEntry<MemoryBlockGetSizeProc> REALMemoryBlockGetSize{"memoryBlockGetSize"};

} // namespace chroma
