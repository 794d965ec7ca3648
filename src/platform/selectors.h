// Every class and every selector that the plugin names, one list each. An identifier is the selector with its colons as
// underscores.
#pragma once

#include "platform/objc.h"

namespace chroma::cls {

inline ClassName NSColor{"NSColor"};
inline ClassName NSColorSpace{"NSColorSpace"};
inline ClassName NSData{"NSData"};
inline ClassName NSException{"NSException"};

} // namespace chroma::cls

namespace chroma::sel {

// NSObject
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
inline Selector length{"length"};

// NSColor
inline Selector CGColor{"CGColor"};
inline Selector alphaComponent{"alphaComponent"};
inline Selector blackComponent{"blackComponent"};
inline Selector blueComponent{"blueComponent"};
inline Selector brightnessComponent{"brightnessComponent"};
inline Selector catalogNameComponent{"catalogNameComponent"};
inline Selector colorNameComponent{"colorNameComponent"};
inline Selector colorSpaceName{"colorSpaceName"};
inline Selector colorUsingColorSpaceName_{"colorUsingColorSpaceName:"};
inline Selector colorUsingColorSpace_{"colorUsingColorSpace:"};
inline Selector colorWithCalibratedRed_green_blue_alpha_{"colorWithCalibratedRed:green:blue:alpha:"};
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

// NSColorSpace
inline Selector genericRGBColorSpace{"genericRGBColorSpace"};

} // namespace chroma::sel
