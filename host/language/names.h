// The letters of names, which are compared without regard to their case; whole names go to host::equalIgnoringCase.
#pragma once

namespace host::language {

inline char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace host::language
