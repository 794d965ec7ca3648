// The loader's programs: each byte is an operation in its upper half and a small number in its lower one, and LEB128 numbers
// and names follow.
#include "image.h"

namespace translator {

namespace {

class Program {
public:
    Program(Bytes code, const std::vector<Segment>& segments, Bytes slice)
        : code_(code), segments_(segments), slice_(slice) {}

    // `write` is told each address.
    template <class Write>
    void rebase(Write write) {
        while (next()) {
            switch (operation_) {
            case 0x00: return;
            case 0x10: expectPointer(); break;
            case 0x20: startAtSegment(); break;
            case 0x30: address_ += uleb(); break;
            case 0x40: address_ += small_ * word; break;
            case 0x50: repeat(small_, 0, write); break;
            case 0x60: repeat(uleb(), 0, write); break;
            case 0x70: repeat(1, uleb(), write); break;
            case 0x80: {
                const std::uint64_t count = uleb();
                repeat(count, uleb(), write);
                break;
            }
            default: unknown("rebase");
            }
        }
    }

    // `write` is told each address and what is bound to it. A lazy program has an end after each symbol.
    template <class Write>
    void bind(bool isLazy, Write write) {
        Pointer pointer;
        const auto bound = [&](std::uint64_t address) { write(address, pointer); };
        while (next()) {
            switch (operation_) {
            case 0x00:
                if (!isLazy) return;
                break;
            case 0x10: break; // which library has the symbol: here all are one
            case 0x20: uleb(); break;
            case 0x40:
                if (small_) unknown("flagged bind");
                pointer.symbol = name();
                break;
            case 0x50: expectPointer(); break;
            case 0x60: pointer.addend = sleb(); break;
            case 0x70: startAtSegment(); break;
            case 0x80: address_ += uleb(); break;
            case 0x90: repeat(1, 0, bound); break;
            case 0xA0: repeat(1, uleb(), bound); break;
            case 0xB0: repeat(1, small_ * word, bound); break;
            case 0xC0: {
                const std::uint64_t count = uleb();
                repeat(count, uleb(), bound);
                break;
            }
            default: unknown("bind");
            }
        }
    }

private:
    static constexpr std::uint64_t word = 8;

    bool next() {
        if (at_ == code_.size()) return false;
        const std::uint8_t byte = code_.u8(at_++);
        operation_ = byte & 0xF0;
        small_ = byte & 0x0F;
        return true;
    }

    [[noreturn]] void unknown(const char* what) {
        throw Refusal(std::string("a ") + what + " operation is not known: " + hex(operation_ | small_));
    }

    void expectPointer() {
        if (small_ != 1) throw Refusal("it has fixups that are no pointers");
    }

    void startAtSegment() {
        if (small_ >= segments_.size()) throw Refusal("a fixup is outside the segments");
        segment_ = &segments_[small_];
        address_ = segment_->address + uleb();
    }

    template <class Write>
    void repeat(std::uint64_t count, std::uint64_t gap, Write write) {
        for (; count; --count) {
            if (!segment_ || address_ < segment_->address || address_ + word > segment_->address + segment_->fileSize)
                throw Refusal("a fixup is outside its segment, at " + hex(address_));
            if (segment_->executable) throw Refusal("code is fixed up, at " + hex(address_));
            write(address_);
            address_ += word + gap;
        }
    }

    std::uint64_t uleb() {
        std::uint64_t result = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            const std::uint64_t byte = code_.u8(at_++);
            result |= (byte & 0x7F) << shift;
            if (!(byte & 0x80)) return result;
        }
        throw Refusal("a number is longer than 64 bits");
    }

    std::int64_t sleb() {
        const std::uint64_t begin = at_;
        const std::uint64_t bits = uleb();
        const std::uint64_t read = 7 * (at_ - begin);
        if (read >= 64) return static_cast<std::int64_t>(bits);
        const std::uint64_t sign = std::uint64_t{1} << (read - 1);
        return static_cast<std::int64_t>((bits ^ sign) - sign);
    }

    std::string name() {
        std::string result = code_.text(at_);
        at_ += result.size() + 1;
        return result;
    }

    Bytes code_;
    const std::vector<Segment>& segments_;
    Bytes slice_;
    const Segment* segment_ = nullptr;
    std::uint64_t at_ = 0, address_ = 0;
    std::uint8_t operation_ = 0, small_ = 0;
};

} // namespace

std::map<std::uint64_t, Pointer> runFixups(const FixupPrograms& programs, const std::vector<Segment>& segments,
                                           Bytes slice) {
    std::map<std::uint64_t, Pointer> result;
    const auto contents = [&](std::uint64_t address) {
        for (const Segment& segment : segments)
            if (address - segment.address < segment.fileSize)
                return slice.u64(segment.fileOffset + address - segment.address);
        throw Refusal("nothing is at " + hex(address));
    };
    Program(programs.rebase, segments, slice).rebase([&](std::uint64_t address) {
        result[address] = {"", static_cast<std::int64_t>(contents(address))};
    });
    // What is bound late is rebased first, to the code that binds it; here it is bound at once.
    const auto bind = [&](std::uint64_t address, const Pointer& pointer) { result[address] = pointer; };
    Program(programs.bind, segments, slice).bind(false, bind);
    Program(programs.lazyBind, segments, slice).bind(true, bind);
    return result;
}

} // namespace translator
