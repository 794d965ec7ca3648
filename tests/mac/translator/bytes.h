// Reading a file that nobody vouches for: every read is checked, and what cannot be read or is not known ends the
// translation.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace translator {

// Why a file is not translated; the text is for a person.
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string hex(std::uint64_t number);

// Numbers are in the byte order of this machine and of both architectures; those of a universal file's head are not.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    Bytes part(std::uint64_t at, std::uint64_t size) const {
        if (at > bytes_.size() || size > bytes_.size() - at) throw Refusal("it is cut off at " + hex(bytes_.size()));
        return Bytes(bytes_.substr(at, size));
    }

    template <class T>
    T number(std::uint64_t at) const {
        T result;
        std::memcpy(&result, part(at, sizeof result).bytes_.data(), sizeof result);
        return result;
    }
    std::uint8_t u8(std::uint64_t at) const { return number<std::uint8_t>(at); }
    std::uint16_t u16(std::uint64_t at) const { return number<std::uint16_t>(at); }
    std::uint32_t u32(std::uint64_t at) const { return number<std::uint32_t>(at); }
    std::uint64_t u64(std::uint64_t at) const { return number<std::uint64_t>(at); }
    std::uint32_t bigEndian(std::uint64_t at) const { return __builtin_bswap32(u32(at)); }

    // The text up to the first NUL; where there is none, up to the end.
    std::string text(std::uint64_t at) const {
        if (at > bytes_.size()) throw Refusal("a name begins behind the end");
        const std::string_view rest = bytes_.substr(at);
        return std::string(rest.substr(0, rest.find('\0')));
    }

    std::uint64_t size() const { return bytes_.size(); }

private:
    std::string_view bytes_;
};

} // namespace translator
