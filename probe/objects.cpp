#include "probe/host.h"

namespace probe {

namespace {

constexpr const char* hostException = "RuntimeException";

struct Checks {
    const Host& host;
    Report& report;
    Strings strings;
    Function<PluginNewInstanceProc> make;
    Function<REALUnlockObjectProc> unlock;

    explicit Checks(const Host& tested)
        : host(tested), report(tested.report), strings(tested), make(tested.entry(entries::PluginNewInstance)),
          unlock(tested.entry(entries::REALUnlockObject)) {}

    void drop(REALobjectStruct* object) const {
        if (object && unlock) unlock(object);
    }

    void checkInstances() const {
        report.expect(make("ChromaNoSuchClass") == nullptr, "returns an object although no class has this name");
        const Life before = life();
        REALobjectStruct* const object = make(className);
        if (!object) return report.complain("returns null for a registered class");
        report.expect(life().constructed == before.constructed + 1, "does not call the class constructor once");
        report.expect(life().wasZeroed, "does not zero the 16 bytes of instance data before the constructor runs");
        REALobjectStruct* const other = make(className);
        report.expect(other != object, "returns the same object twice");
        drop(other);
        drop(object);
        if (unlock) report.expect(life().isPreserved, "loses data that the plugin wrote into the instance data");
    }

    void checkReferences(const Function<REALLockObjectProc>& lock) const {
        REALobjectStruct* const object = make ? make(className) : nullptr;
        if (!object || !unlock) return;
        const int before = life().destroyed;
        if (lock) {
            lock(object);
            unlock(object);
            report.expect(life().destroyed == before, "destroys an object that has a reference left");
        }
        if (life().destroyed == before) unlock(object);
        report.expect(life().destroyed == before + 1,
                      "does not call the class destructor once when the last reference is dropped");
    }

    // Sets a Message, and reads it back if the host allows that.
    void checkText(REALobjectStruct* object) const {
        const auto set = host.entry(entries::REALSetPropValueString);
        const auto get = host.entry(entries::REALGetPropValueString);
        if (!object || !set || !strings.areUsable()) return;
        const auto setTo = [&](const char* property, const std::string& bytes) {
            REALstringStruct* const text = strings.of(bytes);
            set(object, property, text);
            strings.drop(text);
        };
        const auto expect = [&](const std::string& message, const std::string& when) {
            REALstringStruct* found = nullptr;
            report.expect(get(object, "Message", &found) == 1, "does not return 1 for the property Message");
            const std::string read = strings.bytesOf(found);
            report.expect(read == message, "the Message is \"" + read + "\" instead of \"" + message + "\" " + when);
            strings.drop(found);
        };
        setTo("Message", "a message");
        if (get) expect("a message", "after it was set");
        setTo("ChromaUnknownProperty", "another");
        if (get) expect("a message", "after an unknown property was set");
        set(object, "Message", nullptr);
        if (!get) return;
        expect("", "after it was set to null");
        REALstringStruct* untouched = nullptr;
        report.expect(get(object, "ChromaNoSuchProperty", &untouched) == 0, "finds a property that does not exist");
    }

    bool checkTextOwnership() const {
        const auto set = host.entry(entries::REALSetPropValueString);
        const auto get = host.entry(entries::REALGetPropValueString);
        if (!set || !get || !make || !unlock || !strings.areUsable()) return true;
        return checkOwnership(strings, report, [&](auto protect) {
            REALobjectStruct* const object = make(hostException);
            REALstringStruct* const text = strings.of(std::string(largeSize, 'x'));
            REALstringStruct* found = nullptr;
            if (object) set(object, "Message", text);
            if (object) get(object, "Message", &found);
            protect(found);
            strings.drop(text);
            drop(object);
            return found;
        });
    }

    // Only host code can read a number. It passes the number to ChromaProbe.Caught.
    void checkNumber(const Function<REALSetPropValueIntegerProc>& set, REALobjectStruct* object) const {
        set(object, "ErrorNumber", 7);
        const auto get = host.entry(entries::REALGetPropValueString);
        REALstringStruct* found = nullptr;
        if (!get || !strings.areUsable() || get(object, "ErrorNumber", &found) != 1) return;
        const std::string read = strings.bytesOf(found);
        report.expect(read == "7", "reads \"" + read + "\" from an ErrorNumber that was set to 7");
        strings.drop(found);
    }

    void checkClassOf(const Function<ChromaObjectIsAProc>& isA, REALobjectStruct* exception) const {
        report.expect(isA(exception, hostException) == 1, "returns 0 for an object's own class");
        report.expect(isA(exception, className) == 0, "returns 1 for another class");
        REALobjectStruct* const derived = make("ChromaProbeException");
        if (derived) report.expect(isA(derived, hostException) == 1, "returns 0 for the superclass of an object's class");
        drop(derived);
    }
};

} // namespace

void checkStart(const Host& host) {
    Report& report = host.report;
    report.begin("(resolver)", true);
    report.trying("(resolver)");
    report.expect(host.resolver("ChromaNoSuchEntry") == nullptr, "returns an address for a name that no host has");
    for (const char* const name : {"PluginNewInstance", "REALBuildString", "REALLockObject"})
        report.expect(host.resolver(name) == host.resolver(name), std::string("returns two addresses for ") + name);

    if (const auto version = host.begin(entries::REALGetRBVersion))
        report.expect(version() == host.version, "changes, or is not a number");
    if (const auto announce = host.begin(entries::RegisterPluginVersion)) announce(controlVersion(host.version));
    if (const auto add = host.begin(entries::PluginRegisterClass)) registerClasses(host, add);
}

void checkObjects(const Host& host) {
    const Checks checks(host);
    if (host.begin(entries::PluginNewInstance)) checks.checkInstances();
    if (const auto lock = host.begin(entries::REALLockObject)) checks.checkReferences(lock);
    if (host.begin(entries::REALUnlockObject)) checks.checkReferences({});
    host.begin(entries::RuntimeRaiseException); // tested by ChromaProbe.Raise, which host code calls

    host.begin(entries::REALGetPropValueString);
    const bool isOwned = checks.checkTextOwnership();
    REALobjectStruct* const exception = checks.make ? checks.make(hostException) : nullptr;
    if (isOwned) checks.checkText(exception);
    const auto setText = host.begin(entries::REALSetPropValueString);
    if (setText && checks.make && !exception) host.report.complain("the host has no class RuntimeException");
    if (isOwned) checks.checkText(exception);
    for (const auto& entry : {entries::REALSetPropValueInteger, entries::REALSetPropValueInt})
        if (const auto set = host.begin(entry); set && exception) checks.checkNumber(set, exception);
    if (const auto isA = host.begin(entries::ChromaObjectIsA); isA && exception) checks.checkClassOf(isA, exception);
    checks.drop(exception);
}

} // namespace probe
