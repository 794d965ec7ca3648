// Wraps each entry point of a host in a function of the same type. The function passes every call to a listener, which may
// return or throw instead of the host.
#pragma once

#include "chromabridge/host_abi.h"

#include <string_view>

namespace entries {

// One function for each entry point. The place in the list distinguishes functions of the same type.
template <class Listener, int place, class Procedure>
struct Around;

template <class Listener, int place, class Result, class... Arguments>
struct Around<Listener, place, Result (*)(Arguments...)> {
    static inline const char* entry = nullptr;
    static inline Result (*target)(Arguments...) = nullptr;

    static Result call(Arguments... arguments) { return Listener::onCall(entry, target, arguments...); }
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
    REAL_ENTRY_POINTS(CHROMA_PLACE)
#undef CHROMA_PLACE
};

// Returns the address of a function that calls Listener::onCall(entry, target, arguments...), where `target` is the entry
// point at `address`. Returns null if `address` is null.
template <class Listener>
void* observed(std::string_view name, void* address) {
    if (!address) return nullptr;
#define CHROMA_OBSERVED(entry, Procedure, since)                                                                            \
    if (name == #entry) return around<Listener, at##entry, Procedure>(#entry, address);
    REAL_ENTRY_POINTS(CHROMA_OBSERVED)
#undef CHROMA_OBSERVED
    return address;
}

} // namespace entries
