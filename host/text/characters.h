// The characters of programs and declarations, and names, which are compared ignoring case.
#pragma once

#include <string_view>

namespace host {

inline char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
inline bool isNameStart(char c) { return (lower(c) >= 'a' && lower(c) <= 'z') || c == '_'; }
inline bool isNamePart(char c) { return isNameStart(c) || isDigit(c); }
inline bool isBlank(char c) { return c == ' ' || c == '\t'; }
inline bool isLineEnd(char c) { return c == '\n' || c == '\r'; }

// Returns whether the text consists of letters, digits and underscores and does not begin with a digit.
bool isName(std::string_view text);

bool equalIgnoringCase(std::string_view a, std::string_view b);

// The corresponding order, for containers of names.
struct LessIgnoringCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

} // namespace host
