// Checks of the class records.
#include "validator/checks.h"

#include "model/records.h"

#include <algorithm>
#include <set>

namespace host::validator {

namespace {

void checkTables(const ClassInfo& info, const REALclassDefinitionLegacy& head) {
    const auto check = [&](const void* rows, REALword count, const char* what) {
        if (count < 0 || (count > 0) != (rows != nullptr)) {
            complain(info.name() + ": " + (rows ? "a table" : "no table") + " and a count of " + std::to_string(count) +
                     " for the " + what);
        }
    };
    check(head.properties, head.propertyCount, "properties");
    check(head.methods, head.methodCount, "methods");
    check(head.events, head.eventCount, "events");
    check(head.constants, head.constantCount, "constants");
    check(head.sharedProperties, head.sharedPropertyCount, "shared properties");
    check(head.sharedMethods, head.sharedMethodCount, "shared methods");
}

template <class Row>
void checkFurther(const ClassInfo& info, const Row* rows, std::size_t count, const char* what) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto& words = rows[i].further;
        if (std::any_of(std::begin(words), std::end(words), [](REALword word) { return word != 0; }))
            complain(info.name() + ": " + what + " " + std::to_string(i) + " has reserved words that are not 0");
    }
}

void checkRecord(const ClassInfo& info) {
    const RecordView view(*info.record());
    checkTables(info, view.head());
    for (std::size_t i = 0; i < view.propertyCount(); ++i)
        if (view.property(i).group) complain(info.name() + ": property " + std::to_string(i) + " has a group");
    if (view.isLegacy()) return checkFurther(info, view.head().properties, view.propertyCount(), "property");
    const REALclassDefinition& record = *info.record();
    checkFurther(info, record.properties, view.propertyCount(), "property");
    checkFurther(info, record.methods, view.methodCount(), "method");
    checkFurther(info, record.constants, view.constantCount(), "constant");
    checkFurther(info, record.sharedMethods, view.sharedMethodCount(), "shared method");
}

void checkTypes(const Function& function) {
    const auto check = [&](const Type& type) {
        const bool isClass = type.kind == Kind::object && !equalIgnoringCase(type.className, "Object");
        if (isClass && !registry().find(type.className))
            complain(function.name + ": there is no class " + type.className + " here");
    };
    check(function.signature.result);
    for (const Parameter& parameter : function.signature.parameters)
        check(parameter.type);
}

std::string wordsFor(const Method& method) {
    std::string words = (method.shared ? "shared " : "") + method.signature.name + "(";
    for (const Parameter& parameter : method.signature.parameters)
        words += (parameter.paramArray ? "paramarray " : "") + nameOf(parameter.type) + ",";
    if (words.back() == ',') words.pop_back();
    return words + ")";
}

void checkNames(const ClassInfo& info) {
    std::set<std::string, LessIgnoringCase> seen;
    const auto add = [&](const std::string& member) {
        if (!seen.insert(member).second) complain(info.name() + ": " + member + " is declared twice");
    };
    for (const std::vector<Method>* methods : {&info.methods(), &info.sharedMethods()}) {
        for (const Method& method : *methods)
            add(wordsFor(method));
    }
    for (const Property& property : info.properties())
        add(property.name);
    for (const Constant& constant : info.constants())
        add(constant.name);
}

} // namespace

void recordsParse(Run& run) {
    run.classes([](const std::vector<const ClassInfo*>& classes) {
        for (const std::string& problem : registry().problems())
            complain(problem);
        if (!classes.empty()) tested();
    });
}

void recordsAreComplete(Run& run) {
    run.classes([](const std::vector<const ClassInfo*>& classes) {
        for (const ClassInfo* const info : classes) {
            checkRecord(*info);
            tested();
        }
    });
}

void typesAreKnown(Run& run) {
    run.functions({}, "no class has a function", [](const Function& function) {
        checkTypes(function);
        tested();
    });
}

void membersAreUnique(Run& run) {
    run.classes([](const std::vector<const ClassInfo*>& classes) {
        for (const ClassInfo* const info : classes) {
            checkNames(*info);
            tested();
        }
    });
}

} // namespace host::validator
