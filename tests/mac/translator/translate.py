"""Translates a slice of a macOS library to assembly for ELF, and writes its memory image, with the bytes, next to it.

    translate.py LIBRARY ARCHITECTURE ASSEMBLY
"""
import re
import sys
from pathlib import Path

from macho import Slice

library, architecture, assembly = sys.argv[1:]
source = Slice(library, architecture)

# The commands after the first three do not affect the image: symbol indexes, names and versions, the signature.
COMMANDS = """LC_SEGMENT_64 LC_SYMTAB LC_DYLD_INFO_ONLY LC_DYSYMTAB LC_ID_DYLIB LC_LOAD_DYLIB LC_UUID LC_CODE_SIGNATURE
    LC_VERSION_MIN_MACOSX LC_BUILD_VERSION LC_SOURCE_VERSION LC_FUNCTION_STARTS LC_DATA_IN_CODE""".split()
# Symbols that have another name here. The adapter defines those that start with `macos_`.
NAMES = {
    "_OBJC_EHTYPE_id": "_ZTIN6chroma12ThrownObjectE",  # the type that the builtin platform throws
    "___objc_personality_v0": "__gxx_personality_v0",
    "_objc_begin_catch": "macos_objc_begin_catch",
    "_objc_end_catch": "__cxa_end_catch",
    "_objc_msgSend": "macos_objc_msgSend",
    "_objc_retainAutorelease": "macos_objc_retainAutorelease",
    "___stack_chk_guard": "macos_stack_chk_guard",
    "dyld_stub_binder": "abort",  # binds lazily; this image has no lazy binding
    # A 64-bit integer is a `long long` there and a `long` here. The names of functions that the tests call differ
    # accordingly.
    "__ZN6chroma22REALBuildUnicodeStringEPKvxj": "_ZN6chroma22REALBuildUnicodeStringEPKvlj",
    "__ZN6chroma25RaiseOutOfBoundsExceptionExxxPKcS1_": "_ZN6chroma25RaiseOutOfBoundsExceptionElllPKcS1_",
}
if architecture == "arm64":
    NAMES["_snprintf"] = "macos_snprintf"  # reads its variable arguments from another place


def renamed(name):
    return NAMES.get(name, name.removeprefix("_"))


def refuse(why):
    sys.exit(f"translate: {library} ({architecture}) is not translated: {why}")


def segments():
    """Returns all segments except the one with the loader's tables. The first begins at address 0."""
    commands, _ = source.headers()
    for command in commands:
        if command["cmd"] not in COMMANDS:
            refuse(f"load command {command['cmd']} is not known")
        if command.get("flags", "(none)") not in ("(none)", "SG_READ_ONLY"):
            refuse(f"segment {command['segname']} has flags {command['flags']}")
    for need in source.needs():
        refuse(need)
    return [command for command in commands if command["cmd"] == "LC_SEGMENT_64" and command["segname"] != "__LINKEDIT"]


def protections(segments):
    """Yields the protection that each segment requests, in the adapter's format."""
    for segment in segments:
        read, write, execute = (letter != "-" for letter in segment["initprot"])
        yield f".quad chroma_image+{segment['vmaddr']}, {segment['vmsize']}, {read + 2 * write + 4 * execute}"


def pointers(image):
    """Returns the loader's writes by address: a symbol and an offset from it. Lazy pointers are rebased to the code that
    binds them first. Here they are bound at once."""
    result = {}
    for table in ("rebase", "bind", "weak-bind", "lazy-bind"):
        for segment, _, address, *what in source.fixups(table):
            at = int(address, 16)
            match table, what:
                case _ if segment == "__TEXT":
                    refuse(f"code is fixed up, at {address}")
                case "rebase", ["pointer"]:
                    result[at] = "chroma_image", int.from_bytes(image[at:at + 8], "little")
                case "bind", ["pointer", distance, _, symbol]:
                    result[at] = renamed(symbol), distance
                case "lazy-bind", [_, symbol]:
                    result[at] = renamed(symbol), 0
                case _:
                    refuse(f"the fixup at {address} is of an unknown kind: {table} {what}")
    return result


