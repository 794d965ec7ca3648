// Reads the lines of the prompt.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host::repl {

struct Line {
    enum class End { entered, interrupted, input }; // interrupted: by Ctrl-C; input: the end of the input
    End end;
    std::string text; // the entered line, without its line end; several lines for a block that was pasted or recalled
};

class LineReader {
public:
    virtual ~LineReader() = default;
    virtual Line read(const char* prompt) = 0;

    // Adds the entry, which has no line end after its last line, to the history. Readers without a history do nothing.
    virtual void remember(const std::string& entry) = 0;
};

// The help that a reader shows for an unfinished line.
struct Assistance {
    std::vector<std::string> names; // names that may replace the last word
    std::string insertion;          // not empty: text to insert; the other fields are ignored
    std::string note;               // not empty: one line or several to show before any names
};
using Assistant = std::function<Assistance(std::string_view text)>; // for the text before the cursor

// Returns a reader of stdin without editing. It prints the prompt if stdin is a terminal.
std::unique_ptr<LineReader> plainReader();

// Returns a reader that edits lines on the terminal, with assistance and a history. The history is in the user's state
// folder.
std::unique_ptr<LineReader> readlineReader(Assistant assistant);

} // namespace host::repl
