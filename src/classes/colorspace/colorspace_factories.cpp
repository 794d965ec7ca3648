#include "classes/colorspace/colorspace.h"

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

namespace chroma::colorspace {
namespace {

// The body of every factory whose space the platform owns.
template <class Find>
REALobjectStruct* found(Find find) {
    REALobjectStruct* result = nullptr;
    guarded([&] {
        initCocoa();
        result = NewNSColorSpaceZRX(find());
    });
    return result;
}

// The body of every factory that makes its space, and gives up its own reference once the host object has one. `argument`
// answers what the initialiser takes; null makes no space.
template <class Argument>
REALobjectStruct* made(Selector& initialiser, Argument argument) {
    REALobjectStruct* result = nullptr;
    guarded([&] {
        initCocoa();
        const void* const value = argument();
        if (!value) return;
        const id space = send<id>(send<id>(cls::NSColorSpace, sel::alloc), initialiser, value);
        const auto release = [space] { send<void>(space, sel::release); };
        REALobjectStruct* object = nullptr;
        onThrow([&] { object = NewNSColorSpaceZRX(space); }, release);
        onThrow(release, [object] {
            if (object) REALUnlockObject(object);
        });
        result = object;
    });
    return result;
}

// The URL of a host path; nil when the host string is no path.
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
    return send<id>(url, sel::autorelease);
}

// The file's URL, autoreleased; nil when the host does not tell its path.
id urlOfFile(REALfolderItemStruct* file) {
    const bool isNative = hostHasNativePaths();
    REALstringStruct* path = nullptr;
    if (!REALGetPropValueString(asObject(file), isNative ? "NativePath" : "URLPath", &path)) return nullptr;
    id url = nullptr;
    withCleanup([&] { url = urlFromPath(path, isNative); },
                [&] {
                    if (path) REALUnlockString(path);
                });
    return url;
}

// The file's contents, autoreleased; nil when it cannot be read.
id contentsOfFile(REALfolderItemStruct* file) {
    const id url = file ? urlOfFile(file) : nullptr;
    if (!url) return nullptr;
    const id path = send<id>(CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle), sel::autorelease);
    return path ? send<id>(cls::NSData, sel::dataWithContentsOfFile_, path) : nullptr;
}

} // namespace

REALobjectStruct* ColorSpaceWithICCProfileFile(REALfolderItemStruct* file) {
    return made(sel::initWithICCProfileData_, [&] { return contentsOfFile(file); });
}

REALobjectStruct* ColorSpaceWithICCProfileData(REALmemoryBlockStruct* profile) {
    return made(sel::initWithICCProfileData_, [&] { return NewNSData(profile); });
}

REALobjectStruct* ColorSpaceWithColorSyncProfile(HostInteger handle) {
    return made(sel::initWithColorSyncProfile_, [&] { return fromHandle(handle); });
}

REALobjectStruct* ColorSpaceWithCGColorSpace(HostInteger handle) {
    return made(sel::initWithCGColorSpace_, [&] { return fromHandle(handle); });
}

REALobjectStruct* colorSpaceForColorSpaceName(REALstringStruct* name) {
    return found([&] { return send<id>(cls::NSColorSpace, sel::colorSpaceForColorSpaceName_, autoreleasedString(name)); });
}

void* availableColorSpacesWithModel(HostInteger model) {
    void* const array = REALCreateArray(REALarrayOfObjects, -1);
    const auto fill = [&] {
        initCocoa();
        const id spaces = send<id>(cls::NSColorSpace, sel::availableColorSpacesWithModel_, NSInteger{model});
        const id enumerator = send<id>(spaces, sel::objectEnumerator);
        std::int32_t index = 0;
        while (const id space = send<id>(enumerator, sel::nextObject)) {
            REALobjectStruct* const object = NewNSColorSpaceZRX(space);
            REALInsertArrayValueObject(array, index++, object);
            if (object) REALUnlockObject(object);
        }
    };
    guarded(fill, [&] { REALUnlockArray(array); });
    return array;
}

// The class is looked up anew each time, so that a platform that lacks it answers nil.
#define CHROMA_NAMED_SPACE(name)                                                                                            \
    REALobjectStruct* get##name() {                                                                                         \
        return found([] { return send<id>(objc_getClass("NSColorSpace"), sel::name); });                                    \
    }
CHROMA_NAMED_SPACES(CHROMA_NAMED_SPACE)

} // namespace chroma::colorspace
