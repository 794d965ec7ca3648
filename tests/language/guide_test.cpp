// Every program of the user's pages prints what the page says.
#include "programs.h"

#include <fstream>
#include <sstream>

namespace {

// The lines of the fenced block that starts at the line; empty when there is none of the kind.
std::string fencedBlock(std::istream& lines, const std::string& fence) {
    std::string text;
    for (std::string line; std::getline(lines, line) && line != "```";)
        if (line != fence) text += line + "\n";
    return text;
}

// How many programs the page has.
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

TEST(Guide, ProgramsPrintWhatItSays) { EXPECT_GE(runProgramsOf(CHROMA_PAGES "/language.md"), 6); }

#ifdef CHROMA_BUILTIN // which has all of AppKit's spaces
TEST(Guide, ProgramsAboutColoursPrintWhatItSays) { EXPECT_GE(runProgramsOf(CHROMA_PAGES "/colours.md"), 8); }
#endif

} // namespace
