// Classes, selectors and dispatch; throwing and catching; retain counts and autorelease pools.
#include "support/native.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <new>
#include <thread>
#include <tuple>

using namespace chroma;
using namespace chroma::test;

using Runtime = PlatformTest;
using Exceptions = PlatformTest;
using ExceptionsDeathTest = PlatformTest;
using Memory = PlatformTest;

// The guards that the build compiled separately.
#define X(name) extern "C" id name(void (*body)(void*), void* context);
FOREIGN_GUARDS
#undef X

namespace {

#define X(name) {#name, name},
constexpr std::pair<const char*, id (*)(void (*)(void*), void*)> foreignGuards[] = {FOREIGN_GUARDS};
#undef X

int returnOne(id, SEL) { return 1; }
int returnTwo(id, SEL) { return 2; }
int returnThree(id, SEL) { return 3; }
void throwSelf(id self, SEL) { objc_exception_throw(self); }

Class subclass(const char* parent, const char* name) {
    const Class cls = objc_allocateClassPair(objc_getClass(parent), name, 0);
    objc_registerClassPair(cls);
    return cls;
}

id exceptionNamed(const char* name, const char* reason) {
    return sendClass("NSException", "exceptionWithName:reason:userInfo:", string(name), string(reason), string("info"));
}

bool isExhausted = false;

std::size_t alive() { return builtin_liveInstances("NSData"); }
id newData() { return sendClass("NSData", "new"); }
std::uintptr_t retainCount(id object) { return send<std::uintptr_t>(object, "retainCount"); }

} // namespace

// Replace the standard library's functions, also for the platform's library.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return isExhausted ? nullptr : std::malloc(size + 1);
}
void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (!memory) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

TEST_F(Runtime, AddedAndReplacedMethodsTakeEffectAtOnce) {
    const Class parent = subclass("NSObject", "Parent"), child = subclass("Parent", "Child");
    const SEL number = sel_registerName("number");
    const id object = created("Child", "init");
    EXPECT_FALSE(send<BOOL>(object, "respondsToSelector:", number));
    EXPECT_TRUE(class_addMethod(parent, number, implementation(returnOne), "i@:"));
    EXPECT_FALSE(class_addMethod(parent, number, implementation(returnTwo), "i@:"));
    EXPECT_EQ(send<int>(object, "number"), 1);

    // A replacement in the parent reaches the child, whose dispatch table already knows the old function.
    EXPECT_EQ(class_replaceMethod(parent, number, implementation(returnTwo), "i@:"), implementation(returnOne));
    EXPECT_EQ(send<int>(object, "number"), 2);

    // A method in the child overrides the parent's, which stays unchanged.
    EXPECT_EQ(class_replaceMethod(child, number, implementation(returnThree), "i@:"), nullptr);
    EXPECT_EQ(send<int>(object, "number"), 3);
    EXPECT_EQ(class_getMethodImplementation(parent, number), implementation(returnTwo));
    EXPECT_EQ(method_getImplementation(class_getInstanceMethod(child, number)), implementation(returnThree));

    EXPECT_TRUE(class_addMethod(object_getClass(child), number, implementation(returnTwo), nullptr));
    EXPECT_EQ(send<int>(child, "number"), 2);
    EXPECT_FALSE(send<BOOL>(parent, "respondsToSelector:", number));
}

// Without the fixture, which calls the platform.
TEST(FirstCallDeathTest, MayCreateAnObject) {
    const auto create = [](int kind) {
        CFRelease(kind == 0   ? CFStringCreateWithBytes(nullptr, nullptr, 0, REALencodingASCII, 0)
                  : kind == 1 ? CFStringCreateWithCharacters(nullptr, nullptr, 0)
                              : CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr));
        std::_Exit(0);
    };
    for (const int kind : {0, 1, 2})
        EXPECT_EXIT(create(kind), testing::ExitedWithCode(0), "") << kind;
}

