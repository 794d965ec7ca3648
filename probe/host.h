// The host as the probe meets it: its resolver, and what every group of questions needs of it.
#pragma once

#include "chromabridge/host_abi.h"
#include "probe/report.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace probe {

// An entry point of the contract, and the host version that introduced it.
template <class Procedure>
struct EntryPoint {
    const char* name;
    double since;

    // The same entry, called as another type: the older insert entry serves arrays of both kinds.
    template <class Other>
    constexpr EntryPoint<Other> as() const {
        return {name, since};
    }
};
namespace entries {
#define PROBE_ENTRY(entry, Procedure, since) constexpr EntryPoint<::Procedure> entry{#entry, since};
REAL_ENTRY_POINTS(PROBE_ENTRY)
#undef PROBE_ENTRY
} // namespace entries

struct Host {
    REALresolver resolver;
    double version;
    Report& report;

    template <class Procedure>
    Procedure entry(EntryPoint<Procedure> point) const {
        return reinterpret_cast<Procedure>(resolver(point.name));
    }

    // Opens the entry's finding. Null when the host does not offer it; that is a complaint where its version requires it.
    template <class Procedure>
    Procedure begin(EntryPoint<Procedure> point, bool isRequired = false) const {
        const auto procedure = entry(point);
        report.begin(point.name, procedure != nullptr);
        if (!procedure && isRequired && version >= point.since)
            report.complain("missing, though plugins of a host of this version count on it");
        return procedure;
    }
};

// A field of a value, which may be unaligned.
template <class Field>
Field fieldAt(const void* value, int offset) {
    Field field;
    std::memcpy(&field, static_cast<const char*>(value) + offset, sizeof field);
    return field;
}

// "c3 a9" for bytes, "none" for no bytes.
std::string hex(const std::string& bytes);

// The groups of questions. Each gives back what it takes.
void askStart(const Host& host);   // what happens while the plugin is loaded
void askObjects(const Host& host); // classes, instances, references, properties
void askStrings(const Host& host);
void askArrays(const Host& host);
void askBlocks(const Host& host);

// The probe's own class, whose instances tell what became of them.
extern const char* const className;
struct Life {
    int constructed, destroyed; // instances, in all
    bool wasZeroed;             // the last one's data, before its constructor ran
    bool wasHeld;               // an object that was locked and unlocked once is still there
    bool wasKept;               // what the constructor wrote there, until the destructor ran
};
Life& life();
void registerClasses(const Host& host, PluginRegisterClassProc registerClass);

// The layout of records that a host of this version understands: 9 the legacy one.
std::int32_t controlVersion(double hostVersion);

} // namespace probe
