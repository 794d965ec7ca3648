#include "validator/validator.h"

#include "model/entries.h"
#include "model/plugin.h"
#include "model/records.h"
#include "validator/calls.h"
#include "validator/child.h"
#include "validator/entry_points.h"
#include "validator/exports.h"
#include "validator/forms.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include <dlfcn.h>

namespace host::validator {

namespace {

// ---- A plugin in this process, with what it did at its start

struct Announcement {
    std::vector<std::int32_t> versions;
    bool afterClass = false;
    int classes = 0;
};
Announcement announcement;

// Hears what a plugin announces.
struct Announcing {
    static void answer(std::string_view, RegisterPluginVersionProc target, std::int32_t version) {
        announcement.versions.push_back(version);
        announcement.afterClass = announcement.afterClass || announcement.classes > 0;
        target(version);
    }
    static void answer(std::string_view, PluginRegisterClassProc target, REALclassDefinition* record) {
        ++announcement.classes;
        target(record);
    }
    template <class Result, class... Arguments>
    static Result answer(std::string_view, Result (*target)(Arguments...), Arguments... arguments) {
        return target(arguments...);
    }
};

void* resolve(const char* name) { return entries::heard<Announcing>(name, heardEntry(name)); }

// The plugin's own classes, once it has started on such a host.
std::vector<const ClassInfo*> start(const Trial& trial, const HostOptions& options = {}) {
    step("the start of the host");
    startHost(options);
    if (!trial.sibling.empty()) loadPlugin(trial.sibling);
    const std::size_t before = registry().classes().size();
    step("REALPluginMain");
    openPlugin(trial.plugin)(resolve);
    std::vector<const ClassInfo*> own;
    for (std::size_t i = before; i < registry().classes().size(); ++i)
        own.push_back(registry().classes()[i].get());
    return own;
}

std::vector<Function> functionsOf(const std::vector<const ClassInfo*>& classes) {
    std::vector<Function> all;
    for (const ClassInfo* info : classes) {
        for (Function& function : functionsOf(*info, declaredForms))
            all.push_back(std::move(function));
    }
    return all;
}

// ---- What is complained about

class Complaints {
public:
    void add(const std::string& line) {
        if (!line.empty() && seen_.insert(line).second) text_ += (text_.empty() ? "" : "\n") + line;
    }
    const std::string& text() const { return text_; }

private:
    std::set<std::string> seen_;
    std::string text_;
};

std::string describe(const HostOptions& options) {
    std::ostringstream text;
    text << "version " << options.version;
    for (const std::string& entry : options.without)
        text << " without " << entry;
    return text.str();
}

// Every complaint of one host, behind what that host is.
void addOf(Complaints& complaints, const std::string& what, const std::string& complaint) {
    std::istringstream lines(complaint);
    for (std::string line; std::getline(lines, line);)
        complaints.add(what + ": " + line);
}

using Choices = std::vector<Choice> (*)(const Function& function);

void callAll(const std::vector<const ClassInfo*>& classes, Choices choicesOf, Complaints& complaints) {
    for (const Function& function : functionsOf(classes)) {
        for (const Choice& choice : choicesOf(function))
            if (call(function, choice).threw) complaints.add(function.name + ": an exception left the function");
    }
}

std::string callAllOn(const Trial& trial, const HostOptions& options) {
    return inChild([&] {
        Complaints complaints;
        callAll(start(trial, options), ordinaryChoicesFor, complaints);
        for (const std::string& problem : registry().problems())
            complaints.add(problem);
        return complaints.text();
    });
}

// ---- The library and its start

std::string loads(const Trial& trial) {
    return inChild([&] {
        step("loading");
        openPlugin(trial.plugin);
        return std::string();
    });
}

std::string exportsOneFunction(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        Dl_info info = {};
        const REALPluginMainProc entryPoint = openPlugin(trial.plugin);
        if (dladdr(reinterpret_cast<void*>(entryPoint), &info) == 0)
            throw std::runtime_error("the library's file is unknown");
        for (const std::string& name : exportedFunctions(info.dli_fname))
            if (name != "REALPluginMain") complaints.add("it exports " + name + " too");
        return complaints.text();
    });
}

std::string survivesNullResolver(const Trial& trial) {
    return inChild([&] {
        startHost();
        const REALPluginMainProc entryPoint = openPlugin(trial.plugin);
        step("REALPluginMain of null");
        entryPoint(nullptr);
        return std::string();
    });
}

