// Every class and every selector that the plugin names, one list each. An identifier is the selector with its colons as
// underscores.
#pragma once

#include "platform/objc.h"
#include "platform/system_colors.h"

namespace chroma::cls {

inline ClassName NSColor{"NSColor"};
inline ClassName NSColorList{"NSColorList"};
inline ClassName NSColorSpace{"NSColorSpace"};
inline ClassName NSData{"NSData"};
inline ClassName NSException{"NSException"};
inline ClassName NSImage{"NSImage"};
inline ClassName NSPasteboard{"NSPasteboard"};

} // namespace chroma::cls

namespace chroma::sel {

// NSObject
inline Selector alloc{"alloc"};
inline Selector autorelease{"autorelease"};
inline Selector isKindOfClass_{"isKindOfClass:"};
inline Selector release{"release"};
inline Selector respondsToSelector_{"respondsToSelector:"};
inline Selector retain{"retain"};

// NSException, and what sibling plugins add to its class
inline Selector GetInstancesDictionaryZRX{"GetInstancesDictionaryZRX"};
inline Selector NewNSExceptionZRX_{"NewNSExceptionZRX:"};
inline Selector PrepareNSExceptionZRX{"PrepareNSExceptionZRX"};
inline Selector name{"name"};
inline Selector reason{"reason"};

// NSData
inline Selector bytes{"bytes"};
inline Selector dataWithBytes_length_{"dataWithBytes:length:"};
inline Selector dataWithContentsOfFile_{"dataWithContentsOfFile:"};
inline Selector length{"length"};

// NSArray and NSEnumerator
inline Selector nextObject{"nextObject"};
inline Selector objectEnumerator{"objectEnumerator"};

// NSColor: making
inline Selector colorFromPasteboard_{"colorFromPasteboard:"};
inline Selector colorWithCGColor_{"colorWithCGColor:"};
inline Selector colorWithCalibratedHue_saturation_brightness_alpha_{"colorWithCalibratedHue:saturation:brightness:alpha:"};
inline Selector colorWithCalibratedRed_green_blue_alpha_{"colorWithCalibratedRed:green:blue:alpha:"};
inline Selector colorWithCalibratedWhite_alpha_{"colorWithCalibratedWhite:alpha:"};
inline Selector colorWithColorSpace_components_count_{"colorWithColorSpace:components:count:"};
inline Selector colorWithColorSpace_hue_saturation_brightness_alpha_{"colorWithColorSpace:hue:saturation:brightness:alpha:"};
inline Selector colorWithDeviceCyan_magenta_yellow_black_alpha_{"colorWithDeviceCyan:magenta:yellow:black:alpha:"};
inline Selector colorWithDeviceHue_saturation_brightness_alpha_{"colorWithDeviceHue:saturation:brightness:alpha:"};
inline Selector colorWithDeviceRed_green_blue_alpha_{"colorWithDeviceRed:green:blue:alpha:"};
inline Selector colorWithDeviceWhite_alpha_{"colorWithDeviceWhite:alpha:"};
inline Selector colorWithDisplayP3Red_green_blue_alpha_{"colorWithDisplayP3Red:green:blue:alpha:"};
inline Selector colorWithGenericGamma22White_alpha_{"colorWithGenericGamma22White:alpha:"};
inline Selector colorWithPatternImage_{"colorWithPatternImage:"};
inline Selector colorWithSRGBRed_green_blue_alpha_{"colorWithSRGBRed:green:blue:alpha:"};
inline Selector scrubberTexturedBackgroundColor{"scrubberTexturedBackgroundColor"};

#define CHROMA_SELECTOR(name) inline Selector name{#name};
CHROMA_SYSTEM_COLORS(CHROMA_SELECTOR)
#undef CHROMA_SELECTOR

// NSColor: reading; spaces answer some of these too
inline Selector CGColor{"CGColor"};
inline Selector alphaComponent{"alphaComponent"};
inline Selector blackComponent{"blackComponent"};
inline Selector blueComponent{"blueComponent"};
inline Selector brightnessComponent{"brightnessComponent"};
inline Selector catalogNameComponent{"catalogNameComponent"};
inline Selector colorNameComponent{"colorNameComponent"};
inline Selector colorSpaceName{"colorSpaceName"};
inline Selector cyanComponent{"cyanComponent"};
inline Selector description{"description"};
inline Selector getComponents_{"getComponents:"};
inline Selector getCyan_magenta_yellow_black_alpha_{"getCyan:magenta:yellow:black:alpha:"};
inline Selector getHue_saturation_brightness_alpha_{"getHue:saturation:brightness:alpha:"};
inline Selector getRed_green_blue_alpha_{"getRed:green:blue:alpha:"};
inline Selector getWhite_alpha_{"getWhite:alpha:"};
inline Selector greenComponent{"greenComponent"};
inline Selector hueComponent{"hueComponent"};
inline Selector localizedCatalogNameComponent{"localizedCatalogNameComponent"};
inline Selector localizedColorNameComponent{"localizedColorNameComponent"};
inline Selector magentaComponent{"magentaComponent"};
inline Selector numberOfComponents{"numberOfComponents"};
inline Selector redComponent{"redComponent"};
inline Selector saturationComponent{"saturationComponent"};
inline Selector whiteComponent{"whiteComponent"};
inline Selector yellowComponent{"yellowComponent"};

// NSColor: deriving
inline Selector blendedColorWithFraction_ofColor_{"blendedColorWithFraction:ofColor:"};
inline Selector colorSpace{"colorSpace"};
inline Selector colorUsingColorSpace_{"colorUsingColorSpace:"};
inline Selector colorUsingColorSpaceName_{"colorUsingColorSpaceName:"};
inline Selector colorWithAlphaComponent_{"colorWithAlphaComponent:"};
inline Selector highlightWithLevel_{"highlightWithLevel:"};
inline Selector patternImage{"patternImage"};
inline Selector shadowWithLevel_{"shadowWithLevel:"};
inline Selector writeToPasteboard_{"writeToPasteboard:"};

// NSColorSpace
inline Selector CGColorSpace{"CGColorSpace"};
inline Selector ICCProfileData{"ICCProfileData"};
inline Selector adobeRGB1998ColorSpace{"adobeRGB1998ColorSpace"};
inline Selector availableColorSpacesWithModel_{"availableColorSpacesWithModel:"};
inline Selector colorSpaceForColorSpaceName_{"colorSpaceForColorSpaceName:"};
inline Selector colorSpaceModel{"colorSpaceModel"};
inline Selector colorSyncProfile{"colorSyncProfile"};
inline Selector deviceCMYKColorSpace{"deviceCMYKColorSpace"};
inline Selector deviceGrayColorSpace{"deviceGrayColorSpace"};
inline Selector deviceRGBColorSpace{"deviceRGBColorSpace"};
inline Selector genericCMYKColorSpace{"genericCMYKColorSpace"};
inline Selector genericGamma22GrayColorSpace{"genericGamma22GrayColorSpace"};
inline Selector genericGrayColorSpace{"genericGrayColorSpace"};
inline Selector genericRGBColorSpace{"genericRGBColorSpace"};
inline Selector initWithCGColorSpace_{"initWithCGColorSpace:"};
inline Selector initWithColorSyncProfile_{"initWithColorSyncProfile:"};
inline Selector initWithICCProfileData_{"initWithICCProfileData:"};
inline Selector localizedName{"localizedName"};
inline Selector numberOfColorComponents{"numberOfColorComponents"};
inline Selector sRGBColorSpace{"sRGBColorSpace"};

// NSColorList
inline Selector colorListNamed_{"colorListNamed:"};
inline Selector colorWithKey_{"colorWithKey:"};
inline Selector initWithName_{"initWithName:"};
inline Selector initWithName_fromFile_{"initWithName:fromFile:"};
inline Selector insertColor_key_atIndex_{"insertColor:key:atIndex:"};
inline Selector isEditable{"isEditable"};
inline Selector removeColorWithKey_{"removeColorWithKey:"};
inline Selector removeFile{"removeFile"};
inline Selector setColor_forKey_{"setColor:forKey:"};
inline Selector writeToFile_{"writeToFile:"};

// NSPasteboard
inline Selector generalPasteboard{"generalPasteboard"};

} // namespace chroma::sel
