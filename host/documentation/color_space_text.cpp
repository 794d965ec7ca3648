// The members of NSColorSpaceZRX.
#include "documentation/texts.h"

namespace host::documentation {

ClassText colorSpaceText() {
    return {
        "NSColorSpaceZRX",
        "A colour space: it defines what a colour's components mean, and may have an ICC profile.",
        {
            {"Constructor", "Creates the space of an ICC profile; the object stays empty if the profile is not valid."},

            {"Handle",
             "The address of the wrapped NSColorSpace; 0 in an empty object. In this host, only the handle of another "
             "space can be assigned: the object then uses that space and keeps it alive, and gets its original handle "
             "back before it is destroyed. In other hosts, an assignment retains and releases nothing."},
            {"localizedName", "The space's name in the user's language."},
            {"colorSpaceName", "The space's name as colours report it, such as `NSCalibratedRGBColorSpace`."},
            {"description", "A readable description of the space."},
            {"colorSpaceModel", "The kind of components that the space has: one of the Model constants."},
            {"numberOfColorComponents", "The number of components of a colour in the space, without alpha."},

            {"initWithColorSyncProfile", "Fills an empty object with the space of a ColorSync profile at that address."},
            {"initWithCGColorSpace", "Fills an empty object with the space of a CGColorSpace at that address."},
            {"ICCProfileData", "Returns a copy of the space's ICC profile, or Nil if it has none, as device spaces do."},
            {"colorSyncProfileHandle",
             "Returns the address of the space's ColorSync profile, which lives as long as the space."},
            {"CGColorSpaceHandle", "Returns the address of the space as a CGColorSpace, which lives as long as the space."},

            {"NSUnknownColorSpaceModel", "A model that the system does not recognise."},
            {"NSGrayColorSpaceModel", "Grey: one component, white."},
            {"NSRGBColorSpaceModel", "Red, green and blue."},
            {"NSCMYKColorSpaceModel", "Cyan, magenta, yellow and black."},
            {"NSLABColorSpaceModel", "Lightness and two colour axes, modelled on human vision."},
            {"NSDeviceNColorSpaceModel", "Any number of inks."},
            {"NSIndexedColorSpaceModel", "Indexes into a table of colours."},
            {"NSPatternColorSpaceModel", "Patterns, which have no components."},
            {"NSCalibratedWhiteColorSpace", "The name of the generic grey space."},
            {"NSCalibratedBlackColorSpace", "An old name of the generic grey space."},
            {"NSCalibratedRGBColorSpace", "The name of the generic RGB space."},
            {"NSDeviceWhiteColorSpace", "The name of the display's grey space."},
            {"NSDeviceBlackColorSpace", "An old name of the display's grey space."},
            {"NSDeviceRGBColorSpace", "The name of the display's RGB space."},
            {"NSDeviceCMYKColorSpace", "The name of the output device's CMYK space."},
            {"NSNamedColorSpace", "The space name that catalog colours report."},
            {"NSPatternColorSpace", "The space name that patterns report."},
            {"NSCustomColorSpace", "The space name that colours report if none of the other names applies."},

            {"ColorSpaceWithICCProfileData",
             "Returns the space of an ICC profile, in memory or in a file, or Nil if the profile is not valid."},
            {"ColorSpaceWithColorSyncProfile", "Returns the space of a ColorSync profile at that address, or Nil for 0."},
            {"ColorSpaceWithCGColorSpace", "Returns the space of a CGColorSpace at that address, or Nil for 0."},
            {"availableColorSpacesWithModel",
             "Returns the system's spaces of a model; the array is empty if the system does not recognise the model."},
            {"genericRGBColorSpace", "Generic RGB with gamma 1.8, the space of calibrated RGB colours."},
            {"genericGrayColorSpace", "Generic grey with gamma 1.8, the space of calibrated greys."},
            {"genericCMYKColorSpace", "Generic CMYK."},
            {"deviceRGBColorSpace", "The display's RGB."},
            {"deviceGrayColorSpace", "The display's grey."},
            {"deviceCMYKColorSpace", "The output device's CMYK."},
            {"sRGBColorSpace", "sRGB, the space of the web."},
            {"adobeRGB1998ColorSpace", "Adobe RGB (1998), with wider greens than sRGB."},
            {"genericGamma22GrayColorSpace", "Generic grey with gamma 2.2."},
            {"colorSpaceForColorSpaceName", "Returns the space of a calibrated or device name, or Nil for any other name."},
        },
    };
}

} // namespace host::documentation
