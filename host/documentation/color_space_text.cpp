// The members of NSColorSpaceZRX.
#include "documentation/texts.h"

namespace host::documentation {

ClassText colorSpaceText() {
    return {
        "NSColorSpaceZRX",
        "A colour space: the meaning of a colour's components, with an ICC profile where it has one.",
        {
            {"Constructor", "Makes the space of an ICC profile; the object stays empty when the profile is not valid."},

            {"Handle",
             "The address of the NSColorSpace inside; 0 in an empty object. This host lends what is written, which must be another space's: "
             "the object shows it and keeps it alive, and has its own back when it ends. Elsewhere nothing is retained or released."},
            {"localizedName", "The space's name in the user's language."},
            {"colorSpaceName", "The name that colours of the space give, such as `NSCalibratedRGBColorSpace`."},
            {"description", "The space in words, for a person to read."},
            {"colorSpaceModel", "What kind of components the space has, one of the Model constants."},
            {"numberOfColorComponents", "How many components a colour of the space has, without alpha."},

            {"initWithColorSyncProfile", "Fills an empty object with the space of a ColorSync profile at that address."},
            {"initWithCGColorSpace", "Fills an empty object with the space of a CGColorSpace at that address."},
            {"ICCProfileData", "A copy of the space's ICC profile; Nil when it has none, as device spaces do not."},
            {"colorSyncProfileHandle", "The address of the space's ColorSync profile, which lives as long as the space."},
            {"CGColorSpaceHandle", "The address of the space as a CGColorSpace, which lives as long as the space."},

            {"NSUnknownColorSpaceModel", "A model that the system does not know."},
            {"NSGrayColorSpaceModel", "Grey: one component, white."},
            {"NSRGBColorSpaceModel", "Red, green and blue."},
            {"NSCMYKColorSpaceModel", "Cyan, magenta, yellow and black."},
            {"NSLABColorSpaceModel", "Lightness and two axes of colour, as the eye sees them."},
            {"NSDeviceNColorSpaceModel", "Any number of inks."},
            {"NSIndexedColorSpaceModel", "Places in a table of colours."},
            {"NSPatternColorSpaceModel", "Patterns, which have no components."},
            {"NSCalibratedWhiteColorSpace", "The name of the generic grey space."},
            {"NSCalibratedBlackColorSpace", "An old name of the generic grey space."},
            {"NSCalibratedRGBColorSpace", "The name of the generic RGB space."},
            {"NSDeviceWhiteColorSpace", "The name of the display's grey space."},
            {"NSDeviceBlackColorSpace", "An old name of the display's grey space."},
            {"NSDeviceRGBColorSpace", "The name of the display's RGB space."},
            {"NSDeviceCMYKColorSpace", "The name of the output device's CMYK space."},
            {"NSNamedColorSpace", "What catalog colours give as the name of their space."},
            {"NSPatternColorSpace", "What patterns give as the name of their space."},
            {"NSCustomColorSpace", "What colours give whose space has none of the other names."},

            {"ColorSpaceWithICCProfileData",
             "The space of an ICC profile, in memory or in a file; Nil when it is not valid."},
            {"ColorSpaceWithColorSyncProfile", "The space of a ColorSync profile at that address; Nil for 0."},
            {"ColorSpaceWithCGColorSpace", "The space of a CGColorSpace at that address; Nil for 0."},
            {"availableColorSpacesWithModel", "The system's spaces of a model; none for a model that it does not know."},
            {"genericRGBColorSpace", "Generic RGB with gamma 1.8, the space of calibrated RGB colours."},
            {"genericGrayColorSpace", "Generic grey with gamma 1.8, the space of calibrated greys."},
            {"genericCMYKColorSpace", "Generic CMYK."},
            {"deviceRGBColorSpace", "The display's RGB."},
            {"deviceGrayColorSpace", "The display's grey."},
            {"deviceCMYKColorSpace", "The output device's CMYK."},
            {"sRGBColorSpace", "sRGB, the space of the web."},
            {"adobeRGB1998ColorSpace", "Adobe RGB (1998), with wider greens than sRGB."},
            {"genericGamma22GrayColorSpace", "Generic grey with gamma 2.2."},
            {"colorSpaceForColorSpaceName", "The space of a calibrated or device name; Nil for any other."},
        },
    };
}

} // namespace host::documentation
