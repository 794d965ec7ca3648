#include "classes/color_space/color_space.h"

#include "bridge/arrays.h"
#include "bridge/data.h"
#include "bridge/frame.h"
#include "bridge/strings.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"
#include "runtime/native_object.h"

#include <cstdint>

namespace chroma::color_space {
namespace {

// The body of every factory whose space the platform owns.
template <class Find>
REALobjectStruct* wrapped(Find find) {
    return guardedResult([&] {
        initCocoa();
        return NewNSColorSpaceZRX(find());
    });
}

// Returns a host object for a space that the caller owns; afterwards only the host object owns the space.
REALobjectStruct* adopt(id space) {
    const auto release = [space] { sel::release(space); };
    REALobjectStruct* object = nullptr;
    onThrow([&] { object = NewNSColorSpaceZRX(space); }, release);
    onThrow(release, [object] {
        if (object) REALUnlockObject(object);
    });
    return object;
}

// The body of every factory that creates its space. `argument` returns the initialiser's argument; null creates no space.
template <class Parameter, class Argument>
REALobjectStruct* adopted(Message<id(Parameter)>& initialiser, Argument argument) {
    return guardedResult([&]() -> REALobjectStruct* {
        initCocoa();
        const Parameter value = argument();
        return value ? adopt(initialiser(sel::alloc(cls::NSColorSpace), value)) : nullptr;
    });
}

// Returns the URL of a host path, which the caller owns, or nil if the host string is not a path.
id urlFromPath(REALstringStruct* path, bool isNative) {
    const CFStringRef text = RBString2CFString(path);
    if (!text) return nullptr;
    id url = nullptr;
    withCleanup(
        [&] {
            url = isNative ? CFURLCreateWithFileSystemPath(nullptr, text, kCFURLPOSIXPathStyle, false)
                           : CFURLCreateWithString(nullptr, text, nullptr);
        },
        [&] { CFRelease(text); });
    return url;
}

// Returns the file's URL, autoreleased, or nil if the host does not provide its path.
id urlOfFile(REALfolderItemStruct* file) {
    const bool isNative = hostHasNativePaths();
    REALstringStruct* path = nullptr;
    if (!REALGetPropValueString(asObject(file), isNative ? "NativePath" : "URLPath", &path)) return nullptr;
    const auto unlockPath = [&] {
        if (path) REALUnlockString(path);
    };
    id url = nullptr;
    onThrow([&] { withCleanup([&] { url = urlFromPath(path, isNative); }, unlockPath); },
            [&] {
                if (url) CFRelease(url);
            });
    return sel::autorelease(url);
}

// Returns the file's contents, autoreleased, or nil if the file cannot be read.
id contentsOfFile(REALfolderItemStruct* file) {
    const id url = file ? urlOfFile(file) : nullptr;
    if (!url) return nullptr;
    const id path = sel::autorelease(CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle));
    return path ? sel::dataWithContentsOfFile_(cls::NSData, path) : nullptr;
}

} // namespace

REALobjectStruct* ColorSpaceWithICCProfileFile(REALfolderItemStruct* file) {
    return adopted(sel::initWithICCProfileData_, [&] { return contentsOfFile(file); });
}

REALobjectStruct* ColorSpaceWithICCProfileData(REALmemoryBlockStruct* profile) {
    return adopted(sel::initWithICCProfileData_, [&] { return NewNSData(profile); });
}

REALobjectStruct* ColorSpaceWithColorSyncProfile(HostInteger handle) {
    return adopted(sel::initWithColorSyncProfile_, [&] { return fromHandle(handle); });
}

REALobjectStruct* ColorSpaceWithCGColorSpace(HostInteger handle) {
    return adopted(sel::initWithCGColorSpace_, [&] { return fromHandle(handle); });
}

REALobjectStruct* colorSpaceForColorSpaceName(REALstringStruct* name) {
    return wrapped([&] { return sel::colorSpaceForColorSpaceName_(cls::NSColorSpace, autoreleasedString(name)); });
}

void* availableColorSpacesWithModel(HostInteger model) {
    void* const array = REALCreateArray(REALarrayOfObjects, -1);
    const auto fill = [&] {
        initCocoa();
        const id spaces = sel::availableColorSpacesWithModel_(cls::NSColorSpace, NSInteger{model});
        const id enumerator = sel::objectEnumerator(spaces);
        std::int32_t index = 0;
        while (const id space = sel::nextObject(enumerator)) {
            REALobjectStruct* const object = NewNSColorSpaceZRX(space);
            withCleanup([&] { REALInsertArrayValueObject(array, index++, object); },
                        [&] {
                            if (object) REALUnlockObject(object);
                        });
        }
    };
    guarded(fill, [&] { REALUnlockArray(array); });
    return array;
}

// The class is looked up at each use, so that on a platform without the class the result is nil.
#define CHROMA_NAMED_SPACE(name)                                                                                            \
    REALobjectStruct* get##name() {                                                                                         \
        return wrapped([] { return sel::name(objc_getClass("NSColorSpace")); });                                            \
    }
CHROMA_NAMED_SPACES(CHROMA_NAMED_SPACE)

} // namespace chroma::color_space
