#include "documentation/texts.h"

#include "values/types.h"

#include <algorithm>

namespace host::documentation {

namespace {

std::vector<ClassText> joined() {
    std::vector<ClassText> all = {colorText(), colorSpaceText(), colorListText()};
    for (const auto& part : {siblingTexts(), builtInTexts()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

template <class Text>
const Text* findNamed(const std::vector<Text>& texts, std::string_view name) {
    const auto found =
        std::find_if(texts.begin(), texts.end(), [&](const Text& text) { return equalIgnoringCase(text.name, name); });
    return found == texts.end() ? nullptr : &*found;
}

} // namespace

const std::vector<ClassText>& classTexts() {
    static const std::vector<ClassText> all = joined();
    return all;
}

const ClassText* findClassText(std::string_view className) { return findNamed(classTexts(), className); }

const MemberText* findMemberText(const ClassText& text, std::string_view member) { return findNamed(text.members, member); }

} // namespace host::documentation
