// The C interface of the builtin Objective-C runtime: those functions of the GNU family's interface that the plugin, its
// siblings and the tests call.
//
// Every function may be called first, and from any thread; the first call registers the platform's classes. Names are
// copied. A class is an instance of its metaclass, so class methods are added to `object_getClass(cls)`. The types are
// identical to those that the plugin declares: one file may include both.
#pragma once

#include <cstddef>
#include <cstdint>

namespace chroma {

struct Object;
using id = Object*;
using Class = id;

struct SelectorEntry;
using SEL = const SelectorEntry*;

struct MethodRecord;
using Method = MethodRecord*;

using IMP = void (*)();
using BOOL = unsigned char;

// The component type of colours, and of every other measure.
#if defined(__LP64__)
using CGFloat = double;
#else
using CGFloat = float;
#endif

// The type that a native exception throws in 64 bits: the address of an object.
enum class ThrownObject : std::uintptr_t;

extern "C" {

// Looks up a class; nil if no class has the name.
id objc_getClass(const char* name);
Class class_getSuperclass(Class cls); // nil for a root class and for nil
Class object_getClass(id object);     // nil for nil
const char* object_getClassName(id object);

// Creates a class that inherits everything from `superclass`, with `extraBytes` of zeroed memory after its instances.
// Returns nil if the name is taken, the superclass is nil, or memory is exhausted. After registration the class can be
// looked up by name. Classes are never freed.
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class cls);

// Selectors: one entry per name for the life of the process. Returns null when memory is exhausted; a message with the null
// selector raises NSMallocException.
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector); // "<null selector>" for null

// Returns the function to call for a message, never null. For nil the function returns zero, in any integer register. For a
// selector that the class does not have it raises NSInvalidArgumentException. The function may change whenever a method is
// added or replaced.
IMP objc_msg_lookup(id receiver, SEL selector);

// Look up methods in the class and its superclasses. They return null for an unknown method, but
// class_getMethodImplementation returns the function that raises. A Method stays valid for the life of the process.
Method class_getInstanceMethod(Class cls, SEL selector);
IMP class_getMethodImplementation(Class cls, SEL selector);
IMP method_getImplementation(Method method);
const char* method_getTypeEncoding(Method method); // null if the method was added without types

// Change the class's own methods. A change applies from the next message on, including messages to subclasses that inherit
// the method. `types` is copied and may be null. A replaced method keeps its types.
//
// class_addMethod does nothing and returns NO if the class itself already has the method or memory is exhausted.
// class_replaceMethod adds or replaces; it returns the class's own previous function, or null if the method was inherited
// or missing.
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char* types);

// Exceptions. Any object may be thrown; the runtime does not retain it. After an uncaught exception the process writes a
// line to standard error and aborts.
//
// In 64 bits a throw is the C++ exception `throw ThrownObject`, by value: the stack unwinds, destructors run, and `catch
// (ThrownObject)` is a guard. The exception propagates through frames of any language that can be unwound.
[[noreturn]] void objc_exception_throw(id exception);

#if !defined(__LP64__)
// In 32 bits each thread has a chain of guards. A guard consists of the five words of the compiler's __builtin_setjmp (gcc
// or clang, any flags) followed by four words of the runtime. The caller enters the guard and immediately calls
// __builtin_setjmp on it. A throw leaves the innermost guard and jumps to it, so no destructor in between runs.
void objc_exception_try_enter(void* guard);
void objc_exception_try_exit(void* guard); // leaves the guard and all inner ones
id objc_exception_extract(void* guard);    // the thrown object
int objc_exception_match(id exceptionClass, id exception);
#endif
}

} // namespace chroma
