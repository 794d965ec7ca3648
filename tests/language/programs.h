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

// A program with what it prints. The name is that of the case.
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

inline void PrintTo(const PrintingCase& tested, std::ostream* stream) { *stream << tested.program; }
inline void PrintTo(const FailingCase& tested, std::ostream* stream) { *stream << tested.program; }

class Printing : public testing::TestWithParam<PrintingCase> {};
class Failing : public testing::TestWithParam<FailingCase> {};

// One test for every row of the table.
#define PRINTING_CASES(group, table)                                                                                        \
    INSTANTIATE_TEST_SUITE_P(group, Printing, testing::ValuesIn(table), [](const auto& tested) { return tested.param.name; })
#define FAILING_CASES(group, table)                                                                                         \
    INSTANTIATE_TEST_SUITE_P(group, Failing, testing::ValuesIn(table), [](const auto& tested) { return tested.param.name; })
