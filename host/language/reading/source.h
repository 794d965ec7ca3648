// A program's text, and how places in it are shown to people.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace host::language {

// A place in a program: a byte offset into its text. Programs larger than 4 GB are refused before any offset is taken.
using Offset = std::uint32_t;

class Source {
public:
    // `name` is how messages call the file; `colored`: reports have colours for a terminal.
    Source(std::string name, std::string text, bool colored = false)
        : name_(std::move(name)), text_(std::move(text)), colored_(colored) {}

    const std::string& name() const { return name_; }
    std::string_view text() const { return text_; }

    struct Place {
        std::size_t line;   // from 1
        std::size_t column; // from 1, in characters
    };
    Place place(Offset offset) const;
    std::string location(Offset offset) const; // "name:line:column"

    std::string_view line(Offset offset) const; // without its end

    // More text at the end, and where it starts. Views of the text are no longer valid.
    Offset append(std::string_view text);

    // "name:line:column: message", the source line, and a line with a caret below the place. A long line is cut to the
    // neighbourhood of the caret.
    std::string report(Offset offset, std::string_view message) const;

private:
    std::string name_;
    std::string text_;
    bool colored_;
};

} // namespace host::language
