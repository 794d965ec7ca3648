#include "validator/faults.h"

#include "entries/entries.h"
#include "validator/child.h"
#include "validator/entry_points.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace host::validator {

int suspensions = 1; // the process begins unarmed

namespace {

Plan plan;
Traces traces;
int remaining = 0;

void noteFailure(std::string_view entry, const char* what) {
    traces.entry = entry.data(); // the entry is a literal, so its characters outlive the call
    char words[100];
    std::snprintf(words, sizeof words, " after %s %s", entry.data(), what);
    noteCrash(words);
}

struct Listener {
    template <class Result, class... Arguments>
    static Result onCall(std::string_view entry, Result (*target)(Arguments...), Arguments... arguments) {
        if constexpr (std::is_pointer_v<Result>) {
            const bool isDocumented = entry != "memoryBlockGetPtr"; // the contract permits null only for empty blocks
            if ((isDocumented || !plan.documented) && injects(Fault::hostReturnsNull, Fault::hostReturnsNull)) {
                noteFailure(entry, "returned null");
                return nullptr;
            }
        }
        const bool throws = injects(Fault::hostThrows, Fault::hostAlwaysThrows);
        if (throws) noteFailure(entry, "threw");
        if (throws && (entry == "REALUnlockObject" || entry == "REALUnlockString")) target(arguments...);
        // The message is long, so a plugin that copies it may have to allocate memory.
        if (throws) throw std::range_error("thrown by the host: " + std::string(300, 'h'));
        const Suspension suspension;
        if (entry == "RuntimeRaiseException") ++traces.raised;
        return target(arguments...);
    }
};

} // namespace

void arm(Plan planned) {
    plan = planned;
    traces = {};
    remaining = planned.at;
    --suspensions;
}

Traces disarm() {
    ++suspensions;
    return traces;
}

bool injects(Fault first, Fault last) {
    if (suspensions > 0 || plan.fault < first || plan.fault > last) return false;
    const bool lasts = plan.fault == Fault::exhaustMemory || plan.fault == Fault::hostAlwaysThrows;
    if (--remaining > 0 || (traces.injected && !lasts)) return false;
    return traces.injected = true;
}

Fault plannedFault() { return plan.fault; }
bool hasInjected() { return traces.injected; }

void* observedEntry(const char* name) {
    const Suspension suspension;
    return entries::observed<Listener>(name, resolveEntry(name));
}

} // namespace host::validator
