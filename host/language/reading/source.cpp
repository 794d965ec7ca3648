#include "language/reading/source.h"

#include "text/characters.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdint>

namespace host::language {
namespace {

// The longest part of a line that is shown on either side of the caret.
constexpr std::size_t maxShownPerSide = 160;

std::size_t lineStart(std::string_view text, std::size_t offset) {
    while (offset > 0 && !isLineEnd(text[offset - 1]))
        --offset;
    return offset;
}

// Text that is safe for a terminal, and blanks that take as many columns. Control characters could move the cursor or do
// worse, so they are replaced. A tab is kept in both, so that both line up.
struct Shown {
    std::string text;
    std::string blanks;
};

Shown shown(std::string_view text) {
    Shown result;
    for (std::size_t at = 0; at < text.size();) {
        const std::optional<std::uint32_t> code = utf8::firstOf(text.substr(at));
        const std::size_t size = code ? utf8::encoded(*code).size() : 1;
        const std::optional<std::size_t> columns = code ? utf8::columnsOf(*code) : std::nullopt;
        if (text[at] == '\t') {
            result.text += '\t';
            result.blanks += '\t';
        } else {
            result.text += columns ? text.substr(at, size) : "?";
            result.blanks.append(columns.value_or(1), ' ');
        }
        at += size;
    }
    return result;
}

constexpr const char* strong = "\x1B[1m";
constexpr const char* alarming = "\x1B[1;31m";
constexpr const char* cautioning = "\x1B[1;35m";
constexpr const char* pointing = "\x1B[1;32m";

} // namespace

Source::Place Source::place(Offset offset) const {
    const std::string_view before = std::string_view(text_).substr(0, offset);
    std::size_t line = 1;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool firstOfPair = before[i] == '\r' && i + 1 < text_.size() && text_[i + 1] == '\n';
        if (isLineEnd(before[i]) && !firstOfPair) ++line;
    }
    return {line, utf8::length(before.substr(lineStart(before, before.size()))) + 1};
}

std::string Source::location(Offset offset) const {
    const Place where = place(offset);
    return name_ + ":" + std::to_string(where.line) + ":" + std::to_string(where.column);
}

std::string_view Source::line(Offset offset) const {
    const std::string_view text = text_;
    const std::size_t first = lineStart(text, std::min<std::size_t>(offset, text.size()));
    std::size_t last = first;
    while (last < text.size() && !isLineEnd(text[last]))
        ++last;
    return text.substr(first, last - first);
}

Offset Source::append(std::string_view text) {
    const auto start = static_cast<Offset>(text_.size());
    text_.append(text);
    return start;
}

std::string Source::report(Offset offset, std::string_view message) const {
    const std::string_view text = text_;
    const std::size_t at = std::min<std::size_t>(offset, text.size());
    std::size_t first = lineStart(text, at);
    std::size_t last = at;
    while (last < text.size() && !isLineEnd(text[last]))
        ++last;
    if (at - first > maxShownPerSide) first = utf8::floor(text, at - maxShownPerSide);
    if (last - at > maxShownPerSide) last = utf8::floor(text, at + maxShownPerSide);

    const auto marked = [this](const char* how, std::string_view part) {
        return colored_ ? how + std::string(part) + "\x1B[0m" : std::string(part);
    };
    // "error", "warning", "uncaught SomeException"
    const std::string_view kind = message.substr(0, std::min(message.find(':'), message.size()));
    const Shown before = shown(text.substr(first, at - first));
    return marked(strong, location(static_cast<Offset>(at)) + ":") + " " +
           marked(kind == "warning" ? cautioning : alarming, kind) + std::string(message.substr(kind.size())) + "\n" +
           before.text + shown(text.substr(at, last - at)).text + "\n" + before.blanks + marked(pointing, "^") + "\n";
}

} // namespace host::language
