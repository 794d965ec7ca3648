// Presses the prompt's keys on a terminal.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

const std::string ctrlC = "\x03", ctrlD = "\x04", ctrlR = "\x12", ctrlZ = "\x1A", escape = "\x1B";
const std::string tab = "\t", up = "\x1B[A";

// Runs a program on a new terminal of 80 by 24 characters. The history is in the given folder.
class Terminal {
public:
    Terminal(const std::filesystem::path& state, std::vector<std::string> command) {
        winsize size = {24, 80, 0, 0};
        program_ = forkpty(&terminal_, nullptr, nullptr, &size);
        if (program_ != 0) return;
        setenv("XDG_STATE_HOME", state.c_str(), 1);
        setenv("TERM", "xterm", 1);
        setenv("NO_COLOR", "1", 1);
        setenv("INPUTRC", "/dev/null", 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("PAGER", "sed 's/^/paged: /'", 1);
        // the line editor leaks a little when it is left in the middle of a line
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        std::vector<char*> arguments;
        for (std::string& word : command)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    explicit Terminal(const std::filesystem::path& state) : Terminal(state, {CHROMAHOST, "repl"}) { await("> "); }
    ~Terminal() {
        if (program_ > 0) {
            kill(program_, SIGKILL);
            waitpid(program_, nullptr, 0);
        }
        close(terminal_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(const std::string& keys) const {
        ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    // Waits until the program has written the text, after the text that was awaited before.
    void await(const std::string& text) {
        for (;;) {
            const std::size_t at = shown_.find(text, seen_);
            if (at != std::string::npos) {
                seen_ = at + text.size();
                return;
            }
            ASSERT_TRUE(receive()) << "'" << text << "' was not printed. The complete output:\n" << shown_;
        }
    }

    // Types a statement and waits for its value. The typed text does not suffice, because the terminal echoes it.
    void expect(const std::string& statement, const std::string& value) {
        type(statement + "\n");
        await("\n" + value + "\n");
        await("> ");
    }

    void signal(int number) const { kill(program_, number); }

    // Waits for the program's exit and returns its status from waitpid.
    int ended() {
        while (receive()) {
        }
        if (!closed_) {
            ADD_FAILURE() << "the program does not exit. The complete output:\n" << shown_;
            kill(program_, SIGKILL);
        }
        int status = 0;
        EXPECT_EQ(waitpid(program_, &status, 0), program_);
        program_ = -1;
        return status;
    }

    bool readsLines() const {
        termios modes = {};
        return tcgetattr(terminal_, &modes) == 0 && (modes.c_lflag & ICANON) != 0 && (modes.c_lflag & ECHO) != 0;
    }

    // Returns the output so far, without carriage returns and sequences that move the cursor or set colours.
    const std::string& shown() const { return shown_; }

private:
    // Reads more output. Returns false at the end of the output or after a time-out.
    bool receive() {
        constexpr int patience = 30'000;
        pollfd ready = {terminal_, POLLIN, 0};
        char buffer[4096];
        if (poll(&ready, 1, patience) != 1) return false;
        const ssize_t count = read(terminal_, buffer, sizeof buffer);
        for (ssize_t i = 0; i < count; ++i)
            show(buffer[i]);
        closed_ = count <= 0;
        return !closed_;
    }
    void show(char c) {
        if (inSequence_) {
            inSequence_ = c == '[' || c == '?' || c == ';' || (c >= '0' && c <= '9');
        } else if (c == '\x1B') {
            inSequence_ = true;
        } else if (c != '\r' && c != '\a') {
            shown_ += c;
        }
    }

    int terminal_ = -1;
    pid_t program_ = -1;
    std::string shown_;
    std::size_t seen_ = 0;
    bool inSequence_ = false;
    bool closed_ = false;
};

class Keys : public testing::Test {
protected:
    Keys() {
        std::string pattern = testing::TempDir() + "/keysXXXXXX";
        state = mkdtemp(pattern.data());
    }
    ~Keys() override { std::filesystem::remove_all(state); }
    std::filesystem::path state;
};

TEST_F(Keys, CtrlCDiscardsOnlyTheLine) {
    Terminal terminal(state);
    terminal.expect("100 + 1", "101");
    struct {
        std::string keys, shown;
    } const before[] = {
        {"99", "99"},                                     // a line
        {ctrlR + "100", "100 + 1"},                       // a search in the history
        {escape + "1", "(arg: 1)"},                       // a repeat count for the next key
        {"Print " + tab + tab, "(y or n)"},               // a question
        {"If True Then\nPrint 98\n", "\n| Print 98\n| "}, // a block
    };
    int next = 200;
    for (const auto& [keys, shown] : before) {
        terminal.type(keys);
        terminal.await(shown);
        terminal.type(ctrlC);
        terminal.await("\n> ");
        ++next;
        terminal.expect("-1 + " + std::to_string(next), std::to_string(next - 1));
    }
    terminal.type("If True Then\nPrint 5 * 101\nWhile True\nWend\nEnd If\n");
    terminal.await("505");
    terminal.type(ctrlC);
    terminal.await("interrupted");
    terminal.expect("9 * 9", "81");
    terminal.type(ctrlD);
    EXPECT_EQ(terminal.ended(), 0);
    EXPECT_EQ(terminal.shown().find("98\n99"), std::string::npos);
}

// This also holds if the key is pressed just before the program waits, and no Catch handles it.
TEST_F(Keys, CtrlCInterruptsAProgramThatWaitsForInput) {
    for (const char* const question :
         {"Write \"name? \"",
          "Dim t As String = Repeat(\"x\", 50000000) : Print \"name? \" : Write Len(Trim(t) & Trim(t))"}) {
        Terminal terminal(state, {CHROMAHOST, "run", "-e", "Try", "-e", question, "-e", "Print Input", "-e", "Catch", "-e",
                                  "Print \"caught\"", "-e", "Finally", "-e", "Print \"finally\"", "-e", "End Try"});
        terminal.await("name? ");
        terminal.type(ctrlC);
        const int status = terminal.ended();
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
        EXPECT_NE(terminal.shown().find("-e:3:7: interrupted\n"), std::string::npos);
        EXPECT_EQ(terminal.shown().find("caught"), std::string::npos);
        EXPECT_EQ(terminal.shown().find("finally"), std::string::npos);
    }
    Terminal prompt(state);
    prompt.type("Write \"name? \" : Print Input\n");
    prompt.await("\nname? ");
    prompt.type(ctrlC);
    prompt.await("interrupted\n> ");
    prompt.expect("41 + 3\b1", "42"); // the line can be edited
    prompt.type("Write \"again? \" : Print Input & 5\n");
    prompt.await("\nagain? ");
    prompt.type("answer\n");
    prompt.await("answer\nanswer5\n> ");
}

TEST_F(Keys, CtrlZSuspendsAndFgResumesThePrompt) {
    Terminal terminal(state, {"sh", "-c", "set -m; '" CHROMAHOST "' repl; echo stopped; read answer; fg"});
    terminal.await("> ");
    terminal.type("12 + 30");
    terminal.await("12 + 30");
    terminal.type(ctrlZ);
    terminal.await("stopped");
    EXPECT_TRUE(terminal.readsLines());
    terminal.type("\n");
    terminal.await("12 + 30"); // drawn again
    EXPECT_FALSE(terminal.readsLines());
    terminal.type("\b\b4\n");   // the line can still be edited
    terminal.await("\n16\n> "); // Ctrl-D is a key from here on
    terminal.type(ctrlD);
    EXPECT_EQ(terminal.ended(), 0);
}

TEST_F(Keys, TheHistorySurvivesASignalAndStoresBlocksAsOneEntry) {
    {
        Terminal terminal(state);
        terminal.type("For i As Integer = 1 To 2\nPrint i * 111\nNext\n");
        terminal.await("\n222\n> ");
        terminal.type("left"); // unfinished
        terminal.await("left");
        terminal.signal(SIGTERM);
        const int status = terminal.ended();
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
        EXPECT_TRUE(terminal.readsLines());
    }
    Terminal terminal(state), other(state);
    other.expect("700 + 7", "707");
    terminal.type(up + "\n");
    terminal.await("\n111\n222\n> ");
    terminal.type(":quit\n");
    EXPECT_EQ(terminal.ended(), 0);
    other.type(ctrlD);
    EXPECT_EQ(other.ended(), 0);
    Terminal after(state);
    // In a block of three lines, two of the keys move within the block. They lead back over :quit, the block and the sum to
    // the block's first entry.
    const std::string overBlock = up + up + up;
    after.type(up + overBlock + up + up + "\n");
    after.await("\n111\n222\n> ");
    after.type(overBlock + up + overBlock + up + "\n");
    after.await("\n707\n");
}

TEST_F(Keys, TabCompletesIndentsAndShowsParameters) {
    Terminal terminal(state);
    terminal.type("Dim counter As Integer = 5\nIf True Then\n" + tab + "Pri" + tab + " Len(");
    terminal.await("\n|   Print Len(");
    terminal.type(tab);
    terminal.await("\nLen(text as string) as integer\n|   Print Len(");
    terminal.type("\"a" + tab + "b\") + coun" + tab + "\nEnd If\n");
    terminal.await("\n7\n> ");
    terminal.type(":qu" + tab + "\n");
    EXPECT_EQ(terminal.ended(), 0);
}

TEST_F(Keys, LongPagesUseThePagerAndQuitExplainsHowToLeave) {
    Terminal terminal(state);
    terminal.type(":browse Len\n:browse NSColorZRX\n");
    terminal.await("\n  Len(text as string) as integer\n");
    terminal.await("\npaged: NSColorZRX\n");
    terminal.await("\n> ");
    terminal.type("exit\nQuit\n");
    terminal.await("To leave: :quit");
    terminal.await("To leave: :quit");
    terminal.type(":quit\n");
    EXPECT_EQ(terminal.ended(), 0);
}

} // namespace
