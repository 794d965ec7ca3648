// The list of the platform's classes. Only this file knows all of them.
#include "appkit/catalog.h"
#include "appkit/color.h"
#include "appkit/color_list.h"
#include "appkit/core_graphics.h"
#include "appkit/image.h"
#include "appkit/pasteboard.h"
#include "corefoundation/cf_dictionary.h"
#include "corefoundation/cf_url.h"
#include "foundation/array.h"
#include "foundation/autorelease_pool.h"
#include "foundation/data.h"
#include "foundation/exception.h"
#include "runtime/bootstrap.h"
#include "runtime/exceptions.h"

#include <mutex>

namespace chroma::builtin {
namespace {

// A class follows its superclass.
constexpr ClassTable (*classTables[])() = {
    tableOfNSObject,     tableOfNSAutoreleasePool, tableOfNSString,     tableOfNSException,
    tableOfNSData,       tableOfNSArray,           tableOfNSEnumerator, tableOfNSMutableDictionary,
    tableOfNSURL,        tableOfCGColorSpace,      tableOfCGColor,      tableOfColorSyncProfile,
    tableOfNSColorSpace, tableOfNSColor,           tableOfNSColorList,  tableOfNSImage,
    tableOfNSPasteboard,
};

constexpr Category (*categories[])() = {
    categoryOfColorComponents, categoryOfColorFactories, categoryOfColorConversion,
    categoryOfNamedColors,     categoryOfPatternColors,  categoryOfColorPasteboard,
};

std::once_flag registered;

} // namespace

void registerPlatform() noexcept {
    std::call_once(registered, [] {
        for (const auto table : classTables)
            registerClass(table());
        for (const auto category : categories)
            registerCategory(category());
        setUncaughtHandler(reportUncaught);
        watchForUncaught();
        platformIsReady.store(true, std::memory_order_release);
    });
}

} // namespace chroma::builtin
