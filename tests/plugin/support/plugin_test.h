// What the plugin's tests start from: an autorelease pool around each, and a balance of everything handed out at its end.
#pragma once

#include "support/faults.h"
#include "support/foreign_host.h"
#include "support/native.h"
#include "support/platform_differences.h"

#include <gtest/gtest.h>

extern "C" void REALPluginMain(REALresolver resolver);

class PluginTest : public ::testing::Test {
protected:
    using Raised = foreign::Raised;
    using Difference = platform::Difference;

    void SetUp() override { pool = native::tell(native::classNamed("NSAutoreleasePool"), "new"); }

    void TearDown() override {
        native::tell<void>(pool, "drain");
        EXPECT_EQ(foreign::Host::liveObjects(), 0);
        EXPECT_EQ(foreign::Host::liveStrings(), 0);
        EXPECT_EQ(host.takeRaised(), std::vector<Raised>{});
    }

    // Lets go of what was autoreleased so far.
    void drainPool() {
        native::tell<void>(pool, "drain");
        pool = native::tell(native::classNamed("NSAutoreleasePool"), "new");
    }

    // Loads the plugin into the test's host.
    void start(double version = 2021.0) {
        host.version = version;
        REALPluginMain(foreign::Host::resolve);
    }

    // The one exception raised since the last look.
    Raised raisedOne() {
        const auto raised = host.takeRaised();
        EXPECT_EQ(raised.size(), 1U);
        return raised.empty() ? Raised{} : raised[0];
    }

    // An exception of the platform was told to host code.
    void expectPlatformException() { EXPECT_EQ(raisedOne().className, "NSExceptionZRX"); }

    // A message that nobody answers was told to host code. GNUstep has a second wording, for selectors that other classes answer.
    void expectUnrecognized(const std::string& message) {
        const Raised raised = raisedOne();
        const bool isNamed = raised.message.find(message + "]: unrecognized selector") != std::string::npos ||
                             raised.message.find("does not recognize " + message) != std::string::npos;
        EXPECT_TRUE(isNamed) << raised.message;
    }

    foreign::Host& host = foreign::Host::instance();
    chroma::id pool = nullptr;
};

// With a stand-in for the sibling plugin, whose registry must be empty again at the end.
class SiblingTest : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        native::Sibling::install();
        start();
    }
    void TearDown() override {
        EXPECT_EQ(registered(), 0);
        PluginTest::TearDown();
    }

    static chroma::CFIndex registered() { return native::CFDictionaryGetCount(native::Sibling::registry()); }
};
