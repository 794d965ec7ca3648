#include "support/native.h"

#include "support/foreign_host.h"

namespace native {
namespace {

void failingMethod(id, SEL) { raise("TestException", "made to fail"); }

id instancesDictionary(id, SEL) {
    ++Sibling::registryRequests;
    return Sibling::registry();
}

void prepareExceptions(id, SEL) { ++Sibling::preparations; }

REALobjectStruct* newHostException(id, SEL, id exception) {
    REALobjectStruct* const made = foreign::make("NSExceptionZRX");
    const auto setText = reinterpret_cast<REALSetPropValueStringProc>(foreign::Host::resolve("REALSetPropValueString"));
    const auto setNumber = reinterpret_cast<REALSetPropValueIntegerProc>(foreign::Host::resolve("REALSetPropValueInteger"));
    REALstringStruct* const text = foreign::string(textOf(tell(exception, "reason")));
    setText(made, "Message", text);
    setNumber(made, "ErrorNumber", 0);
    foreign::unlock(text);
    return made;
}

} // namespace

int Sibling::registryRequests = 0;
int Sibling::preparations = 0;

id string(const std::string& utf8) {
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const std::uint8_t*>(utf8.data()),
                                   static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false);
}

std::string textOf(id string) {
    std::string text(static_cast<std::size_t>(4 * CFStringGetLength(string) + 1), '\0');
    if (!CFStringGetCString(string, text.data(), static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8)) return "";
    return text.c_str();
}

void raise(const char* name, const char* reason) {
    const id nameText = tell(string(name), "autorelease");
    const id reasonText = tell(string(reason), "autorelease");
    throwNative(tell(classNamed("NSException"), "exceptionWithName:reason:userInfo:", nameText, reasonText, id{}));
}

void failOn(id object, const char* selector) { replace(object_getClass(object), selector, failingMethod); }

void failOnClass(const char* className, const char* selector) { failOn(classNamed(className), selector); }

CFMutableDictionaryRef Sibling::registry() {
    static const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    return dictionary;
}

void Sibling::install() {
    const id metaclass = object_getClass(classNamed("NSException"));
    replace(metaclass, "GetInstancesDictionaryZRX", instancesDictionary);
    replace(metaclass, "PrepareNSExceptionZRX", prepareExceptions);
    replace(metaclass, "NewNSExceptionZRX:", newHostException);
}

} // namespace native
