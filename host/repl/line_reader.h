// Where the prompt gets its lines from.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host::repl {

struct Line {
    enum class End { entered, interrupted, input }; // by Ctrl-C; the input's end
    End end;
    std::string text; // of an entered line, without its line end; of a block that was pasted or came back, several lines
};

class LineReader {
public:
    virtual ~LineReader() = default;
    virtual Line read(const char* prompt) = 0;

    // Where lines can be brought back, from now on brings the entry back as a whole, without a line end.
    virtual void remember(const std::string& entry) = 0;
};

// What a reader can do for who does not know how to go on.
struct Assistance {
    std::vector<std::string> names; // that may stand in place of the last word
    std::string insertion;          // not empty: to insert, and nothing else
    std::string note;               // not empty: to show, in one line or several, before any names
};
using Assistant = std::function<Assistance(std::string_view text)>; // of the text in front of the cursor

// Lines of stdin as they come, with a prompt if it is a terminal.
std::unique_ptr<LineReader> plainReader();

// Lines edited on the terminal, with assistance and with a history that is kept in the user's state folder.
std::unique_ptr<LineReader> readlineReader(Assistant assistant);

} // namespace host::repl
