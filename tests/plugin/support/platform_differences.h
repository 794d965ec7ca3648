// Differences between GNUstep and AppKit. On GNUstep, tests expect the results that docs/platforms.md lists, so an outdated
// row fails. The expected output of the programs checks the other rows.
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

// Returns whether GNUstep's result is expected. The page must have a row for the question.
inline bool differs(const std::string& difference) {
    EXPECT_NE(page.find("| " + difference + " |"), std::string::npos) << difference;
    return isGNUstep;
}

template <class T>
T expected(const std::string& difference, T onAppKit, T onGNUstep) {
    return differs(difference) ? onGNUstep : onAppKit;
}

// Returns whether the platform does not respond to the message. The page must list it.
inline bool isMissing(const std::string& message) {
    EXPECT_NE(page.find("- `" + message + "`\n"), std::string::npos) << message;
    return isGNUstep;
}

} // namespace platform
