"""A slice of a Mach-O library, as LLVM's tools tell it."""
import glob
import os
import re
import subprocess
import tempfile
from typing import NamedTuple, Optional

# On some systems the tools are in a folder of their own.
os.environ["PATH"] = os.pathsep.join([os.environ["PATH"], *glob.glob("/usr/lib/llvm-*/bin")])


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


class Function(NamedTuple):
    begin: int
    end: int
    encoding: int  # of its frame; 0: it cannot be unwound
    personality: Optional[int]  # where its address is
    handlers: Optional[int]  # the table that the personality reads


class Slice:
    def __init__(self, library, architecture):
        self.library, self.architecture = library, architecture

    def objdump(self, option):
        return output("llvm-objdump", "--macho", "--arch=" + self.architecture, option, self.library)

    def nm(self, *options):
        return output("llvm-nm", "--arch=" + self.architecture, *options, self.library)

    def contents(self):
        """The bytes of a file that is this slice alone."""
        with tempfile.TemporaryDirectory() as folder:
            file = os.path.join(folder, "slice")
            output("llvm-lipo", self.library, "-thin", self.architecture, "-output", file)
            with open(file, "rb") as thin:
                return thin.read()

    def headers(self):
        """The load commands and the sections, each with its fields by their names."""
        commands, sections = [], []
        for line in self.objdump("--private-headers").splitlines():
            if line.startswith("Load command") or line == "Section":
                records = sections if line == "Section" else commands
                records.append({})
            elif commands:
                field, _, value = line.strip().partition(" ")
                records[-1][field] = value.strip()
        return commands, sections

    def fixups(self, table):
        """A table of what the loader writes: segment, section and address of a word, and what else the table has of it."""
        return [line.split() for line in self.objdump("--" + table).splitlines() if line.startswith("__")]

    def functions(self):
        """What the unwinder knows of them, in their order. Each ends where the next begins."""
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
