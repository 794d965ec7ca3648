// The arguments of calls of bound functions.
#include "driver.h"

#include "builtin/objc_runtime.h"
#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"
#include "validator/forms.h"
#include "values/strings.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <map>
#include <utility>

namespace matrix {

using namespace chroma;
using host::Kind;
using host::Slot;
using host::validator::declaredForms;
using host::validator::each;

id testException = nullptr;
id testObject = nullptr;

namespace {

// The native objects by host class. One retain keeps each for the life of the process.
auto& natives = *new std::map<std::string, std::vector<id>>;
std::map<std::string, const void*> handles; // by the parameter's name
std::string profile;

// Returns the retained result of a message, or nil if the receiver does not respond to it.
template <class... Arguments>
id ask(id receiver, const char* message, Arguments... arguments) {
    Message<id(Arguments...)> send{message};
    const bool responds = sel::respondsToSelector_(receiver, send.get()) != 0;
    return responds ? sel::retain(send(receiver, arguments...)) : nullptr;
}

id text(const char* ascii) {
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(ascii),
                                   static_cast<CFIndex>(std::strlen(ascii)), kCFStringEncodingUTF8, false);
}

// Returns a text too long for the plugin's conversion on the stack.
id longText() { return text(std::string(150, 'n').c_str()); }

template <class... Arguments>
id make(id cls, const char* initialiser, Arguments... arguments) {
    return Message<id(Arguments...)>{initialiser}(sel::alloc(cls), arguments...);
}

host::Object* newObject(const std::string& className, id native) {
    host::ClassInfo* const info = host::registry().find(className);
    host::Object* const object = info ? host::newObject(*info) : nullptr;
    if (object && native) holdNative(object, sel::retain(native));
    return object;
}

// Returns a new list, because calls change lists. A platform may keep a list that was written, so the list holds no counted
// object.
Slot newList() {
    const id name = longText(), key = text("key"), color = ask(cls::NSColor.get(), "grayColor");
    const id list = make(cls::NSColorList.get(), "initWithName:", name);
    sel::setColor_forKey_(list, color, key);
    const Slot object = Slot::ofObject(newObject("NSColorListZRX", list));
    for (const id released : {name, key, color, list})
        CFRelease(released);
    return object;
}

// A colour that reports more components than fit into the plugin's array on the stack and writes as many as it reported.
// Other readings raise an exception with a long text.
id unusualColor = nullptr;
NSInteger reported = 0;
NSInteger (*numberOfComponents)(id, SEL) = nullptr;
void (*getComponents)(id, SEL, CGFloat*) = nullptr;
void (*getRed)(id, SEL, CGFloat*, CGFloat*, CGFloat*, CGFloat*) = nullptr;

void makeUnusual(id color) {
    unusualColor = color;
    const auto replace = [cls = object_getClass(color)](SEL selector, auto& original, auto method) {
        const Method replaced = class_getInstanceMethod(cls, selector);
        original = reinterpret_cast<std::decay_t<decltype(original)>>(method_getImplementation(replaced));
        class_replaceMethod(cls, selector, reinterpret_cast<IMP>(+method), method_getTypeEncoding(replaced));
    };
    replace(sel::numberOfComponents.get(), numberOfComponents, [](id self, SEL selector) -> NSInteger {
        return self == unusualColor ? reported = 40 : numberOfComponents(self, selector);
    });
    replace(sel::getComponents_.get(), getComponents, [](id self, SEL selector, CGFloat* components) {
        if (self != unusualColor) return getComponents(self, selector, components);
        std::fill_n(components, std::exchange(reported, 0), CGFloat{1});
    });
    replace(sel::getRed_green_blue_alpha_.get(), getRed,
            [](id self, SEL selector, CGFloat* r, CGFloat* g, CGFloat* b, CGFloat* a) {
                if (self == unusualColor) throwNative(testException);
                getRed(self, selector, r, g, b, a);
            });
}

std::vector<Form> joined(std::vector<Form> forms, const std::vector<Form>& others) {
    forms.insert(forms.end(), others.begin(), others.end());
    return forms;
}

// A meaningful text for each named parameter. Every text parameter also receives the texts of the others.
const std::map<std::string, std::pair<const char*, host::Encoding>> names = {
    {"name", {"System", host::encoding::utf8}},
    {"key", {"key", host::encoding::ascii}},
    {"path", {"list.clr", host::encoding::isoLatin1}},
    {"colorSpace", {"NSDeviceRGBColorSpace", host::encoding::utf8}},
};

std::vector<Form> textForms(const std::string& parameter, const std::vector<Form>& declared) {
    const auto newText = [](const auto& row) {
        return Slot::ofString(host::newString(row.second.first, row.second.second));
    };
    std::vector<Form> forms = each(names, newText);
    std::iter_swap(forms.begin(), std::next(forms.begin(), std::distance(names.begin(), names.find(parameter))));
    return joined(forms, declared);
}

// A colour has alpha and one to nineteen components. Only the first form satisfies this.
std::vector<Form> arrayForms(std::vector<Form> forms) {
    for (auto form = forms.begin() + 1; form != forms.end(); ++form)
        form->refusal = "OutOfBoundsException";
    return forms;
}

Slot newProfile() {
    host::MemoryBlock* const block = host::newMemoryBlock(static_cast<std::int32_t>(profile.size()));
    std::copy(profile.begin(), profile.end(), host::bytesOf(block));
    return Slot::ofObject(block);
}

// Files in the working folder.
const char* const files[] = {"profile", "wrong", "missing", ""};

Slot newFile(const char* name) {
    const Slot file = Slot::ofObject(newObject("FolderItem", nullptr)), path = Slot::ofString(host::newString(name));
    const host::Method& constructor = *file.object->info->constructors().front();
    const Slot arguments[] = {file, path};
    Slot none;
    constructor.invoke(constructor.function, arguments, &none);
    host::unlock(path.string);
    return file;
}

std::vector<Form> receiversOf(const std::string& className) {
    std::vector<Form> forms = declaredForms.ofReceiver(className);
    forms.resize(host::validator::emptyReceiver + 1);
    if (className == "NSColorListZRX") forms.push_back({newList});
    for (const id native : natives[className])
        forms.push_back({[=] { return Slot::ofObject(newObject(className, native)); }});
    return forms;
}

// Returns the receivers with the last one first, because it has the most contents.
std::vector<Form> objectForms(const std::string& className) {
    std::vector<Form> forms = receiversOf(className);
    std::rotate(forms.begin(), forms.end() - 1, forms.end());
    return forms;
}

std::vector<Form> formsOf(const host::Parameter& parameter) {
    std::vector<Form> declared = declaredForms.ofArgument(parameter);
    if (parameter.type.isArray) return arrayForms(declared);
    switch (parameter.type.kind) {
    case Kind::string: return textForms(parameter.name, declared);
    case Kind::variant: return joined(objectForms("NSImageZRX"), receiversOf("NSColorZRX")); // colours are not images
    case Kind::object:
        if (parameter.type.className == "Memoryblock") return joined({{newProfile}}, declared);
        if (parameter.type.className == "Folderitem") return joined(each(files, newFile), declared);
        return objectForms(parameter.type.className);
    default: break;
    }
    const auto handle = handles.find(parameter.name);
    if (handle == handles.end())
        return declaredForms.ofArgument({"index", parameter.type, false, false, {}}); // a number that is not a pointer
    return joined({{[handle] { return Slot::ofInteger(asHandle(handle->second)); }}}, declared);
}

} // namespace

