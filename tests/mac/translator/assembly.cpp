#include "assembly.h"

#include <algorithm>
#include <set>

namespace translator {

namespace {

// What the system that the slice was built for has, and who stands for it here; `macos_` is adapter.cpp's and adapter.S's.
const std::map<std::string, std::string> counterparts{
    {"_OBJC_EHTYPE_id", "_ZTIN6chroma12ThrownObjectE"}, // what the builtin platform throws
    {"___objc_personality_v0", "__gxx_personality_v0"},
    {"_objc_begin_catch", "macos_objc_begin_catch"},
    {"_objc_end_catch", "__cxa_end_catch"},
    {"_objc_msgSend", "macos_objc_msgSend"},
    {"___stack_chk_guard", "macos_stack_chk_guard"},
    {"_snprintf", "macos_snprintf"},
    {"dyld_stub_binder", "abort"}, // binds what is bound late, of which there is nothing here
};

// C's names have an underscore in front there.
std::string withoutUnderscore(const std::string& name) { return name.substr(name[0] == '_'); }

std::string imported(const std::string& name) {
    const auto found = counterparts.find(name);
    return found == counterparts.end() ? withoutUnderscore(name) : found->second;
}

// A 64-bit integer is a `long long` there and a `long` here, which shows in the names of C++ functions that take one. Of
// such a name, all but identifiers, which follow their length, is types.
std::string defined(const std::string& name) {
    std::string result = withoutUnderscore(name);
    if (result.rfind("_Z", 0) != 0) return result;
    for (std::size_t at = 2; at < result.size();) {
        if (std::isdigit(static_cast<unsigned char>(result[at]))) {
            std::size_t digits = 0;
            const std::size_t length = std::stoul(result.substr(at), &digits);
            at += digits + length;
            continue;
        }
        if (result[at] == 'x') result[at] = 'l';
        if (result[at] == 'y') result[at] = 'm';
        ++at;
    }
    return result;
}

std::string inImage(std::uint64_t address) { return "chroma_image+" + std::to_string(address); }

class Writer {
public:
    Writer(const Image& image, const std::string& path, std::ostream& out) : image_(image), path_(path), out_(out) {}

    void write() {
        addSymbols();
        addFunctions();
        for (const auto& [address, pointer] : image_.pointers)
            places_[address].pointer = &pointer;
        out_ << ".section .chroma_image,\"awx\",%progbits\n.balign 16384\nchroma_image:\n";
        for (const Segment& segment : image_.segments) {
            advance(segment.address, nullptr);
            advance(segment.address + segment.size, &segment);
        }
        place(at_); // what ends where the image ends
        writeSegments();
        out_ << ".section .note.GNU-stack,\"\",%progbits\n";
    }

private:
    // What stands before a byte of the image.
    struct Place {
        std::string ends, begins;
        const Pointer* pointer = nullptr;
    };

