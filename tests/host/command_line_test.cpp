// The program chromahost as a person runs it, with the plugin that lies beside it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

struct Outcome {
    int exitCode;
    std::string output; // with what went to stderr
};

Outcome run(const std::string& arguments, const std::string& environment = "") {
    FILE* const pipe = popen((environment + " '" CHROMAHOST "' " + arguments + " 2>&1").c_str(), "r");
    Outcome outcome = {-1, ""};
    if (!pipe) return outcome;
    std::array<char, 4096> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        outcome.output.append(buffer.data(), count);
    outcome.exitCode = WEXITSTATUS(pclose(pipe));
    return outcome;
}

std::string program(const char* text) {
    const std::string path = testing::TempDir() + "/command_line_test_" + std::to_string(getpid()) + ".txt";
    std::ofstream(path) << text;
    return "'" + path + "'";
}

} // namespace

TEST(CommandLine, ListsTheSameRecordsInBothLayouts) {
    const Outcome current = run("records --json");
    const Outcome legacy = run("records --json --host-version 2011.0");
    ASSERT_EQ(current.exitCode, 0) << current.output;
    ASSERT_EQ(legacy.exitCode, 0) << legacy.output;
    nlohmann::json newer = nlohmann::json::parse(current.output);
    const nlohmann::json older = nlohmann::json::parse(legacy.output);
    ASSERT_EQ(older.size(), newer.size());
    ASSERT_GT(older.size(), 0u);
    for (std::size_t i = 0; i < older.size(); ++i) {
        EXPECT_EQ(newer[i]["controlVersion"], 13);
        newer[i]["controlVersion"] = 9;
        newer[i]["layout"] = "legacy";
        EXPECT_EQ(older[i], newer[i]);
    }
}

TEST(CommandLine, RunsAProgram) {
    const std::string file = program("Print 6 * 7\n");
    const Outcome outcome = run("run " + file + " --check-leaks");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, "42\n");
}

TEST(CommandLine, FindsWhatAProgramLeaves) {
    // Without the entry the plugin cannot give up the exception that it makes.
    const std::string file = program("Try\n  Dim c As New NSColorZRX(3.0, 0.0, 0.0)\nCatch\nEnd Try\n");
    const Outcome outcome = run("run " + file + " --check-leaks --without REALUnlockObject", "ASAN_OPTIONS=detect_leaks=0");
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.output, "chromahost: still alive at the end: 1 x OutOfBoundsException, 1 x String\n");
    EXPECT_EQ(run("run " + file + " --check-leaks").exitCode, 0);
}

TEST(CommandLine, SaysWhatIsWrong) {
    struct {
        const char* arguments;
        int exitCode;
        const char* output;
    } const cases[] = {
        {"", 2, "chromahost: A command (--help lists them) is required\n"},
        {"records --foo", 2, "chromahost: The following argument was not expected: --foo\n"},
        {"run", 2, "chromahost: FILE is required\n"},
        {"records --without nothing", 2, "chromahost: there is no entry \"nothing\"; the entries are:\n"},
        {"records --plugin no.so", 1, "chromahost: cannot load the plugin no.so: "},
        {"run /no/such/file", 1, "/no/such/file: "},
    };
    for (const auto& c : cases) {
        const Outcome outcome = run(c.arguments);
        EXPECT_EQ(outcome.exitCode, c.exitCode) << c.arguments;
        EXPECT_EQ(outcome.output.find(c.output), 0u) << c.arguments << ": " << outcome.output;
    }
    EXPECT_EQ(run("--help").exitCode, 0);
}
