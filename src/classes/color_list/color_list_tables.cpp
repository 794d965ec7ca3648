// The class record of NSColorListZRX and its methods, in record order.
#include "classes/color_list/color_list.h"

#include "runtime/class_records.h"

namespace chroma::color_list {
namespace {

// clang-format off
REALmethodDefinition NSColorListMethods[] = {
    CHROMA_METHOD(insertColor, "insertColor(theColor as NSColorZRX, key as string, index as integer)"),
    CHROMA_METHOD(setColor, "setColor(theColor as NSColorZRX, key as string)"),
    CHROMA_METHOD(colorWithKey, "colorWithKey(key as string) as NSColorZRX"),
    CHROMA_METHOD(removeColorWithKey, "removeColorWithKey(key as string)"),
    CHROMA_METHOD(writeToFile, "writeToFile(path as string) as boolean"),
    CHROMA_METHOD(removeFile, "removeFile"),
    CHROMA_METHOD(isEditable, "isEditable as Boolean"),
    CHROMA_METHOD(name, "name as string"),
    CHROMA_METHOD(Create1, "Create(name as string) as boolean"),
    CHROMA_METHOD(Load, "Load(name as string) as boolean"),
    CHROMA_METHOD(Create2, "Create(name as string, path as string) as boolean"),
};
// clang-format on

} // namespace

REALclassDefinition NSColorListClass =
    CHROMA_CLASS("NSColorListZRX", nullptr, NSColorListConstructor, NSColorListDestructor, CHROMA_NO_ROWS,
                 CHROMA_ROWS(NSColorListMethods), CHROMA_NO_ROWS, CHROMA_NO_ROWS);

} // namespace chroma::color_list