const host::validator::Forms nativeForms = {receiversOf, formsOf};

void prepareNatives() {
    const auto part = [](double value) { return static_cast<CGFloat>(value); };
    testObject = text("no exception");
    const id subclass = objc_allocateClassPair(cls::NSException.get(), "TestException", 0);
    objc_registerClassPair(subclass);
    const std::string reason(500, 'r'); // too long for the plugin's formatting on the stack
    testException = make(subclass, "initWithName:reason:userInfo:", longText(), text(reason.c_str()), id{});

    const id spaceClass = cls::NSColorSpace.get(), colorClass = cls::NSColor.get();
    id space = ask(spaceClass, "sRGBColorSpace");
    if (!space) space = ask(spaceClass, "genericRGBColorSpace");
    auto& spaces = natives["NSColorSpaceZRX"] = {space, ask(spaceClass, "deviceGrayColorSpace")};
    if (const id data = ask(space, "ICCProfileData")) {
        profile.assign(static_cast<const char*>(sel::bytes(data)), sel::length(data));
        spaces.push_back(make(cls::NSColorSpace.get(), "initWithICCProfileData:", data));
        natives["NSData"] = {data};
    }
    std::ofstream("profile", std::ios::binary) << profile;
    std::ofstream("wrong") << "no profile";

    const id image = natives["NSImageZRX"].emplace_back(make(cls::NSImage.get(), "init"));
    const id color = ask(colorClass, "colorWithCalibratedRed:green:blue:alpha:", part(0.1), part(0.2), part(0.3), part(1));
    natives["NSColorZRX"] = {
        color,
        ask(colorClass, "colorWithDeviceCyan:magenta:yellow:black:alpha:", part(0.1), part(0.2), part(0.3), part(0.4),
            part(1)),
        ask(colorClass, "colorWithDeviceWhite:alpha:", part(0.1), part(0.2)),
        ask(colorClass, "colorWithPatternImage:", image),
        ask(colorClass, "controlColor"),
    };
    makeUnusual(natives["NSColorZRX"][1]);
    handles = {{"CGColorHandle", ask(color, "CGColor")},
               {"CGColorSpaceHandle", ask(spaces.back(), "CGColorSpace")},
               {"ColorSyncProfileHandle", ask(spaces.back(), "colorSyncProfile")}};
}

void settle() {
    ClassName NSRunLoop{"NSRunLoop"}, NSDate{"NSDate"};
    Message<id()> currentRunLoop{"currentRunLoop"}, distantPast{"distantPast"};
    Message<void(id)> runUntilDate{"runUntilDate:"};
    runUntilDate(currentRunLoop(NSRunLoop), distantPast(NSDate));
}

std::size_t retainsOfNatives() {
    Message<NSUInteger()> retainCount{"retainCount"};
    std::size_t sum = retainCount(testException) + retainCount(testObject);
    for (const auto& [className, objects] : natives)
        for (const id object : objects)
            sum += retainCount(object);
    return sum;
}

} // namespace matrix
