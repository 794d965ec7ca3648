#include "repl/line_reader.h"

#include "repl/signals.h"
#include "text/utf8.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include <readline/history.h>
#include <readline/readline.h>

namespace host::repl {
namespace {

// The library's callbacks have no context parameter, so their data is here.
Assistant& assistant() {
    static Assistant current;
    return current;
}

sigjmp_buf beforeReading;

// Called while the library waits for a key, at any place in the library, after it has handled the pending signals.
int betweenKeys() {
    if (interrupted()) siglongjmp(beforeReading, 1); // jumps over frames of the library only
    if (takeContinued()) {
        rl_deprep_terminal(); // the shell has changed the terminal's settings for itself
        rl_prep_terminal(1);
        rl_forced_update_display();
    }
    return 0;
}

// Returns the line, which the caller frees. Returns null at the end of the input or if the user cancelled the line.
char* edit(const char* prompt) {
    if (sigsetjmp(beforeReading, 1) == 0) return readline(prompt);
    rl_free_line_state();
    rl_cleanup_after_signal();
    rl_readline_state &= RL_STATE_INITIALIZED; // ends a search, a question or an incomplete key sequence
    return nullptr;
}

Assistance assistance() { return assistant()(std::string_view(rl_line_buffer, static_cast<std::size_t>(rl_point))); }

char* nextMatch(const char*, int state) {
    static std::vector<std::string> matches;
    static std::size_t next;
    if (state == 0) {
        matches = assistance().names;
        next = 0;
    }
    return next < matches.size() ? strdup(matches[next++].c_str()) : nullptr; // the library frees it
}

char** complete(const char* word, int, int) {
    rl_attempted_completion_over = 1; // no file names
    rl_completion_append_character = '\0';
    return rl_completion_matches(word, nextMatch);
}

// Shows the note below the line and redraws the line.
void show(const std::string& note) {
    const int point = rl_point;
    rl_point = rl_end;
    rl_redisplay();
    std::fprintf(rl_outstream, "\n%s\n", note.c_str());
    rl_point = point;
    rl_forced_update_display();
}

// Handles the tab key. If it is pressed again after a note, it completes names.
int assistOrComplete(int count, int key) {
    const bool again = rl_last_func == assistOrComplete;
    const Assistance found = assistance();
    if (!found.insertion.empty()) {
        rl_insert_text(found.insertion.c_str());
    } else if (!found.note.empty() && !again) {
        show(found.note);
    } else if (!found.names.empty()) {
        if (again) rl_last_func = rl_complete; // so that rl_complete lists them
        return rl_complete(count, key);
    }
    return 0;
}

// Moves the cursor to the same column in the line above (-1) or below (1). Returns false if the entry has no such line.
bool moveToLine(int direction) {
    const std::string_view text(rl_line_buffer, static_cast<std::size_t>(rl_end));
    const auto startOf = [&](std::size_t at) { return at == 0 ? 0 : text.rfind('\n', at - 1) + 1; }; // the start of the line
    const auto point = static_cast<std::size_t>(rl_point);
    const std::size_t start = startOf(point), end = text.find('\n', point);
    if (direction < 0 ? start == 0 : end == std::string_view::npos) return false;
    const std::size_t target = direction < 0 ? startOf(start - 1) : end + 1;
    const std::size_t prompt = std::strlen(rl_display_prompt); // the prompt is before the first line only
    const std::size_t column = point - start + (start == 0 ? prompt : 0);
    const std::size_t wanted = target + column - (target == 0 ? std::min(prompt, column) : 0);
    rl_point = static_cast<int>(utf8::floor(text, std::min({wanted, text.find('\n', target), text.size()})));
    return true;
}

// Handle the Up and Down keys. They first move within an entry of several lines.
int upOrEarlier(int count, int key) { return moveToLine(-1) ? 0 : rl_get_previous_history(count, key); }
int downOrLater(int count, int key) { return moveToLine(1) ? 0 : rl_get_next_history(count, key); }

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

// The entries of earlier sessions and of this one. Each entry is written to the file immediately. So no entry is lost
// however the process ends, and the file has the entries of all concurrent prompts.
class History {
public:
    explicit History(const std::filesystem::path& file) : file_(file.string()) {
        constexpr int most = 1000;
        // In the file, a line with a time precedes each entry. The library uses it to separate entries of several lines. No
        // line of a program can begin with the character that marks it.
        history_comment_char = '\x1E';
        history_write_timestamps = 1;
        using_history();
        stifle_history(most);
        if (file_.empty()) return;
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        const int created = open(file_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (created >= 0) close(created);
        if (read_history(file_.c_str()) == 0 && needsRewriting()) write_history(file_.c_str());
    }
    ~History() { clear_history(); }
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    void add(const std::string& entry) const {
        add_history(entry.c_str());
        if (!file_.empty()) append_history(1, file_.c_str());
    }

private:
    // Returns whether the file has grown too long or was written without times.
    static bool needsRewriting() {
        HIST_ENTRY** const entries = history_list();
        return entries && (history_base > 1 || !entries[0]->timestamp || !*entries[0]->timestamp);
    }

    std::string file_; // empty: the history is not stored
};

class ReadlineReader final : public LineReader {
public:
    explicit ReadlineReader(Assistant assists) : history_(historyFile()) {
        static char wordBreaks[] = " \t\n\"'()=<>+-*/\\^&,:.";
        assistant() = std::move(assists);
        rl_readline_name = "chromahost";
        rl_event_hook = betweenKeys;
        rl_attempted_completion_function = complete;
        rl_completer_word_break_characters = wordBreaks;
        rl_add_defun("assist-or-complete", assistOrComplete, '\t');
        for (const char* const key : {"\\e[A", "\\eOA"})
            rl_bind_keyseq_if_unbound(key, upOrEarlier);
        for (const char* const key : {"\\e[B", "\\eOB"})
            rl_bind_keyseq_if_unbound(key, downOrLater);
        rl_variable_bind("completion-ignore-case", "on");
    }
    ~ReadlineReader() override { assistant() = nullptr; }
    ReadlineReader(const ReadlineReader&) = delete;
    ReadlineReader& operator=(const ReadlineReader&) = delete;

    Line read(const char* prompt) override {
        signals_.forget();
        std::cout.clear(); // a write that Ctrl-C interrupted is not an error and must not change the exit code
        std::clearerr(stdout);
        const std::unique_ptr<char, void (*)(void*)> line(edit(prompt), std::free);
        if (line && !interrupted()) return {Line::End::entered, line.get()};
        std::fputs("\n", stdout);
        return {interrupted() ? Line::End::interrupted : Line::End::input, {}};
    }

    void remember(const std::string& entry) override { history_.add(entry); }

private:
    const SignalScope signals_;
    const History history_;
};

} // namespace

std::unique_ptr<LineReader> readlineReader(Assistant assistant) {
    return std::make_unique<ReadlineReader>(std::move(assistant));
}

} // namespace host::repl