TEST_F(Runtime, RegistersEachSelectorOnceForAllThreads) {
    const auto registerAll = [] {
        std::vector<SEL> selectors;
        for (int index = 0; index < 20000; ++index)
            selectors.push_back(sel_registerName(("number" + std::to_string(index)).c_str()));
        return selectors;
    };
    auto first = std::async(std::launch::async, registerAll), second = std::async(std::launch::async, registerAll);
    const std::vector<SEL> selectors = registerAll();
    EXPECT_EQ(first.get(), selectors);
    EXPECT_EQ(second.get(), selectors);
}

TEST_F(Exceptions, AnyObjectCanBeThrownAndMatchedByClass) {
    const id exception = exceptionNamed("Name", "Reason"), text = string("thrown");
    EXPECT_EQ(caught([&] { send<void>(exception, "raise"); }), exception);
    EXPECT_EQ(caught([&] { objc_exception_throw(text); }), text);
    for (const auto& [message, expected] : {std::pair{"name", "Name"}, {"reason", "Reason"}, {"userInfo", "info"}})
        EXPECT_EQ(textOf(send(exception, message)), expected);
    EXPECT_EQ(textOf(exception), "Reason");

    const Class general = objc_getClass("NSException"), special = subclass("NSException", "SpecialException");
    const auto isOf = [](Class cls, id object) { return send<BOOL>(object, "isKindOfClass:", cls) != 0; };
    const std::tuple<Class, id, bool> matches[] = {{general, created("SpecialException", "init"), true},
                                                   {special, exception, false},
                                                   {general, text, false},
                                                   {general, nullptr, false}};
    for (const auto& [cls, object, expected] : matches) {
        EXPECT_EQ(isOf(cls, object), expected);
#if !defined(__LP64__)
        EXPECT_EQ(objc_exception_match(cls, object) != 0, expected);
#endif
    }
}

TEST_F(Exceptions, ReachTheInnermostOpenGuard) {
    const id exception = exceptionNamed("A", "a");
    id inner = nullptr;
    const id outer = caught([&] {
        inner = caught([&] { objc_exception_throw(exception); });
        objc_exception_throw(inner);
        ADD_FAILURE() << "objc_exception_throw returned";
    });
    EXPECT_EQ(inner, exception);
    EXPECT_EQ(outer, exception);

#if !defined(__LP64__)
    const id thrown = caught([&] {
        Guard left, open;
        objc_exception_try_enter(&left);
        objc_exception_try_enter(&open);
        objc_exception_try_exit(&left); // also exits the inner guard
        objc_exception_throw(exception);
    });
    EXPECT_EQ(thrown, exception);
#endif
}

TEST_F(Exceptions, EachThreadHasItsOwnGuards) {
    const id here = exceptionNamed("A", "a"), there = exceptionNamed("B", "b");
    std::promise<void> isGuarded, isCaught;
    std::future<id> other;
    const id caughtHere = caught([&] {
        other = std::async(std::launch::async, [&] {
            return caught([&] {
                isGuarded.set_value();
                isCaught.get_future().wait();
                objc_exception_throw(there);
            });
        });
        isGuarded.get_future().wait();
        objc_exception_throw(here); // while the other thread's guard is the most recent
    });
    isCaught.set_value();
    EXPECT_EQ(caughtHere, here);
    EXPECT_EQ(other.get(), there);
}

TEST_F(Exceptions, ReachGuardsBuiltByAnyCompilerWithAnyFlags) {
    const id exception = exceptionNamed("A", "a");
    for (const auto& [name, guard] : foreignGuards) {
        const id inner = guard([](void* thrown) { objc_exception_throw(static_cast<id>(thrown)); }, exception);
        EXPECT_EQ(inner, exception) << name;
        EXPECT_EQ(guard([](void*) {}, nullptr), nullptr) << name;
    }
}

