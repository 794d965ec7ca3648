// Writes the manual page from the words of the command line.
#include "commands/commands.h"

#include <iostream>

namespace host::commands {
namespace {

// Escapes text for a page, so that roff finds no requests in it.
std::string plain(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\') {
            result += "\\e";
        } else if (c == '-') {
            result += "\\-";
        } else if ((c == '.' || c == '\'') && (result.empty() || result.back() == '\n')) {
            result += std::string("\\&") + c;
        } else {
            result += c;
        }
    }
    return result;
}

void writeTerms(const std::vector<Word>& words) {
    for (const Word& word : words)
        std::cout << ".TP\n.B " << plain(word.form) << "\n" << plain(word.text) << ".\n";
}

constexpr const char* ending = R"(.SH EXIT STATUS
0 success, 1 a failure that the standard error explains, 2 wrong usage, 3 leaks found, 4 nothing tested by
.BR validate .
If interrupted, the program is terminated by the signal.
.SH ENVIRONMENT
.TP
.B NO_COLOR
If set, output on the terminal has no colours.
.TP
.B COLORTERM
.B truecolor
or
.B 24bit
means that the terminal supports 24-bit colours, not only 256.
.TP
.B PAGER
The program that shows long pages of
.BR browse .
.SH FILES
.TP
.I $XDG_DATA_HOME/chromabridge/colors
Colour lists that are written without a path.
)";

} // namespace

int manual(const Word& program, const std::vector<Word>& options, const std::vector<CommandWords>& commands) {
    std::cout << ".TH CHROMAHOST 1 \"\" \"chromabridge " CHROMA_VERSION "\" \"User Commands\"\n.SH NAME\n"
              << program.name << " \\- run programs of the host language with a plugin loaded\n.SH SYNOPSIS\n.B "
              << program.name << "\nCOMMAND [OPTION...] [ARGUMENT...]\n.SH DESCRIPTION\n"
              << plain(program.text) << "\n.SH OPTIONS\n";
    writeTerms(options);
    std::cout << ".SH COMMANDS\n";
    for (const CommandWords& command : commands) {
        std::cout << ".SS " << command.command.name << "\n" << plain(command.command.text) << ".\n";
        writeTerms(command.positionals);
        writeTerms(command.own);
        std::cout << ".PP\n.nf\n" << plain(command.examples) << "\n.fi\n";
    }
    std::cout << ending;
    return success;
}

} // namespace host::commands