    void addSymbols() {
        std::vector<const Symbol*> sorted;
        for (const Symbol& symbol : image_.symbols)
            sorted.push_back(&symbol);
        std::stable_sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return a->address < b->address; });
        std::set<std::string> taken;
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            const Symbol& symbol = *sorted[i];
            std::string name = defined(symbol.name);
            // Objects may each have one of that name for themselves; they are for a debugger's eyes only.
            while (!taken.insert(name).second) {
                if (symbol.isGlobal) throw Refusal("symbol " + symbol.name + " is there twice");
                name += ".other";
            }
            std::string& text = places_[symbol.address].begins;
            if (symbol.isGlobal) text += ".globl " + name + "\n";
            if (symbol.isGlobal && !symbol.isExported) text += ".hidden " + name + "\n";
            text += ".type " + name + (symbol.isCode ? ",%function\n" : ",%object\n") + name + ":\n";
            if (const std::uint64_t size = endOf(symbol, sorted, i) - symbol.address)
                text += ".size " + name + "," + std::to_string(size) + "\n";
        }
    }

    // The next symbol of the section, or the section's end.
    std::uint64_t endOf(const Symbol& symbol, const std::vector<const Symbol*>& sorted, std::size_t i) const {
        std::uint64_t end = symbol.address;
        for (const Section& section : image_.sections)
            if (symbol.address - section.address < section.size) end = section.address + section.size;
        while (i < sorted.size() && sorted[i]->address == symbol.address)
            ++i;
        return i < sorted.size() ? std::min(end, sorted[i]->address) : end;
    }

    void addFunctions() {
        for (const Function& function : image_.functions) {
            if (!function.canBeUnwound) continue;
            std::string& text = places_[function.begin].begins;
            text += ".cfi_startproc\n";
            if (function.personality) {
                const std::string label = ".Lpersonality" + std::to_string(function.personality);
                if (personalities_.insert(label).second) places_[function.personality].begins += label + ":\n";
                text += ".cfi_personality 0x9b, " + label + "\n"; // the address of the address, relative
            }
            if (function.handlers) {
                const std::string label = ".Lhandlers" + std::to_string(function.handlers);
                places_[function.handlers].begins += label + ":\n";
                text += ".cfi_lsda 0x1b, " + label + "\n"; // relative
            }
            const Frame& frame = function.frame;
            text += ".cfi_def_cfa " + std::to_string(frame.baseRegister) + ", " + std::to_string(frame.addressOffset) + "\n";
            for (const auto& [saved, offset] : frame.saved)
                text += ".cfi_offset " + std::to_string(saved) + ", " + std::to_string(offset) + "\n";
            places_[function.end].ends += ".cfi_endproc\n";
        }
    }

    // The bytes up to an address, and what stands before and among them. Between segments there are zeros.
    void advance(std::uint64_t end, const Segment* segment) {
        if (end < at_) throw Refusal("its segments overlap");
        while (at_ < end) {
            if (const Pointer* const pointer = place(at_)) {
                out_ << ".quad " << (pointer->symbol.empty() ? "chroma_image" : imported(pointer->symbol)) << "+"
                     << pointer->addend << "\n";
                at_ += 8;
                continue;
            }
            const auto next = places_.upper_bound(at_);
            const std::uint64_t until = next == places_.end() ? end : std::min(end, next->first);
            writeBytes(until, segment);
        }
        if (at_ > end) throw Refusal("a pointer crosses the end of its segment");
    }

    const Pointer* place(std::uint64_t address) {
        const auto found = places_.find(address);
        if (found == places_.end()) return nullptr;
        out_ << found->second.ends << found->second.begins;
        found->second.ends.clear();
        found->second.begins.clear();
        return found->second.pointer;
    }

    void writeBytes(std::uint64_t until, const Segment* segment) {
        const std::uint64_t inFile = segment ? segment->address + segment->fileSize : at_;
        if (at_ < inFile) {
            const std::uint64_t size = std::min(until, inFile) - at_;
            out_ << ".incbin \"" << path_ << "\"," << image_.fileOffset + segment->fileOffset + at_ - segment->address << ","
                 << size << "\n";
            at_ += size;
        }
        if (at_ < until) out_ << ".zero " << until - at_ << "\n";
        at_ = until;
    }

    // Begin, size, and whether it is read, written and executed, as mprotect's bits.
    void writeSegments() {
        out_ << ".section .data.rel.ro,\"aw\",%progbits\n.balign 8\n.globl chroma_segments\n.hidden chroma_segments\n"
                "chroma_segments:\n";
        for (const Segment& segment : image_.segments)
            out_ << ".quad " << inImage(segment.address) << ", " << segment.size << ", "
                 << segment.readable + 2 * segment.writable + 4 * segment.executable << "\n";
        out_ << ".quad 0, 0, 0\n";
    }

    const Image& image_;
    const std::string& path_;
    std::ostream& out_;
    std::map<std::uint64_t, Place> places_;
    std::set<std::string> personalities_;
    std::uint64_t at_ = 0;
};

} // namespace

void writeAssembly(const Image& image, const std::string& path, std::ostream& out) { Writer(image, path, out).write(); }

} // namespace translator
