// The program chromahost as a person runs it, with the plugin that lies beside it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

using Outcome = std::pair<int, std::string>; // the exit code, and the output with what went to stderr

Outcome run(const std::string& arguments, const std::string& environment = "") {
    FILE* const pipe = popen((environment + " " CHROMAHOST " " + arguments + " 2>&1").c_str(), "r");
    if (!pipe) return {-1, ""};
    std::string output;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, count);
    return {WEXITSTATUS(pclose(pipe)), output};
}

std::string program(const char* text) {
    const std::string path = testing::TempDir() + "/command_line_test_" + std::to_string(getpid()) + ".txt";
    std::ofstream(path) << text;
    return "'" + path + "'";
}

} // namespace

TEST(CommandLine, ListsTheSameRecordsInBothLayouts) {
    nlohmann::json current = nlohmann::json::parse(run("records --json").second);
    const nlohmann::json legacy = nlohmann::json::parse(run("records --json --host-version 2011.0").second);
    EXPECT_FALSE(current.empty());
    for (nlohmann::json& record : current) {
        EXPECT_EQ(record["controlVersion"], 13);
        record["controlVersion"] = 9;
        record["layout"] = "legacy";
    }
    EXPECT_EQ(current, legacy);
}

TEST(CommandLine, RunsAProgramAndFindsWhatItLeaves) {
    EXPECT_EQ(run("run " + program("Print 6 * 7\n") + " --check-leaks"), Outcome(0, "42\n"));
    const std::string raise =
        "run --check-leaks " + program("Try\n  Dim c As New NSColorZRX(3.0, 0.0, 0.0)\nCatch\nEnd Try\n");
    EXPECT_EQ(run(raise), Outcome(0, ""));
    // Without the entry the plugin cannot give up the exception that it makes.
    EXPECT_EQ(run(raise + " --without REALUnlockObject", "ASAN_OPTIONS=detect_leaks=0"),
              Outcome(3, "chromahost: still alive at the end: 1 x OutOfBoundsException, 1 x String\n"));
}

TEST(CommandLine, LeavesNothingWhereMemoryRunsOut) {
    if (CHROMA_SANITIZED || std::string(CHROMAHOST).find("qemu") != std::string::npos)
        GTEST_SKIP() << "what runs the program wants more memory than the limit";
    const std::string split = program("Try\n  Dim parts() As String = Split(Repeat(\"ab \", 8000000))\n"
                                      "Catch e As OutOfMemoryException\n  Print e.Message\nEnd Try\n");
    EXPECT_EQ(run("run --check-leaks " + split, "ulimit -v 250000;"), Outcome(0, "There is not enough memory for this.\n"));
}

TEST(CommandLine, RunsAllThatIsPipedToThePromptAndTellsWhetherSomethingFailed) {
    EXPECT_EQ(run("repl < " + program("Dim a As Integer = 5\na + 1\n")), Outcome(0, "6\n"));
    EXPECT_EQ(run("repl 2>/dev/null < " + program("Dim a As Integer = 1 \\ 0\na + 1\n:quit\n")).first, 1);
    EXPECT_EQ(run("repl < " + program(":browse Nowhere\n2\n")), Outcome(1, "there is nothing of the name Nowhere\n2\n"));
}

TEST(CommandLine, SaysWhatIsWrong) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"", 2, "chromahost: A command (--help lists them) is required\n"},
        {"records --foo", 2, "chromahost: The following argument was not expected: --foo\n"},
        {"run", 2, "chromahost: FILE is required\n"},
        {"records --without nothing", 2, "chromahost: there is no entry \"nothing\"; the entries are:\n"},
        {"records --plugin no.so", 1, "chromahost: cannot load the plugin no.so: "},
        {"run /no/such/file", 1, "/no/such/file: "},
        {"run --without REALLockObject --without newMemoryBlock /no/such/file", 1, "/no/such/file: "},
        {"--help", 0, ""}};
    for (const auto& [arguments, exitCode, message] : cases) {
        const auto [code, output] = run(arguments);
        EXPECT_EQ(code, exitCode) << arguments;
        EXPECT_EQ(output.find(message), 0u) << arguments << ": " << output;
    }
}
