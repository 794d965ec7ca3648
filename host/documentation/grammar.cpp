#include "documentation/grammar.h"

#include "documentation/pages.h"
#include "language/words.h"
#include "text/json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <initializer_list>
#include <ostream>

namespace host::documentation {
namespace {

using Json = nlohmann::ordered_json;
using language::Word;
using language::WordKind;

// Returns a pattern that matches any of the words, in any case, unless a dot precedes it. After a dot, each of them is a
// member's name.
template <class Words>
std::string anyOf(const Words& words) {
    std::string pattern = "(?i)(?<!\\.)\\b(";
    for (const auto& word : words)
        pattern += (pattern.back() == '(' ? "" : "|") + std::string(word);
    return pattern + ")\\b";
}

Json rule(const char* scope, const std::string& pattern) { return {{"name", scope}, {"match", pattern}}; }

std::vector<std::string_view> wordsOf(std::initializer_list<WordKind> kinds) {
    std::vector<std::string_view> names;
    for (const Word& word : language::words())
        if (std::find(kinds.begin(), kinds.end(), word.kind) != kinds.end()) names.push_back(word.name);
    return names;
}

} // namespace

void writeGrammar(const Registry& registry, std::ostream& out) {
    const Json text = {{"name", "string.quoted.double.chromabridge"},
                       {"begin", "\""},
                       {"end", "\"|$"},
                       {"patterns", Json::array({rule("constant.character.escape.chromabridge", "\"\"")})}};
    const Json grammar = {
        {"name", "chromabridge host language"},
        {"scopeName", "source.chromabridge"},
        {"fileTypes", Json::array({"bas"})},
        {"patterns",
         Json::array({rule("comment.line.apostrophe.chromabridge", "'.*$"),
                      rule("comment.line.slashes.chromabridge", "//.*$"), text,
                      rule("constant.numeric.hexadecimal.chromabridge", "(?i)&(h[0-9a-f]+|o[0-7]+|b[01]+)"),
                      rule("constant.other.color.chromabridge", "(?i)#([0-9a-f]{8}|[0-9a-f]{6}|[0-9a-f]{3,4})\\b"),
                      rule("constant.numeric.chromabridge", "\\b[0-9]+(\\.[0-9]+)?([eE][+-]?[0-9]+)?\\b"),
                      rule("constant.language.chromabridge", anyOf(wordsOf({WordKind::value}))),
                      rule("keyword.operator.word.chromabridge", anyOf(wordsOf({WordKind::operation}))),
                      rule("keyword.control.chromabridge", anyOf(wordsOf({WordKind::statement}))),
                      rule("storage.type.chromabridge", anyOf(wordsOf({WordKind::type}))),
                      rule("support.function.chromabridge", anyOf(wordsOf({WordKind::generic, WordKind::function}))),
                      rule("support.class.chromabridge", anyOf(classNames(registry)))})}};
    writeJson(grammar, out);
}

} // namespace host::documentation
