// The program chromahost as a person runs it, with the plugin that lies beside it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

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
    const std::string raise = "run --check-leaks " + program("Try\n  Print New NSColorZRX(3.0, 0.0, 0.0)\nCatch\nEnd Try\n");
    EXPECT_EQ(run(raise), Outcome(0, ""));
    // Without the entry the plugin cannot give up the exception that it makes.
    EXPECT_EQ(run(raise + " --without REALUnlockObject", "ASAN_OPTIONS=detect_leaks=0"),
              Outcome(3, "chromahost: still alive at the end: 1 x OutOfBoundsException, 1 x String\n"));
}

// Every host that can exist runs every program to its end, or to an exception.
TEST(CommandLine, LacksAnyEntryWithoutFalling) {
    std::istringstream lines(run("run --without nothing " + program("")).second);
    std::vector<std::string> entries;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("    ", 0) == 0) entries.push_back(line.substr(4));
    ASSERT_GT(entries.size(), 25u);
    for (const std::string& entry : entries) {
        for (const char* version : {"2011.0", "2021.0"}) {
            for (const char* example : {"tour", "palette", "pattern", "spaces"}) {
                const std::string arguments = "run '" CHROMA_EXAMPLES "/" + std::string(example) + ".bas' --host-version " +
                                              version + " --without " + entry;
                EXPECT_LE(run(arguments, "ASAN_OPTIONS=detect_leaks=0").first, 1) << arguments;
            }
        }
    }
}

TEST(CommandLine, PlaysHostsThatCanExist) {
    // Without a version it is of the first one, which shows its storage.
    const std::string lists =
        program("Dim c As New NSColorSpaceZRX\nPrint c.Handle\nPrint NSColorZRX.redColor.Components\n");
    EXPECT_EQ(run("run --without REALGetRBVersion " + lists), run("run --host-version 0 " + lists));
    for (const char* version : {"nan", "-1", "''"})
        EXPECT_EQ(run("run --host-version " + std::string(version) + " " + lists).first, 2) << version;
    const std::string plugin =
        run("run " + program("Print 1\n") + " --plugin " CHROMA_PLUGIN " --plugin " CHROMA_PLUGIN).second;
    EXPECT_EQ(plugin, "1\n");
}

TEST(CommandLine, LeavesNothingWhereMemoryRunsOut) {
    if (CHROMA_SANITIZED || std::string(CHROMAHOST).find("qemu") != std::string::npos)
        GTEST_SKIP() << "what runs the program wants more memory than the limit";
    const std::string split = program("Try\n  Print UBound(Split(Repeat(\"ab \", 8000000)))\n"
                                      "Catch e As OutOfMemoryException\n  Print e.Message\nEnd Try\n");
    EXPECT_EQ(run("run --check-leaks " + split, "ulimit -v 250000;"), Outcome(0, "There is not enough memory for this.\n"));
}

TEST(CommandLine, RunsAllThatIsPipedToThePromptAndTellsWhetherSomethingFailed) {
    EXPECT_EQ(run("repl < " + program("Dim a As Integer = 5\na + 1\n")), Outcome(0, "6\n"));
    EXPECT_EQ(run("repl 2>/dev/null < " + program("Dim a As Integer = 1 \\ 0\na + 1\n:quit\n")).first, 1);
    EXPECT_EQ(run("repl < " + program(":browse Nowhere\n2\n")), Outcome(1, "there is nothing of the name Nowhere\n2\n"));
}

TEST(CommandLine, RunsWhatIsPipedOrGivenWithArguments) {
    const std::string arguments = program("Print Join(Arguments(), \"|\")\n");
    EXPECT_EQ(run("run " + arguments), Outcome(0, "\n"));
    EXPECT_EQ(run("run --no-sibling " + arguments + " -- a --b 'c d' é"), Outcome(0, "a|--b|c d|é\n"));
    EXPECT_EQ(run("run -e 'Dim x As Integer = 6' -e 'Print x * 7, Arguments().Count' -- one two"), Outcome(0, "42 2\n"));
    EXPECT_EQ(run("run - < " + program("Print 6 * 7\n")), Outcome(0, "42\n"));
    EXPECT_EQ(run("run - < " + program("Print y\n")).second.rfind("standard input:1:7: error: ", 0), 0u);
}

