// Native objects in host objects: who retains, who releases, and which host object comes back.
#include "support/plugin_test.h"

#include "bridge/frame.h"
#include "classes/color/color.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

using namespace chroma;
using foreign::Host;

class Objects : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        color = native::tell(native::classNamed("NSColor"), "colorWithCalibratedWhite:alpha:", CGFloat(0.5), CGFloat(1));
        before = native::retainCount(color);
    }
    void TearDown() override {
        EXPECT_EQ(native::retainCount(color), before);
        PluginTest::TearDown();
    }
    // As loaded, with the class constructor run once, so that the registry is known where there is one.
    void startWith(bool sibling) {
        if (sibling) native::Sibling::install();
        start();
        foreign::unlock(foreign::make("NSColorZRX"));
    }
    CFIndex entries() { return native::CFDictionaryGetCount(native::Sibling::registry()); }

    id color;
    NSUInteger before;
};

TEST_F(Objects, OneNativeObjectIsOneHostObjectWhileItLives) {
    startWith(true);
    REALobjectStruct* const first = NewNSColorZRX(color);
    REALobjectStruct* const second = NewNSColorZRX(color);
    EXPECT_EQ(first, second);
    EXPECT_EQ(foreign::references(first), 2);
    EXPECT_EQ(native::retainCount(color), before + 1);
    EXPECT_EQ(nativeObject(first), color);
    foreign::unlock(first);
    EXPECT_EQ(entries(), 1);
    foreign::unlock(first);
    EXPECT_EQ(entries(), 0);

    REALobjectStruct* const again = NewNSColorZRX(color);
    EXPECT_EQ(foreign::references(again), 1);
    foreign::unlock(again);
}

TEST_F(Objects, WithoutRegistryEachWrapIsItsOwn) {
    startWith(false);
    REALobjectStruct* const first = NewNSColorZRX(color);
    REALobjectStruct* const second = NewNSColorZRX(color);
    EXPECT_NE(first, second);
    EXPECT_EQ(native::retainCount(color), before + 2);
    foreign::unlock(first);
    EXPECT_EQ(native::retainCount(color), before + 1);
    foreign::unlock(second);
}

TEST_F(Objects, AnEntryOfAnotherHostObjectStays) {
    startWith(true);
    REALobjectStruct* const wrapped = NewNSColorZRX(color);
    REALobjectStruct* const other = foreign::make("NSColorZRX");
    setNativeObject(other, native::tell(color, "retain")); // as a host program does that writes the handle
    foreign::unlock(other);
    EXPECT_EQ(entries(), 1);
    EXPECT_EQ(NewNSColorZRX(color), wrapped);
    foreign::unlock(wrapped);
    foreign::unlock(wrapped);
    EXPECT_EQ(entries(), 0);
}

TEST_F(Objects, AWrittenHandleIsWhatTheDestructorReleases) {
    startWith(true);
    REALobjectStruct* const object = NewNSColorZRX(color);
    setNativeObject(object, nullptr);
    foreign::unlock(object);
    EXPECT_EQ(native::retainCount(color), before + 1);
    EXPECT_EQ(entries(), 1); // it still names the object that is gone; only the writer can know
    CFDictionaryRemoveValue(native::Sibling::registry(), color);
    native::tell<void>(color, "release");
}

TEST_F(Objects, WhatTheHostDoesNotMakeIsNotRetained) {
    start();
    EXPECT_EQ(NewNSColorZRX(nullptr), nullptr);
    EXPECT_EQ(host.asked["PluginNewInstance"], 0);
    EXPECT_EQ(wrapNative(color, "NoSuchClass"), nullptr);
    EXPECT_EQ(native::retainCount(color), before);
}

TEST_F(Objects, TheSiblingIsAskedOnceAndNeverAgain) {
    startWith(true);
    foreign::unlock(foreign::make("NSColorZRX"));
    EXPECT_EQ(native::Sibling::registryRequests, 1);
    EXPECT_EQ(native::Sibling::preparations, 1);
}

TEST_F(Objects, ASiblingThatComesLateStaysUnknown) {
    startWith(false);
    native::Sibling::install();
    foreign::unlock(NewNSColorZRX(color));
    foreign::unlock(foreign::make("NSColorZRX"));
    EXPECT_EQ(native::Sibling::registryRequests, 0);
    EXPECT_EQ(native::Sibling::preparations, 0);
}

TEST_F(Objects, ARetainThatThrowsLeavesNoHostObject) {
    startWith(true);
    native::failOn(color, "retain");
    REALobjectStruct* result = nullptr;
    guarded([&] { result = NewNSColorZRX(color); });
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(raisedOne(), (Raised{"NSExceptionZRX", "made to fail", 0}));
    EXPECT_EQ(Host::liveObjects(), 0);
    EXPECT_EQ(entries(), 0);
}

TEST_F(Objects, DestructorsTurnNativeExceptionsIntoHostExceptions) {
    startWith(true);
    REALobjectStruct* const object = NewNSColorZRX(color);
    const auto release = reinterpret_cast<void (*)(id, SEL)>(objc_msg_lookup(color, sel_registerName("release")));
    native::failOn(color, "release");
    foreign::unlock(object);
    EXPECT_EQ(raisedOne().message, "made to fail");
    EXPECT_EQ(entries(), 0);
    native::replace(native::object_getClass(color), "release", release);
    native::tell<void>(color, "release");
}
