// All classes and selectors that the plugin uses. An identifier is the selector with its colons as underscores. Its
// signature is that of the methods, which is the same in all classes that respond to it.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"
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
inline Message<id()> alloc{"alloc"};
inline Message<id()> autorelease{"autorelease"};
inline Message<BOOL(id)> isKindOfClass_{"isKindOfClass:"};
inline Message<void()> release{"release"};
inline Message<BOOL(SEL)> respondsToSelector_{"respondsToSelector:"};
inline Message<id()> retain{"retain"};

// NSException, and the class messages that sibling plugins add
inline Message<CFMutableDictionaryRef()> GetInstancesDictionaryZRX{"GetInstancesDictionaryZRX"};
inline Message<REALobjectStruct*(id)> NewNSExceptionZRX_{"NewNSExceptionZRX:"};
inline Message<void()> PrepareNSExceptionZRX{"PrepareNSExceptionZRX"};
inline Message<id()> name{"name"};
inline Message<id()> reason{"reason"};

// NSData
inline Message<const void*()> bytes{"bytes"};
inline Message<id(const void*, NSUInteger)> dataWithBytes_length_{"dataWithBytes:length:"};
inline Message<id(id)> dataWithContentsOfFile_{"dataWithContentsOfFile:"};
inline Message<NSUInteger()> length{"length"};

// NSArray and NSEnumerator
inline Message<id()> nextObject{"nextObject"};
inline Message<id()> objectEnumerator{"objectEnumerator"};

// NSColor: creating
inline Message<id(id)> colorFromPasteboard_{"colorFromPasteboard:"};
inline Message<id(const void*)> colorWithCGColor_{"colorWithCGColor:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithCalibratedHue_saturation_brightness_alpha_{
    "colorWithCalibratedHue:saturation:brightness:alpha:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithCalibratedRed_green_blue_alpha_{
    "colorWithCalibratedRed:green:blue:alpha:"};
inline Message<id(CGFloat, CGFloat)> colorWithCalibratedWhite_alpha_{"colorWithCalibratedWhite:alpha:"};
inline Message<id(id, const CGFloat*, NSInteger)> colorWithColorSpace_components_count_{
    "colorWithColorSpace:components:count:"};
inline Message<id(id, CGFloat, CGFloat, CGFloat, CGFloat)> colorWithColorSpace_hue_saturation_brightness_alpha_{
    "colorWithColorSpace:hue:saturation:brightness:alpha:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDeviceCyan_magenta_yellow_black_alpha_{
    "colorWithDeviceCyan:magenta:yellow:black:alpha:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDeviceHue_saturation_brightness_alpha_{
    "colorWithDeviceHue:saturation:brightness:alpha:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDeviceRed_green_blue_alpha_{
    "colorWithDeviceRed:green:blue:alpha:"};
inline Message<id(CGFloat, CGFloat)> colorWithDeviceWhite_alpha_{"colorWithDeviceWhite:alpha:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithDisplayP3Red_green_blue_alpha_{
    "colorWithDisplayP3Red:green:blue:alpha:"};
inline Message<id(CGFloat, CGFloat)> colorWithGenericGamma22White_alpha_{"colorWithGenericGamma22White:alpha:"};
inline Message<id(id)> colorWithPatternImage_{"colorWithPatternImage:"};
inline Message<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithSRGBRed_green_blue_alpha_{
    "colorWithSRGBRed:green:blue:alpha:"};
inline Message<id()> scrubberTexturedBackgroundColor{"scrubberTexturedBackgroundColor"};

#define CHROMA_SELECTOR(name) inline Message<id()> name{#name};
CHROMA_SYSTEM_COLORS(CHROMA_SELECTOR)
#undef CHROMA_SELECTOR

// NSColor: reading; spaces respond to some of these too
inline Message<const void*()> CGColor{"CGColor"};
inline Message<CGFloat()> alphaComponent{"alphaComponent"};
inline Message<CGFloat()> blackComponent{"blackComponent"};
inline Message<CGFloat()> blueComponent{"blueComponent"};
inline Message<CGFloat()> brightnessComponent{"brightnessComponent"};
inline Message<id()> catalogNameComponent{"catalogNameComponent"};
inline Message<id()> colorNameComponent{"colorNameComponent"};
inline Message<id()> colorSpaceName{"colorSpaceName"};
inline Message<CGFloat()> cyanComponent{"cyanComponent"};
inline Message<id()> description{"description"};
inline Message<void(CGFloat*)> getComponents_{"getComponents:"};
inline Message<void(CGFloat*, CGFloat*, CGFloat*, CGFloat*, CGFloat*)> getCyan_magenta_yellow_black_alpha_{
    "getCyan:magenta:yellow:black:alpha:"};
