#include "repl/completion.h"

#include "documentation/pages.h"
#include "language/words.h"
#include "text/characters.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace host::repl {
namespace {

using Names = std::set<std::string, LessIgnoringCase>;

std::size_t wordStart(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && isNamePart(text[start - 1]))
        --start;
    return start;
}

// Returns the chain of names, dots and parentheses at the end of the text.
std::string_view lastChain(std::string_view text) {
    std::size_t start = text.size();
    int open = 0;
    while (start > 0) {
        const char c = text[start - 1];
        if (c == ')') ++open;
        if (c == '(' && open-- == 0) break;
        if (open == 0 && c != '(' && c != '.' && !isNamePart(c)) break;
        --start;
    }
    return text.substr(start);
}

void addMembers(const ClassInfo& info, bool ofClass, Names& names) {
    for (const ClassInfo* from = &info; from; from = from->super()) {
        for (const Method& method : ofClass ? from->sharedMethods() : from->methods())
            names.insert(method.signature.name);
        if (ofClass) {
            for (const Constant& constant : from->constants())
                names.insert(constant.name);
        } else {
            for (const Property& property : from->properties())
                names.insert(property.name);
        }
    }
}

Names membersOf(language::Session& session, std::string_view expression) {
    Names names;
    const auto [type, namedClass] = session.meaningOf(expression);
    if (namedClass) addMembers(*namedClass, true, names);
    if (type.isArray) {
        for (const language::ArrayMember& member : language::arrayMembers())
            names.insert(std::string(member.name));
    }
    const ClassInfo* const info = type.is(Kind::object) && !type.isNil() ? registry().find(type.className) : nullptr;
    if (info) addMembers(*info, false, names);
    return names;
}

Names everywhere(const language::Session& session) {
    Names names;
    for (std::string& name : session.names())
        names.insert(std::move(name));
    for (std::string& name : documentation::pageNames(registry()))
        names.insert(std::move(name));
    return names;
}

// Returns the names that may continue a command, which begins with a colon.
Names forCommand(std::string_view before) {
    std::istringstream words{std::string(before)};
    std::string command, subject, more;
    words >> command >> subject >> more;
    if (command.empty() || command == ":") return {"browse", "help", "quit"};
    if ((command != ":browse" && command != ":help") || !more.empty()) return {};
    Names names;
    if (const ClassInfo* const info = registry().find(subject)) {
        addMembers(*info, true, names);
        addMembers(*info, false, names);
    } else if (subject.empty()) {
        for (std::string& name : documentation::pageNames(registry()))
            names.insert(std::move(name));
    }
    return names;
}

// The state at the end of the text.
struct Ending {
    bool inCode = true;                        // neither in quotes nor in a comment
    std::vector<std::size_t> parentheses = {}; // the positions of the open ones
};

Ending endingOf(std::string_view text) {
    Ending ending;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isLineEnd(c)) ending.inCode = true;
        if (!ending.inCode) continue;
        if (c == '\'' || text.substr(i, 2) == "//") {
            ending.inCode = false;
        } else if (c == '"') {
            i = text.find('"', i + 1);
            if (i == std::string_view::npos) return {false, {}};
        } else if (c == '(') {
            ending.parentheses.push_back(i);
        } else if (c == ')' && !ending.parentheses.empty()) {
            ending.parentheses.pop_back();
        }
    }
    return ending;
}

// Returns the overloads of the function or constructor that is named before an open parenthesis.
OverloadSet calledBy(language::Session& session, std::string_view before, bool& constructor) {
    const std::size_t start = wordStart(before);
    const std::string_view name = before.substr(start);
    std::string_view rest = before.substr(0, start);
    if (!rest.empty() && rest.back() == '.') {
        const auto [type, namedClass] = session.meaningOf(lastChain(rest.substr(0, rest.size() - 1)));
        if (namedClass) return namedClass->findSharedMethods(name);
        const ClassInfo* const info = type.is(Kind::object) && !type.isNil() ? registry().find(type.className) : nullptr;
        return info ? info->findMethods(name) : OverloadSet();
    }
    while (!rest.empty() && isBlank(rest.back()))
        rest.remove_suffix(1);
    constructor = equalIgnoringCase(rest.substr(wordStart(rest)), "New");
    if (constructor) {
        const ClassInfo* const info = registry().find(name);
        return info ? info->constructors() : OverloadSet();
    }
    OverloadSet found = session.findProcedures(name);
    return found.empty() ? language::findFunctions(name) : found;
}

// Returns one line for each overload.
std::string signatures(language::Session& session, std::string_view before) {
    bool constructor = false;
    std::string lines;
    for (const Method* const method : calledBy(session, before, constructor)) {
        const std::string_view declaration = method->declaration;
        const std::string_view own = declaration.substr(constructor ? method->signature.name.size() : 0);
        lines.append(lines.empty() ? "" : "\n");
        lines.append(constructor ? "New " + method->owner->name() : std::string()).append(own);
    }
    return lines;
}

Assistance beginningAs(std::string_view word, const Names& names) {
    Assistance result;
    std::copy_if(names.begin(), names.end(), std::back_inserter(result.names), [&](const std::string& name) {
        return equalIgnoringCase(std::string_view(name).substr(0, word.size()), word);
    });
    return result;
}

} // namespace

Assistance assist(language::Session& session, std::string_view text) {
    constexpr const char* indentation = "  ";
    const std::size_t start = wordStart(text);
    const std::string_view word = text.substr(start), before = text.substr(0, start);
    const std::string_view line = text.substr(text.find_last_of('\n') + 1);
    const std::size_t first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {{}, indentation, {}};
    if (line[first] == ':') return beginningAs(word, forCommand(before));
    const Ending ending = endingOf(text);
    if (!ending.inCode) return {};
    if (!before.empty() && before.back() == '.')
        return beginningAs(word, membersOf(session, lastChain(before.substr(0, before.size() - 1))));
    Assistance result = beginningAs(word, everywhere(session));
    if (word.empty() && !ending.parentheses.empty())
        result.note = signatures(session, text.substr(0, ending.parentheses.back()));
    return result;
}

} // namespace host::repl
