// The class record of NSColorSpaceZRX and its tables, in record order.
#include "classes/color_space/color_space.h"

#include "runtime/class_records.h"

namespace chroma::color_space {
namespace {

// clang-format off
REALproperty NSColorSpaceProperties[] = {
    CHROMA_HANDLE_PROPERTY,
    CHROMA_PROPERTY(localizedName, "String"),
    CHROMA_PROPERTY(colorSpaceName, "String"),
    CHROMA_PROPERTY(description, "String"),
    CHROMA_PROPERTY(colorSpaceModel, "Integer"),
    CHROMA_PROPERTY(numberOfColorComponents, "Integer"),
};

REALmethodDefinition NSColorSpaceMethods[] = {
    CHROMA_METHOD(initWithICCProfileData, "Constructor(ICCProfileData as Memoryblock)"),
    CHROMA_METHOD(initWithColorSyncProfile, "initWithColorSyncProfile(ColorSyncProfileHandle as integer)"),
    CHROMA_METHOD(initWithCGColorSpace, "initWithCGColorSpace(CGColorSpaceHandle as integer)"),
    CHROMA_METHOD(ICCProfileData, "ICCProfileData as Memoryblock"),
    CHROMA_METHOD(colorSyncProfile, "colorSyncProfileHandle as integer"),
    CHROMA_METHOD(CGColorSpace, "CGColorSpaceHandle as integer"),
};

// Models are integers. A name's value is its text.
#define CHROMA_MODEL(declaration) { declaration, 0, REALconstantFlags, {} }
#define CHROMA_NAME(name) { name " = \"" name "\"", 0, REALconstantFlags, {} }

REALconstant NSColorSpaceConstants[] = {
    CHROMA_MODEL("NSUnknownColorSpaceModel=-1"),
    CHROMA_MODEL("NSGrayColorSpaceModel=0"),
    CHROMA_MODEL("NSRGBColorSpaceModel=1"),
    CHROMA_MODEL("NSCMYKColorSpaceModel=2"),
    CHROMA_MODEL("NSLABColorSpaceModel=3"),
    CHROMA_MODEL("NSDeviceNColorSpaceModel=4"),
    CHROMA_MODEL("NSIndexedColorSpaceModel=5"),
    CHROMA_MODEL("NSPatternColorSpaceModel=6"),
    CHROMA_NAME("NSCalibratedWhiteColorSpace"),
    CHROMA_NAME("NSCalibratedBlackColorSpace"),
    CHROMA_NAME("NSCalibratedRGBColorSpace"),
    CHROMA_NAME("NSDeviceWhiteColorSpace"),
    CHROMA_NAME("NSDeviceBlackColorSpace"),
    CHROMA_NAME("NSDeviceRGBColorSpace"),
    CHROMA_NAME("NSDeviceCMYKColorSpace"),
    CHROMA_NAME("NSNamedColorSpace"),
    CHROMA_NAME("NSPatternColorSpace"),
    CHROMA_NAME("NSCustomColorSpace"),
};

#define CHROMA_NAMED_SPACE(name) CHROMA_METHOD(get##name, #name " as NSColorSpaceZRX"),

REALmethodDefinition NSColorSpaceSharedMethods[] = {
    CHROMA_METHOD(ColorSpaceWithICCProfileFile, "ColorSpaceWithICCProfileData(File as Folderitem) as NSColorSpaceZRX"),
    CHROMA_METHOD(ColorSpaceWithICCProfileData, "ColorSpaceWithICCProfileData(ICCProfileData as Memoryblock) as NSColorSpaceZRX"),
    CHROMA_METHOD(ColorSpaceWithColorSyncProfile, "ColorSpaceWithColorSyncProfile(ColorSyncProfileHandle as integer) as NSColorSpaceZRX"),
    CHROMA_METHOD(ColorSpaceWithCGColorSpace, "ColorSpaceWithCGColorSpace(CGColorSpaceHandle as integer) as NSColorSpaceZRX"),
    CHROMA_METHOD(availableColorSpacesWithModel, "availableColorSpacesWithModel(Model as integer) as NSColorSpaceZRX()"),
    CHROMA_NAMED_SPACES(CHROMA_NAMED_SPACE)
    CHROMA_METHOD(colorSpaceForColorSpaceName, "colorSpaceForColorSpaceName(name as string) as NSColorSpaceZRX"),
};
// clang-format on

} // namespace

REALclassDefinition NSColorSpaceClass = CHROMA_CLASS(
    "NSColorSpaceZRX", nullptr, NSColorSpaceConstructor, NSColorSpaceDestructor, CHROMA_ROWS(NSColorSpaceProperties),
    CHROMA_ROWS(NSColorSpaceMethods), CHROMA_ROWS(NSColorSpaceConstants), CHROMA_ROWS(NSColorSpaceSharedMethods));

} // namespace chroma::color_space
