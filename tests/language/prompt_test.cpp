// The interactive prompt, without a terminal.
#include "programs.h"

#include "model/objects.h"
#include "repl/completion.h"
#include "repl/presentation.h"
#include "repl/repl.h"

#include <sstream>

namespace {

using host::repl::Line;

// Lines from a text, in which "^C" stands for that key.
class TextReader final : public host::repl::LineReader {
public:
    explicit TextReader(const std::string& text) : lines_(text) {}
    Line read(const char* prompt) override {
        prompts += prompt;
        std::string line;
        if (!std::getline(lines_, line)) return {Line::End::input, {}};
        if (line == "^C") return {Line::End::interrupted, {}};
        return {Line::End::entered, line};
    }
    void remember(const std::string& entry) override { remembered += entry + ";"; }
    std::string prompts, remembered;

private:
    std::istringstream lines_;
};

struct Typed {
    const char* name;
    const char* input;
    const char* output;
    const char* errors;
};

const Typed typed[] = {
    {"ValuesOfExpressions",
     "1 + 2\n\"a\" & \"b\"\nDim i As Integer = 5\ni\ni - 1\n-i\nNot True\ni = 6\ni * 2\nArray(1, 2)\nNil",
     "3\nab\n5\n4\n-5\nFalse\n12\n(1, 2)\nNil\n", ""},
    {"ObjectsAndCalls",
     "Dim p As New Probe(4)\np.number\np\nDim d, e As Double\np.split d, e\ne\nDim v() As Double\nv.Append 1\nv",
     "4\nprobe 4\n2\n(1)\n", ""},
    {"BlocksUntilTheyAreClosed", "For i As Integer = 1 To 2\nIf i = 2 Then\nPrint i\nEnd If\nNext\nPrint 1 + _\n2", "2\n3\n",
     ""},
    {"ProceduresStay",
     "Function Twice(n As Integer) As Integer\nReturn n * 2\nEnd Function\nTwice(4)\nFunction Twice(n As Integer) As "
     "Integer\nReturn n * 3\nEnd Function\nTwice(4)",
     "8\n12\n", ""},
    {"ErrorsEndTheStatementOnly", "Dim a As Integer = 1\nb\nDim c As Integer = \"x\"\nDim c As Integer = 1 \\ 0\na\nc",
     "1\n0\n",
     "prompt:2:1: error: there is no variable 'b'\nb\n^\n"
     "prompt:3:20: error: this is of type String, but Integer is needed here\nDim c As Integer = \"x\"\n                   ^\n"
     "prompt:4:22: uncaught DivideByZeroException: Division by zero.\nDim c As Integer = 1 \\ 0\n                     ^\n"},
    {"BadTextIsForgotten", "Print \"\xC3(\"\nPrint 2", "2\n",
     "prompt:1:8: error: a program is UTF-8 text, and this byte is no part of any\nPrint \"?(\"\n       ^\n"},
    {"NamesDeclaredAgain",
     "Dim a As New Probe(1)\nDim a As String = \"x\"\na\nSub f()\nEnd Sub\nSub f(n As Missing)\nEnd Sub\nf", "x\n",
     "prompt:6:12: error: there is no type 'Missing'\nSub f(n As Missing)\n           ^\n"},
    {"Interrupted", "While True\n^C\n1", "1\n", ""},
    {"InputEndsInABlock", "If True Then\nPrint 1", "",
     "prompt:1:1: error: this If block is never closed: 'End If' is missing\nIf True Then\n^\n"},
    {"Commands", ":quit\n1", "", ""},
    {"UnknownCommand", ":x\n:browse Nowhere", "", "there is no command :x; :help lists them\n"},
};

TEST(Prompt, Sessions) {
    startHostWithProbe();
    for (const Typed& session : typed) {
        SCOPED_TRACE(session.name);
        const std::size_t objects = host::liveObjectCount();
        TextReader reader(session.input);
        std::ostringstream output, errors;
        EXPECT_EQ(host::repl::runPrompt(reader, output, errors, false), std::string(session.errors).empty());
        EXPECT_EQ(output.str(), session.output);
        EXPECT_EQ(errors.str().substr(0, std::string(session.errors).size()), session.errors);
        EXPECT_EQ(errors.str().empty(), std::string(session.errors).empty()) << errors.str();
        EXPECT_EQ(host::liveObjectCount(), objects);
    }
}

TEST(Prompt, AsksForTheRestOfABlockAndRemembersItWhole) {
    startHostWithProbe();
    TextReader reader("If True Then\nEnd If\n1\n\n:help\nWhile True\nPrint 2\n^C\nDo");
    std::ostringstream output;
    host::repl::runPrompt(reader, output, output, false);
    EXPECT_EQ(reader.prompts, "> | > > > > | | > | ");
    EXPECT_EQ(reader.remembered, "If True Then\nEnd If;1;:help;While True\nPrint 2;Do;");
}

TEST(Prompt, SwatchesOfColours) {
    std::ostringstream output;
    host::repl::ValuePresenter(output, true).present({host::Kind::Color, false, {}}, host::Slot::ofColor(0x80FF8001));
    EXPECT_EQ(output.str(), "\x1B[48;2;255;128;1m    \x1B[0m &h80FF8001\n");
}

TEST(Prompt, Completion) {
    startHostWithProbe();
    std::ostringstream output;
    host::repl::ValuePresenter presenter(output, false);
    host::language::Session session("prompt", output, presenter);
    ASSERT_EQ(session.run("Dim probes() As Probe\nDim probing As New Probe(1)\nSub Probed()\nEnd Sub\n"), "");
    const auto completed = [&](const char* line) {
        std::string joined;
        for (const std::string& name : host::repl::completions(session, line))
            joined += name + " ";
        return joined;
    };
    EXPECT_EQ(completed("Print prob"), "Probe Probed probes probing ");
    EXPECT_EQ(completed("probing.succ"), "successor ");
    EXPECT_EQ(completed("Print 1 + Probe.make(1).successor.n"), completed("probing.n"));
    EXPECT_NE(completed("probing.n").find("Number "), std::string::npos);
    EXPECT_EQ(completed("Print Probe.k"), "kAnswer kName ");
    EXPECT_EQ(completed("probes.A"), "Add Append ");
    EXPECT_EQ(completed("probes(0).des"), "description ");
    EXPECT_EQ(completed("Wen"), "Wend ");
    EXPECT_EQ(completed("nothing.x"), "");
}

} // namespace
