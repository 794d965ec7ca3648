#include "arguments.h"

#include "model/arrays.h"
#include "model/memory_blocks.h"
#include "model/strings.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>

namespace matrix {
namespace {

using namespace chroma;
using host::Kind;
using host::Slot;

struct Natives {
    std::vector<id> colors, spaces, images, lists;
    const void *cgColor = nullptr, *cgSpace = nullptr, *colorSync = nullptr;
    std::string profile; // of the first space
} natives;

id keep(id object) {
    send<id>(object, sel::retain);
    return object;
}

template <class... Arguments>
id ask(id receiver, const char* message, Arguments... arguments) {
    Selector selector{message};
    return send<BOOL>(receiver, sel::respondsToSelector_, selector.get()) ? send<id>(receiver, selector, arguments...)
                                                                          : nullptr;
}

id text(const char* ascii) {
    const id string = CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(ascii),
                                              static_cast<CFIndex>(std::strlen(ascii)), kCFStringEncodingUTF8, false);
    return send<id>(string, sel::autorelease);
}

// A list is changed by calls, so each receiver gets a new one.
id newList() {
    const id list = send<id>(send<id>(cls::NSColorList, sel::alloc), sel::initWithName_, text("list"));
    send<void>(list, sel::setColor_forKey_, natives.colors.front(), text("key"));
    return list;
}

const std::vector<id>& nativesOf(const std::string& className) {
    if (className == "NSColorSpaceZRX") return natives.spaces;
    if (className == "NSColorListZRX") return natives.lists;
    return className == "NSImageZRX" ? natives.images : natives.colors;
}

host::Object* newObject(const std::string& className, id native) {
    host::ClassInfo* const info = host::registry().find(className);
    host::Object* const object = info ? host::newObject(*info) : nullptr;
    if (object && native) holdNative(object, send<id>(native, sel::retain));
    return object;
}

// Null, empty, and one around each native object.
host::Object* newObjectOfForm(const std::string& className, std::size_t form) {
    if (form == nullReceiver) return nullptr;
    if (form == emptyReceiver) return newObject(className, nullptr);
    if (className != "NSColorListZRX") return newObject(className, nativesOf(className)[form - ordinaryReceiver]);
    host::Object* const object = newObject(className, nullptr);
    holdNative(object, newList());
    return object;
}

std::size_t formsOf(const std::string& className) { return ordinaryReceiver + nativesOf(className).size(); }

// Ordinary first, then null and the others.
std::size_t ordinaryFirst(std::size_t form, std::size_t forms) {
    if (forms == ordinaryReceiver) return form;
    return form == 0 ? ordinaryReceiver : form <= ordinaryReceiver ? form - 1 : form;
}

constexpr double infinity = std::numeric_limits<double>::infinity();
const double doubles[] = {0.5, std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308, -1.5, 0};

constexpr HostInteger highest = std::numeric_limits<HostInteger>::max(), lowest = std::numeric_limits<HostInteger>::min();
constexpr HostInteger integers[] = {1, 0, -1, highest, lowest, 0x7FFFFFFF};

constexpr HostColor colors[] = {0xFF804020, 0, 0xFFFFFFFF};

// The texts that names, keys and paths are, and those that nothing is.
struct Text {
    std::string bytes;
    host::Encoding encoding;
};
const Text texts[] = {
    {"System", host::encoding::utf8},
    {"key", host::encoding::ascii},
    {"list.clr", host::encoding::isoLatin1},
    {"NSDeviceRGBColorSpace", host::encoding::utf8},
    {"", host::encoding::utf8},
    {std::string(700, 'x'), host::encoding::utf8},
    {"\xFF\xFE\xFD", host::encoding::utf8},
    {"\x8A\x9F", host::encoding::unknown},
    {std::string(301, 'y'), host::encoding::utf16},
    {std::string("a\0b", 3), 0x12345678},
};

std::size_t ordinaryText(const std::string& parameter) {
    if (parameter == "key") return 1;
    if (parameter == "path") return 2;
    return parameter == "colorSpace" ? 3 : 0;
}

Slot newText(const host::Parameter& parameter, std::size_t form) {
    const std::size_t ordinary = ordinaryText(parameter.name);
    const Text& text = texts[form == 0 ? ordinary : form <= ordinary ? form - 1 : form];
    return Slot::ofString(host::newString(text.bytes, text.encoding));
}

// Arrays by their number of elements; none: null.
struct Count {
    int elements;
    const char* refusal;
};
constexpr Count counts[] = {
    {4, nullptr},  {-1, "OutOfBoundsException"}, {0, "OutOfBoundsException"},  {1, "OutOfBoundsException"},
    {20, nullptr}, {21, "OutOfBoundsException"}, {300, "OutOfBoundsException"}};

Slot newDoubles(int elements) {
    if (elements < 0) return Slot::ofObject(nullptr);
    host::Array* const array = host::newArray({Kind::Double, false, {}});
    for (int i = 0; i < elements; ++i)
        host::appendElement(array, Slot::ofReal(0.25));
    return Slot::ofObject(array);
}

enum Contents { profileContents, noContents, emptyContents, wrongContents, contentsForms };

std::string bytesFor(std::size_t form) {
    if (form == profileContents) return natives.profile;
    return form == wrongContents ? std::string(300, 'p') : "";
}

Slot newBlock(std::size_t form) {
    if (form == noContents) return Slot::ofObject(nullptr);
    const std::string bytes = bytesFor(form);
    host::MemoryBlock* const block = host::newMemoryBlock(static_cast<std::int32_t>(bytes.size()));
    if (!bytes.empty()) std::memcpy(host::bytesOf(block), bytes.data(), bytes.size());
    return Slot::ofObject(block);
}

constexpr const char* fileNames[] = {"profile", "", "missing", "wrong"}; // in the working folder

Slot newFile(std::size_t form) {
    if (form == noContents) return Slot::ofObject(nullptr);
    host::Object* const file = newObject("FolderItem", nullptr);
    host::String* const path = host::newString(fileNames[form]);
    const host::Method& constructor = *file->info->constructors().front();
    const Slot arguments[] = {Slot::ofObject(file), Slot::ofString(path)};
    Slot none;
    constructor.invoke(constructor.function, arguments, &none);
    host::unlock(path);
    return Slot::ofObject(file);
}

const void* handleFor(const std::string& parameter) {
    if (parameter == "CGColorHandle") return natives.cgColor;
    return parameter == "CGColorSpaceHandle" ? natives.cgSpace : natives.colorSync;
}

bool isHandle(const std::string& name) { return name.size() > 6 && name.compare(name.size() - 6, 6, "Handle") == 0; }

// Images, and colours, which are none.
constexpr const char* variantClasses[] = {"NSImageZRX", "NSColorZRX"};

} // namespace

