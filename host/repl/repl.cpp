#include "repl/repl.h"

#include "documentation/browser.h"
#include "language/session.h"
#include "repl/completion.h"
#include "repl/presentation.h"

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace host::repl {
namespace {

constexpr const char* help =
    R"(Type a statement to run it, or an expression to see its value. Blocks go on until they are closed.
  :browse [CLASS [MEMBER]]  what there is and what it is for
  :help                     this
  :quit                     leave; the end of the input does too
Ctrl-C gives up the line, or stops the statement that runs.
)";

class Prompt {
public:
    Prompt(std::ostream& output, std::ostream& errors, bool swatches)
        : output_(output), errors_(errors), presenter_(output, swatches), session_("prompt", output, presenter_) {}

    language::Session& session() { return session_; }

    void run(LineReader& reader) {
        std::string text; // the lines of an open block
        for (;;) {
            const Line line = reader.read(text.empty() ? "> " : "| ");
            if (line.end == Line::End::interrupted) {
                text.clear();
                continue;
            }
            if (line.end == Line::End::input) break;
            if (text.empty() && isCommand(line.text)) {
                if (!command(line.text)) return;
                continue;
            }
            text += line.text + "\n";
            if (session_.needsMore(text)) continue;
            errors_ << session_.run(text) << std::flush;
            text.clear();
        }
        if (!text.empty()) errors_ << session_.run(text) << std::flush;
    }

private:
    static bool isCommand(const std::string& line) {
        const std::size_t first = line.find_first_not_of(" \t");
        return first != std::string::npos && line[first] == ':';
    }

    // False when the prompt shall end.
    bool command(const std::string& line) {
        std::istringstream words(line);
        std::string name, className, member;
        words >> name >> className >> member;
        if (name == ":quit") return false;
        if (name == ":browse") {
            browse(className, member);
        } else if (name == ":help") {
            output_ << help;
        } else {
            errors_ << "there is no command " << name << "; :help lists them\n";
        }
        output_.flush();
        return true;
    }

    void browse(const std::string& className, const std::string& member) {
        try {
            if (className.empty()) return documentation::browseClasses(registry(), output_);
            if (member.empty()) return documentation::browseClass(registry(), className, output_);
            documentation::browseMember(registry(), className, member, output_);
        } catch (const std::invalid_argument& error) {
            errors_ << error.what() << "\n";
        }
    }

    std::ostream& output_;
    std::ostream& errors_;
    ValuePresenter presenter_;
    language::Session session_;
};

} // namespace

void runPrompt(LineReader& reader, std::ostream& output, std::ostream& errors, bool swatches) {
    Prompt(output, errors, swatches).run(reader);
}

void runPrompt() {
    Prompt prompt(std::cout, std::cerr, outputHasColors());
    std::unique_ptr<LineReader> reader;
#ifdef CHROMA_READLINE
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO))
        reader = readlineReader([&](std::string_view line) { return completions(prompt.session(), line); });
#endif
    if (!reader) reader = plainReader();
    if (isatty(STDIN_FILENO)) std::cout << ":help explains the prompt, :quit leaves it.\n" << std::flush;
    prompt.run(*reader);
}

} // namespace host::repl
