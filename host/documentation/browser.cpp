#include "documentation/browser.h"

#include "documentation/pages.h"
#include "documentation/suggestion.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace host::documentation {

namespace {

constexpr std::size_t lineWidth = 100;

// Words from `text`, broken into indented lines.
void writeParagraph(std::string_view text, std::size_t indent, std::ostream& out) {
    if (text.empty()) return;
    std::size_t column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        if (column > 0 && column + 1 + word.size() > lineWidth) {
            out << '\n';
            column = 0;
        }
        out << (column == 0 ? std::string(indent, ' ') : " ") << word;
        column += word.size() + (column == 0 ? indent : 1);
        text.remove_prefix(std::min(text.size(), word.size() + 1));
    }
    out << '\n';
}

void writeMember(const MemberPage& member, std::ostream& out) {
    for (const std::string& declaration : member.declarations)
        out << "  " << declaration << '\n';
    writeParagraph(member.text, 6, out);
}

[[noreturn]] void refuse(const std::string& message, std::string_view name, const std::vector<std::string>& candidates) {
    const std::string guess = nearest(name, candidates);
    throw std::invalid_argument(message + (guess.empty() ? "" : "; did you mean " + guess + "?"));
}

ClassPage pageNamed(const Registry& registry, std::string_view className) {
    if (const ClassInfo* const info = registry.find(className)) return pageOf(*info);
    std::vector<std::string> names;
    for (const auto& info : registry.classes())
        names.push_back(info->name());
    refuse("there is no class " + std::string(className), className, names);
}

std::string title(const ClassPage& page) {
    const ClassInfo* const super = page.info->super();
    return page.info->name() + (super ? " (a " + super->name() + ")" : "");
}

} // namespace

void browseClasses(const Registry& registry, std::ostream& out) {
    const std::vector<ClassPage> pages = pagesOf(registry);
    std::size_t width = 0;
    for (const ClassPage& page : pages)
        width = std::max(width, page.info->name().size());
    for (const ClassPage& page : pages) {
        const std::string& name = page.info->name();
        out << name << std::string(width - name.size() + 2, ' ') << page.text << '\n';
    }
}

void browseClass(const Registry& registry, std::string_view className, std::ostream& out) {
    const ClassPage page = pageNamed(registry, className);
    out << title(page) << '\n';
    writeParagraph(page.text, 0, out);
    for (const Section& section : page.sections) {
        out << '\n' << section.title << '\n';
        for (const MemberPage& member : section.members)
            writeMember(member, out);
    }
}

void browseMember(const Registry& registry, std::string_view className, std::string_view member, std::ostream& out) {
    bool found = false;
    std::vector<std::string> names;
    const std::string given = pageNamed(registry, className).info->name();
    for (const ClassInfo* info = registry.find(className); info && !found; info = info->super()) {
        const ClassPage page = pageOf(*info);
        for (const Section& section : page.sections) {
            for (const MemberPage& candidate : section.members) {
                names.push_back(candidate.name);
                if (!equalIgnoringCase(candidate.name, member)) continue;
                out << info->name() << ", " << section.title << '\n';
                writeMember(candidate, out);
                found = true;
            }
        }
    }
    if (!found) refuse(given + " has no member " + std::string(member), member, names);
}

void writeReference(const Registry& registry, std::ostream& out) {
    const std::vector<ClassPage> pages = pagesOf(registry);
    out << "# Reference\n\nEvery class that a program sees, each member as it is declared. `chromahost browse CLASS MEMBER` shows\n"
           "the same in a terminal, and `chromahost browse --markdown` writes this page.\n\n";
    for (const ClassPage& page : pages)
        out << "- [" << page.info->name() << "](#" << page.info->name() << "): " << page.text << '\n';
    for (const ClassPage& page : pages) {
        out << "\n<a id=\"" << page.info->name() << "\"></a>\n\n## " << title(page) << "\n\n" << page.text << '\n';
        for (const Section& section : page.sections) {
            out << "\n### " << section.title << "\n\n";
            for (const MemberPage& member : section.members) {
                out << "- ";
                for (const std::string& declaration : member.declarations)
                    out << '`' << declaration << "`  \n  ";
                out << member.text << '\n';
            }
        }
    }
}

} // namespace host::documentation
