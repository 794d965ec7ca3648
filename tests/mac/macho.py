"""Reads a slice of a Mach-O library with LLVM's tools."""
import functools
import glob
import hashlib
import os
import re
import struct
import subprocess
import tempfile
from typing import NamedTuple, Optional

# On some systems the tools are in a separate folder.
os.environ["PATH"] = os.pathsep.join([os.environ["PATH"], *glob.glob("/usr/lib/llvm-*/bin")])


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


# Contents, zeros, literals, stubs and their pointers. None of these needs a call or set-up by a loader.
SECTIONS = """S_REGULAR S_COALESCED S_ZEROFILL S_CSTRING_LITERALS S_4BYTE_LITERALS S_8BYTE_LITERALS S_16BYTE_LITERALS
    S_SYMBOL_STUBS S_LAZY_SYMBOL_POINTERS S_NON_LAZY_SYMBOL_POINTERS""".split()


class Function(NamedTuple):
    begin: int
    end: int
    encoding: int  # the frame's compact unwind encoding; 0 if it cannot be unwound
    personality: Optional[int]  # the place of the personality's address
    handlers: Optional[int]  # the table that the personality reads


class Slice:
    def __init__(self, library, architecture):
        self.library, self.architecture = library, architecture

    def objdump(self, option):
        return output("llvm-objdump", "--macho", "--arch=" + self.architecture, option, self.library)

    def nm(self, *options):
        return output("llvm-nm", "--arch=" + self.architecture, *options, self.library)

    @functools.cache
    def contents(self):
        """Returns the bytes of a file with only this slice."""
        with tempfile.TemporaryDirectory() as folder:
            file = os.path.join(folder, "slice")
            output("llvm-lipo", self.library, "-thin", self.architecture, "-output", file)
            with open(file, "rb") as thin:
                return thin.read()

    @functools.cache
    def headers(self):
        """Returns the load commands and the sections, each as a mapping from field names to values."""
        commands, sections = [], []
        for line in self.objdump("--private-headers").splitlines():
            if line.startswith("Load command") or line == "Section":
                records = sections if line == "Section" else commands
                records.append({})
            elif commands:
                field, _, value = line.strip().partition(" ")
                records[-1][field] = value.strip()
        return commands, sections

    def needs(self):
        """Yields, section by section, the work that the loader or a runtime would have to do before the slice runs."""
        for section in self.headers()[1]:
            if section["type"] not in SECTIONS:
                yield f"section {section['sectname']} is of a kind that nothing here would serve, {section['type']}"
            if section["sectname"].startswith("__objc_") and section["sectname"] != "__objc_imageinfo":
                yield f"section {section['sectname']} is for a runtime that reads images"

    @functools.cache
    def image(self):
        """Returns the contents at their addresses, without the loader's tables, as they are before the loader writes."""
        contents, image = self.contents(), bytearray()
        for segment in self.headers()[0]:
            if segment["cmd"] == "LC_SEGMENT_64" and segment["segname"] != "__LINKEDIT":
                address, size = int(segment["vmaddr"], 16), int(segment["vmsize"], 16)
                begin, end = int(segment["fileoff"]), int(segment["fileoff"]) + int(segment["filesize"])
                image = (image.ljust(address, b"\0") + contents[begin:end]).ljust(address + size, b"\0")
        return image

    def fixups(self, table):
        """Returns a table of the loader's writes: segment, section and address of a word, and the table's other columns."""
        return [line.split() for line in self.objdump("--" + table).splitlines() if line.startswith("__")]

    def functions(self):
        """Returns the unwinder's information about the functions, in order. Each function ends where the next begins."""
        text = self.objdump("--unwind-info")

        def pairs(pattern):
            return [(int(first, 16), int(second, 16)) for first, second in re.findall(pattern, text)]

        entries = pairs(r"function offset=(\w+), encoding[^=]*=(\w+)")
        end = pairs(r"function offset=(\w+), 2nd level page offset=(0x0+),")
        personalities = {0: None, **dict(pairs(r"personality\[(\d+)\]: (\w+)"))}
        handlers = dict(pairs(r"function offset=(\w+), LSDA offset=(\w+)"))
        return [Function(begin, end, encoding, personalities[encoding >> 28 & 3],
                         handlers[begin] if encoding >> 30 & 1 else None)
                for (begin, encoding), (end, _) in zip(entries, entries[1:] + end)]

    def stubs(self):
        """Yields each stub as its import and the address of the pointer that it jumps through."""
        text = self.objdump("--indirect-symbols").partition("(__TEXT,__stubs)")[2].partition("Indirect")[0]
        for address, symbol in re.findall(r"^(0x\w+) +\d+ (\S+)$", text, re.MULTILINE):
            yield symbol, self.pointer(int(address, 16))

    def pointer(self, at):
        """Returns the pointer that the stub at an address jumps through, or None if it is not a stub."""
        image = self.image()
        if self.architecture == "x86_64":  # jmpq *distance(%rip)
            jump, distance = struct.unpack_from("<Hi", image, at)
            return at + 6 + distance if jump == 0x25FF else None
        page, load, branch = struct.unpack_from("<3I", image, at)  # adrp x16, PAGE; ldr x16, [x16, #OFFSET]; br x16
        if (page & 0x9F00001F, load & 0xFFC003FF, branch) != (0x90000010, 0xF9400210, 0xD61F0200):
            return None
        pages = (page >> 5 & 0x7FFFF) << 2 | page >> 29 & 3
        return (at & ~0xFFF) + (pages << 12) + (load >> 10 & 0xFFF) * 8

    def lazily_bound(self, pointer):
        """Follows a lazy pointer to its binding. Returns the address that the loader would write to."""
        image, contents, (commands, _) = self.image(), self.contents(), self.headers()
        helper = int.from_bytes(image[pointer:pointer + 8], "little")
        offset = struct.unpack_from("<I", image, helper + (1 if self.architecture == "x86_64" else 8))[0]
        [info] = [command for command in commands if command["cmd"] == "LC_DYLD_INFO_ONLY"]
        place = int(info["lazy_bind_off"]) + offset
        segments = [int(command["vmaddr"], 16) for command in commands if command["cmd"] == "LC_SEGMENT_64"]
        if contents[place] & 0xF0 != 0x70:  # BIND_OPCODE_SET_SEGMENT_AND_OFFSET_ULEB
            return None
        distance = shift = 0
        for byte in contents[place + 1:place + 11]:
            distance, shift = distance | (byte & 0x7F) << shift, shift + 7
            if byte < 0x80:
                break
        return segments[contents[place] & 0xF] + distance

    def signature(self):
        """Returns the directory of an ad-hoc signature by field, and the pages whose hashes are wrong."""
        contents, directory = self.contents(), {}
        [command] = [command for command in self.headers()[0] if command["cmd"] == "LC_CODE_SIGNATURE"]
        place = int(command["dataoff"])
        directory["magic"], _, directory["parts"], _, offset = struct.unpack_from(">5I", contents, place)
        place += offset
        fields = ("kind _ version flags hashes identifier _ pages limit hash_size hash_type _ page_bits _ _ _ _ _ text_offset "
                  "text_size _").split()
        directory.update(zip(fields, struct.unpack_from(">9I4B4I4Q", contents, place)))
        size, limit, pages = 1 << directory["page_bits"], directory["limit"], range(directory["pages"])
        hashes = [contents[place + directory["hashes"] + 32 * page:][:32] for page in pages]
        directory["wrong"] = [page for page in pages
                              if hashes[page] != hashlib.sha256(contents[page * size:min((page + 1) * size, limit)]).digest()]
        directory["identifier"] = contents[place + directory["identifier"]:].partition(b"\0")[0].decode()
        return directory