std::string announcesOnce(const Trial& trial) {
    return inChild([&] {
        start(trial);
        Complaints complaints;
        const std::vector<std::int32_t>& versions = announcement.versions;
        if (versions.size() != 1) complaints.add("it announces " + std::to_string(versions.size()) + " control versions");
        for (const std::int32_t version : versions)
            if (version < 9 || version > 13) complaints.add("it announces the control version " + std::to_string(version));
        if (announcement.afterClass) complaints.add("it announces after a class is registered");
        return complaints.text();
    });
}

// ---- Records

std::string recordsParse(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        if (start(trial).empty()) complaints.add("no class is registered");
        for (const std::string& problem : registry().problems())
            complaints.add(problem);
        return complaints.text();
    });
}

std::string recordsAreWhole(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const ClassInfo* info : start(trial)) {
            const RecordView view(*info->record());
            const REALclassDefinitionLegacy& head = view.head();
            const auto check = [&](const void* rows, REALword count, const char* what) {
                if (count < 0 || (count > 0) != (rows != nullptr)) {
                    complaints.add(info->name() + ": " + (rows ? "a table" : "no table") + " and a count of " +
                                   std::to_string(count) + " for the " + what);
                }
            };
            check(head.properties, head.propertyCount, "properties");
            check(head.methods, head.methodCount, "methods");
            check(head.events, head.eventCount, "events");
            check(head.constants, head.constantCount, "constants");
            check(head.sharedProperties, head.sharedPropertyCount, "shared properties");
            check(head.sharedMethods, head.sharedMethodCount, "shared methods");
            for (std::size_t i = 0; i < view.propertyCount(); ++i) {
                if (view.property(i).group)
                    complaints.add(info->name() + ": property " + std::to_string(i) + " has a group");
            }
            const auto checkFurther = [&](const auto* rows, std::size_t count, const char* what) {
                for (std::size_t i = 0; i < count; ++i) {
                    const auto& words = rows[i].further;
                    if (std::any_of(std::begin(words), std::end(words), [](REALword word) { return word != 0; }))
                        complaints.add(info->name() + ": " + what + " " + std::to_string(i) + " has words that are to be 0");
                }
            };
            if (view.isLegacy()) {
                checkFurther(head.properties, view.propertyCount(), "property");
                continue;
            }
            const REALclassDefinition& record = *info->record();
            checkFurther(record.properties, view.propertyCount(), "property");
            checkFurther(record.methods, view.methodCount(), "method");
            checkFurther(record.constants, view.constantCount(), "constant");
            checkFurther(record.sharedMethods, view.sharedMethodCount(), "shared method");
        }
        return complaints.text();
    });
}

std::string typesAreKnown(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const Function& function : functionsOf(start(trial))) {
            const auto check = [&](const Type& type) {
                const bool isClass = type.kind == Kind::object && !equalIgnoringCase(type.className, "Object");
                if (isClass && !registry().find(type.className))
                    complaints.add(function.name + ": there is no class " + type.className);
            };
            check(function.signature.result);
            for (const Parameter& parameter : function.signature.parameters)
                check(parameter.type);
        }
        return complaints.text();
    });
}

std::string membersAreUnique(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const ClassInfo* info : start(trial)) {
            std::set<std::string, LessIgnoringCase> seen;
            const auto add = [&](const std::string& member) {
                if (!seen.insert(member).second) complaints.add(info->name() + ": " + member + " stands there twice");
            };
            for (const std::vector<Method>* methods : {&info->methods(), &info->sharedMethods()}) {
                for (const Method& method : *methods) {
                    std::string member = (method.shared ? "shared " : "") + method.signature.name + "(";
                    for (const Parameter& parameter : method.signature.parameters)
                        member += (parameter.paramArray ? "paramarray " : "") + nameOf(parameter.type) + ",";
                    if (member.back() == ',') member.pop_back();
                    add(member + ")");
                }
            }
            for (const Property& property : info->properties())
                add(property.name);
            for (const Constant& constant : info->constants())
                add(constant.name);
        }
        return complaints.text();
    });
}

// ---- Hosts

std::string survivesVersions(const Trial& trial) {
    Complaints complaints;
    for (const double version : {0.0, 2011.0, 2012.0, 2013.0, 2017.0, 2021.0, 2099.0}) {
        const HostOptions options = {version, {}};
        addOf(complaints, describe(options), callAllOn(trial, options));
    }
    return complaints.text();
}

std::string survivesMissingEntries(const Trial& trial) {
    Complaints complaints;
    for (const double version : {2011.0, 2021.0}) {
        for (const std::string& entry : entryNames()) {
            const HostOptions options = {version, {entry}};
            addOf(complaints, describe(options), callAllOn(trial, options));
        }
    }
    return complaints.text();
}

