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

// The words that may stand in place of the last word of the line.
using Completer = std::function<std::vector<std::string>(std::string_view line)>;

// Lines of stdin as they come, with a prompt if it is a terminal.
std::unique_ptr<LineReader> plainReader();

// Lines edited on the terminal, with completion and with a history that is kept in the user's state folder.
std::unique_ptr<LineReader> readlineReader(Completer completer);

} // namespace host::repl
