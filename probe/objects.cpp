#include "probe/host.h"

#include <cstdint>

namespace probe {

namespace {

constexpr const char* hostException = "RuntimeException"; // of every host, with Message and ErrorNumber

// Text as bytes, of a string that the host built; gives it up.
std::string take(const Host& host, REALstringStruct* string) {
    const auto lock = host.entry(entries::REALLockString);
    const auto unlock = host.entry(entries::REALUnlockString);
    if (!string || !lock || !unlock) return "";
    lock(string);
    const auto* const buffer = fieldAt<const char*>(string, REALstringBufferOffset);
    const std::string text = buffer ? std::string(buffer + 1, fieldAt<std::uint32_t>(string, REALstringLengthOffset)) : "";
    unlock(string);
    unlock(string);
    return text;
}

void askInstances(const Host& host, PluginNewInstanceProc make, REALUnlockObjectProc unlock) {
    Report& report = host.report;
    report.expect(make("ChromaNoSuchClass") == nullptr, "answers an object of a class that nobody registered");
    const Life before = life();
    REALobjectStruct* const object = make(className);
    if (!object) return report.complain("answers null for a registered class");
    report.expect(life().constructed == before.constructed + 1, "does not run the class constructor once");
    report.expect(life().wasZeroed, "does not zero the 16 bytes of instance data before the constructor runs");
    REALobjectStruct* const other = make(className);
    report.expect(other != object, "answers the same object twice");
    if (!unlock) return;
    unlock(other);
    unlock(object);
    report.expect(life().wasKept, "loses what the plugin wrote into the instance data");
}

void askReferences(const Host& host, PluginNewInstanceProc make, REALLockObjectProc lock, REALUnlockObjectProc unlock) {
    REALobjectStruct* const object = make ? make(className) : nullptr;
    if (!object || !unlock) return;
    const int before = life().destroyed;
    if (lock) {
        lock(object);
        unlock(object);
        life().wasHeld = life().destroyed == before;
        host.report.expect(life().wasHeld, "ends an object that has a reference left");
    }
    if (life().destroyed == before) unlock(object);
    host.report.expect(life().destroyed == before + 1,
                       "does not run the class destructor once when the last reference goes");
}

void askText(const Host& host, REALobjectStruct* object) {
    const auto get = host.entry(entries::REALGetPropValueString);
    const auto set = host.entry(entries::REALSetPropValueString);
    const auto build = host.entry(entries::REALBuildString);
    const auto unlock = host.entry(entries::REALUnlockString);
    if (!get || !set || !build || !unlock || !host.entry(entries::REALLockString)) return;
    REALstringStruct* const text = build("a message", 9);
    set(object, "Message", text);
    unlock(text);
    REALstringStruct* found = nullptr;
    host.report.expect(get(object, "Message", &found) == 1, "does not answer 1 for a property that is there");
    const std::string read = take(host, found);
    host.report.expect(read == "a message", "reads \"" + read + "\" from a property that was set to \"a message\"");
    REALstringStruct* untouched = nullptr;
    host.report.expect(get(object, "ChromaNoSuchProperty", &untouched) == 0, "finds a property that is not there");
    take(host, untouched);
}

} // namespace

void askStart(const Host& host) {
    Report& report = host.report;
    report.begin("(resolver)", true);
    report.expect(host.resolver("ChromaNoSuchEntry") == nullptr, "answers an address for a name that no host has");
    for (const char* name : {entries::PluginNewInstance.name, entries::REALBuildString.name, entries::REALLockObject.name})
        report.expect(host.resolver(name) == host.resolver(name), std::string("answers two addresses for ") + name);

    if (const auto version = host.begin(entries::REALGetRBVersion)) {
        report.expect(version() == version(), "changes, or is not a number");
        report.expect(version() > 0.0, "is not above 0");
    }
    if (const auto announce = host.begin(entries::RegisterPluginVersion)) {
        announce(controlVersion(host.version));
        report.returned();
    }
    if (const auto add = host.begin(entries::PluginRegisterClass)) registerClasses(host, add);
}

void askObjects(const Host& host) {
    Report& report = host.report;
    const auto make = host.begin(entries::PluginNewInstance);
    const auto unlock = host.entry(entries::REALUnlockObject);
    if (make) askInstances(host, make, unlock);
    const auto lock = host.begin(entries::REALLockObject);
    if (lock) askReferences(host, make, lock, unlock);
    if (host.begin(entries::REALUnlockObject)) askReferences(host, make, nullptr, unlock);
    host.begin(entries::RuntimeRaiseException); // asked in ChromaProbe.Raise, under host code

    REALobjectStruct* const exception = make ? make(hostException) : nullptr;
    for (const bool isSet : {true, false}) {
        const bool isOffered = isSet ? host.begin(entries::REALSetPropValueString) != nullptr
                                     : host.begin(entries::REALGetPropValueString) != nullptr;
        if (!isOffered || !make) continue;
        if (exception) {
            askText(host, exception);
        } else {
            report.complain("there is no class RuntimeException to set a Message of");
        }
    }
    for (const auto& entry : {entries::REALSetPropValueInteger, entries::REALSetPropValueInt}) {
        const auto setNumber = host.begin(entry);
        if (!setNumber || !exception) continue;
        setNumber(exception, "ErrorNumber", 7);
        report.returned();
    }
    if (const auto isA = host.begin(entries::ChromaObjectIsA); isA && exception) {
        report.expect(isA(exception, hostException) == 1, "denies an object its own class");
        report.expect(isA(exception, className) == 0, "takes an exception for a ChromaProbe");
        REALobjectStruct* const descendant = make("ChromaProbeException");
        report.expect(isA(descendant, hostException) == 1, "denies an object its superclass");
        if (unlock && descendant) unlock(descendant);
    }
    if (unlock && exception) unlock(exception);
}

} // namespace probe
