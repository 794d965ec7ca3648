#include "repl/completion.h"

#include "language/library/functions.h"
#include "language/reading/lexer.h"

#include <algorithm>
#include <set>

namespace host::repl {
namespace {

using Names = std::set<std::string, LessIgnoringCase>;

bool isNamePart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'; }

std::size_t wordStart(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && isNamePart(text[start - 1]))
        --start;
    return start;
}

// The chain of names, dots and parentheses at the end of the text.
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
    if (type.isArray) names = {"Append", "Add", "Insert", "Remove", "Count"};
    const ClassInfo* const info = type.is(Kind::Object) && !type.isNil() ? registry().find(type.className) : nullptr;
    if (info) addMembers(*info, false, names);
    return names;
}

Names everywhere(const language::Session& session) {
    Names names;
    for (std::string& name : session.names())
        names.insert(std::move(name));
    for (const auto& info : registry().classes())
        names.insert(info->name());
    for (const Method& method : language::functions())
        names.insert(method.signature.name);
    for (const std::string_view keyword : language::keywordNames())
        names.insert(std::string(keyword));
    names.insert({"UBound", "Array", "Integer", "Double", "Boolean", "String", "Color", "Variant", "Object"});
    return names;
}

} // namespace

std::vector<std::string> completions(language::Session& session, std::string_view line) {
    const std::size_t start = wordStart(line);
    const std::string_view word = line.substr(start);
    const bool member = start > 0 && line[start - 1] == '.';
    const Names names = member ? membersOf(session, lastChain(line.substr(0, start - 1))) : everywhere(session);
    std::vector<std::string> found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found), [&](const std::string& name) {
        return equalIgnoringCase(std::string_view(name).substr(0, word.size()), word);
    });
    return found;
}

} // namespace host::repl
