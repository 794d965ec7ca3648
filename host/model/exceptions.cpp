#include "model/exceptions.h"

#include "model/owned.h"
#include "model/record_writing.h"

#include <array>

namespace host {

namespace detail {
Object* pendingException = nullptr;
}

// Functions of different classes have equal names. This namespace distinguishes them in files that are compiled together.
namespace exceptions {
namespace {

// Stored outside the instance data, so that a plugin's exception class has its own data at the usual offset.
struct Exception {
    Owned<String> message;
    HostInteger errorNumber = 0;
    Owned<String> stack; // null until the exception is caught
};

Exception& dataOf(const Object* object) { return *static_cast<Exception*>(object->own.address); }

void construct(Object* object) { object->own = Slot::ofAddress(new Exception); }

void destroy(Object* object) { delete &dataOf(object); }

String* message(Object* object, REALword) { return Owned<String>(dataOf(object).message).release(); }

void setMessage(Object* object, REALword, String* value) { dataOf(object).message = Owned<String>::shared(value); }

String* stack(Object* object, REALword) { return Owned<String>(dataOf(object).stack).release(); }

HostInteger errorNumber(Object* object, REALword) { return dataOf(object).errorNumber; }
void setErrorNumber(Object* object, REALword, HostInteger value) { dataOf(object).errorNumber = value; }

void initialize(Object* object, String* text, HostInteger number) {
    setMessage(object, 0, text);
    setErrorNumber(object, 0, number);
}

REALproperty properties[] = {
    {nullptr, "Message", "String", 0, bound(message), bound(setMessage), 0, {}},
    {nullptr, "ErrorNumber", "Integer", 0, bound(errorNumber), bound(setErrorNumber), 0, {}},
    {nullptr, "Stack", "String", 0, bound(stack), nullptr, 0, {}},
};

// Every exception class has this constructor, because constructors are not inherited.
REALmethodDefinition methods[] = {method("Constructor(message as string = \"\", errorNumber as integer = 0)", initialize)};

constexpr std::array subclassNames = {
    "OutOfBoundsException", "NilObjectException",    "UnsupportedOperationException", "OutOfMemoryException",
    "IllegalCastException", "TypeMismatchException", "DivideByZeroException",         "StackOverflowException",
    "KeyNotFoundException", "IOException",
};

ClassInfo* runtimeExceptionClass = nullptr;

} // namespace
} // namespace exceptions

void raise(Object* exception) {
    if (!exception || detail::pendingException) return;
    lock(exception);
    detail::pendingException = exception;
}

void raise(std::string_view className, std::string_view text, HostInteger number) {
    ClassInfo* info = registry().find(className);
    if (!info || !info->isOrDescendsFrom(*exceptions::runtimeExceptionClass)) info = exceptions::runtimeExceptionClass;
    const Owned<Object> exception(newObject(*info));
    if (!exception) return;
    exceptions::initialize(exception.get(), Owned<String>(newString(text)).get(), number);
    raise(exception.get());
}

Object* takePendingException() {
    Object* const exception = detail::pendingException;
    detail::pendingException = nullptr;
    return exception;
}

bool isException(const Object* object) {
    return object && object->info->isOrDescendsFrom(*exceptions::runtimeExceptionClass);
}

std::string exceptionMessage(const Object* exception) { return utf8Of(exceptions::dataOf(exception).message.get()); }
HostInteger exceptionErrorNumber(const Object* exception) { return exceptions::dataOf(exception).errorNumber; }

void setExceptionStack(Object* exception, std::string_view stack) {
    exceptions::dataOf(exception).stack = Owned<String>(newString(stack));
}

void registerExceptionClasses(Registry& registry) {
    using namespace exceptions;
    static REALclassDefinition base = builtInRecord("RuntimeException", nullptr, 0, construct, destroy);
    setRows(base.properties, base.propertyCount, properties);
    setRows(base.methods, base.methodCount, methods);
    runtimeExceptionClass = registry.add(base, true);

    static std::array<REALclassDefinition, subclassNames.size()> subclasses;
    for (std::size_t i = 0; i < subclasses.size(); ++i) {
        subclasses[i] = builtInRecord(subclassNames[i], base.name, 0, nullptr, nullptr);
        setRows(subclasses[i].methods, subclasses[i].methodCount, methods);
        registry.add(subclasses[i], true);
    }
}

} // namespace host