// The start with the fault at the n-th call of the host; whether it struck.
bool startWith(const Trial& trial, Plan plan) {
    startHost();
    const REALPluginMainProc entryPoint = openPlugin(trial.plugin);
    step("REALPluginMain");
    arm(plan);
    try {
        entryPoint(heardEntry);
    } catch (const std::exception&) { // the host's own
    }
    return disarm().struck;
}

// With the fault at the first call of the host, at the second, and so on until there is none: while the plugin starts, each
// time in a process of its own, and in each call.
std::string survivesFault(const Trial& trial, Fault fault) {
    const std::string struck = "struck";
    std::string answer = struck;
    for (Plan plan{fault, 1}; answer == struck; ++plan.at)
        answer = inChild([&] { return startWith(trial, plan) ? struck : std::string(); });
    if (!answer.empty()) return answer;
    return inChild([&] {
        Complaints complaints;
        const bool isTheHosts = fault != Fault::hostAnswersNull; // an exception of its own may come back to it
        for (const Function& function : functionsOf(start(trial))) {
            for (const Choice& choice : ordinaryChoicesFor(function)) {
                Outcome outcome = {true};
                for (Plan plan{fault, 1}; outcome.struck; ++plan.at) {
                    outcome = call(function, choice, plan);
                    if (outcome.threw && !isTheHosts) complaints.add(function.name + ": an exception left the function");
                    if (!outcome.left.empty()) complaints.add(function.name + ": " + outcome.left);
                }
            }
        }
        return complaints.text();
    });
}

std::string survivesNulls(const Trial& trial) { return survivesFault(trial, Fault::hostAnswersNull); }

std::string survivesHostExceptions(const Trial& trial) {
    Complaints complaints;
    addOf(complaints, "when one entry throws", survivesFault(trial, Fault::hostThrows));
    addOf(complaints, "when all do from there on", survivesFault(trial, Fault::hostAlwaysThrows));
    return complaints.text();
}

// ---- Calls

std::string nullReceivers(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const Function& function : functionsOf(start(trial))) {
            if (!function.hasReceiver()) continue;
            const Outcome outcome = call(function, {nullReceiver});
            if (!outcome.isNull) complaints.add(function.name + ": null has a result");
            if (outcome.raised) complaints.add(function.name + ": null raises");
            if (outcome.threw) complaints.add(function.name + ": an exception left the function");
        }
        return complaints.text();
    });
}

std::string emptyReceivers(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const Function& function : functionsOf(start(trial))) {
            if (function.hasReceiver() && call(function, {emptyReceiver}).threw)
                complaints.add(function.name + ": an exception left the function");
        }
        return complaints.text();
    });
}

std::string takesAnyArgument(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        callAll(start(trial), choicesFor, complaints);
        return complaints.text();
    });
}

std::string balances(const Trial& trial) {
    return inChild([&] {
        Complaints complaints;
        for (const Function& function : functionsOf(start(trial))) {
            for (const Choice& choice : choicesFor(function)) {
                const std::string left = call(function, choice).left;
                if (left.empty()) continue;
                complaints.add(function.name + ": " + left);
                break;
            }
        }
        return complaints.text();
    });
}

} // namespace

const std::vector<Check>& checks() {
    static const std::vector<Check> table = {
        {"loads", "The library loads with all its symbols bound, and has REALPluginMain", loads},
        {"exports-one-function", "REALPluginMain is all that it exports", exportsOneFunction},
        {"null-resolver", "A null resolver is survived", survivesNullResolver},
        {"announces-once", "One control version, 9 to 13, is announced, before the first class", announcesOnce},
        {"records-parse", "The host can take every class record and every declaration in it", recordsParse},
        {"records-whole", "Tables and their counts agree, and words that are to be 0 are", recordsAreWhole},
        {"types-known", "Declarations name only classes that are there", typesAreKnown},
        {"members-unique", "No member stands in a class twice", membersAreUnique},
        {"null-receivers", "Null in an object's place has the null result, and raises nothing", nullReceivers},
        {"empty-receivers", "An object as its class constructor leaves it may be asked for everything", emptyReceivers},
        {"arguments", "Every function takes what its declaration admits", takesAnyArgument},
        {"balance", "Calls leave no object, no string and no entry of the registry behind", balances},
        {"host-versions", "Hosts of every version are served", survivesVersions},
        {"missing-entries", "A host may lack any entry", survivesMissingEntries},
        {"host-nulls", "An entry that answers null is survived, and nothing left behind", survivesNulls},
        {"host-exceptions", "So is one that throws a C++ exception, once or from then on", survivesHostExceptions},
    };
    return table;
}

} // namespace host::validator
