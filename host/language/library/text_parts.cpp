// Parts of texts, and where one text is in another.
#include "language/library/text_functions.h"

#include "model/owned.h"

#include <algorithm>

namespace host::language::text {
namespace {

// Up to `count` characters from number `start` (from 0) on; negative numbers are 0.
String* cut(const TextOf& text, HostInteger start, HostInteger count) {
    const auto length = static_cast<HostInteger>(text.length());
    const HostInteger first = std::clamp(start, HostInteger{0}, length);
    const HostInteger end = first + std::clamp(count, HostInteger{0}, length - first);
    const std::size_t offset = text.offsetOf(static_cast<std::size_t>(first));
    return ownString(text.bytes().substr(offset, text.offsetOf(static_cast<std::size_t>(end)) - offset)).release();
}

} // namespace

HostInteger length(String* text) { return static_cast<HostInteger>(TextOf(text).length()); }

String* mid(String* text, HostInteger start, HostInteger count) {
    return cut(TextOf(text), std::max(start, HostInteger{1}) - 1, count);
}
String* midToEnd(String* text, HostInteger start) { return mid(text, start, length(text)); }
String* left(String* text, HostInteger count) { return cut(TextOf(text), 0, count); }
String* right(String* text, HostInteger count) {
    const HostInteger all = length(text);
    return cut(TextOf(text), all - std::clamp(count, HostInteger{0}, all), all);
}

HostInteger findFrom(HostInteger start, String* text, String* wanted) {
    const TextOf whole(text), part(wanted);
    const HostInteger first = std::max(start, HostInteger{1}) - 1;
    if (first > static_cast<HostInteger>(whole.length())) return 0;
    const std::size_t at = whole.bytes().find(part.bytes(), whole.offsetOf(static_cast<std::size_t>(first)));
    return at == std::string_view::npos ? 0 : static_cast<HostInteger>(whole.characterAt(at)) + 1;
}
HostInteger find(String* text, String* wanted) { return findFrom(1, text, wanted); }
HostInteger findLastOf(String* text, String* wanted) { return findLast(length(text) + 1, text, wanted); }

} // namespace host::language::text
