#include "documentation/browser.h"

#include "documentation/pages.h"
#include "documentation/word_texts.h"

#include "text/characters.h"
#include "text/columns.h"
#include "text/nearest_name.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace host::documentation {
namespace {

class Writer {
public:
    Writer(std::ostream& out, std::size_t width) : out_(out), width_(width) {}

    void line(std::string_view text) { out_ << text << '\n'; }

    void paragraph(const std::string& label, std::string_view text, std::size_t indent) {
        writeParagraph(out_, width_, label, text, indent);
    }

    void member(const MemberPage& member) {
        constexpr std::size_t indent = 2, textIndent = 6, moreIndent = 10;
        for (const std::string& declaration : member.declarations) {
            const std::size_t own = declaration.find_first_not_of(' ');
            paragraph(std::string(indent + own, ' '), std::string_view(declaration).substr(own), moreIndent + own);
        }
        if (!member.text.empty()) paragraph(std::string(textIndent, ' '), member.text, textIndent);
    }

    void section(const Section& section) {
        line(section.title);
        for (const MemberPage& page : section.members)
            member(page);
    }

private:
    std::ostream& out_;
    const std::size_t width_;
};

std::vector<std::string> namesOf(const std::vector<MemberPage>& members) {
    std::vector<std::string> names;
    for (const MemberPage& member : members)
        names.push_back(member.name);
    return names;
}

[[noreturn]] void refuse(const std::string& message, std::string_view name, const std::vector<std::string>& candidates) {
    NearestName near(name);
    for (const std::string& candidate : candidates)
        near.offer(candidate);
    std::string guess = near.name();
    // A word of more than two characters may be part of the intended name.
    if (guess.empty() && name.size() > 2) {
        const auto containing = std::find_if(candidates.begin(), candidates.end(), [&](const std::string& candidate) {
            return std::search(candidate.begin(), candidate.end(), name.begin(), name.end(),
                               [](char a, char b) { return lower(a) == lower(b); }) != candidate.end();
        });
        if (containing != candidates.end()) guess = *containing;
    }
    throw std::invalid_argument(message + (guess.empty() ? "" : "; did you mean " + guess + "?"));
}

std::string title(const ClassPage& page) {
    const ClassInfo* const super = page.info->super();
    return page.info->name() + (super ? " (a " + super->name() + ")" : "");
}

void browseEverything(const Registry& registry, Writer& writer) {
    const std::vector<ClassPage> pages = pagesOf(registry);
    std::size_t width = 0;
    for (const ClassPage& page : pages)
        width = std::max(width, page.info->name().size() + 2);
    for (const ClassPage& page : pages) {
        const std::string& name = page.info->name();
        writer.paragraph(name + std::string(width - name.size(), ' '), page.text, width);
    }
    const std::pair<const char*, std::vector<std::string>> words[] = {{"Functions", functionNames()},
                                                                      {"Statements, operators and types", wordNames()}};
    for (const auto& [heading, names] : words) {
        std::string joined;
        for (const std::string& name : names)
            joined += (joined.empty() ? "" : " ") + name;
        writer.line("");
        writer.line(heading);
        writer.paragraph("  ", joined, 2);
    }
}

void browseClass(const ClassPage& page, Writer& writer) {
    writer.line(title(page));
    if (!page.text.empty()) writer.paragraph("", page.text, 0);
    for (const Section& section : page.sections) {
        writer.line("");
        writer.section(section);
    }
}

// Returns false if no word has the name.
bool browseWord(std::string_view name, Writer& writer) {
    const std::optional<MemberPage> page = pageOfWord(name);
    if (page) writer.member(*page);
    return page.has_value();
}

// Shows the members of that name that the class itself declares, and returns their number.
std::size_t browseMembersNamed(const ClassPage& page, std::string_view name, Writer& writer) {
    std::size_t count = 0;
    for (const Section& section : page.sections) {
        for (const MemberPage& member : section.members) {
            if (!equalIgnoringCase(member.name, name)) continue;
            writer.line(page.info->name() + ", " + section.title);
            writer.member(member);
            ++count;
        }
    }
    return count;
}

void browseMember(const ClassInfo& info, std::string_view member, Writer& writer) {
    std::vector<std::string> names;
    for (const ClassInfo* owner = &info; owner; owner = owner->super()) {
        const ClassPage page = pageOf(*owner);
        if (browseMembersNamed(page, member, writer) > 0) return;
        for (const Section& section : page.sections) {
            for (std::string& name : namesOf(section.members))
                names.push_back(std::move(name));
        }
    }
    refuse(info.name() + " has no member " + std::string(member), member, names);
}

void browseAnything(const Registry& registry, std::string_view name, Writer& writer) {
    if (const ClassInfo* const info = registry.find(name)) return browseClass(pageOf(*info), writer);
    if (browseWord(name, writer)) return;
    std::size_t found = 0;
    for (const ClassPage& page : pagesOf(registry))
        found += browseMembersNamed(page, name, writer);
    if (found == 0) refuse("nothing has the name " + std::string(name), name, pageNames(registry));
}

void writeMembers(const std::vector<MemberPage>& members, std::ostream& out) {
    for (const MemberPage& member : members) {
        out << "- ";
        for (const std::string& declaration : member.declarations)
            out << '`' << declaration << "`  \n  ";
        out << member.text << '\n';
    }
}

void writeClass(const ClassPage& page, std::size_t level, std::ostream& out) {
    const std::string heading(level, '#');
    out << heading << ' ' << title(page) << "\n\n" << page.text << '\n';
    for (const Section& section : page.sections) {
        out << '\n' << heading << "# " << section.title << "\n\n";
        writeMembers(section.members, out);
    }
}

const ClassInfo& classNamed(const Registry& registry, std::string_view name) {
    const ClassInfo* const info = registry.find(name);
    if (!info) refuse("there is no class " + std::string(name), name, classNames(registry));
    return *info;
}

} // namespace

void browse(const Registry& registry, std::string_view name, std::string_view member, std::size_t width, std::ostream& out) {
    Writer writer(out, width);
    if (name.empty()) return browseEverything(registry, writer);
    if (member.empty()) return browseAnything(registry, name, writer);
    browseMember(classNamed(registry, name), member, writer);
}

void writeReference(const Registry& registry, std::string_view className, std::ostream& out) {
    writeClass(pageOf(classNamed(registry, className)), 1, out);
}

void writeReference(const Registry& registry, std::ostream& out) {
    const std::vector<ClassPage> pages = pagesOf(registry);
    out << "# Reference\n\nEvery class that a program sees, each member as it is declared, and every function and other word of the\n"
           "language. `chromahost browse NAME` shows the same in a terminal, and `chromahost browse --markdown` writes this page.\n\n"
           "The members of the colour classes are described as the builtin platform implements them, which follows macOS up to\n"
           "10.14. [Platforms](platforms.md) lists what GNUstep and today's macOS do differently.\n\n";
    for (const ClassPage& page : pages)
        out << "- [" << page.info->name() << "](#" << page.info->name() << "): " << page.text << '\n';
    out << "- [Functions](#functions)\n- [Statements, operators and types](#statements-operators-and-types)\n";
    for (const ClassPage& page : pages) {
        out << "\n<a id=\"" << page.info->name() << "\"></a>\n\n";
        writeClass(page, 2, out);
    }
    out << "\n## Functions\n\n";
    writeMembers(functionPages(), out);
    out << "\n## Statements, operators and types\n";
    for (const WordText& word : wordTexts())
        out << "\n```text\n" << word.form << "\n```\n" << word.text << '\n';
}

} // namespace host::documentation
