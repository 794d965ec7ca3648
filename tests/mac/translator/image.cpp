#include "image.h"

#include <algorithm>
#include <optional>

namespace translator {

std::string hex(std::uint64_t number) {
    char text[2 + 16 + 1];
    std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(number));
    return text;
}

namespace {

struct Slice {
    Bytes bytes;
    std::uint64_t offset;
};

Slice findSlice(Bytes library, Architecture architecture) {
    constexpr std::uint32_t universal = 0xCAFEBABE;
    const std::uint32_t processor = architecture == Architecture::arm64 ? 0x0100000C : 0x01000007;
    if (library.bigEndian(0) != universal) throw Refusal("it is no universal library");
    for (std::uint32_t i = 0; i < library.bigEndian(4); ++i) {
        const std::uint64_t entry = 8 + 20 * i;
        if (library.bigEndian(entry) != processor) continue;
        const std::uint64_t offset = library.bigEndian(entry + 8);
        return {library.part(offset, library.bigEndian(entry + 12)), offset};
    }
    throw Refusal("it has no such slice");
}

enum Command : std::uint32_t {
    symbolTable = 0x2,
    segment64 = 0x19,
    fixupPrograms = 0x80000022,
    chainedFixups = 0x80000034,
};

// Commands that tell nothing of what the image does: indexes of the symbols, names and versions of libraries, the signature.
bool isIrrelevant(std::uint32_t command) {
    constexpr std::uint32_t known[] = {0xB, 0xC, 0xD, 0x1B, 0x1D, 0x24, 0x26, 0x29, 0x2A, 0x32};
    return std::find(std::begin(known), std::end(known), command) != std::end(known);
}

// Contents, zeros, literals of each size, stubs and what they jump through. Initialisers, thread-local variables and
// whatever else a loader would have to do something about are not among them, and neither is a class of Objective-C.
void checkSection(const std::string& name, std::uint32_t flags) {
    constexpr std::uint32_t known[] = {0x0, 0x1, 0x2, 0x3, 0x4, 0x6, 0x7, 0x8, 0xB, 0xE};
    const bool isKnown = std::find(std::begin(known), std::end(known), flags & 0xFF) != std::end(known);
    if (!isKnown) throw Refusal("section " + name + " is of a kind that nothing here would serve, " + hex(flags & 0xFF));
    if (name.rfind("__objc_", 0) == 0 && name != "__objc_imageinfo")
        throw Refusal("section " + name + " is for a runtime that reads images");
}

class Reader {
public:
    Reader(Slice slice, Architecture architecture) : bytes_(slice.bytes) {
        image_.architecture = architecture;
        image_.fileOffset = slice.offset;
    }

    Image read() {
        readCommands();
        if (image_.segments.empty() || image_.segments.front().address != 0) throw Refusal("it does not begin at 0");
        if (!fixups_) throw Refusal("nothing tells what its pointers point to");
        image_.pointers = runFixups(*fixups_, image_.segments, bytes_);
        if (!unwindInfo_) throw Refusal("it has no compact unwind information");
        image_.functions = readFunctions(*unwindInfo_, image_.architecture);
        return std::move(image_);
    }

private:
    void readCommands() {
        constexpr std::uint32_t magic = 0xFEEDFACF, dynamicLibrary = 6;
        if (bytes_.u32(0) != magic || bytes_.u32(12) != dynamicLibrary) throw Refusal("the slice is no dynamic library");
        std::uint64_t symbols = 0;
        std::uint64_t at = 32;
        for (std::uint32_t i = 0; i < bytes_.u32(16); ++i) {
            switch (const std::uint32_t command = bytes_.u32(at)) {
            case segment64: readSegment(at); break;
            case symbolTable: symbols = at; break;
            case fixupPrograms: readFixups(at); break;
            case chainedFixups: throw Refusal("its fixups are chained: link it for an older system");
            default:
                if (!isIrrelevant(command)) throw Refusal("load command " + hex(command) + " is not known");
            }
            at += bytes_.u32(at + 4);
        }
        if (!symbols) throw Refusal("it has no symbols");
        readSymbols(symbols); // which refer to sections
    }

    void readSegment(std::uint64_t at) {
        Segment segment;
        segment.name = bytes_.part(at + 8, 16).text(0);
        if (segment.name == "__LINKEDIT") return;
        segment.address = bytes_.u64(at + 24);
        segment.size = bytes_.u64(at + 32);
        segment.fileOffset = bytes_.u64(at + 40);
        segment.fileSize = bytes_.u64(at + 48);
        const std::uint32_t protection = bytes_.u32(at + 60), flags = bytes_.u32(at + 68);
        constexpr std::uint32_t readOnlyOnceFixedUp = 0x10;
        segment.readable = protection & 1;
        segment.writable = protection & 2 && !(flags & readOnlyOnceFixedUp);
        segment.executable = protection & 4;
        if (flags & ~readOnlyOnceFixedUp) throw Refusal("segment " + segment.name + " has flags " + hex(flags));
        bytes_.part(segment.fileOffset, segment.fileSize);
        image_.segments.push_back(segment);

        for (std::uint32_t i = 0; i < bytes_.u32(at + 64); ++i) {
            const std::uint64_t header = at + 72 + 80 * i;
            const Section section{bytes_.part(header, 16).text(0), bytes_.u64(header + 32), bytes_.u64(header + 40)};
            checkSection(section.name, bytes_.u32(header + 64));
            image_.sections.push_back(section);
            if (section.name == "__unwind_info") unwindInfo_ = bytes_.part(bytes_.u32(header + 48), section.size);
        }
    }

    void readFixups(std::uint64_t at) {
        const auto program = [&](std::uint64_t field) {
            return bytes_.part(bytes_.u32(at + field), bytes_.u32(at + field + 4));
        };
        if (program(24).size()) throw Refusal("it shares weak symbols with other libraries");
        fixups_ = FixupPrograms{program(8), program(16), program(32)};
    }

    void readSymbols(std::uint64_t at) {
        enum : std::uint8_t {
            debugging = 0xE0,
            kind = 0x0E,
            inSection = 0x0E,
            undefined = 0,
            wasGlobal = 0x10,
            external = 0x01
        };
        const Bytes strings = bytes_.part(bytes_.u32(at + 16), bytes_.u32(at + 20));
        for (std::uint32_t i = 0; i < bytes_.u32(at + 12); ++i) {
            const std::uint64_t entry = bytes_.u32(at + 8) + 16 * i;
            const std::uint8_t type = bytes_.u8(entry + 4);
            if (type & debugging || (type & kind) == undefined) continue;
            Symbol symbol;
            symbol.name = strings.text(bytes_.u32(entry));
            const std::uint8_t section = bytes_.u8(entry + 5);
            if ((type & kind) != inSection || section == 0 || section > image_.sections.size())
                throw Refusal("symbol " + symbol.name + " is in no section");
            symbol.address = bytes_.u64(entry + 8);
            symbol.isExported = type & external && !(type & wasGlobal);
            symbol.isGlobal = type & (external | wasGlobal);
            symbol.isCode = image_.sections[section - 1].name == "__text";
            image_.symbols.push_back(symbol);
        }
    }

    Bytes bytes_;
    Image image_{};
    std::optional<FixupPrograms> fixups_;
    std::optional<Bytes> unwindInfo_;
};

} // namespace

Image readImage(Bytes library, Architecture architecture) {
    return Reader(findSlice(library, architecture), architecture).read();
}

} // namespace translator