inline Message<void(CGFloat*, CGFloat*, CGFloat*, CGFloat*)> getHue_saturation_brightness_alpha_{
    "getHue:saturation:brightness:alpha:"};
inline Message<void(CGFloat*, CGFloat*, CGFloat*, CGFloat*)> getRed_green_blue_alpha_{"getRed:green:blue:alpha:"};
inline Message<void(CGFloat*, CGFloat*)> getWhite_alpha_{"getWhite:alpha:"};
inline Message<CGFloat()> greenComponent{"greenComponent"};
inline Message<CGFloat()> hueComponent{"hueComponent"};
inline Message<id()> localizedCatalogNameComponent{"localizedCatalogNameComponent"};
inline Message<id()> localizedColorNameComponent{"localizedColorNameComponent"};
inline Message<CGFloat()> magentaComponent{"magentaComponent"};
inline Message<NSInteger()> numberOfComponents{"numberOfComponents"};
inline Message<CGFloat()> redComponent{"redComponent"};
inline Message<CGFloat()> saturationComponent{"saturationComponent"};
inline Message<CGFloat()> whiteComponent{"whiteComponent"};
inline Message<CGFloat()> yellowComponent{"yellowComponent"};

// NSColor: deriving
inline Message<id(CGFloat, id)> blendedColorWithFraction_ofColor_{"blendedColorWithFraction:ofColor:"};
inline Message<id()> colorSpace{"colorSpace"};
inline Message<id(id)> colorUsingColorSpace_{"colorUsingColorSpace:"};
inline Message<id(id)> colorUsingColorSpaceName_{"colorUsingColorSpaceName:"};
inline Message<id(CGFloat)> colorWithAlphaComponent_{"colorWithAlphaComponent:"};
inline Message<id(CGFloat)> highlightWithLevel_{"highlightWithLevel:"};
inline Message<id()> patternImage{"patternImage"};
inline Message<id(CGFloat)> shadowWithLevel_{"shadowWithLevel:"};
inline Message<void(id)> writeToPasteboard_{"writeToPasteboard:"};

// NSColorSpace
inline Message<const void*()> CGColorSpace{"CGColorSpace"};
inline Message<id()> ICCProfileData{"ICCProfileData"};
inline Message<id()> adobeRGB1998ColorSpace{"adobeRGB1998ColorSpace"};
inline Message<id(NSInteger)> availableColorSpacesWithModel_{"availableColorSpacesWithModel:"};
inline Message<id(id)> colorSpaceForColorSpaceName_{"colorSpaceForColorSpaceName:"};
inline Message<SpaceInteger()> colorSpaceModel{"colorSpaceModel"};
inline Message<const void*()> colorSyncProfile{"colorSyncProfile"};
inline Message<id()> deviceCMYKColorSpace{"deviceCMYKColorSpace"};
inline Message<id()> deviceGrayColorSpace{"deviceGrayColorSpace"};
inline Message<id()> deviceRGBColorSpace{"deviceRGBColorSpace"};
inline Message<id()> genericCMYKColorSpace{"genericCMYKColorSpace"};
inline Message<id()> genericGamma22GrayColorSpace{"genericGamma22GrayColorSpace"};
inline Message<id()> genericGrayColorSpace{"genericGrayColorSpace"};
inline Message<id()> genericRGBColorSpace{"genericRGBColorSpace"};
inline Message<id(const void*)> initWithCGColorSpace_{"initWithCGColorSpace:"};
inline Message<id(const void*)> initWithColorSyncProfile_{"initWithColorSyncProfile:"};
inline Message<id(id)> initWithICCProfileData_{"initWithICCProfileData:"};
inline Message<id()> localizedName{"localizedName"};
inline Message<SpaceInteger()> numberOfColorComponents{"numberOfColorComponents"};
inline Message<id()> sRGBColorSpace{"sRGBColorSpace"};

// NSColorList
inline Message<id(id)> colorListNamed_{"colorListNamed:"};
inline Message<id(id)> colorWithKey_{"colorWithKey:"};
inline Message<id(id)> initWithName_{"initWithName:"};
inline Message<id(id, id)> initWithName_fromFile_{"initWithName:fromFile:"};
inline Message<void(id, id, ListIndex)> insertColor_key_atIndex_{"insertColor:key:atIndex:"};
inline Message<BOOL()> isEditable{"isEditable"};
inline Message<void(id)> removeColorWithKey_{"removeColorWithKey:"};
inline Message<void()> removeFile{"removeFile"};
inline Message<void(id, id)> setColor_forKey_{"setColor:forKey:"};
inline Message<BOOL(id)> writeToFile_{"writeToFile:"};

// NSPasteboard
inline Message<id()> generalPasteboard{"generalPasteboard"};

} // namespace chroma::sel
