#include "language/reading/source.h"

#include "text/letters.h"
#include "text/utf8.h"

#include <algorithm>

namespace host::language {
namespace {

// How much of a line is shown on either side of the caret.
constexpr std::size_t shownCharacters = 160;

std::size_t lineStart(std::string_view text, std::size_t offset) {
    while (offset > 0 && !isLineEnd(text[offset - 1]))
        --offset;
    return offset;
}

// Control characters would move the cursor or worse; a tab stays, and stays in the caret line too, so that both line up.
char shown(char byte, bool wellFormed) {
    const auto code = static_cast<unsigned char>(byte);
    const bool harmful = (code < 0x20 && byte != '\t') || code == 0x7F || (code > 0x7F && !wellFormed);
    return harmful ? '?' : byte;
}

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
    if (at - first > shownCharacters) first = utf8::floor(text, at - shownCharacters);
    if (last - at > shownCharacters) last = utf8::floor(text, at + shownCharacters);

    std::string report = location(static_cast<Offset>(at)) + ": ";
    report.append(message).append("\n");
    const bool wellFormed = utf8::findInvalid(text.substr(first, last - first)) == std::string_view::npos;
    std::string caret;
    for (std::size_t i = first; i < last; ++i) {
        report += shown(text[i], wellFormed);
        if (i < at && utf8::startsCharacter(text[i])) caret += text[i] == '\t' ? '\t' : ' ';
    }
    return report + "\n" + caret + "^\n";
}

} // namespace host::language
