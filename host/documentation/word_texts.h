// What each word of the language is for that is neither a class nor one of its functions: keywords, types, and the forms
// that only the language itself can offer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host::documentation {

struct WordText {
    std::string_view words; // that this is the page of, with blanks between them; the first is its name
    std::string form;       // how they are written, in one line or several
    std::string_view text;  // in Markdown that also reads well as it is
};

const std::vector<WordText>& wordTexts();

// Without regard to case; null when there is none.
const WordText* findWordText(std::string_view word);

} // namespace host::documentation