def labels():
    """Yields the symbols. Local names, which only a debugger uses, may occur twice."""
    taken = set()
    for line in source.nm("-m", "--defined-only").splitlines():
        symbol = re.fullmatch(r"(\w+) \(__\w+,(__\w+)\) (external|non-external)( \(was a private external\))? (\S+)", line)
        if not symbol:
            refuse("a symbol is of an unknown kind: " + line)
        address, section, scope, was_private, name = symbol.groups()
        address, name = int(address, 16), renamed(name)
        if scope == "external" or was_private:
            yield f".globl {name}"
        elif name in taken:
            name += f".{address}"
        if was_private:
            yield f".hidden {name}"
        taken.add(name)
        yield f".type {name}, {'%function' if section == '__text' else '%object'}"
        yield f".equiv {name}, chroma_image+{address}"


def frame(encoding):
    """Returns the places of the caller's registers after the prologue. The canonical frame address, the caller's stack
    pointer, is a register and an offset. Registers are saved at offsets from it. Their numbers are DWARF's."""
    mode = architecture, encoding >> 24 & 0xF
    if mode == ("x86_64", 1):
        saved = {16: -8, 6: -16}  # the return address, rbp
        lowest = -16 - 8 * (encoding >> 16 & 0xFF)
        for place in range(5):
            register = (None, 3, 12, 13, 14, 15)[encoding >> 3 * place & 7]  # rbx, r12 to r15
            if register:
                saved[register] = lowest + 8 * place
        return 6, 16, saved
    if mode == ("arm64", 2):  # without a frame pointer
        base, distance, saved = 31, 16 * (encoding >> 12 & 0xFFF), {}
    elif mode == ("arm64", 4):
        base, distance, saved = 29, 16, {30: -8, 29: -16}
    else:
        refuse(f"a frame is encoded as {encoding:#x}")
    # The registers by their bit in the encoding: pairs from x19 and x20 on, and from d8 and d9 on. Each register is below
    # the one before.
    for bit, first in {0: 19, 1: 21, 2: 23, 3: 25, 4: 27, 8: 72, 9: 74, 10: 76, 11: 78}.items():
        if encoding >> bit & 1:
            saved[first] = -8 * (len(saved) + 1)
            saved[first + 1] = -8 * (len(saved) + 1)
    return base, distance, saved


def code(image):
    """Yields the image's bytes from its file, with the unwind information of each function around its bytes."""
    functions = source.functions()
    for address in sorted({address for function in functions for address in (function.personality, function.handlers) if address}):
        yield f".equiv .Lat{address}, chroma_image+{address}"
    at = 0
    for function in functions:
        if function.encoding:
            base, distance, saved = frame(function.encoding)
            yield f'.incbin "{image}", {at}, {function.begin - at}'
            yield ".cfi_startproc"
            if function.personality:
                yield f".cfi_personality 0x9b, .Lat{function.personality}"  # the address of its address, relative
            if function.handlers:
                yield f".cfi_lsda 0x1b, .Lat{function.handlers}"  # relative
            yield f".cfi_def_cfa {base}, {distance}"
            yield from (f".cfi_offset {register}, {offset}" for register, offset in saved.items())
            yield f'.incbin "{image}", {function.begin}, {function.end - function.begin}'
            yield ".cfi_endproc"
            at = function.end
    yield f'.incbin "{image}", {at}'


loaded = segments()
image = source.image()
words = pointers(image)
image_file = Path(assembly).with_suffix(".image")
image_file.write_bytes(image)
Path(assembly).write_text("\n".join([
    '.section .chroma_image, "awx", %progbits', ".balign 16384", "chroma_image:", *labels(), *code(image_file),
    # Symbols that only relocations name would be dropped otherwise.
    *(f".globl {symbol}" for symbol in {symbol for symbol, _ in words.values()} - {"chroma_image"}),
    *(f".reloc chroma_image+{address}, BFD_RELOC_64, {symbol}+{distance}" for address, (symbol, distance) in words.items()),
    '.section .data.rel.ro, "aw", %progbits', ".balign 8", ".globl chroma_segments", ".hidden chroma_segments",
    "chroma_segments:", *protections(loaded), ".quad 0, 0, 0",
    '.section .note.GNU-stack, "", %progbits', ""]))
