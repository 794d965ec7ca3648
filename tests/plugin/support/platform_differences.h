// Where GNUstep answers otherwise than AppKit. The tests take their expectations from here, and docs/platforms.md shows the same
// rows. On GNUstep each row's answer is asserted as firmly as AppKit's is elsewhere, so a row that is no longer true fails.
#pragma once

#include <cstring>

// X(identifier, what is asked, AppKit's answer, GNUstep's answer)
#define CHROMA_PLATFORM_DIFFERENCES(X)                                                                                      \
    X(CalibratedRange, "calibrated components outside 0 to 1", "are kept", "are clamped")                                   \
    X(Description, "`description` of a colour", "space and components, blank-separated", "a property list")                 \
    X(PlainColors, "`redColor` and the other plain colours", "one object each", "a new, equal object each time")            \
    X(SRGBSpaceName, "`colorSpaceName` of an sRGB colour", "NSCustomColorSpace", "NSCalibratedRGBColorSpace")               \
    X(NilSpaceName, "`colorUsingColorSpaceName:` with nil", "nil", "the colour in calibrated RGB")                          \
    X(NilSpace, "`colorUsingColorSpace:` with nil", "nil", "the colour as device grey")                                     \
    X(WrongCount, "`colorWithColorSpace:components:count:` with a wrong count", "raises", "nil")                            \
    X(HueWithoutSpace, "`colorWithColorSpace:hue:saturation:brightness:alpha:` with a nil space", "raises",                 \
      "a calibrated colour")                                                                                                \
    X(PatternConversion, "`colorUsingColorSpaceName:` of a pattern", "nil", "raises")                                       \
    X(PasteboardType, "`writeToPasteboard:` on a pasteboard without the colour type", "declares it", "writes nothing")      \
    X(ProfileChecks, "`initWithICCProfileData:` with data that is no profile", "nil",                                       \
      "a space of no components that hands the data out")                                                                   \
    X(NullProfile, "`initWithColorSyncProfile:` with null", "nil", "a space of no components")                              \
    X(ListFileName, "`initWithName:fromFile:` with a path that does not end in .clr", "reads the file",                     \
      "takes it for a folder and gives an empty list")                                                                      \
    X(MissingListFile, "`initWithName:fromFile:` with a missing or malformed file", "nil", "an empty list")                 \
    X(SystemListAtFirst, "`colorListNamed:` \"System\" before NSColor was used", "the list", "nil")                         \
    X(SystemListEditable, "the list \"System\"", "refuses changes", "takes them")

// X(class, sign, message): the messages that GNUstep's classes ("+") and objects ("-") do not answer.
#define CHROMA_MISSING_MESSAGES(X)                                                                                          \
    X(NSColor, "+", "colorWithCGColor:")                                                                                    \
    X(NSColor, "+", "scrubberTexturedBackgroundColor")                                                                      \
    X(NSColor, "-", "CGColor")                                                                                              \
    X(NSColorSpace, "+", "adobeRGB1998ColorSpace")                                                                          \
    X(NSColorSpace, "+", "availableColorSpacesWithModel:")                                                                  \
    X(NSColorSpace, "+", "colorSpaceForColorSpaceName:")                                                                    \
    X(NSColorSpace, "+", "genericGamma22GrayColorSpace")                                                                    \
    X(NSColorSpace, "+", "sRGBColorSpace")                                                                                  \
    X(NSColorSpace, "-", "CGColorSpace")                                                                                    \
    X(NSColorSpace, "-", "colorSpaceName")                                                                                  \
    X(NSColorSpace, "-", "initWithCGColorSpace:")

namespace platform {

#if defined(CHROMA_ON_GNUSTEP)
constexpr bool isGNUstep = true;
#else
constexpr bool isGNUstep = false;
#endif

#define CHROMA_IDENTIFIER(identifier, subject, appKit, gnustep) identifier,
enum class Difference { CHROMA_PLATFORM_DIFFERENCES(CHROMA_IDENTIFIER) };
#undef CHROMA_IDENTIFIER

struct Row {
    const char *subject, *appKit, *gnustep;
};
#define CHROMA_ROW(identifier, subject, appKit, gnustep) {subject, appKit, gnustep},
inline constexpr Row rows[] = {CHROMA_PLATFORM_DIFFERENCES(CHROMA_ROW)};
#undef CHROMA_ROW

struct Message {
    const char *className, *sign, *name;
};
#define CHROMA_MESSAGE(className, sign, name) {#className, sign, name},
inline constexpr Message missingMessages[] = {CHROMA_MISSING_MESSAGES(CHROMA_MESSAGE)};
#undef CHROMA_MESSAGE

// Whether GNUstep's answer is to be expected.
constexpr bool differs(Difference) { return isGNUstep; }

template <class T>
T expected(Difference difference, T onAppKit, T onGNUstep) {
    return differs(difference) ? onGNUstep : onAppKit;
}

// Whether the platform under the tests lacks the message.
inline bool lacks(const char* sign, const char* name) {
    if (!isGNUstep) return false;
    for (const Message& message : missingMessages)
        if (!std::strcmp(message.sign, sign) && !std::strcmp(message.name, name)) return true;
    return false;
}

} // namespace platform
