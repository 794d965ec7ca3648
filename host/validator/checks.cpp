#include "validator/checks.h"

#include "text/characters.h"
#include "validator/calls.h"

namespace host::validator {

const std::vector<Check>& checks() {
    constexpr Severity breach = Severity::breach, warning = Severity::warning;
    constexpr bool library = false, classes = true;
    static const std::vector<Check> table = {
        {"loads", "The library loads with all its symbols bound and has REALPluginMain", breach, library, loads},
        {"exports-one-function", "The library exports only REALPluginMain", breach, library, exportsOneFunction},
        {"null-resolver", "REALPluginMain accepts a null resolver", breach, library, acceptsNullResolver},
        {"announces-once", "The plugin announces one control version, 9 to 13, before the first class", breach, library,
         announcesOnce},
        {"records-parse", "The host can read every class record and every declaration in it", breach, classes, recordsParse},
        {"records-complete", "Tables and their counts agree, and reserved words are 0", breach, classes, recordsAreComplete},
        {"types-known", "Declarations name only classes that are registered", warning, classes, typesAreKnown},
        {"members-unique", "A class declares each member once", breach, classes, membersAreUnique},
        {"null-receivers", "Every function accepts a null object: it returns its null result and raises nothing", breach,
         classes, acceptsNullReceivers},
        {"empty-receivers", "Every function accepts an object as its class constructor leaves it", breach, classes,
         acceptsEmptyReceivers},
        {"arguments", "Every function accepts all arguments that its declaration allows", breach, classes, acceptsArguments},
        {"setters", "Setters accept every value of their type, and the property reads it back", breach, classes,
         settersStore},
        {"exception-results", "A function that raises an exception returns its null result", breach, classes,
         exceptionsHaveNullResults},
        {"balance", "Calls leave no object, string or registry entry behind", breach, classes, callsBalance},
        {"owned-results", "Every object or string that a function returns has a reference for the caller", breach, classes,
         resultsAreOwned},
        {"destroyed-values", "No object or string is used after it was destroyed", breach, classes,
         destroyedValuesAreUnused},
        {"instance-data", "The plugin writes nothing beyond the instance data", breach, classes, instanceDataIsBounded},
        {"locked-text", "The text of a string is read only while the string is locked", breach, classes, textIsLocked},
        {"one-thread", "The plugin calls entry points only on the host's thread", breach, classes, usesOneThread},
        {"host-versions", "The plugin works on hosts of every version", breach, classes, servesVersions},
        {"missing-entries", "The plugin works if any entry point is missing", breach, classes, servesMissingEntries},
        {"host-nulls", "The plugin works if entry points return null, and leaves nothing behind", breach, classes,
         acceptsNulls},
        {"host-exceptions",
         "The plugin leaves nothing behind if entry points throw C++ exceptions, which the contract forbids", warning,
         classes, survivesHostExceptions},
    };
    return table;
}

Result perform(const Check& check, const Trial& trial) {
    Run run(trial, check.severity);
    check.perform(run);
    return run.take();
}

Result callFunction(const std::string& name, const Trial& trial, const HostOptions& host, bool inProcess) {
    Run run(trial, Severity::breach, inProcess);
    run.functions(host, "there is no function \"" + name + "\"", [&](const Function& function) {
        if (!equalIgnoringCase(function.name, name)) return;
        tested();
        for (const Choice& choice : choicesFor(function)) {
            const Outcome outcome = call(function, choice);
            if (!outcome.exception.empty())
                complain(outcome.call + ": an exception left the function: " + outcome.exception);
            if (outcome.raised && !outcome.isNull) complain(outcome.call + ": it raises an exception and returns a result");
            if (!outcome.leaked.empty()) complain(outcome.call + ": each call leaks " + outcome.leaked);
            for (const MisuseNote& misuse : outcome.misuses)
                complain(outcome.call + ": " + misuse.text);
        }
    });
    return run.take();
}

} // namespace host::validator
