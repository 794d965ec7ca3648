// The words of a colour list's file: keys in quotes, numbers and bytes in hexadecimal.
#pragma once

#include "builtin/objc_runtime.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace chroma::builtin {

void writeKey(std::u16string_view key, std::string& text);
void writeFloat(float value, std::string& text); // with a blank before it, like the next
void writeMeasure(CGFloat value, std::string& text);
void writeBytes(const std::vector<std::uint8_t>& bytes, std::string& text);

// What is left of a line. Every function takes its word off the front, the blank behind it too, and answers false when there
// is no such word.
class LineReader {
public:
    explicit LineReader(std::string_view line) : rest_(line) {}

    bool isAtEnd() const { return rest_.empty(); }

    bool word(std::string_view& word);
    bool keyword(std::string_view expected);
    bool number(std::size_t& value); // decimal
    bool key(std::u16string& key);
    bool float32(float& value);
    bool measure(CGFloat& value); // of either precision
    bool bytes(std::vector<std::uint8_t>& bytes);

private:
    bool endWord();

    std::string_view rest_;
};

} // namespace chroma::builtin
