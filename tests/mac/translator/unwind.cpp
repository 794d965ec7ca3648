// Compact unwind information: two levels of tables that give each range of code a 32-bit description of its frame.
#include "image.h"

namespace translator {

namespace {

// Pairs of a saved register's DWARF number and what an encoding's bits say of it.
Frame frameOfX86_64(std::uint32_t encoding) {
    constexpr std::uint32_t modeMask = 0x0F000000, framePointerMode = 0x01000000;
    if ((encoding & modeMask) != framePointerMode) throw Refusal("a frame is encoded as " + hex(encoding));
    constexpr int framePointer = 6, returnAddress = 16;
    constexpr int registers[] = {0, 3, 12, 13, 14, 15}; // none, rbx, r12 to r15
    Frame frame{framePointer, 16, {{returnAddress, -8}, {framePointer, -16}}};
    std::int64_t offset = -16 - 8 * static_cast<std::int64_t>(encoding >> 16 & 0xFF);
    for (int i = 0; i < 5; ++i, offset += 8) {
        const std::uint32_t saved = encoding >> 3 * i & 7;
        if (saved > 5) throw Refusal("a frame is encoded as " + hex(encoding));
        if (saved) frame.saved.push_back({registers[saved], offset});
    }
    return frame;
}

Frame frameOfArm64(std::uint32_t encoding) {
    constexpr std::uint32_t modeMask = 0x0F000000, frameless = 0x02000000, framePointerMode = 0x04000000;
    constexpr int framePointer = 29, returnAddress = 30, stackPointer = 31;
    Frame frame;
    std::int64_t offset = 0;
    if ((encoding & modeMask) == framePointerMode) {
        frame = {framePointer, 16, {{returnAddress, -8}, {framePointer, -16}}};
        offset = -16;
    } else if ((encoding & modeMask) == frameless) {
        frame = {stackPointer, 16 * static_cast<std::int64_t>(encoding >> 12 & 0xFFF), {}};
    } else {
        throw Refusal("a frame is encoded as " + hex(encoding));
    }
    // Bits 0 to 4: pairs from x19 on; bits 8 to 11: pairs from d8 on; each below the one before.
    const auto savePair = [&](int first) {
        frame.saved.push_back({first, offset -= 8});
        frame.saved.push_back({first + 1, offset -= 8});
    };
    for (int pair = 0; pair < 5; ++pair)
        if (encoding >> pair & 1) savePair(19 + 2 * pair);
    for (int pair = 0; pair < 4; ++pair)
        if (encoding >> (8 + pair) & 1) savePair(72 + 2 * pair);
    return frame;
}

class UnwindInfo {
public:
    UnwindInfo(Bytes bytes, Architecture architecture) : bytes_(bytes), architecture_(architecture) {
        if (bytes.u32(0) != 1) throw Refusal("its unwind information has version " + hex(bytes.u32(0)));
    }

    std::vector<Function> read() {
        const std::uint32_t index = bytes_.u32(20), count = bytes_.u32(24);
        if (count == 0) throw Refusal("its unwind information is empty");
        const auto entry = [&](std::uint32_t i) { return index + 12 * i; };
        // A page's handlers end where those of the next begin; the last entry has no page but ends both.
        for (std::uint64_t at = bytes_.u32(entry(0) + 8); at < bytes_.u32(entry(count - 1) + 8); at += 8)
            handlers_[bytes_.u32(at)] = bytes_.u32(at + 4);
        for (std::uint32_t i = 0; i + 1 < count; ++i)
            readPage(bytes_.u32(entry(i)), bytes_.u32(entry(i) + 4));
        endLast(bytes_.u32(entry(count - 1)));
        return std::move(functions_);
    }

private:
    void readPage(std::uint32_t base, std::uint32_t page) {
        constexpr std::uint32_t regular = 2, compressed = 3;
        const std::uint32_t entries = page + bytes_.u16(page + 4), count = bytes_.u16(page + 6);
        const std::uint32_t common = bytes_.u32(8);
        for (std::uint32_t i = 0; i < count; ++i) {
            if (bytes_.u32(page) == regular) {
                add(bytes_.u32(entries + 8 * i), bytes_.u32(entries + 8 * i + 4));
            } else if (bytes_.u32(page) == compressed) {
                const std::uint32_t entry = bytes_.u32(entries + 4 * i), number = entry >> 24;
                const std::uint32_t encoding =
                    number < common ? bytes_.u32(4) + 4 * number : page + bytes_.u16(page + 8) + 4 * (number - common);
                add(base + (entry & 0xFFFFFF), bytes_.u32(encoding));
            } else {
                throw Refusal("a page of its unwind information is of kind " + hex(bytes_.u32(page)));
            }
        }
    }

    // Of several entries for one address the last counts, as for the system's unwinder: the others' ranges are empty.
    void add(std::uint32_t begin, std::uint32_t encoding) {
        endLast(begin);
        Function function;
        function.begin = begin;
        function.canBeUnwound = encoding != 0;
        if (encoding)
            function.frame = architecture_ == Architecture::arm64 ? frameOfArm64(encoding) : frameOfX86_64(encoding);
        if (const std::uint32_t personality = encoding >> 28 & 3; personality) {
            if (personality > bytes_.u32(16)) throw Refusal("a personality is not listed");
            function.personality = bytes_.u32(bytes_.u32(12) + 4 * (personality - 1));
        }
        if (encoding >> 30 & 1) {
            if (!handlers_.count(begin)) throw Refusal("the handlers of the function at " + hex(begin) + " are not listed");
            function.handlers = handlers_[begin];
        }
        functions_.push_back(function);
    }

    void endLast(std::uint32_t end) {
        if (functions_.empty()) return;
        if (end < functions_.back().begin) throw Refusal("its unwind information is not in order");
        functions_.back().end = end;
        if (end == functions_.back().begin) functions_.pop_back();
    }

    Bytes bytes_;
    Architecture architecture_;
    std::map<std::uint32_t, std::uint32_t> handlers_; // by their function
    std::vector<Function> functions_;
};

} // namespace

std::vector<Function> readFunctions(Bytes unwindInfo, Architecture architecture) {
    return UnwindInfo(unwindInfo, architecture).read();
}

} // namespace translator
