// Where GNUstep answers otherwise than AppKit: what docs/platforms.md says of it is what tests expect there, as firmly as
// AppKit's answer elsewhere, so a row that is no longer true fails. Of other rows the programs' expected output tells.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace platform {

#if defined(CHROMA_ON_GNUSTEP)
constexpr bool isGNUstep = true;
#else
constexpr bool isGNUstep = false;
#endif

inline const std::string page = [] {
    std::ifstream file(CHROMA_PLATFORMS_PAGE);
    return std::string(std::istreambuf_iterator(file), {});
}();

// Whether GNUstep's answer is to be expected, of which the page has a row.
inline bool differs(const std::string& asked) {
    EXPECT_NE(page.find("| " + asked + " |"), std::string::npos) << asked;
    return isGNUstep;
}

template <class T>
T expected(const std::string& asked, T onAppKit, T onGNUstep) {
    return differs(asked) ? onGNUstep : onAppKit;
}

// Whether the platform under the tests lacks the message, which the page lists then.
inline bool lacks(const std::string& message) {
    EXPECT_NE(page.find("- `" + message + "`\n"), std::string::npos) << message;
    return isGNUstep;
}

} // namespace platform
