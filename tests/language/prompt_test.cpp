// The interactive prompt, without a terminal.
#include "programs.h"

#include "model/objects.h"
#include "repl/completion.h"
#include "repl/presentation.h"
#include "repl/repl.h"

#include <fstream>
#include <sstream>
#include <utility>

namespace {

using host::repl::ColorDepth;
using host::repl::Line;

// Reads lines from a text, in which "^C" represents that key. The screen shows the typed text.
class TextReader final : public host::repl::LineReader {
public:
    TextReader(const std::string& text, std::ostream& screen) : lines_(text), screen_(screen) {}
    Line read(const char* prompt) override {
        std::string line;
        if (!std::getline(lines_, line)) return {Line::End::input, {}};
        screen_ << prompt << line << "\n";
        if (line == "^C") return {Line::End::interrupted, {}};
        return {Line::End::entered, line};
    }
    void remember(const std::string& entry) override { remembered += entry + ";"; }
    std::string remembered;

private:
    std::istringstream lines_;
    std::ostream& screen_;
};

void expectSession(const std::string& typed, const std::string& shown) {
    const std::size_t objects = host::liveObjectCount();
    std::ostringstream screen;
    TextReader reader(typed, screen);
    host::repl::runPrompt(reader, screen, screen, ColorDepth::none);
    EXPECT_EQ(screen.str(), shown);
    EXPECT_EQ(host::liveObjectCount(), objects);
}

// The text after the prompts is typed, and the screen must show the file's text. Empty lines separate sessions.
TEST(Prompt, ReproducesTheSessions) {
    startHostWithProbe();
    std::ifstream file(CHROMA_PROGRAMS "/sessions.txt");
    ASSERT_TRUE(file.is_open());
    std::string typed, shown;
    for (std::string line; std::getline(file, line);) {
        if (line.empty()) {
            expectSession(std::exchange(typed, ""), std::exchange(shown, ""));
        } else if (line[0] != '#') {
            if (line.substr(1, 1) == " " && (line[0] == '>' || line[0] == '|')) typed += line.substr(2) + "\n";
            shown += line + "\n";
        }
    }
    expectSession(typed, shown);
}

TEST(Prompt, RemembersABlockAsOneEntry) {
    startHostWithProbe();
    std::ostringstream screen;
    TextReader reader("If True Then\nEnd If\n1\n\n:help\nWhile True\nPrint 2\n^C\nDo", screen);
    host::repl::runPrompt(reader, screen, screen, ColorDepth::none);
    EXPECT_EQ(reader.remembered, "If True Then\nEnd If;1;:help;While True\nPrint 2;Do;");
}

// Returns the prompt's output for an expression.
std::string presented(const std::string& declarations, const std::string& expression, ColorDepth depth) {
    startHostWithProbe();
    std::ostringstream screen, output, errors;
    TextReader reader(declarations + "\n" + expression, screen);
    host::repl::runPrompt(reader, output, errors, depth);
    EXPECT_EQ(errors.str(), "");
    return output.str();
}

TEST(Prompt, ShortensLongArraysAndExitsOnQuit) {
    const std::string many = presented("", "Split(Repeat(\"a\", 102), \"\")", ColorDepth::none);
    EXPECT_EQ(many.substr(many.size() - 36), "\"a\", \"a\", \"a\", and 2 elements more)\n");
    EXPECT_EQ(presented(":quit", "1", ColorDepth::none), "");
}

// Colours as a screen shows them. "redColor" is in a different colour space, and transparent colours show a checkerboard.
TEST(Prompt, ShowsColorsLikeThePictures) {
    startHostWithPlugins();
    const auto shown = [](const char* expression, ColorDepth depth) {
        const std::string text = presented("", expression, depth);
        return text.substr(0, text.rfind("\x1B[0m "));
    };
    const std::string half = "\x1B[48;2;255;127;127m  \x1B[48;2;128;0;0m  ";
    EXPECT_EQ(shown("RGB(255, 0, 0, 128)", ColorDepth::direct), half);
    EXPECT_EQ(shown("RGB(255, 0, 0, 255)", ColorDepth::indexed), "\x1B[48;5;196m    ");
    EXPECT_EQ(shown("RGB(130, 127, 128, 255)", ColorDepth::indexed), "\x1B[48;5;244m    ");
    EXPECT_EQ(shown("NSColorZRX.redColor", ColorDepth::direct), "\x1B[48;2;255;39;0m    ");
    const std::string clear = "\x1B[48;2;255;255;255m  \x1B[48;2;0;0;0m  ";
    EXPECT_EQ(shown("NSColorZRX.clearColor", ColorDepth::direct), clear);
    const std::string row = presented("", "Array(NSColorZRX.blackColor, NSColorZRX.redColor)", ColorDepth::direct);
    EXPECT_EQ(row.rfind("NSColorZRX() with 2 elements\n  0  \x1B[48;2;0;0;0m    \x1B[0m ", 0), 0u) << row;
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

TEST(Prompt, CompletesNamesAndShowsParameters) {
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
    EXPECT_EQ(completed("probes."), "Add Append Count IndexOf Insert Pop Remove Reverse Slice Sort SortBy ");
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
    EXPECT_EQ(completed(":help Le"), "Left Len LenB ");
    EXPECT_EQ(completed(":browse Probe k"), "kAnswer kName ");
    EXPECT_EQ(completed(":quit P"), "");

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
