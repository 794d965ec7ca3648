"""Checks the results of the cross build with LLVM's tools. The environment names the files."""
import os
import re
import unittest
from pathlib import Path

from macho import Slice, output

SYSTEM_LIBRARIES = {
    "/System/Library/Frameworks/AppKit.framework/Versions/C/AppKit",
    "/System/Library/Frameworks/CoreFoundation.framework/Versions/A/CoreFoundation",
    "/System/Library/Frameworks/Foundation.framework/Versions/C/Foundation",
    "/usr/lib/libSystem.B.dylib",
    "/usr/lib/libc++.1.dylib",
    "/usr/lib/libobjc.A.dylib",
}
# The library that provides a symbol, by its name. The sysroot's lists are the project's own and could be wrong.
HOMES = {"AppKit": "_NS[A-Z]", "CoreFoundation": "_CF[A-Z]", "libobjc": "_objc_|_sel_|_class_|_object_|_OBJC_|___objc_",
         "libc++": "__Z|___cxa_|___gxx_", "libSystem": ""}
# Names that the build system's own headers, or its way of linking, would leave in the file.
FOREIGN = ("@|GLIBC|^_*libc_|_chk$|_isoc99_|^___errno_location$|^___assert_fail$|^_std(in|out|err)$|^___ctype_"
           "|_ITM_|_GLOBAL_OFFSET")


def listed(architecture):
    """Returns the sysroot's symbols, each with its library."""
    return {(symbol, file.stem) for file in Path(os.environ["SYSROOT"]).rglob("*.tbd")
            for symbol in re.findall(r" S (\S+)", Slice(file, architecture).nm())}


class SliceTest:
    """The requirements for each slice of the library."""

    def setUp(self):
        self.slice = Slice(os.environ["LIBRARY"], self.architecture)
        self.commands, _ = self.slice.headers()

    def fields(self, kinds, field):
        """Returns the kind and one field of the load commands of some kinds."""
        return [(command["cmd"], command[field]) for command in self.commands if re.fullmatch(kinds, command["cmd"])]

    def test_has_the_form_that_its_systems_load(self):
        self.assertEqual(set(output("llvm-lipo", "-archs", self.slice.library).split()), {"arm64", "x86_64"})
        self.assertRegex(self.slice.objdump("--private-headers"),
                         r"DYLIB +\d+ +\d+ +NOUNDEFS DYLDLINK TWOLEVEL NO_REEXPORTED_DYLIBS\n")
        self.assertEqual(self.fields("LC_VERSION_MIN_.*", "version") + self.fields("LC_BUILD_VERSION", "minos"), [self.oldest])
        self.assertEqual([sdk for _, sdk in self.fields("LC_VERSION_MIN_.*|LC_BUILD_VERSION", "sdk")], ["11.0"])

    def test_has_segments_of_one_protection_and_no_flags(self):
        # macOS 15.4 and later refuse __DATA_CONST without SG_READ_ONLY.
        segments = [tuple(command[field] for field in ("segname", "initprot", "maxprot", "flags"))
                    for command in self.commands if command["cmd"] == "LC_SEGMENT_64"]
        self.assertEqual(segments, [("__TEXT", "r-x", "r-x", "(none)"), ("__DATA", "rw-", "rw-", "(none)"),
                                    ("__LINKEDIT", "r--", "r--", "(none)")])

    def test_runs_no_code_when_it_is_loaded(self):
        self.assertEqual(list(self.slice.needs()), [])
        self.assertEqual(self.fields("LC_ROUTINES.*|LC_DYLD_CHAINED_FIXUPS", "cmd"), [])

    def test_is_signed_page_by_page(self):
        [(_, offset)] = self.fields("LC_CODE_SIGNATURE", "dataoff")
        text = next(command for command in self.commands if command["segname"] == "__TEXT")
        signature = self.slice.signature()
        self.assertEqual({field: signature[field] for field in ("magic", "parts", "kind", "hash_size", "hash_type")},
                         {"magic": 0xFADE0CC0, "parts": 1, "kind": 0xFADE0C02, "hash_size": 32, "hash_type": 2})
        self.assertEqual(signature["identifier"], "chromabridge")
        self.assertEqual(signature["flags"], 0x20002, "ad hoc, by a linker")
        self.assertEqual((signature["limit"], signature["pages"]), (int(offset), -(-int(offset) >> signature["page_bits"])))
        self.assertEqual((signature["text_offset"], signature["text_size"]), (0, int(text["filesize"])))
        self.assertEqual(signature["wrong"], [])

    def test_has_the_installed_names(self):
        names = {(kind, name.split(" (")[0]) for kind, name in self.fields("LC_.*_DYLIB", "name")}
        expected = {("LC_LOAD_DYLIB", name) for name in SYSTEM_LIBRARIES}
        self.assertEqual(names, expected | {("LC_ID_DYLIB", "@rpath/chromabridge.dylib")})
        self.assertEqual(self.fields("LC_RPATH", "path"), [])
        for folder in os.environ["BUILD"], os.environ["SOURCE"]:
            self.assertNotIn(folder.encode(), self.slice.contents())

    def test_exports_one_entry_point(self):
        self.assertEqual(self.slice.nm("-j", "--defined-only", "--extern-only").split(), ["_REALPluginMain"])

    def test_imports_exactly_the_listed_symbols(self):
        offered = listed(self.architecture)
        imports = {line.strip() for line in self.slice.nm("-m", "--undefined-only").splitlines()}
        self.assertEqual(imports, {f"(undefined) external {symbol} (from {library})" for symbol, library in offered})
        bound = {(symbol, library) for table in ("bind", "lazy-bind") for *_, library, symbol in self.slice.fixups(table)}
        self.assertEqual(bound, offered)

    def test_calls_each_import_through_its_own_pointer(self):
        lazy = {int(address, 16): symbol for _, _, address, _, symbol in self.slice.fixups("lazy-bind")}
        stubs = list(self.slice.stubs())
        self.assertEqual({symbol: lazy.get(pointer) for symbol, pointer in stubs}, {symbol: symbol for symbol in lazy.values()})
        for symbol, pointer in stubs:
            self.assertEqual(self.slice.lazily_bound(pointer), pointer, symbol)

    def test_has_one_unwind_entry_for_each_function(self):
        # If a function has two entries, the first one's information is lost, above all its handlers.
        begins = [function.begin for function in self.slice.functions()]
        self.assertEqual(begins, sorted(set(begins)))
        self.assertGreater(len(begins), 100)
        # The older form of the same information, if the linker writes it, covers the same functions.
        frames = output("llvm-dwarfdump", "--eh-frame", "--arch=" + self.architecture, self.slice.library)
        self.assertEqual({int(begin, 16) for begin in re.findall(r" FDE .* pc=(\w+)", frames)} - set(begins), set())

    def test_catches_native_exceptions_in_the_guard(self):
        begin = int(re.search(r"(\w+) t _chroma_guard_run", self.slice.nm())[1], 16)
        [guard] = [function for function in self.slice.functions() if function.begin == begin]
        bound = {int(address, 16): symbol for _, _, address, *_, symbol in self.slice.fixups("bind")}
        self.assertEqual(bound.get(guard.personality), "___objc_personality_v0")
        self.assertTrue(guard.handlers)


