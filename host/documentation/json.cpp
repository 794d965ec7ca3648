// Writes pages as JSON.
#include "text/json.h"
#include "documentation/browser.h"
#include "documentation/pages.h"
#include "documentation/word_texts.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <sstream>

namespace host::documentation {
namespace {

using Json = nlohmann::ordered_json;

Json described(const MemberPage& member) {
    return {{"name", member.name}, {"declarations", member.declarations}, {"text", member.text}};
}

// Returns the page with only the members of that name, or with all if the name is empty.
Json described(const ClassPage& page, std::string_view member) {
    const ClassInfo* const super = page.info->super();
    Json sections = Json::array();
    for (const Section& section : page.sections) {
        Json members = Json::array();
        for (const MemberPage& candidate : section.members)
            if (member.empty() || equalIgnoringCase(candidate.name, member)) members.push_back(described(candidate));
        if (!members.empty()) sections.push_back({{"title", section.title}, {"members", members}});
    }
    return {{"name", page.info->name()},
            {"superclass", super ? Json(super->name()) : Json()},
            {"text", page.text},
            {"sections", sections}};
}

} // namespace

void browseAsJson(const Registry& registry, std::string_view name, std::string_view member, std::ostream& out) {
    std::ostringstream refused; // browse throws for unknown names, with a suggestion
    if (!name.empty()) browse(registry, name, member, usualWidth, refused);

    Json page = {{"classes", Json::array()}, {"functions", Json::array()}, {"words", Json::array()}};
    const ClassInfo* const wanted = registry.find(name);
    const bool isWord = !wanted && !name.empty() && pageOfWord(name);
    for (const ClassPage& candidate : pagesOf(registry)) {
        // An inherited member is on the page of the class that declares it.
        const bool isWanted =
            member.empty() ? candidate.info == wanted : wanted && wanted->isOrDescendsFrom(*candidate.info);
        if (wanted && !isWanted) continue;
        const std::string_view filter = wanted ? member : name; // a name that is not a class's is a member's
        Json description = described(candidate, filter);
        if (filter.empty() || !description["sections"].empty()) page["classes"].push_back(std::move(description));
    }
    if (isWord) page["classes"] = Json::array();
    for (const MemberPage& function : functionPages()) {
        if (name.empty() || (isWord && equalIgnoringCase(function.name, name)))
            page["functions"].push_back(described(function));
    }
    for (const WordText& word : wordTexts()) {
        if (name.empty() || (isWord && page["functions"].empty() && findWordText(name) == &word))
            page["words"].push_back({{"words", word.words}, {"form", word.form}, {"text", word.text}});
    }
    writeJson(page, out);
}

} // namespace host::documentation
