// Running programs in tests, and the class of a made-up plugin for them to use.
#pragma once

#include <gtest/gtest.h>

#include <string>

// Starts the host and registers the class Probe, once in this process.
void startHostWithProbe();

// The same, and loads the plugin and its sibling.
void startHostWithPlugins();

struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

// Runs the program under the name "test.bas", with no events of Probe before. Whatever it does, no object and no string is
// left behind.
Outcome runProgram(const std::string& text);

std::string repeated(const std::string& text, std::size_t times);
