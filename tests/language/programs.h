// Running programs in tests, and the class of a made-up plugin for them to use.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

// Runs a program that says itself what it prints: behind "'> " stands the line that a statement prints, or the lines that it
// prints in its turns, with " | " between them. They are in the order of the output.
void expectPrinted(const std::string& program);

// Programs that end with reports and print nothing: "@" marks each place that is reported, and the messages follow in the
// order of the places. A message that begins with "uncaught" is of an exception, any other of an error that is found before
// a start.
struct Wrong {
    std::string program;
    std::vector<const char*> messages;
};
void expectReports(const std::vector<Wrong>& cases);