// Lines until there are none; then neither Catch nor Finally stands in the way, and every object goes.
TEST(CommandLine, ReadsItsInputAndQuits) {
    const std::string echo = program(R"(Dim block As New MemoryBlock(4)
Try
  While True
    Print "[" & Input & "]", Environment("GIVEN", "none"), Environment("NOT_GIVEN", "none")
  Wend
Catch e As IOException
  Try
    Quit block.Size + 300
  Catch refused As OutOfBoundsException
    Print e.Message, refused.Message
  End Try
  Try
    Quit block.Size
  Catch
    Print "caught"
  Finally
    Print "finally"
  End Try
End Try
)");
    EXPECT_EQ(run("run --check-leaks " + echo, "printf 'x\\r\\n\\ny z' | GIVEN=é"),
              Outcome(4, "[x] é none\n[] é none\n[y z] é none\n"
                         "There is no more input. An exit code is from 0 to 255, not 304.\n"));
    EXPECT_EQ(run("repl", "printf 'Print 1\\nQuit 5\\nPrint 2\\n' |"), Outcome(5, "1\n"));
}

TEST(CommandLine, TellsErrorsAndPagesAsJson) {
    const auto [code, output] = run("check --json " + program("Print x\nDim a As Nothing\n"));
    const nlohmann::json problems = nlohmann::json::parse(output);
    EXPECT_EQ(code, 1);
    ASSERT_EQ(problems.size(), 2u);
    EXPECT_EQ(problems[1]["line"], 2);
    EXPECT_EQ(problems[0]["column"], 7);
    EXPECT_EQ(problems[0]["level"], "error");
    EXPECT_EQ(run("check --json " + program("Print 1\n")), Outcome(0, "[]\n"));
    const auto [warned, warnings] = run("check --json " + program("Dim unused As Integer\n"));
    EXPECT_EQ(warned, 0);
    EXPECT_EQ(nlohmann::json::parse(warnings)[0]["level"], "warning");

    const auto page = [](const char* names) {
        return nlohmann::json::parse(run(std::string("browse --json ") + names).second);
    };
    const nlohmann::json member = page("NSExceptionZRX message")["classes"];
    ASSERT_EQ(member.size(), 1u);
    EXPECT_EQ(member[0]["name"], "RuntimeException") << "which declares it";
    EXPECT_EQ(member[0]["sections"][0]["members"].size(), 1u);
    EXPECT_EQ(page("getRGB")["classes"][0]["sections"][0]["members"][0]["declarations"].size(), 2u);
    EXPECT_EQ(page("len")["functions"][0]["name"], "Len");
    EXPECT_EQ(page("While")["words"].size(), 1u);
    EXPECT_GT(page("")["words"].size(), 10u);
    EXPECT_EQ(run("browse --markdown NSColorListZRX").second.rfind("# NSColorListZRX\n", 0), 0u);
}

TEST(CommandLine, TellsHowItEndedWhateverEndedIt) {
    for (const std::string command : {"run -e 'Print 1'", "browse Len", "records", "--help"}) {
        EXPECT_EQ(run(command + " > /dev/null").first, 0) << command;
        EXPECT_EQ(run(command + " > /dev/full").first, 1) << command;
    }
    // The shell tells by 128 and its number which signal ended the program, if one did.
    EXPECT_EQ(
        std::system("sh -c 'timeout --preserve-status -s INT 2 " CHROMAHOST " run -e \"While True\" -e Wend' 2>/dev/null"),
        130 << 8);
    EXPECT_EQ(run("--version").second.rfind("chromahost 0.", 0), 0u);
    EXPECT_NE(run("--version").second.find("classes NSColorZRX NSColorListZRX NSColorSpaceZRX\n"), std::string::npos);
}

TEST(CommandLine, CompletesItselfInBash) {
    const std::string script = program(run("completion bash").second.c_str());
    const auto completed = [&](const std::string& line, int place) {
        FILE* const pipe = popen(("bash -c 'source " + script.substr(1, script.size() - 2) + "; COMP_WORDS=(" + line +
                                  "); COMP_CWORD=" + std::to_string(place) + "; _chromahost; echo \"${COMPREPLY[*]}\"'")
                                     .c_str(),
                                 "r");
        std::string words(4096, '\0');
        words.resize(pipe ? std::fread(words.data(), 1, words.size(), pipe) : 0);
        if (pipe) pclose(pipe);
        return words;
    };
    EXPECT_EQ(completed("chromahost re", 1), "repl records\n");
    EXPECT_EQ(completed("chromahost --plugin x browse NSColorL", 4), "NSColorListZRX\n");
    EXPECT_EQ(completed("chromahost run --check", 2), "--check-leaks\n");
    EXPECT_EQ(completed("chromahost run --without newM", 3), "newMemoryBlock\n");
}

TEST(CommandLine, SaysWhatIsWrong) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"", 2, "chromahost: A command (--help lists them) is required\n"},
        {"records --foo", 2, "chromahost: The following argument was not expected: --foo\n"},
        {"run", 2, "chromahost: a program is required: FILE, - or -e TEXT\n"},
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
