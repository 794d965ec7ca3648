// The host that the probe tests: its resolver, and its entry points.
#pragma once

#include "chromabridge/host_abi.h"
#include "probe/memory.h"
#include "probe/report.h"

#include <cstring>
#include <string>

namespace probe {

// The name, the type and the first host version of an entry point of the contract.
template <class Procedure>
struct EntryPoint {
    const char* name;
    double since;
};
namespace entries {
#define PROBE_ENTRY(entry, Procedure, since) constexpr EntryPoint<::Procedure> entry{#entry, since};
REAL_ENTRY_POINTS(PROBE_ENTRY)
#undef PROBE_ENTRY
} // namespace entries

// A function of the host, or none. The report notes each call before it happens.
template <class Procedure>
class Function;
template <class Result, class... Arguments>
class Function<Result (*)(Arguments...)> {
public:
    using Address = Result (*)(Arguments...);

    Function() = default;
    Function(const char* name, Address address, Report& report) : name_(name), address_(address), report_(&report) {}

    explicit operator bool() const { return address_ != nullptr; }
    Result operator()(Arguments... arguments) const {
        report_->trying(name_);
        return address_(arguments...);
    }
    // Wraps a procedure that this entry point returned. Calls of it count as calls of the entry point.
    template <class Procedure>
    Function<Procedure> procedure(Procedure address) const {
        return {name_, address, *report_};
    }

private:
    const char* name_ = nullptr;
    Address address_ = nullptr;
    Report* report_ = nullptr;
};

struct Host {
    REALresolver resolver;
    double version;
    Report& report;

    // Returns the entry point as the given type, by default its declared type.
    template <class Procedure, class As = Procedure>
    Function<As> entry(EntryPoint<Procedure> point, As = nullptr) const {
        return {point.name, reinterpret_cast<As>(resolver(point.name)), report};
    }

    // Starts the finding of the entry point and returns it.
    template <class Procedure, class As = Procedure>
    Function<As> begin(EntryPoint<Procedure> point, As as = nullptr) const {
        const auto function = entry(point, as);
        report.begin(point.name, static_cast<bool>(function));
        return function;
    }

    // Complains if the host does not provide the current entry point, although it has this version and provides the related
    // one.
    template <class Procedure, class Other>
    void require(EntryPoint<Procedure> point, EntryPoint<Other> other) const {
        if (version >= point.since && resolver(other.name) && !resolver(point.name))
            report.complain(std::string("missing, although the host provides ") + other.name);
    }
};

// Reads a field of a value, which may be unaligned.
template <class Field>
Field fieldAt(const void* value, int offset) {
    Field field;
    std::memcpy(&field, static_cast<const char*>(value) + offset, sizeof field);
    return field;
}

// Returns bytes as "c3 a9", or "none".
std::string hex(const std::string& bytes);

// The groups of checks. Each releases what it creates.
void checkStart(const Host& host); // also registers the probe's classes
void checkObjects(const Host& host);
void checkStrings(const Host& host);
void checkArrays(const Host& host);
void checkBlocks(const Host& host);

// The strings that the probe needs to test properties.
struct Strings {
    Function<REALBuildStringProc> build;
    Function<REALLockStringProc> lock;
    Function<REALUnlockStringProc> unlock;

    explicit Strings(const Host& host)
        : build(host.entry(entries::REALBuildString)), lock(host.entry(entries::REALLockString)),
          unlock(host.entry(entries::REALUnlockString)) {}

    // Set if the lock adds no reference. Reading a string would then destroy it.
    static inline bool isLockBroken = false;

    bool areUsable() const { return build && lock && unlock && !isLockBroken; }
    REALstringStruct* of(const std::string& bytes) const {
        return build(bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }
    // Returns the bytes in the string's storage, which is valid while the string is locked.
    std::string bytesOf(REALstringStruct* string) const;
    void drop(REALstringStruct* string) const {
        if (string) unlock(string);
    }
};

// Checks that the caller of an entry point owns the string that it returns. `make(protect)` gets a large string from the
// entry point, calls protect(string) at once, and drops everything else that could keep the string alive. Returns false if
// the string has no reference for the caller, so that the caller must not drop it.
template <class Make>
bool checkOwnership(const Strings& strings, Report& report, Make make) {
    const Growth growth;
    bool isVisible = false; // whether the host's memory is visible
    REALstringStruct* const string = make([&](REALstringStruct* received) {
        if (received) strings.lock(received);
        isVisible = growth.hasLargeValue();
    });
    if (!string) return true;
    strings.unlock(string);
    const bool isOwned = !isVisible || growth.hasLargeValue();
    if (isVisible) report.expect(isOwned, "returns the string without a reference for the caller");
    if (isOwned) strings.unlock(string); // the protection
    return isOwned;
}

// The probe's class. Its instances count their constructions and destructions.
extern const char* const className;
struct Life {
    int constructed, destroyed;
    bool wasZeroed;   // whether the last instance's data was zero before its constructor ran
    bool isPreserved; // whether the data that the constructor wrote stayed until the destructor ran
};
Life& life();
void registerClasses(const Host& host, const Function<PluginRegisterClassProc>& registerClass);

// Returns the control version for a host version.
std::int32_t controlVersion(double hostVersion);

} // namespace probe
