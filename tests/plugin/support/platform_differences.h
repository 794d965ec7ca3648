// Where GNUstep answers otherwise than AppKit. docs/platforms.md shows the same rows, and tests take their expectations from
// here; the others are what programs/ expects of colors.bas, spaces.bas and lists.bas. On GNUstep each row's answer is
// asserted as firmly as AppKit's is elsewhere, so a row that is no longer true fails.
#pragma once

#include <algorithm>
#include <string>

// X(identifier, what is asked, AppKit's answer, GNUstep's answer)
#define CHROMA_PLATFORM_DIFFERENCES(X)                                                                                      \
    X(CalibratedRange, "calibrated components outside 0 to 1", "are kept", "are clamped")                                   \
    X(Description, "`description` of a colour", "space and components, blank-separated", "a property list")                 \
    X(PlainColors, "`redColor` and the other plain colours", "one object each", "a new, equal object each time")            \
    X(SRGBSpaceName, "`colorSpaceName` of an sRGB colour", "NSCustomColorSpace", "NSCalibratedRGBColorSpace")               \
    X(CatalogAlpha, "`alphaComponent` of a catalog colour", "that of what it stands for", "1")                              \
    X(NilSpaceName, "`colorUsingColorSpaceName:` with nil", "the colour as it is", "the colour in calibrated RGB")          \
    X(NilSpace, "`colorUsingColorSpace:` with nil", "nil", "the colour as device grey")                                     \
    X(WrongCount, "`colorWithColorSpace:components:count:` with a wrong count", "raises", "nil")                            \
    X(HueWithoutSpace, "`colorWithColorSpace:hue:saturation:brightness:alpha:` with a nil space", "raises",                 \
      "a calibrated colour")                                                                                                \
    X(PatternConversion, "`colorUsingColorSpaceName:` of a pattern", "nil", "raises")                                       \
    X(NamedProfiles, "`ICCProfileData` of the generic spaces", "a profile", "nil")                                          \
    X(LocalizedNames, "`localizedName` of the generic spaces", "that of the profile", "that of the model")                  \
    X(ProfileChecks, "`initWithICCProfileData:` with data that is no profile", "nil",                                       \
      "a space of no components that hands the data out")                                                                   \
    X(NullProfile, "`initWithColorSyncProfile:` with null", "nil", "a space of no components")                              \
    X(ListFileName, "`initWithName:fromFile:` with a path that does not end in .clr", "reads the file",                     \
      "takes it for a folder and gives an empty list")                                                                      \
    X(NamelessList, "`initWithName:` with nil", "nil", "a list without a name")                                             \
    X(ListWithoutFile, "`initWithName:fromFile:` with nil for the path", "nil", "an empty list")                            \
    X(SavedList, "a list that was written to the user's folder, asked for by name", "is read from there",                   \
      "is the very list")                                                                                                   \
    X(MissingListFile, "`initWithName:fromFile:` with a missing or malformed file", "nil", "an empty list")                 \
    X(SystemListAtFirst, "`colorListNamed:` \"System\" before NSColor was used", "the list", "nil")                         \
    X(SystemListEditable, "the list \"System\"", "refuses changes", "takes them")

namespace platform {

#if defined(CHROMA_ON_GNUSTEP)
constexpr bool isGNUstep = true;
#else
constexpr bool isGNUstep = false;
#endif

#define CHROMA_IDENTIFIER(identifier, subject, appKit, gnustep) identifier,
enum class Difference { CHROMA_PLATFORM_DIFFERENCES(CHROMA_IDENTIFIER) };

// The rows as the page shows them.
#define CHROMA_ROW(identifier, subject, appKit, gnustep) "| " subject " | " appKit " | " gnustep " |\n",
inline constexpr const char* rows[] = {CHROMA_PLATFORM_DIFFERENCES(CHROMA_ROW)};

// The messages that GNUstep's classes and objects do not answer.
inline constexpr const char* missingMessages[] = {
    "+[NSColor colorWithCGColor:]",
    "+[NSColor scrubberTexturedBackgroundColor]",
    "-[NSColor CGColor]",
    "+[NSColorSpace adobeRGB1998ColorSpace]",
    "+[NSColorSpace availableColorSpacesWithModel:]",
    "+[NSColorSpace colorSpaceForColorSpaceName:]",
    "+[NSColorSpace genericGamma22GrayColorSpace]",
    "+[NSColorSpace sRGBColorSpace]",
    "-[NSColorSpace CGColorSpace]",
    "-[NSColorSpace colorSpaceName]",
    "-[NSColorSpace initWithCGColorSpace:]",
};

// Whether GNUstep's answer is to be expected.
constexpr bool differs(Difference) { return isGNUstep; }

template <class T>
T expected(Difference difference, T onAppKit, T onGNUstep) {
    return differs(difference) ? onGNUstep : onAppKit;
}

// Whether the platform under the tests lacks the message.
inline bool lacks(const std::string& message) {
    return isGNUstep &&
           std::find(std::begin(missingMessages), std::end(missingMessages), message) != std::end(missingMessages);
}

} // namespace platform