class Arm64(SliceTest, unittest.TestCase):
    architecture, oldest = "arm64", ("LC_BUILD_VERSION", "11.0")


class X86_64(SliceTest, unittest.TestCase):
    architecture, oldest = "x86_64", ("LC_VERSION_MIN_MACOSX", "10.12")


class Sysroot(unittest.TestCase):
    def test_lists_only_symbols_of_the_system(self):
        for symbol, library in listed("arm64") | listed("x86_64") | listed("i386"):
            home = next(home for home, pattern in HOMES.items() if re.match(pattern, symbol))
            self.assertEqual((symbol, library), (symbol, home))
            self.assertNotRegex(symbol, FOREIGN)


class Objects(unittest.TestCase):
    def test_i386_objects_use_jumping_exceptions(self):
        archive = Slice(os.environ["I386"], "i386")
        headers = archive.objdump("--private-headers")
        objects = len(re.findall(r"\.o\):\n", headers))
        self.assertEqual(len(re.findall(r"MH_MAGIC +I386 ", headers)), objects)
        self.assertEqual(len(re.findall(r"LC_VERSION_MIN_MACOSX\n *cmdsize 16\n *version 10\.6\n", headers)), objects)
        defined, undefined = (set(re.findall("^_.*", archive.nm("-j", kind), re.MULTILINE))
                              for kind in ("--defined-only", "--undefined-only"))
        self.assertIn("_REALPluginMain", defined)
        self.assertIn("_objc_exception_try_enter", undefined)
        self.assertIn("__setjmp", undefined)
        self.assertFalse([symbol for symbol in undefined if re.match("_objc_begin_catch|_objc_personality", symbol)])
        self.assertEqual(undefined - defined, {symbol for symbol, _ in listed("i386")})

    def test_messages_use_the_send_function_for_their_result(self):
        for result in "VOID", "DOUBLE":
            for architecture in "arm64", "x86_64", "i386":
                symbols = Slice(os.environ["SEND_" + result], architecture).nm("--undefined-only")
                by_stack = result == "DOUBLE" and architecture == "i386"
                self.assertEqual(re.findall(r"_objc_msg\w+", symbols), ["_objc_msgSend_fpret" if by_stack else "_objc_msgSend"])


if __name__ == "__main__":
    unittest.main()
