// Running programs in tests, and the class of a made-up plugin for them to use.
#pragma once

#include <gtest/gtest.h>

#include <string>

// Starts the host and registers the class Probe, once in this process.
void startHostWithProbe();

struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

// Runs the program under the name "test.bas", with no events of Probe before. Whatever it does, no object and no string is left
// behind.
Outcome runProgram(const std::string& text);

// A program with what it prints.
struct PrintingCase {
    const char* name;
    const char* program;
    const char* output;
};

// A program with an error, and the report of it.
struct FailingCase {
    const char* name;
    const char* program;
    const char* errors;
};

// Adds a test for every row of a table, which lives as long as the process. For the initialisation of a constant.
bool addCases(const char* group, const PrintingCase* cases, std::size_t count);
bool addCases(const char* group, const FailingCase* cases, std::size_t count);

template <class Case, std::size_t count>
bool addCases(const char* group, const Case (&cases)[count]) {
    return addCases(group, cases, count);
}
