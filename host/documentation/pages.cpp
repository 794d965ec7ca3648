#include "documentation/pages.h"

#include "documentation/texts.h"
#include "documentation/word_texts.h"

#include "language/words.h"

#include <algorithm>
#include <sstream>

namespace host::documentation {

namespace {

// If a class redeclares an inherited constructor, the superclass that declares it first has the explanation.
std::string_view explanation(const ClassInfo& info, std::string_view member) {
    for (const ClassInfo* owner = &info; owner; owner = owner->super()) {
        const ClassText* const text = findClassText(owner->name());
        const MemberText* const found = text ? findMemberText(*text, member) : nullptr;
        if (found) return found->text;
    }
    return {};
}

// Returns the declaration in the form of the language, with a comment if a value may be assigned.
std::string declarationOf(const std::string& declaration, REALfunction setter) {
    return setter ? declaration + "  ' may be set" : declaration;
}

std::vector<std::string> sorted(std::vector<std::string> names) {
    std::sort(names.begin(), names.end(), LessIgnoringCase());
    return names;
}

class SectionMaker {
public:
    SectionMaker(const ClassInfo& info, const char* title) : info_(info), section_{title, {}} {}

    void add(const std::string& name, std::string declaration) {
        auto& members = section_.members;
        auto member = std::find_if(members.begin(), members.end(),
                                   [&](const MemberPage& page) { return equalIgnoringCase(page.name, name); });
        if (member == members.end()) member = members.insert(members.end(), {name, {}, explanation(info_, name)});
        member->declarations.push_back(std::move(declaration));
    }

    void finish(ClassPage& page) {
        if (!section_.members.empty()) page.sections.push_back(std::move(section_));
    }

private:
    const ClassInfo& info_;
    Section section_;
};

} // namespace

ClassPage pageOf(const ClassInfo& info) {
    const ClassText* const text = findClassText(info.name());
    ClassPage page = {&info, text ? text->text : std::string_view(), {}};
    SectionMaker constructors(info, "Constructors"), properties(info, "Properties"), methods(info, "Methods"),
        shared(info, "Shared methods"), constants(info, "Constants");
    const RecordView record(*info.record());
    for (std::size_t i = 0; i < record.propertyCount(); ++i) {
        const REALpropertyLegacy& property = record.property(i);
        properties.add(property.name, declarationOf(property.name + std::string(" as ") + property.type, property.setter));
    }
    for (std::size_t i = 0; i < record.methodCount(); ++i) {
        const REALmethodDefinitionLegacy& method = record.method(i);
        const std::string name = parseSignature(method.declaration).name;
        SectionMaker& section = equalIgnoringCase(name, "Constructor") ? constructors : methods;
        section.add(name, declarationOf(method.declaration, method.setter));
    }
    for (std::size_t i = 0; i < record.sharedMethodCount(); ++i) {
        const char* const declaration = record.sharedMethod(i).declaration;
        shared.add(parseSignature(declaration).name, declaration);
    }
    for (std::size_t i = 0; i < record.constantCount(); ++i) {
        const char* const declaration = record.constant(i).declaration;
        constants.add(parseConstant(declaration).name, declaration);
    }
    for (SectionMaker* section : {&constructors, &properties, &methods, &shared, &constants})
        section->finish(page);
    return page;
}

std::vector<ClassPage> pagesOf(const Registry& registry) {
    std::vector<ClassPage> pages;
    for (const auto& info : registry.classes())
        pages.push_back(pageOf(*info));
    const auto place = [](const ClassPage& page) {
        const auto& texts = classTexts();
        return std::find_if(texts.begin(), texts.end(),
                            [&](const ClassText& text) { return text.name == page.info->name(); });
    };
    std::stable_sort(pages.begin(), pages.end(),
                     [&](const ClassPage& a, const ClassPage& b) { return place(a) < place(b); });
    return pages;
}

std::vector<MemberPage> functionPages() {
    std::vector<MemberPage> pages;
    for (const Method& method : language::functions()) {
        const std::string& name = method.signature.name;
        auto page =
            std::find_if(pages.begin(), pages.end(), [&](const MemberPage& created) { return created.name == name; });
        if (page == pages.end()) page = pages.insert(pages.end(), {name, {}, language::functionText(name)});
        page->declarations.emplace_back(method.declaration);
    }
    return pages;
}

std::optional<MemberPage> pageOfWord(std::string_view word) {
    for (MemberPage& page : functionPages())
        if (equalIgnoringCase(page.name, word)) return std::move(page);
    const WordText* const text = findWordText(word);
    if (!text) return std::nullopt;
    MemberPage page = {std::string(word), {}, text->text};
    std::istringstream lines(text->form);
    for (std::string line; std::getline(lines, line);)
        page.declarations.push_back(line);
    return page;
}

std::vector<std::string> classNames(const Registry& registry) {
    std::vector<std::string> names;
    for (const auto& info : registry.classes())
        names.push_back(info->name());
    return names;
}

std::vector<std::string> functionNames() {
    std::vector<std::string> names;
    for (const MemberPage& page : functionPages())
        names.push_back(page.name);
    return sorted(std::move(names));
}

std::vector<std::string> wordNames() {
    std::vector<std::string> names;
    for (const language::Word& word : language::words())
        if (word.kind != language::WordKind::function) names.emplace_back(word.name);
    return sorted(std::move(names));
}

std::vector<std::string> pageNames(const Registry& registry) {
    std::vector<std::string> names = classNames(registry);
    for (const auto& more : {functionNames(), wordNames()})
        names.insert(names.end(), more.begin(), more.end());
    return names;
}

} // namespace host::documentation
