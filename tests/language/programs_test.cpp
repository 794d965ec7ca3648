// Runs the program files in this folder. Those in programs/ contain their expected output. Those in wrong/ end with the
// expected reports. Line ends are tested here, because an editor would change them in a file.
#include "programs.h"

#include "language/words.h"
#include "text/characters.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>

namespace {

using Paths = std::vector<std::string>;

Paths filesIn(const char* folder) {
    Paths paths;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(CHROMA_PROGRAMS "/") + folder))
        paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

class PrintedPrograms : public testing::TestWithParam<std::string> {};
class WrongPrograms : public testing::TestWithParam<std::string> {};
const auto nameOfFile = [](const auto& file) { return std::filesystem::path(file.param).stem().string(); };
INSTANTIATE_TEST_SUITE_P(Files, PrintedPrograms, testing::ValuesIn(filesIn("programs")), nameOfFile);
INSTANTIATE_TEST_SUITE_P(Files, WrongPrograms, testing::ValuesIn(filesIn("wrong")), nameOfFile);

bool isWarning(const std::string& message) { return message.rfind("warning", 0) == 0; }

// Returns the report of a message about the place between `before` and `rest`, which ends its line. The calls around an
// exception follow.
std::string report(const std::string& before, const std::string& rest, const std::string& message) {
    const std::size_t start = before.rfind('\n') + 1;
    std::string caret;
    for (const char c : before.substr(start)) {
        const bool continuesCharacter = (c & 0xC0) == 0x80;
        if (!continuesCharacter) caret += c == '\t' ? '\t' : ' ';
    }
    const bool uncaught = message.rfind("uncaught", 0) == 0;
    const std::size_t end = uncaught ? std::min(message.find('\n'), message.size()) : message.size();
    const std::string calls = end < message.size() ? message.substr(end + 1) + "\n" : "";
    std::ostringstream text;
    text << "test.bas:" << std::count(before.begin(), before.end(), '\n') + 1 << ":" << caret.size() + 1 << ": "
         << (uncaught || isWarning(message) ? "" : "error: ") << message.substr(0, end) << "\n"
         << before.substr(start) << rest << "\n"
         << caret << "^\n"
         << calls;
    return text.str();
}

void expectReports(std::string program, const std::vector<std::string>& messages) {
    SCOPED_TRACE(program);
    std::string expected;
    for (const std::string& message : messages) {
        const std::size_t place = program.find('@');
        program.erase(place, 1);
        std::string rest = program.substr(place, program.find('\n', place) - place);
        rest.erase(std::remove(rest.begin(), rest.end(), '@'), rest.end());
        expected += report(program.substr(0, place), rest, message);
    }
    const Outcome outcome = runProgram(program);
    EXPECT_EQ(outcome.errors, expected);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.exitCode, std::all_of(messages.begin(), messages.end(), isWarning) ? 0 : 1);
}

} // namespace

// The line that a statement prints follows "'> ". Several lines are separated by " | ". The lines are in the order of the
// output.
TEST_P(PrintedPrograms, PrintTheirExpectedOutput) {
    std::ifstream file(GetParam());
    std::string program, expected;
    for (std::string line; std::getline(file, line); program += line + "\n") {
        std::size_t start = line.find("'> ");
        while (start != std::string::npos) {
            start += 3;
            const std::size_t end = line.find(" | ", start);
            expected += line.substr(start, end - start) + "\n";
            start = end;
        }
    }
    const Outcome outcome = runProgram(program);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, expected);
    EXPECT_EQ(outcome.exitCode, 0);
}

// "@" marks each reported place. The messages follow "'! ", in the order of the places. Their further lines follow "'| ",
// and an empty line ends the list. A message that begins with "uncaught" reports an exception. One that begins with
// "warning" does not prevent the run. Any other message is an error found before the start. The programs print nothing.
TEST_P(WrongPrograms, ProduceTheReportsListedBelowThem) {
    std::ifstream file(GetParam());
    std::string program;
    std::vector<std::string> messages;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("'! ", 0) == 0) {
            messages.push_back(line.substr(3));
        } else if (line.rfind("'| ", 0) == 0) {
            messages.back() += "\n" + line.substr(3);
        } else if (messages.empty()) {
            program += (program.empty() ? "" : "\n") + line;
        } else {
            EXPECT_EQ(line, "");
            expectReports(program, messages);
            program.clear();
            messages.clear();
        }
    }
    EXPECT_EQ(program, "");
}

TEST(Programs, UseEveryFunctionOfTheLanguage) {
    Paths paths = filesIn("programs");
    paths.push_back(CHROMA_PROGRAMS "/../host/transcripts/running.txt");
    std::set<std::string, host::LessIgnoringCase> used;
    for (const std::string& path : paths) {
        std::ifstream file(path);
        const bool isProgram = path.substr(path.find_last_of('.')) == ".bas";
        for (std::string line; std::getline(file, line);) {
            if (isProgram) line.resize(std::min(line.find('\''), line.size())); // without comments and expected output
            std::string word;
            for (const char c : line + '\n') {
                if (host::isNamePart(c)) {
                    word += c;
                } else {
                    used.insert(std::exchange(word, {}));
                }
            }
        }
    }
    for (const host::language::Word& word : host::language::words())
        EXPECT_TRUE(word.kind != host::language::WordKind::function || used.count(std::string(word.name))) << word.name;
}

TEST(Statements, AllowCommentsContinuationsAndAnyLineEnd) {
    const std::pair<const char*, const char*> cases[] = {
        {"' first\n// second\nRem third\nPrint 1 ' behind\nPrint 8 / 2 // behind\nPrint \"'//Rem\" Rem behind\n",
         "1\n4\n'//Rem\n"},
        {"Dim remark As Integer = 5 : Print remark", "5\n"},
        {"Print 1 + _\n  2, _ ' with a comment\n  3\r\nPrint 4 _\r\n + 5", "3 3\n9\n"},
        {"Print 1\rPrint 2\r\nPrint 3\n\n\n", "1\n2\n3\n"},
        {"\xEF\xBB\xBFPrint 1", "1\n"},
        {"", ""}};
    for (const auto& [program, output] : cases)
        EXPECT_EQ(runProgram(program).output, output) << program;
}
