#include "documentation/grammar.h"

#include "documentation/pages.h"
#include "language/reading/lexer.h"
#include "text/json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace host::documentation {
namespace {

using Json = nlohmann::ordered_json;

// Any of the words, in any case, that no dot stands before: behind one each of them is a member's name.
template <class Words>
std::string anyOf(const Words& words) {
    std::string pattern = "(?i)(?<!\\.)\\b(";
    for (const auto& word : words)
        pattern += (pattern.back() == '(' ? "" : "|") + std::string(word);
    return pattern + ")\\b";
}

Json rule(const char* scope, const std::string& pattern) { return {{"name", scope}, {"match", pattern}}; }

// Keywords that are values or operators have scopes of their own.
constexpr std::string_view values[] = {"True", "False", "Nil"};
constexpr std::string_view operators[] = {"And", "Or", "Xor", "Not", "Mod", "Is", "TypeOf", "New"};
constexpr std::string_view types[] = {"Integer", "Double", "Boolean", "String", "Color", "Variant", "Object"};

template <class List>
bool contains(const List& list, std::string_view word) {
    return std::any_of(std::begin(list), std::end(list),
                       [&](std::string_view entry) { return equalIgnoringCase(entry, word); });
}

std::vector<std::string_view> statementWords() {
    std::vector<std::string_view> words = language::keywordNames();
    const auto isOther = [](std::string_view word) { return contains(values, word) || contains(operators, word); };
    words.erase(std::remove_if(words.begin(), words.end(), isOther), words.end());
    return words;
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
         Json::array(
             {rule("comment.line.apostrophe.chromabridge", "'.*$"), rule("comment.line.slashes.chromabridge", "//.*$"), text,
              rule("constant.numeric.hexadecimal.chromabridge",
                   "(?i)&(h[0-9a-f]+|o[0-7]+|b[01]+|c[0-9a-f]{8}|c[0-9a-f]{6})"),
              rule("constant.numeric.chromabridge", "\\b[0-9]+(\\.[0-9]+)?([eE][+-]?[0-9]+)?\\b"),
              rule("constant.language.chromabridge", anyOf(values)),
              rule("keyword.operator.word.chromabridge", anyOf(operators)),
              rule("keyword.control.chromabridge", anyOf(statementWords())), rule("storage.type.chromabridge", anyOf(types)),
              rule("support.function.chromabridge", anyOf(functionNames())),
              rule("support.class.chromabridge", anyOf(classNames(registry)))})}};
    writeJson(grammar, out);
}

} // namespace host::documentation
