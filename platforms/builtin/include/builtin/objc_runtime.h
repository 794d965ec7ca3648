// The C interface of the builtin Objective-C runtime: the GNU family's, so far as the plugin, its siblings and the tests use
// it.
//
// Every function may be called before anything else of the platform; the first call registers the platform's classes. All of
// them may be called from any thread. Names are copied. A class is an object of its metaclass, so that
// `object_getClass(cls)` is where class methods are added. The types agree with those of the plugin's seam: one file may
// include both.
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

// What a throw throws in 64 bits: the address of an object.
enum class ThrownObject : std::uintptr_t;

// Told of what nothing caught.
using UncaughtExceptionHandler = void (*)(id thrown);

extern "C" {

// Classes. A name that no class has gives nil.
id objc_getClass(const char* name);
Class objc_lookUpClass(const char* name);
const char* class_getName(Class cls); // "nil" for nil
Class class_getSuperclass(Class cls); // nil for a root class and for nil
Class object_getClass(id object);     // nil for nil
const char* object_getClassName(id object);

// Makes a class that inherits everything from `superclass`, with `extraBytes` of zeroed room behind its instances. nil when
// the name is taken, the superclass is nil, or memory is exhausted. The class can be found by name once it has been
// registered. Classes are never freed.
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class cls);

// Selectors: one entry per name, for the life of the process. Null when memory is exhausted; a message of the null selector
// raises NSMallocException.
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector); // "<null selector>" for null

// The function to call for a message. It is never null: for nil it is a function that answers zero, which serves every
// result that travels in an integer register, and for a selector that the class does not know one that raises
// NSInvalidArgumentException. It may change whenever a method is added or replaced.
IMP objc_msg_lookup(id receiver, SEL selector);

// Methods, searched up the superclasses. Null when there is none; class_getMethodImplementation then gives the function that
// raises. A Method stays valid for the life of the process.
Method class_getInstanceMethod(Class cls, SEL selector);
Method class_getClassMethod(Class cls, SEL selector);
IMP class_getMethodImplementation(Class cls, SEL selector);
BOOL class_respondsToSelector(Class cls, SEL selector);
IMP method_getImplementation(Method method);
const char* method_getTypeEncoding(Method method); // null where who added the method told none

// Changes of a class's own methods, in force for the next message, also to instances of subclasses that inherit the method.
// `types` is copied and told to who asks for it; it may be null. A method that is replaced keeps the types it had.
//
// class_addMethod does nothing and answers NO when the class itself has the method already, and when memory is exhausted.
// class_replaceMethod adds it or replaces it; its answer is what the class itself had before, null when it had inherited the
// method or had none. method_setImplementation answers the previous function.
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char* types);
IMP method_setImplementation(Method method, IMP implementation);

// Exceptions. Any object may be thrown; the runtime does not retain it. What nothing catches ends the process: the handler
// is called, which is to return, and the process aborts. The platform's own writes a line to the standard error.
//
// In 64 bits a throw is the C++ exception `throw ThrownObject`, by value: the stack unwinds, destructors run, and
// `catch (ThrownObject)` is a guard. It passes through the frames of any language that can be unwound.
[[noreturn]] void objc_exception_throw(id exception);

// Answers the handler before. Null is none.
UncaughtExceptionHandler objc_setUncaughtExceptionHandler(UncaughtExceptionHandler handler);

#if !defined(__LP64__)
// In 32 bits there is a chain of guards per thread. A guard is the five words of the compiler's __builtin_setjmp, of gcc's
// or of clang's with any flags, and four words of the runtime's behind them. The caller enters it and then calls
// __builtin_setjmp on it at once; a throw leaves the innermost guard and jumps to it, so that no destructor between runs.
void objc_exception_try_enter(void* guard);
void objc_exception_try_exit(void* guard); // the guard and those entered inside it
id objc_exception_extract(void* guard);    // what the jump brought
int objc_exception_match(id exceptionClass, id exception);
#endif
}

} // namespace chroma
