// Retain counts, autorelease pools, and what is left alive.
#include "support/native.h"

#include <gtest/gtest.h>

#include <thread>

using namespace chroma;
using namespace chroma::test;

namespace {

std::size_t alive() { return builtin_liveInstances("NSData"); }

id newData() { return sendClass("NSData", "new"); }

std::uintptr_t retainCount(id object) { return send<std::uintptr_t>(object, "retainCount"); }

void throwFromRelease(id self, SEL) { objc_exception_throw(self); }

} // namespace

TEST(Memory, RetainsAndReleasesBalance) {
    const id object = newData();
    EXPECT_EQ(retainCount(object), 1u);
    EXPECT_EQ(send(object, "retain"), object);
    CFRetain(object);
    EXPECT_EQ(retainCount(object), 3u);
    CFRelease(object);
    send<void>(object, "release");
    EXPECT_EQ(alive(), 1u);
    send<void>(object, "release");
    EXPECT_EQ(alive(), 0u);
}

TEST(Memory, PoolsNestAndReleaseWhatWasAutoreleasedInThem) {
    Pool outer;
    send(newData(), "autorelease");
    {
        const Pool inner;
        const id object = send(newData(), "autorelease");
        send(send(object, "retain"), "autorelease");
        EXPECT_EQ(retainCount(object), 2u) << "autorelease defers the release";
        EXPECT_EQ(alive(), 2u);
    }
    EXPECT_EQ(alive(), 1u);
    outer.drain();
    EXPECT_EQ(alive(), 0u);
}

TEST(Memory, DrainingAPoolDrainsThePoolsLeftOpenInside) {
    Pool outer;
    sendClass("NSAutoreleasePool", "new");
    send(newData(), "autorelease");
    sendClass("NSAutoreleasePool", "new");
    send(newData(), "autorelease");
    outer.drain();
    EXPECT_EQ(alive(), 0u);
    EXPECT_EQ(builtin_liveInstances("NSAutoreleasePool"), 0u);
}

TEST(Memory, PoolsCannotBeShared) {
    const id pool = sendClass("NSAutoreleasePool", "new");
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send(pool, "retain"); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send(pool, "autorelease"); }));
    send<void>(pool, "drain");
}

TEST(Memory, ADrainThatThrowsLeavesTheRestToTheEnclosingPool) {
    Pool outer;
    const id inner = sendClass("NSAutoreleasePool", "new");
    send(newData(), "autorelease");
    const id thrower = send(newData(), "autorelease");
    const Class data = objc_getClass("NSData");
    const Method release = class_getInstanceMethod(data, sel_registerName("release"));
    class_addMethod(data, sel_registerName("release"), implementation(throwFromRelease), nullptr);

    EXPECT_EQ(caught([&] { send<void>(inner, "drain"); }), thrower);
    class_replaceMethod(data, sel_registerName("release"), method_getImplementation(release), nullptr);
    outer.drain();
    EXPECT_EQ(alive(), 1u) << "only the object whose release threw";
    EXPECT_EQ(builtin_liveInstances("NSAutoreleasePool"), 0u);
    send<void>(thrower, "release");
}

TEST(Memory, WithoutAPoolObjectsGoWithTheirThread) {
    std::thread([] {
        send(newData(), "autorelease");
        EXPECT_EQ(alive(), 1u);
    }).join();
    EXPECT_EQ(alive(), 0u);
}

TEST(Memory, ConstantStringsAndSingleColorsAreNeverFreed) {
    const Pool pool;
    const id red = sendClass("NSColor", "redColor");
    for (const id object : {NSCalibratedRGBColorSpace, red, standardSpace("sRGBColorSpace"), objc_getClass("NSColor")}) {
        send<void>(object, "release");
        send<void>(object, "release");
        EXPECT_EQ(retainCount(object), UINTPTR_MAX);
    }
    EXPECT_EQ(builtin_liveInstances("NSColor"), 0u) << "single objects are not counted";
    EXPECT_EQ(textOf(send(red, "colorSpaceName")), "NSCalibratedRGBColorSpace");
}
