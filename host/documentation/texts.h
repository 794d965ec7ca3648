// What each class and each of its members is for, in a line: kept here, beside the class records, which carry declarations
// only.
#pragma once

#include <string_view>
#include <vector>

namespace host::documentation {

struct MemberText {
    std::string_view name; // of a property, a constant, or all overloads of a method; "Constructor" for constructors
    std::string_view text; // one sentence or a few, in Markdown that also reads well as it is
};

struct ClassText {
    std::string_view name;
    std::string_view text;
    std::vector<MemberText> members;
};

// Plugin classes first, the host's own behind them.
const std::vector<ClassText>& classTexts();

// Null when there is none. Names compare without regard to case.
const ClassText* findClassText(std::string_view className);
const MemberText* findMemberText(const ClassText& text, std::string_view member);

// The parts that classTexts joins.
ClassText colorText();
ClassText colorListText();
ClassText colorSpaceText();
std::vector<ClassText> siblingTexts();
std::vector<ClassText> builtInTexts();

} // namespace host::documentation
