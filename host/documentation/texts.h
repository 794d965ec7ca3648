// Explains each class and each of its members in a line or a few. The texts are here because class records carry
// declarations only.
#pragma once

#include <string_view>
#include <vector>

namespace host::documentation {

struct MemberText {
    // the name of a property, a constant, or all overloads of a method; "Constructor" for constructors
    std::string_view name;
    std::string_view text; // one sentence or a few, in Markdown that is also readable as plain text
};

struct ClassText {
    std::string_view name;
    std::string_view text;
    std::vector<MemberText> members;
};

// Returns the plugin classes first, then the host's own.
const std::vector<ClassText>& classTexts();

// Return null if no text exists. Names compare without regard to case.
const ClassText* findClassText(std::string_view className);
const MemberText* findMemberText(const ClassText& text, std::string_view member);

// Return the parts that classTexts joins.
ClassText colorText();
ClassText colorListText();
ClassText colorSpaceText();
std::vector<ClassText> siblingTexts();
std::vector<ClassText> builtInTexts();

} // namespace host::documentation
