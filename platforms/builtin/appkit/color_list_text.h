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
void writeFloat(float value, std::string& text); // writes a blank first, like the next function
void writeMeasure(CGFloat value, std::string& text);
void writeBytes(const std::vector<std::uint8_t>& bytes, std::string& text);

// The rest of a line. Each function removes one word and the blank after it from the start, and returns false if the line
// does not start with such a word.
class LineReader {
public:
    explicit LineReader(std::string_view line) : rest_(line) {}

    bool isAtEnd() const { return rest_.empty(); }

    bool word(std::string_view& word);
    bool keyword(std::string_view expected);
    bool number(std::size_t& value); // decimal
    bool key(std::u16string& key);
    bool float32(float& value);
    bool measure(CGFloat& value); // in either precision
    bool bytes(std::vector<std::uint8_t>& bytes);

private:
    bool endWord();

    std::string_view rest_;
};

} // namespace chroma::builtin
