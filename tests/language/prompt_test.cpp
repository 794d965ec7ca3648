// The interactive prompt, without a terminal.
#include "programs.h"

#include "model/objects.h"
#include "repl/completion.h"
#include "repl/presentation.h"
#include "repl/repl.h"

#include <sstream>

namespace {

using host::repl::ColorDepth;
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
     "3\n\"ab\"\n5\n4\n-5\nFalse\n12\n(1, 2)\nNil\n", ""},
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
    {"CallsAreTold", "Sub Fail()\nPrint 1 \\ 0\nEnd Sub\n  Fail", "",
     "prompt:2:9: uncaught DivideByZeroException: Division by zero.\nPrint 1 \\ 0\n        ^\n"
     "called from prompt:4:3:   Fail\n"},
    {"BadTextIsForgotten", "Print \"\xC3(\"\nPrint 2", "2\n",
     "prompt:1:8: error: a program is UTF-8 text, and this byte is no part of any\nPrint \"?(\"\n       ^\n"},
    {"NamesDeclaredAgain",
     "Dim a As New Probe(1)\nDim a As String = \"x\"\na\nSub f()\nEnd Sub\nSub f(n As Missing)\nEnd Sub\nf", "\"x\"\n",
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
        EXPECT_EQ(host::repl::runPrompt(reader, output, errors, ColorDepth::none), std::string(session.errors).empty());
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
    host::repl::runPrompt(reader, output, output, ColorDepth::none);
    EXPECT_EQ(reader.prompts, "> | > > > > | | > | ");
    EXPECT_EQ(reader.remembered, "If True Then\nEnd If;1;:help;While True\nPrint 2;Do;");
}

// What the prompt shows of an expression.
std::string presented(const std::string& declarations, const std::string& expression, ColorDepth depth) {
    startHostWithProbe();
    TextReader reader(declarations + "\n" + expression);
    std::ostringstream output, errors;
    host::repl::runPrompt(reader, output, errors, depth);
    EXPECT_EQ(errors.str(), "");
    return output.str();
}

TEST(Prompt, ShowsWhatValuesAre) {
    const std::pair<const char*, const char*> values[] = {
        {"\"say \"\"hi\"\"\" & Chr(27) & \"[1m\" & Chr(10)", "\"say \"\"hi\"\"\" & Chr(27) & \"[1m\" & Chr(10)\n"},
        {"Array(Chr(9), \"\")", "(Chr(9), \"\")\n"},
        {"New RuntimeException(\"no zero\", 7)", "RuntimeException 7: no zero\n"},
        {"(New FolderItem(\"/tmp\")).Child(\"x\")", "FolderItem /tmp/x\n"},
        {"Probe.row(2)", "Probe() with 2 elements\n  0  probe 0\n  1  probe 1\n"},
        {"Probe.echo(\"held\")", "\"held\"\n"},
        {"Split(Repeat(\"a\", 102), \"\").Count", "102\n"}};
    for (const auto& [expression, shown] : values)
        EXPECT_EQ(presented("", expression, ColorDepth::none), shown);
    const std::string many = presented("", "Split(Repeat(\"a\", 102), \"\")", ColorDepth::none);
    EXPECT_EQ(many.substr(many.size() - 36), "\"a\", \"a\", \"a\", and 2 elements more)\n");
}

