// Explains each word of the language that is neither a class nor a function: keywords, types, and the forms that only the
// language itself can provide.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host::documentation {

struct WordText {
    std::string_view words; // the words that this page explains, separated by blanks; the first is its name
    std::string form;       // the syntax, in one line or several
    std::string_view text;  // in Markdown that is also readable as plain text
};

const std::vector<WordText>& wordTexts();

// Returns the text of a word, or null if there is none. Words compare without regard to case.
const WordText* findWordText(std::string_view word);

} // namespace host::documentation
