#include "text/characters.h"

#include <algorithm>

namespace host {

bool isName(std::string_view text) {
    return !text.empty() && isNameStart(text.front()) && std::all_of(text.begin(), text.end(), isNamePart);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

bool LessIgnoringCase::operator()(std::string_view a, std::string_view b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lower(x) < lower(y); });
}

} // namespace host
