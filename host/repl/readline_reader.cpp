#include "repl/line_reader.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include <readline/history.h>
#include <readline/readline.h>

namespace host::repl {
namespace {

volatile std::sig_atomic_t interrupted = 0;

// The library knows functions only, so what they work on is here.
Completer& completer() {
    static Completer current;
    return current;
}

// A key. Ctrl-C gives up the line, which then ends as if it had been entered empty.
int readKey(std::FILE*) {
    for (;;) {
        unsigned char key = 0;
        const ssize_t count = ::read(STDIN_FILENO, &key, 1);
        if (count == 1) return key;
        if (count == 0 || errno != EINTR) return EOF;
        if (!interrupted) continue;
        rl_replace_line("", 0);
        return '\n';
    }
}

char* nextMatch(const char*, int state) {
    static std::vector<std::string> matches;
    static std::size_t next;
    if (state == 0) {
        matches = completer()(std::string_view(rl_line_buffer, static_cast<std::size_t>(rl_point)));
        next = 0;
    }
    return next < matches.size() ? strdup(matches[next++].c_str()) : nullptr; // the library frees it
}

char** complete(const char* word, int, int) {
    rl_attempted_completion_over = 1; // no file names
    rl_completion_append_character = '\0';
    return rl_completion_matches(word, nextMatch);
}

std::filesystem::path historyFile() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    std::filesystem::path folder;
    if (state && *state == '/') {
        folder = state;
    } else if (home && *home) {
        folder = std::filesystem::path(home) / ".local" / "state";
    } else {
        return {};
    }
    return folder / "chromabridge" / "history";
}

class ReadlineReader final : public LineReader {
public:
    explicit ReadlineReader(Completer completes) : history_(historyFile()) {
        static char wordBreaks[] = " \t\n\"'()=<>+-*/\\^&,:.";
        completer() = std::move(completes);
        rl_readline_name = "chromahost";
        rl_catch_signals = 0;
        rl_getc_function = readKey;
        rl_attempted_completion_function = complete;
        rl_completer_word_break_characters = wordBreaks;
        rl_variable_bind("completion-ignore-case", "on");
        using_history();
        stifle_history(1000);
        if (!history_.empty()) read_history(history_.c_str());
    }
    ~ReadlineReader() override {
        std::error_code error;
        if (!history_.empty() && (std::filesystem::create_directories(history_.parent_path(), error), !error))
            write_history(history_.c_str());
        clear_history();
        completer() = nullptr;
    }
    ReadlineReader(const ReadlineReader&) = delete;
    ReadlineReader& operator=(const ReadlineReader&) = delete;

    Line read(const char* prompt) override {
        struct sigaction action = {};
        struct sigaction before = {};
        action.sa_handler = [](int) { interrupted = 1; };
        interrupted = 0;
        sigaction(SIGINT, &action, &before);
        const std::unique_ptr<char, void (*)(void*)> line(readline(prompt), std::free);
        sigaction(SIGINT, &before, nullptr);
        if (interrupted) return {Line::End::interrupted, {}};
        if (!line) {
            std::fputs("\n", stdout);
            return {Line::End::input, {}};
        }
        if (*line) add_history(line.get());
        return {Line::End::entered, line.get()};
    }

private:
    std::filesystem::path history_; // empty: none is kept
};

} // namespace

std::unique_ptr<LineReader> readlineReader(Completer completes) {
    return std::make_unique<ReadlineReader>(std::move(completes));
}

} // namespace host::repl
