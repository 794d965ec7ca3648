// Base of the plugin's tests: an autorelease pool around each test, and a check afterwards that all references were
// released.
#pragma once

#include "support/native.h"
#include "support/platform_differences.h"

#include "classes/color/color.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"
#include "runtime/native_object.h"

#include <gtest/gtest.h>

#include <exception>

extern "C" void REALPluginMain(REALresolver resolver);

// Makes the n-th calloc from now on fail (1 is the next); 0 stops that. Returns whether one has failed since the last call.
bool failAllocation(int n);

class PluginTest : public ::testing::Test {
protected:
    using Raised = foreign::Raised;

    PluginTest() : pool(native::sendClass("NSAutoreleasePool", "new")) {}

    ~PluginTest() override {
        native::send<void>(pool, "drain");
        EXPECT_EQ(foreign::Host::liveObjects(), 0);
        EXPECT_EQ(foreign::Host::liveStrings(), 0);
        EXPECT_EQ(registered(), 0);
        EXPECT_EQ(std::current_exception(), nullptr); // otherwise a handler was left open
        expectRaised({});
    }

    // Releases the objects autoreleased so far.
    void drainPool() {
        native::send<void>(pool, "drain");
        pool = native::sendClass("NSAutoreleasePool", "new");
    }

    // Loads the plugin into the test's host.
    void start(double version = 2021.0) {
        host.version = version;
        REALPluginMain(foreign::Host::resolve);
    }

    // Changes the host's version after the plugin was loaded.
    void become(double version) { host.version = chroma::rbversion_rbversion = version; }

    // Returns the body's calls of host entries and its messages to the platform, in order.
    template <class Body>
    std::string traceOf(Body body) {
        std::string trace;
        host.trace = &trace;
        body();
        host.trace = nullptr;
        return trace;
    }

    // Returns the number of entries in the substitute sibling's registry.
    static chroma::CFIndex registered() { return native::CFDictionaryGetCount(native::Sibling::registry()); }

    // Expects exactly these exceptions since the last check.
    void expectRaised(const std::vector<Raised>& expected) { EXPECT_EQ(host.takeRaised(), expected); }

    // Expects that one exception of the platform was reported to host code since the last check, with each part in its
    // message.
    void expectPlatformException(std::initializer_list<std::string> parts = {}) {
        const auto raised = host.takeRaised();
        ASSERT_EQ(raised.size(), 1U);
        const auto& [className, message, number] = raised[0];
        EXPECT_EQ(className, hostException) << message;
        for (const std::string& part : parts)
            EXPECT_NE(message.find(part), std::string::npos) << message;
    }

    // The class of the host exceptions that represent the platform's exceptions.
    const char* hostException = "RuntimeException";
    foreign::Host& host = foreign::Host::instance();
    chroma::id pool;
};

// Tests with a substitute for the sibling plugin.
class SiblingTest : public PluginTest {
protected:
    SiblingTest() {
        native::Sibling::install();
        hostException = "NSExceptionZRX";
        start();
    }
};

using Components = std::vector<double>;
using Reference = foreign::Owned<REALobjectStruct>;

// Returns a host colour's components, or none for null. Releases a new reference but keeps an owned one.
inline Components componentsOf(const Reference& color) { return foreign::take(chroma::color::getComponents(color)); }
