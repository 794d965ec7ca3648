#include "language/reading/keywords.h"

#include "values/types.h"

namespace host::language {
namespace {

struct KeywordWord {
    Word word;
    Keyword keyword;
};

constexpr KeywordWord keywords[] = {
    {{"And", WordKind::operation}, Keyword::andOperator}, {{"As", WordKind::statement}, Keyword::as},
    {{"ByRef", WordKind::statement}, Keyword::byRef},     {{"ByVal", WordKind::statement}, Keyword::byVal},
    {{"Case", WordKind::statement}, Keyword::caseBranch}, {{"Catch", WordKind::statement}, Keyword::catchBlock},
    {{"Const", WordKind::statement}, Keyword::constant},  {{"Continue", WordKind::statement}, Keyword::continueLoop},
    {{"Dim", WordKind::statement}, Keyword::dim},         {{"Do", WordKind::statement}, Keyword::doLoop},
    {{"DownTo", WordKind::statement}, Keyword::downTo},   {{"Each", WordKind::statement}, Keyword::each},
    {{"Else", WordKind::statement}, Keyword::elseBranch}, {{"ElseIf", WordKind::statement}, Keyword::elseIf},
    {{"End", WordKind::statement}, Keyword::end},         {{"Exit", WordKind::statement}, Keyword::exit},
    {{"False", WordKind::value}, Keyword::falseValue},    {{"Finally", WordKind::statement}, Keyword::finally},
    {{"For", WordKind::statement}, Keyword::forLoop},     {{"Function", WordKind::statement}, Keyword::function},
    {{"If", WordKind::statement}, Keyword::ifBranch},     {{"In", WordKind::statement}, Keyword::in},
    {{"Is", WordKind::operation}, Keyword::is},           {{"Loop", WordKind::statement}, Keyword::loop},
    {{"Mod", WordKind::operation}, Keyword::mod},         {{"New", WordKind::operation}, Keyword::newObject},
    {{"Next", WordKind::statement}, Keyword::next},       {{"Nil", WordKind::value}, Keyword::nil},
    {{"Not", WordKind::operation}, Keyword::notOperator}, {{"Optional", WordKind::statement}, Keyword::optional},
    {{"Or", WordKind::operation}, Keyword::orOperator},   {{"ParamArray", WordKind::statement}, Keyword::paramArray},
    {{"Print", WordKind::statement}, Keyword::print},     {{"Raise", WordKind::statement}, Keyword::raise},
    {{"ReDim", WordKind::statement}, Keyword::reDim},     {{"Return", WordKind::statement}, Keyword::returnFrom},
    {{"Select", WordKind::statement}, Keyword::select},   {{"Step", WordKind::statement}, Keyword::step},
    {{"Sub", WordKind::statement}, Keyword::sub},         {{"Then", WordKind::statement}, Keyword::then},
    {{"To", WordKind::statement}, Keyword::to},           {{"True", WordKind::value}, Keyword::trueValue},
    {{"Try", WordKind::statement}, Keyword::tryBlock},    {{"TypeOf", WordKind::operation}, Keyword::typeOf},
    {{"Until", WordKind::statement}, Keyword::until},     {{"Wend", WordKind::statement}, Keyword::wend},
    {{"While", WordKind::statement}, Keyword::whileLoop}, {{"Write", WordKind::statement}, Keyword::write},
    {{"Xor", WordKind::operation}, Keyword::xorOperator},
};

struct GenericWord {
    std::string_view name;
    Generic function;
};

constexpr GenericWord generics[] = {
    {"Array", Generic::newArray},
    {"UBound", Generic::upperBound},
    {"LBound", Generic::lowerBound},
};

} // namespace

Keyword keywordOf(std::string_view name) {
    constexpr std::size_t maxLength = 10;
    if (name.size() > maxLength) return Keyword::none;
    for (const KeywordWord& entry : keywords)
        if (equalIgnoringCase(name, entry.word.name)) return entry.keyword;
    return Keyword::none;
}

Generic genericOf(std::string_view name) {
    for (const GenericWord& entry : generics)
        if (equalIgnoringCase(name, entry.name)) return entry.function;
    return Generic::none;
}

const std::vector<Word>& words() {
    static const std::vector<Word> all = [] {
        std::vector<Word> list;
        for (const KeywordWord& entry : keywords)
            list.push_back(entry.word);
        for (const std::string_view type : typeNames())
            list.push_back({type, WordKind::type});
        for (const GenericWord& entry : generics)
            list.push_back({entry.name, WordKind::generic});
        for (const Method& method : functions())
            if (list.back().name != method.signature.name) list.push_back({method.signature.name, WordKind::function});
        return list;
    }();
    return all;
}

} // namespace host::language
