// Every program on the user's pages prints the output that the page shows, and no example causes a warning.
#include "programs.h"

#include "language/language.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

// Returns the lines of the next fenced block.
std::string fencedBlock(std::istream& lines, const std::string& fence) {
    std::string text;
    for (std::string line; std::getline(lines, line) && line != "```";)
        if (line != fence) text += line + "\n";
    return text;
}

// Runs the page's programs, compares their output, and returns their number.
int runProgramsOf(const char* page) {
    startHostWithPlugins();
    std::ifstream guide(page);
    int programs = 0;
    for (std::string line; std::getline(guide, line);) {
        if (line != "```basic") continue;
        const std::string program = fencedBlock(guide, "```basic");
        const std::string output = fencedBlock(guide, "```text");
        const Outcome outcome = runProgram(program);
        EXPECT_EQ(outcome.output, output) << program;
        EXPECT_EQ(outcome.errors, "") << program;
        ++programs;
    }
    return programs;
}

TEST(Guide, ExamplesCauseNoWarning) {
    startHostWithPlugins();
    std::size_t programs = 0;
    std::ostringstream warnings;
    for (const char* const folder : {"/../examples", "/../benchmarks", "/../tests/programs"}) {
        for (const auto& entry : std::filesystem::directory_iterator(std::string(CHROMA_PAGES) + folder)) {
            if (entry.path().extension() != ".bas") continue;
            std::ostringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            EXPECT_EQ(host::language::checkText(entry.path().filename(), text.str(), warnings), 0) << entry.path();
            ++programs;
        }
    }
    EXPECT_GT(programs, 10u);
    EXPECT_EQ(warnings.str(), "");
}

TEST(Guide, ColorsBuiltFromColorValueCauseAWarning) {
    startHostWithPlugins();
    const Outcome outcome = runProgram("Dim c As New NSColorZRX(NSColorZRX.redColor.colorValue)\n"
                                       "Print c.alphaComponent, New NSColorZRX(c.colorValue).alphaComponent\n");
    const std::string warning = ": warning: this creates an invisible colour: colorValue leaves the fourth byte 0, ";
    EXPECT_EQ(outcome.errors.find("test.bas:1:45" + warning), 0u) << outcome.errors;
    EXPECT_NE(outcome.errors.find("test.bas:2:42" + warning), std::string::npos) << outcome.errors;
    EXPECT_EQ(runProgram("Dim v As Color = NSColorZRX.redColor.colorValue\nPrint New NSColorZRX(v).alphaComponent\n").errors,
              "");
    EXPECT_EQ(outcome.output, "0 0\n");
}

TEST(Guide, LanguagePageShowsTheOutputOfItsPrograms) { EXPECT_GE(runProgramsOf(CHROMA_PAGES "/language.md"), 6); }

TEST(Guide, ColoursPageShowsTheOutputOfItsPrograms) { EXPECT_GE(runProgramsOf(CHROMA_PAGES "/colours.md"), 8); }

} // namespace
