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

// An entry of the contract, by name. The older name of a renamed entry also has an EntryPoint.
template <class Procedure>
struct EntryPoint {
    const char* name;
};
namespace entries {
#define CHROMA_ENTRY(entry, Procedure, since) constexpr EntryPoint<::Procedure> entry{#entry};
REAL_ENTRY_POINTS(CHROMA_ENTRY)
#undef CHROMA_ENTRY
} // namespace entries

// Looks up an entry that is used once, at the start. Returns null if the host does not provide the entry.
template <class Procedure>
Procedure resolveOnce(EntryPoint<Procedure> entry) {
    return reinterpret_cast<Procedure>(gResolver(entry.name));
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
    constexpr HostEntry(const char* name, const char* olderName) : name_(name), olderName_(olderName) {}

    // Returns whether the host provides the entry.
    bool isOffered() {
        if (!address_ && !(lookup == Lookup::once && lookedUp_)) resolve();
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
        lookedUp_ = true;
    }

    const char* name_;
    const char* olderName_;
    void* address_ = nullptr;
    bool lookedUp_ = false;
};

template <class Procedure>
constexpr HostEntry<Lookup::once, Procedure> once(EntryPoint<Procedure> entry) {
    return {entry.name, nullptr};
}
template <class Procedure>
constexpr HostEntry<Lookup::retry, Procedure> retry(EntryPoint<Procedure> entry) {
    return {entry.name, nullptr};
}
// Calls the entry with the older name if the host provides only that.
template <class Procedure, class OlderProcedure>
constexpr HostEntry<Lookup::retry, Procedure> retry(EntryPoint<Procedure> entry, EntryPoint<OlderProcedure> older) {
    return {entry.name, older.name};
}

// Classes and objects
inline auto REALRegisterClass = once(entries::PluginRegisterClass);
inline auto REALnewInstance = once(entries::PluginNewInstance);
inline auto REALLockObject = once(entries::REALLockObject);
inline auto REALUnlockObject = once(entries::REALUnlockObject);
inline auto REALRaiseException = once(entries::RuntimeRaiseException);
inline auto ChromaObjectIsA = once(entries::ChromaObjectIsA);
inline auto REALSetPropValueString = retry(entries::REALSetPropValueString);
inline auto REALSetPropValueInteger = retry(entries::REALSetPropValueInteger, entries::REALSetPropValueInt);
inline auto REALGetPropValueString = once(entries::REALGetPropValueString);

// Strings
inline auto originalREALBuildString = once(entries::REALBuildString);
inline auto REALBuildStringWithEncoding = once(entries::REALBuildStringWithEncoding);
inline auto REALGetStringEncoding = once(entries::REALGetStringEncoding);
inline auto REALSetStringEncoding = once(entries::REALSetStringEncoding);
inline auto REALConvertString = once(entries::REALConvertString);
inline auto REALLockString = once(entries::REALLockString);
inline auto REALUnlockString = once(entries::REALUnlockString);
inline auto REALCopyStringCFString = once(entries::REALGetStringCFString);
inline auto REALGetStringCFString = once(entries::REALGetStringCFString);

// Arrays. The three *Procedure entries return the procedure for one array and are called at every use.
inline auto REALCreateArray = once(entries::RuntimeArrayCreateSingleDimBoundedArray);
inline auto RuntimeUBound = once(entries::RuntimeUBound);
inline auto insertDoubleProcedure = retry(entries::PluginDoubleArrayInsertProc, entries::RuntimeArrayDirectGetInsertProc);
inline auto insertObjectProcedure = retry(entries::PluginObjectArrayInsertProc, entries::RuntimeArrayDirectGetInsertProc);
inline auto getDoubleProcedure = retry(entries::PluginDoubleArrayGetProc, entries::RuntimeArrayDirectGetGetProc);

// Memory blocks
inline auto REALNewMemoryBlockOriginal = retry(entries::newMemoryBlock);
inline auto REALMemoryBlockGetPtr = once(entries::memoryBlockGetPtr);
inline auto REALMemoryBlockGetSize = once(entries::memoryBlockGetSize);

} // namespace chroma
