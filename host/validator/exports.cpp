#include "validator/exports.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <elf.h>
#include <link.h>

namespace host::validator {

namespace {

// Reads at offsets that the file itself contains, and trusts none of them.
class File {
public:
    explicit File(const std::string& name) {
        std::ifstream in(name, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(in), {});
    }

    template <class Struct>
    Struct at(std::size_t offset) const {
        Struct result;
        if (bytes_.size() < sizeof result || offset > bytes_.size() - sizeof result)
            throw std::runtime_error("the file is not a complete library");
        std::memcpy(&result, bytes_.data() + offset, sizeof result);
        return result;
    }

    std::string textAt(std::size_t offset) const {
        return offset < bytes_.size() ? std::string(bytes_.c_str() + offset) : std::string();
    }

private:
    std::string bytes_;
};

} // namespace

std::vector<std::string> exportedFunctions(const std::string& file) {
    const File library(file);
    const auto head = library.at<ElfW(Ehdr)>(0);
    constexpr unsigned char width = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    if (std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0 || head.e_ident[EI_CLASS] != width)
        throw std::runtime_error("the file is not a library of this width");
    const auto sectionAt = [&](std::size_t i) { return library.at<ElfW(Shdr)>(head.e_shoff + i * head.e_shentsize); };
    std::vector<std::string> names;
    for (std::size_t i = 0; i < head.e_shnum; ++i) {
        const ElfW(Shdr) symbols = sectionAt(i);
        if (symbols.sh_type != SHT_DYNSYM) continue;
        const std::size_t textTable = sectionAt(symbols.sh_link).sh_offset;
        for (std::size_t at = 0; at < symbols.sh_size; at += sizeof(ElfW(Sym))) {
            const auto symbol = library.at<ElfW(Sym)>(symbols.sh_offset + at);
            const bool isFunction = (symbol.st_info & 0xF) == STT_FUNC, isLocal = symbol.st_info >> 4 == STB_LOCAL;
            if (isFunction && !isLocal && symbol.st_shndx != SHN_UNDEF)
                names.push_back(library.textAt(textTable + symbol.st_name));
        }
    }
    return names;
}

} // namespace host::validator
