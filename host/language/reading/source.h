// A program's text, and the display of places in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace host::language {

// A place in a program: a byte offset into its text. Programs larger than 4 GB are rejected before any offset is computed.
using Offset = std::uint32_t;

class Source {
public:
    // `name` names the file in messages. With `colored`, reports have colours for a terminal.
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

    std::string_view line(Offset offset) const; // without its line end

    // Appends text and returns where it starts. Invalidates all views of the text.
    Offset append(std::string_view text);

    // Returns "name:line:column: message", the source line, and a line with a caret below the place. Of a long line, it
    // shows the characters around the caret.
    std::string report(Offset offset, std::string_view message) const;

private:
    std::string name_;
    std::string text_;
    bool colored_;
};

} // namespace host::language
