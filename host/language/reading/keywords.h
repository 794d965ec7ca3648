// The keywords and the generic functions among the words of the language.
#pragma once

#include "language/reading/token.h"
#include "language/words.h"

namespace host::language {

// Returns the keyword with the name, ignoring case, or Keyword::none.
Keyword keywordOf(std::string_view name);

enum class Generic : std::uint8_t { none, newArray, upperBound, lowerBound };

// Returns the generic function with the name, ignoring case, or Generic::none.
Generic genericOf(std::string_view name);

} // namespace host::language