// Colours as a screen shows them: "redColor" lies in a space of its own, and what is transparent lets a checkerboard
// through.
TEST(Prompt, ShowsColoursAsPicturesDo) {
    startHostWithPlugins();
    const auto shown = [](const char* expression, ColorDepth depth) {
        const std::string text = presented("", expression, depth);
        return text.substr(0, text.rfind("\x1B[0m "));
    };
    const std::string half = "\x1B[48;2;255;127;127m  \x1B[48;2;128;0;0m  ";
    EXPECT_EQ(shown("RGB(255, 0, 0, 128)", ColorDepth::direct), half);
    EXPECT_EQ(shown("RGB(255, 0, 0, 255)", ColorDepth::indexed), "\x1B[48;5;196m    ");
    EXPECT_EQ(shown("RGB(130, 127, 128, 255)", ColorDepth::indexed), "\x1B[48;5;244m    ");
#ifdef CHROMA_BUILTIN
    EXPECT_EQ(shown("NSColorZRX.redColor", ColorDepth::direct), "\x1B[48;2;255;39;0m    ");
    const std::string clear = "\x1B[48;2;255;255;255m  \x1B[48;2;0;0;0m  ";
    EXPECT_EQ(shown("NSColorZRX.clearColor", ColorDepth::direct), clear);
    const std::string row = presented("", "Array(NSColorZRX.blackColor, NSColorZRX.redColor)", ColorDepth::direct);
    EXPECT_EQ(row.rfind("NSColorZRX() with 2 elements\n  0  \x1B[48;2;0;0;0m    \x1B[0m ", 0), 0u) << row;
#endif
    const char* const list =
        "Dim l As New NSColorListZRX\nIf l.Create(\"Signals\") Then l.setColor New NSColorZRX(1, 1, 1), \"on\"";
    EXPECT_EQ(presented(list, "l", ColorDepth::direct)
                  .rfind("NSColorListZRX Signals with 1 element\n  \"on\"  \x1B[48;2;255;255;255m    \x1B[0m ", 0),
              0u);
    EXPECT_EQ(presented(list, "Array(l)", ColorDepth::direct),
              "NSColorListZRX() with 1 element\n  0  NSColorListZRX Signals\n");
    EXPECT_EQ(presented("", "New NSColorListZRX", ColorDepth::direct), "NSColorListZRX\n");
    const std::string text = presented("Dim c As NSColorZRX = NSColorZRX.redColor", "c", ColorDepth::none);
    EXPECT_EQ(presented("Dim c As NSColorZRX = NSColorZRX.redColor", "Print c", ColorDepth::none), text);
    EXPECT_EQ(text, presented("", "Print NSColorZRX.redColor.description", ColorDepth::none));
}

TEST(Prompt, Completion) {
    startHostWithProbe();
    std::ostringstream output;
    host::repl::ValuePresenter presenter(output, ColorDepth::none);
    host::language::Session session("prompt", output, presenter);
    ASSERT_EQ(session.run("Dim probes() As Probe\nDim probing As New Probe(1)\nSub Probed()\nEnd Sub\n", std::cerr), "");
    const auto completed = [&](const char* text) {
        std::string joined;
        for (const std::string& name : host::repl::assist(session, text).names)
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
    EXPECT_EQ(completed("Print \"Pro"), "");
    EXPECT_EQ(completed("Print \"it's \"\"Pro\" & prob"), "Probe Probed probes probing ");
    EXPECT_EQ(completed("Print 1 ' Pro"), "");
    EXPECT_EQ(completed("Print 1 ' Pro\nPrint prob"), "Probe Probed probes probing ");
    EXPECT_EQ(completed("  :b"), "browse ");
    EXPECT_EQ(completed(":"), "browse help quit ");
    EXPECT_EQ(completed(":browse Ucas"), "");
    EXPECT_EQ(completed(":browse Le"), "Left Len LenB ");
    EXPECT_EQ(completed(":browse Probe k"), "kAnswer kName ");
    EXPECT_EQ(completed(":help P"), "");

    const auto noted = [&](const char* text) { return host::repl::assist(session, text).note; };
    EXPECT_EQ(noted("Print Len("), "Len(text as string) as integer");
    EXPECT_EQ(noted("Probed("), "Probed()");
    EXPECT_EQ(noted("Print Probe.sum(Len(\")\"), "), "sum(factor as double, paramarray values as double) as double\n"
                                                     "sum(factor as double, values() as double) as double");
    EXPECT_EQ(noted("Dim x As New Probe(").rfind("New Probe(number as integer)\nNew Probe(c as color)\n", 0), 0u);
    EXPECT_EQ(noted("Print probing.successor.split("), noted("probing.Split("));
    EXPECT_EQ(noted("Print Len(\"a\")"), "");
    EXPECT_EQ(noted("Print Len(pro"), "");
    EXPECT_EQ(noted("Print probes("), "");

    EXPECT_EQ(host::repl::assist(session, "").insertion, "  ");
    EXPECT_EQ(host::repl::assist(session, "If True Then\n  ").insertion, "  ");
    EXPECT_EQ(host::repl::assist(session, "Print ").insertion, "");
}

} // namespace