void prepareNatives() {
    const auto component = [](double value) { return static_cast<CGFloat>(value); };
    const id spaceClass = cls::NSColorSpace.get();
    const id ownSpace =
        ask(spaceClass, "sRGBColorSpace") ? ask(spaceClass, "sRGBColorSpace") : ask(spaceClass, "genericRGBColorSpace");
    if (const id data = ask(ownSpace, "ICCProfileData"))
        natives.profile.assign(static_cast<const char*>(send<const void*>(data, sel::bytes)),
                               send<NSUInteger>(data, sel::length));
    std::ofstream("profile", std::ios::binary) << natives.profile;
    std::ofstream("wrong") << "no profile";
    natives.spaces = {keep(ownSpace), keep(ask(spaceClass, "deviceGrayColorSpace"))};
    if (const id data = ask(ownSpace, "ICCProfileData"))
        natives.spaces.push_back(send<id>(send<id>(cls::NSColorSpace, sel::alloc), sel::initWithICCProfileData_, data));

    const id color = cls::NSColor.get();
    natives.colors = {
        keep(send<id>(color, sel::colorWithCalibratedRed_green_blue_alpha_, component(0.1), component(0.2), component(0.3),
                      component(0.4))),
        keep(send<id>(color, sel::colorWithDeviceCyan_magenta_yellow_black_alpha_, component(0.1), component(0.2),
                      component(0.3), component(0.4), component(1))),
        keep(send<id>(color, sel::colorWithDeviceWhite_alpha_, component(0.1), component(0.2))),
        keep(ask(color, "controlColor")),
    };
    const id image = ask(send<id>(cls::NSImage, sel::alloc), "init");
    natives.images = {image};
    natives.colors.push_back(keep(ask(color, "colorWithPatternImage:", image)));
    natives.lists = {nullptr}; // see newList
    natives.cgColor = ask(natives.colors.front(), "CGColor");
    natives.cgSpace = ask(natives.spaces.back(), "CGColorSpace");
    natives.colorSync = ask(natives.spaces.back(), "colorSyncProfile");
}

