#include "repl/repl.h"

#include "documentation/browser.h"
#include "documentation/pager.h"
#include "language/session.h"
#include "repl/completion.h"
#include "repl/presentation.h"
#include "text/characters.h"
#include "text/columns.h"
#include "text/terminal.h"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <unistd.h>

namespace host::repl {
namespace {

// A command and its description, or a paragraph without a command.
constexpr struct {
    const char* command;
    const char* text;
} help[] = {
    {"", "Type a statement to run it, or an expression to see its value. A block continues until it is closed."},
    {":browse [NAME [MEMBER]]", "describe classes, members, functions, keywords and types"},
    {":help [NAME]", "show this page, or describe the name"},
    {":quit", "leave the prompt, like Ctrl-D on an empty line"},
    {"",
     "Tab completes names and indents lines. After ( it shows the parameters. Up and Down move within a block of several "
     "lines, then to earlier and later entries. Ctrl-R searches the entries."},
    {"", "Ctrl-C discards the line or stops the running statement. Ctrl-D discards a block."},
};

constexpr const char* howToGetHelp =
    ":help explains the prompt. :browse NAME describes a class, a function or another word.\n";

constexpr const char* howToLeave = "To leave: :quit, or Ctrl-D on an empty line.\n";

class Prompt {
public:
    // If `paged`, long text goes to stdout's terminal instead of `output`. If `colored`, errors are printed in colours.
    Prompt(std::ostream& output, std::ostream& errors, ColorDepth depth, bool paged, bool colored)
        : output_(output), errors_(errors), onTerminal_(paged), presenter_(output, depth),
          session_("prompt", output, presenter_, colored) {}

    language::Session& session() { return session_; }

    // Runs the prompt. Returns whether nothing failed.
    bool run(LineReader& reader) {
        std::string text; // the lines of an open block
        const auto remember = [&](std::string entry) {
            while (!entry.empty() && entry.back() == '\n')
                entry.pop_back();
            if (!entry.empty()) reader.remember(entry);
        };
        for (;;) {
            const Line line = reader.read(text.empty() ? "> " : "| ");
            const bool isCancelled = line.end == Line::End::input && onTerminal_ && !text.empty();
            if (line.end == Line::End::input && !isCancelled) break;
            if (line.end == Line::End::interrupted || isCancelled) {
                remember(std::exchange(text, {}));
                continue;
            }
            if (text.empty() && isCommand(line.text)) {
                remember(line.text);
                if (!command(line.text)) return succeeded_;
                continue;
            }
            text += line.text + "\n";
            if (session_.needsMore(text)) continue;
            remember(text);
            runStatements(std::exchange(text, {}));
            if (session_.exitCode()) return succeeded_;
        }
        remember(text);
        if (!text.empty()) runStatements(text);
        return succeeded_;
    }

private:
    static bool isCommand(const std::string& line) {
        const std::size_t first = line.find_first_not_of(" \t");
        return first != std::string::npos && line[first] == ':';
    }

    // Returns the only word of the text, or "" if it has none or several.
    static std::string onlyWord(const std::string& text) {
        std::istringstream words(text);
        std::string word, next;
        words >> word >> next;
        return next.empty() ? word : std::string();
    }

    // Returns whether the text is a request for help in the form of other programs: "help", "help NAME", "?" or "? NAME".
    // It is not if the session has a variable or procedure of that name.
    bool isHelpRequest(const std::string& text) const {
        std::istringstream words(text);
        std::string word, name, more;
        words >> word >> name >> more;
        if (!word.empty() && word[0] == '?') return true;
        const std::vector<std::string> names = session_.names();
        return more.empty() && equalIgnoringCase(word, "help") && (name.empty() || isNamePart(name[0])) &&
               std::none_of(names.begin(), names.end(),
                            [](const std::string& known) { return equalIgnoringCase(known, "help"); });
    }

    std::size_t width() const { return onTerminal_ ? documentation::outputWidth() : documentation::usualWidth; }

    void showHelp() {
        constexpr std::size_t indent = 27; // before the descriptions of commands
        for (const auto& [command, text] : help) {
            std::string label = *command ? std::string("  ") + command : "";
            if (!label.empty()) label.resize(indent, ' ');
            writeParagraph(output_, width(), label, text, label.size());
        }
    }

    void fail(std::string_view message) {
        errors_ << message << std::flush;
        succeeded_ = false;
    }

    void runStatements(const std::string& text) {
        const std::string word = onlyWord(text);
        if (equalIgnoringCase(word, "quit") || equalIgnoringCase(word, "exit")) {
            output_ << howToLeave << std::flush;
        } else if (isHelpRequest(text)) {
            output_ << howToGetHelp << std::flush;
        } else if (const std::string report = session_.run(text, errors_); !report.empty()) {
            fail(report);
        }
    }

    // Performs a command. Returns false if the prompt must end.
    bool command(const std::string& line) {
        std::istringstream words(line);
        std::string command, name, member;
        words >> command >> name >> member;
        if (command == ":quit") return false;
        if (command == ":browse" || (command == ":help" && !name.empty())) {
            browse(name, member);
        } else if (command == ":help") {
            showHelp();
        } else {
            fail("there is no command " + command + "; :help lists them\n");
        }
        output_.flush();
        return true;
    }

    void browse(const std::string& name, const std::string& member) {
        try {
            std::ostringstream page;
            documentation::browse(registry(), name, member, width(), page);
            if (!onTerminal_) {
                output_ << page.str();
            } else {
                documentation::showPaged(page.str());
            }
        } catch (const std::invalid_argument& error) {
            fail(std::string(error.what()) + "\n");
        }
    }

    std::ostream& output_;
    std::ostream& errors_;
    const bool onTerminal_;
    ValuePresenter presenter_;
    language::Session session_;
    bool succeeded_ = true;
};

} // namespace

bool runPrompt(LineReader& reader, std::ostream& output, std::ostream& errors, ColorDepth depth) {
    return Prompt(output, errors, depth, false, false).run(reader);
}

int runPrompt() {
    const bool interactive = isatty(STDIN_FILENO) != 0;
    Prompt prompt(std::cout, std::cerr, swatches::outputColorDepth(), interactive, showsColors(STDERR_FILENO));
    std::unique_ptr<LineReader> reader;
#ifdef CHROMA_READLINE
    if (interactive && isatty(STDOUT_FILENO))
        reader = readlineReader([&](std::string_view text) { return assist(prompt.session(), text); });
#endif
    if (!reader) reader = plainReader();
    if (interactive) std::cout << ":help explains the prompt, :quit leaves it.\n" << std::flush;
    const bool succeeded = prompt.run(*reader);
    return prompt.session().exitCode().value_or(succeeded || interactive ? 0 : 1);
}

} // namespace host::repl
