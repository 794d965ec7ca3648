// Parts of texts, and searches for one text in another.
#include "language/library/text_functions.h"

#include "model/owned.h"

#include <algorithm>
#include <cstring>

namespace host::language::text {
namespace {

String* cut(const TextOf& text, Part part) {
    const std::size_t start = text.offsetOf(part.first);
    return ownString(text.bytes().substr(start, text.offsetOf(part.first + part.count) - start)).release();
}

// Returns up to `count` characters from number `start` (from 0) on. Negative numbers count as 0.
Part part(HostInteger length, HostInteger start, HostInteger count) {
    const HostInteger first = std::clamp(start, HostInteger{0}, length);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(std::clamp(count, HostInteger{0}, length - first))};
}

} // namespace

HostInteger length(String* text) { return static_cast<HostInteger>(TextOf(text).length()); }

Part partOfMid(HostInteger length, HostInteger start, HostInteger count) {
    return part(length, std::max(start, HostInteger{1}) - 1, count);
}
Part partOfLeft(HostInteger length, HostInteger count) { return part(length, 0, count); }
Part partOfRight(HostInteger length, HostInteger count) {
    return part(length, length - std::clamp(count, HostInteger{0}, length), length);
}

String* mid(String* text, HostInteger start, HostInteger count) {
    return cut(TextOf(text), partOfMid(length(text), start, count));
}
String* midToEnd(String* text, HostInteger start) { return mid(text, start, length(text)); }
String* left(String* text, HostInteger count) { return cut(TextOf(text), partOfLeft(length(text), count)); }
String* right(String* text, HostInteger count) { return cut(TextOf(text), partOfRight(length(text), count)); }

std::size_t indexOf(std::string_view text, std::string_view wanted, std::size_t start) {
    if (start > text.size()) return std::string_view::npos;
    const void* const found = memmem(text.data() + start, text.size() - start, wanted.data(), wanted.size());
    return found ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) : std::string_view::npos;
}

HostInteger findFrom(HostInteger start, String* text, String* wanted) {
    const TextOf searched(text), part(wanted);
    const HostInteger first = std::max(start, HostInteger{1}) - 1;
    if (first > static_cast<HostInteger>(searched.length())) return 0;
    const std::size_t at = indexOf(searched.bytes(), part.bytes(), searched.offsetOf(static_cast<std::size_t>(first)));
    return at == std::string_view::npos ? 0 : static_cast<HostInteger>(searched.characterAt(at)) + 1;
}
HostInteger find(String* text, String* wanted) { return findFrom(1, text, wanted); }
HostInteger findLastOf(String* text, String* wanted) { return findLast(length(text) + 1, text, wanted); }

} // namespace host::language::text