TEST_F(ExceptionsDeathTest, TerminateTheProcessWithAMessageIfUncaught) {
    const auto uncaught = [](auto body) noexcept { body(); };
    EXPECT_DEATH(uncaught([] { send<void>(exceptionNamed("A", "because"), "raise"); }),
                 "\\*\\*\\* Terminating app due to uncaught exception 'A', reason: 'because'");
    EXPECT_DEATH(uncaught([] { throw std::bad_alloc(); }), "terminate called after throwing.*std::bad_alloc");
    EXPECT_DEATH(std::thread([] { objc_exception_throw(string("text")); }).join(), "uncaught exception of class 'NSString'");
}

TEST_F(Memory, ConstantsAndClassesLiveForever) {
    for (const id forever :
         {NSCustomColorSpace, color("redColor"), standardSpace("sRGBColorSpace"), objc_getClass("NSColor")}) {
        send<void>(forever, "release");
        send<void>(forever, "release");
        EXPECT_EQ(retainCount(forever), UINTPTR_MAX);
    }
}

TEST_F(Memory, PoolsNestAndReleaseTheirObjects) {
    send(newData(), "autorelease");
    {
        const Pool inner;
        const id object = send(newData(), "autorelease");
        send(send(object, "retain"), "autorelease");
        EXPECT_EQ(retainCount(object), 2u) << "autorelease defers the release";
        EXPECT_EQ(alive(), 2u);
    }
    std::thread([] { send(newData(), "autorelease"); }).join();
    EXPECT_EQ(alive(), 1u) << "without a pool they are released when their thread exits";
    const id leftOpen = sendClass("NSAutoreleasePool", "new");
    send(newData(), "autorelease");
    EXPECT_TRUE(refuses([&] { send(leftOpen, "retain"); }));
    EXPECT_TRUE(refuses([&] { send(leftOpen, "autorelease"); }));
    // If there is no memory to register a pool, its creation raises and the pool is destroyed.
    std::size_t pools = builtin_liveInstances("NSAutoreleasePool");
    isExhausted = true;
    while (!caught([] { sendClass("NSAutoreleasePool", "new"); }))
        ++pools;
    isExhausted = false;
    EXPECT_EQ(builtin_liveInstances("NSAutoreleasePool"), pools);
    pool.drain();
    EXPECT_EQ(alive(), 0u);
}

#if defined(__LP64__)
// A destructor must not throw what the release of a member throws.
TEST_F(Memory, MembersThrowAfterTheirObjectIsDestroyed) {
    const Class strict = subclass("NSString", "StrictString");
    const SEL dealloc = sel_registerName("dealloc");
    const IMP original = class_getMethodImplementation(strict, dealloc);
    class_addMethod(strict, dealloc, implementation(throwSelf), nullptr);
    const id name = sendClass("StrictString", "new"), reason = sendClass("StrictString", "new"),
             exception = send(sendClass("NSException", "alloc"), "initWithName:reason:userInfo:", name, reason, id{});
    for (const id held : {name, reason})
        send<void>(held, "release");
    EXPECT_EQ(caught([&] { CFRelease(exception); }), reason) << "members are destroyed in reverse order";
    EXPECT_EQ(builtin_liveInstances("NSException"), 0u);
    EXPECT_EQ(caught([] { CFRelease(newData()); }), nullptr) << "thrown twice";
    for (const id held : {name, reason})
        reinterpret_cast<void (*)(id, SEL)>(original)(held, dealloc);
}
#endif

TEST_F(Memory, AThrowingDrainLeavesTheRestToTheEnclosingPool) {
    const id inner = sendClass("NSAutoreleasePool", "new");
    send(newData(), "autorelease");
    const id thrower = send(newData(), "autorelease");
    const Class data = objc_getClass("NSData");
    const SEL release = sel_registerName("release");
    const IMP original = class_getMethodImplementation(data, release);
    class_addMethod(data, release, implementation(throwSelf), nullptr);
    EXPECT_EQ(caught([&] { send<void>(inner, "drain"); }), thrower);
    class_replaceMethod(data, release, original, nullptr);
    pool.drain();
    EXPECT_EQ(alive(), 1u) << "only the object whose release threw";
    send<void>(thrower, "release");
}
