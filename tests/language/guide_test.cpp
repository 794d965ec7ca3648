// Every program of the user guide prints what the guide says.
#include "programs.h"

#include "model/plugin.h"

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

TEST(Guide, ProgramsPrintWhatItSays) {
    startHostWithProbe();
    host::loadPlugin(CHROMA_PLUGIN);
    std::ifstream guide(CHROMA_GUIDE);
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
    EXPECT_GE(programs, 6);
}

} // namespace
