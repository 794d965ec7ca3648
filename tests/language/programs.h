// Runs programs in tests, with the class of a test plugin for them to use.
#pragma once

#include <gtest/gtest.h>

#include <string>

// Starts the host and registers the class Probe, once per process.
void startHostWithProbe();

// Does the same, and loads the plugin and its sibling.
void startHostWithPlugins();

struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

// Runs the program under the name "test.bas" and clears the events of Probe first. Fails if any object or string leaks.
Outcome runProgram(const std::string& text);

std::string repeated(const std::string& text, std::size_t times);
