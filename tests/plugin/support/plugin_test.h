// What the plugin's tests start from: an autorelease pool around each, and a balance of everything handed out at its end.
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

// Lets the n-th calloc from now on fail (1 is the next); 0 stops that. Answers whether one has failed since the last call.
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
        EXPECT_EQ(std::current_exception(), nullptr); // a handler was left open
        expectRaised({});
    }

    // Lets go of what was autoreleased so far.
    void drainPool() {
        native::send<void>(pool, "drain");
        pool = native::sendClass("NSAutoreleasePool", "new");
    }

    // Loads the plugin into the test's host.
    void start(double version = 2021.0) {
        host.version = version;
        REALPluginMain(foreign::Host::resolve);
    }

    // Lets the host be of another version than it was loaded into.
    void become(double version) { host.version = chroma::rbversion_rbversion = version; }

    // What the body asks of the host's entries and, by messages, of the platform, in order.
    template <class Body>
    std::string traceOf(Body body) {
        std::string trace;
        host.trace = &trace;
        body();
        host.trace = nullptr;
        return trace;
    }

    // Entries of the stand-in sibling's registry.
    static chroma::CFIndex registered() { return native::CFDictionaryGetCount(native::Sibling::registry()); }

    // What was raised since the last look is exactly this.
    void expectRaised(const std::vector<Raised>& expected) { EXPECT_EQ(host.takeRaised(), expected); }

    // One exception of the platform was told to host code since the last look; each part is in its message.
    void expectPlatformException(std::initializer_list<std::string> parts = {}) {
        const auto raised = host.takeRaised();
        ASSERT_EQ(raised.size(), 1U);
        const auto& [className, message, number] = raised[0];
        EXPECT_EQ(className, hostException) << message;
        for (const std::string& part : parts)
            EXPECT_NE(message.find(part), std::string::npos) << message;
    }

    // The class of the host exceptions that the platform's become.
    const char* hostException = "RuntimeException";
    foreign::Host& host = foreign::Host::instance();
    chroma::id pool;
};

// With a stand-in for the sibling plugin.
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

// A host colour's components; none for null. A new reference is given up, an owned one is kept.
inline Components componentsOf(const Reference& color) { return foreign::take(chroma::color::getComponents(color)); }
