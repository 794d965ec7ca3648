// One slice of a Mach-O library: what its loader and its unwinder would read.
#pragma once

#include "bytes.h"

#include <map>
#include <string>
#include <vector>

namespace translator {

enum class Architecture { x86_64, arm64 };

// Addresses are offsets from the image's first byte, which the first segment loads.
struct Segment {
    std::string name;
    std::uint64_t address = 0;
    std::uint64_t size = 0;
    std::uint64_t fileOffset = 0; // from the beginning of the slice
    std::uint64_t fileSize = 0;   // zeros follow
    bool readable = false, writable = false, executable = false;
};

struct Section {
    std::string name;
    std::uint64_t address = 0;
    std::uint64_t size = 0;
};

struct Symbol {
    std::string name;
    std::uint64_t address = 0;
    bool isGlobal = false;   // among the objects that the library was linked from
    bool isExported = false; // by the library
    bool isCode = false;
};

// What the loader writes into a word of the image: the address of a symbol elsewhere, plus a number, or, where the symbol's
// name is empty, an address of the image.
struct Pointer {
    std::string symbol;
    std::int64_t addend = 0;
};

// How to find the caller's registers from those of the function, anywhere after its prologue. Registers have their DWARF
// numbers; what is saved lies at a distance from the canonical frame address, the caller's stack pointer.
struct Frame {
    int baseRegister = 0;
    std::int64_t addressOffset = 0; // of the canonical frame address from the base register
    std::vector<std::pair<int, std::int64_t>> saved;
};

struct Function {
    std::uint64_t begin = 0, end = 0;
    bool canBeUnwound = false;
    Frame frame;
    std::uint64_t personality = 0; // where the image keeps its address; 0: it has none
    std::uint64_t handlers = 0;    // the table that the personality reads; 0: it has none
};

struct Image {
    Architecture architecture;
    std::uint64_t fileOffset;      // of the slice
    std::vector<Segment> segments; // but those with the loader's own tables
    std::vector<Section> sections;
    std::vector<Symbol> symbols; // defined ones
    std::map<std::uint64_t, Pointer> pointers;
    std::vector<Function> functions; // in the order of their addresses
};

// The slice of a library for an architecture.
Image readImage(Bytes library, Architecture architecture);

// What the loader's programs do: rebases and binds. The programs are parts of the file; the pointers, what they write.
struct FixupPrograms {
    Bytes rebase, bind, lazyBind;
};
std::map<std::uint64_t, Pointer> runFixups(const FixupPrograms& programs, const std::vector<Segment>& segments, Bytes slice);

// What a section of compact unwind information tells.
std::vector<Function> readFunctions(Bytes unwindInfo, Architecture architecture);

} // namespace translator
