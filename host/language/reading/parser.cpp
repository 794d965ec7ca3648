#include "language/reading/parser.h"

#include "language/reading/statement_parser.h"
#include "text/utf8.h"

namespace host::language {
namespace {

// Checks the properties of the text on which the lexer relies.
void checkText(std::string_view whole, Offset start) {
    const std::string_view text = whole.substr(start);
    constexpr std::size_t maxSize = std::size_t{1} << 30;
    if (whole.size() > maxSize) throw SyntaxError{0, "a program cannot be larger than 1 GB", true};
    const std::size_t invalid = utf8::findInvalid(text);
    const std::size_t null = text.find('\0');
    if (null < invalid) throw SyntaxError{static_cast<Offset>(start + null), "a program cannot contain a NUL byte", true};
    if (invalid == std::string_view::npos) return;
    throw SyntaxError{static_cast<Offset>(start + invalid), "a program is UTF-8 text, and this byte is invalid in it", true};
}

} // namespace

syntax::Block parse(const Source& source, Diagnostics& diagnostics, ParseMode mode, Offset start) {
    try {
        checkText(source.text(), start);
        return StatementParser(source, diagnostics, mode, start).program();
    } catch (const SyntaxError& error) {
        diagnostics.add(error.offset, error.message);
        return {};
    }
}

bool needsMore(const Source& source, Offset start) {
    const std::string_view text = source.text();
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    if (last != std::string_view::npos && last > start && text[last] == '_' &&
        (text[last - 1] == ' ' || text[last - 1] == '\t'))
        return true;
    Diagnostics dropped(source, 0);
    StatementParser parser(source, dropped, ParseMode::prompt, start);
    try {
        checkText(source.text(), start);
        parser.program();
    } catch (const SyntaxError&) {
        return false;
    }
    return parser.endedInBlock();
}

} // namespace host::language