std::size_t retainsOfNatives() {
    Selector retainCount{"retainCount"};
    std::size_t sum = 0;
    for (const std::vector<id>* objects : {&natives.colors, &natives.spaces, &natives.images})
        for (const id object : *objects)
            sum += send<NSUInteger>(object, retainCount);
    return sum;
}

std::size_t receiverForms(const host::ClassInfo& info) { return formsOf(info.name()); }
host::Object* newReceiver(const host::ClassInfo& info, std::size_t form) { return newObjectOfForm(info.name(), form); }
bool isFilled(const host::Object* object) { return nativeObject(object) != nullptr; }

std::size_t argumentForms(const host::Parameter& parameter) {
    if (parameter.byRef) return 2; // an address and none
    if (parameter.type.isArray) return std::size(counts);
    switch (parameter.type.kind) {
    case Kind::Double: return std::size(doubles);
    case Kind::Integer: return isHandle(parameter.name) ? 2 : std::size(integers);
    case Kind::Color: return std::size(colors);
    case Kind::String: return std::size(texts);
    case Kind::Variant: return std::size(variantClasses) * ordinaryReceiver + 1;
    case Kind::Object:
        if (host::equalIgnoringCase(parameter.type.className, "MemoryBlock")) return contentsForms;
        if (host::equalIgnoringCase(parameter.type.className, "FolderItem")) return contentsForms;
        return formsOf(parameter.type.className);
    case Kind::Void:
    case Kind::Boolean: break;
    }
    return 0;
}

Slot newArgument(const host::Parameter& parameter, std::size_t form) {
    const std::string& className = parameter.type.className;
    if (parameter.type.isArray) return newDoubles(counts[form].elements);
    switch (parameter.type.kind) {
    case Kind::Double: return Slot::ofReal(doubles[form]);
    case Kind::Integer:
        if (isHandle(parameter.name)) return Slot::ofInteger(form == 0 ? asHandle(handleFor(parameter.name)) : 0);
        return Slot::ofInteger(integers[form]);
    case Kind::Color: return Slot::ofColor(colors[form]);
    case Kind::String: return newText(parameter, form);
    case Kind::Variant:
        if (form == 0) return Slot::ofObject(newObjectOfForm(variantClasses[0], ordinaryReceiver));
        --form;
        return Slot::ofObject(newObjectOfForm(variantClasses[form / ordinaryReceiver], 1 + form % ordinaryReceiver));
    default: break;
    }
    if (host::equalIgnoringCase(className, "MemoryBlock")) return newBlock(form);
    if (host::equalIgnoringCase(className, "FolderItem")) return newFile(form);
    return Slot::ofObject(newObjectOfForm(className, ordinaryFirst(form, formsOf(className))));
}

const char* refusal(const host::Parameter& parameter, std::size_t form) {
    return parameter.type.isArray ? counts[form].refusal : nullptr;
}

} // namespace matrix
