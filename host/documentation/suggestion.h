// Guessing which name was meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host::documentation {

// The candidate that differs from the word, in whole or in its beginning, by the fewest letters; else one that the word
// stands in; empty when none is close. Case does not count.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

} // namespace host::documentation
