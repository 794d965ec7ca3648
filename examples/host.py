#!/usr/bin/env python3
"""A host in Python. It loads a plugin, creates a colour, reads it by reference, passes a string and catches an exception.
With a plugin that has no colours it prints the plugin's classes.

    python3 examples/host.py build/m64/lib/libchromabridge.so

chromabridge/host_abi.h documents the entry points, records, offsets and encodings. Python must be as wide as the library.
"""
import ctypes
import sys
from ctypes import CFUNCTYPE, POINTER, c_char_p, c_double, c_int32, c_ssize_t, c_uint32, c_void_p

ASCII, UNKNOWN, INSTANCE_DATA, STRING_BUFFER, STRING_LENGTH = 0x0600, 0xFFFF, 24, 4, 12


class Method(ctypes.Structure):
    _fields_ = [("function", c_void_p), ("setter", c_void_p), ("declaration", c_char_p), ("flags", c_ssize_t),
                ("further", c_ssize_t * 2)]


class ClassDefinition(ctypes.Structure):
    _fields_ = [("version", c_ssize_t), ("name", c_char_p), ("super_name", c_char_p), ("size", c_ssize_t),
                ("offset", c_ssize_t), ("constructor", c_void_p), ("destructor", c_void_p), ("properties", c_void_p),
                ("property_count", c_ssize_t), ("methods", POINTER(Method)), ("method_count", c_ssize_t),
                ("further", c_ssize_t * 12), ("shared_methods", POINTER(Method)), ("shared_method_count", c_ssize_t)]


class Value:
    """An object or a string: the memory that the plugin sees, and a count of references."""

    def __init__(self, size, record=None):
        self.memory = ctypes.create_string_buffer(size)
        self.address = ctypes.addressof(self.memory)
        self.references, self.record, self.text, self.encoding = 1, record, b"", UNKNOWN
        values[self.address] = self


class HostException(Exception):
    pass


values = {}  # the live values by address
classes = {name: ClassDefinition(name=name) for name in (b"RuntimeException", b"OutOfBoundsException")}
pending = []  # the exception that the plugin recorded


def lock(address):
    if address:
        values[address].references += 1


def unlock(address):
    if not address:
        return
    value = values[address]
    value.references -= 1
    if not value.references:
        if value.record and value.record.destructor:
            CFUNCTYPE(None, c_void_p)(value.record.destructor)(address)
        del values[address]


def register_class(record):
    record.contents.offset = INSTANCE_DATA
    classes[record.contents.name] = record.contents


def new_instance(name):
    if name not in classes:
        return None
    value = Value(INSTANCE_DATA + classes[name].size, classes[name])
    if value.record.constructor:
        CFUNCTYPE(None, c_void_p)(value.record.constructor)(value.address)
    return value.address


def build_string(address, length, encoding=UNKNOWN):
    """The text of a string starts at the second byte of its buffer."""
    value = Value(16)
    value.encoding = encoding
    value.text = ctypes.string_at(address, length)
    value.buffer = ctypes.create_string_buffer(b"\0" + value.text)
    c_void_p.from_buffer(value.memory, STRING_BUFFER).value = ctypes.addressof(value.buffer)
    c_int32.from_buffer(value.memory, STRING_LENGTH).value = length
    return value.address


ENTRIES = {
    b"REALGetRBVersion": CFUNCTYPE(c_double)(lambda: 2021.0),
    b"PluginRegisterClass": CFUNCTYPE(None, POINTER(ClassDefinition))(register_class),
    b"PluginNewInstance": CFUNCTYPE(c_void_p, c_char_p)(new_instance),
    b"REALLockObject": CFUNCTYPE(None, c_void_p)(lock),
    b"REALUnlockObject": CFUNCTYPE(None, c_void_p)(unlock),
    b"REALLockString": CFUNCTYPE(None, c_void_p)(lock),
    b"REALUnlockString": CFUNCTYPE(None, c_void_p)(unlock),
    b"REALBuildString": CFUNCTYPE(c_void_p, c_void_p, c_int32)(build_string),
    b"REALBuildStringWithEncoding": CFUNCTYPE(c_void_p, c_void_p, c_int32, c_uint32)(build_string),
    b"REALGetStringEncoding": CFUNCTYPE(c_uint32, c_void_p)(lambda string: values[string].encoding),
    b"REALSetStringEncoding": CFUNCTYPE(None, c_void_p, c_uint32)(
        lambda string, encoding: setattr(values[string], "encoding", encoding)),
    b"REALSetPropValueString": CFUNCTYPE(None, c_void_p, c_char_p, c_void_p)(
        lambda exception, name, string: name == b"Message" and setattr(
            values[exception], "text", values[string].text if string else b"")),
    b"RuntimeRaiseException": CFUNCTYPE(None, c_void_p)(lambda exception: (lock(exception), pending.append(exception))),
}


@CFUNCTYPE(c_void_p, c_char_p)
def resolve(name):
    return ctypes.cast(ENTRIES[name], c_void_p).value if name in ENTRIES else None


def call(result, class_name, declaration, *arguments):
    """Calls the member of that declaration. A recorded exception is raised now, when the call has returned."""
    record = classes[class_name.encode()]
    rows = record.methods[:record.method_count] + record.shared_methods[:record.shared_method_count]
    function = next(row.function for row in rows if row.declaration == declaration.encode())
    types = [c_double if isinstance(a, float) else c_void_p for a in arguments]
    returned = CFUNCTYPE(result, *types)(function)(*arguments)
    if pending:
        exception = values[pending.pop()]
        error = HostException(f"{exception.record.name.decode()}: {exception.text.decode()}")
        unlock(exception.address)
        raise error
    return returned


def main(library):
    own = len(classes)
    ctypes.CDLL(library).REALPluginMain(resolve)
    if b"NSColorZRX" not in classes:
        return print(*(f"class {name.decode()}" for name in list(classes)[own:]), sep="\n")
    constructor = "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)"
    orange = new_instance(b"NSColorZRX")
    call(None, "NSColorZRX", constructor, orange, 1.0, 0.5, 0.0, 0.8)
    red, green, blue, alpha = (c_double() for _ in range(4))
    call(None, "NSColorZRX", "getRGB(byref red as double, byref green as double, byref blue as double, "
         "byref alpha as double)", orange, *(ctypes.addressof(c) for c in (red, green, blue, alpha)))
    print(f"red {red.value:.3f}, green {green.value:.3f}, blue {blue.value:.3f}, alpha {alpha.value:.3f}")

    space = build_string(b"NSDeviceWhiteColorSpace", 23, ASCII)
    gray = call(c_void_p, "NSColorZRX", "colorUsingColorSpaceName(colorSpace as string) as NSColorZRX", orange, space)
    white = c_double()
    call(None, "NSColorZRX", "getWhite(byref white as double)", gray, ctypes.addressof(white))
    print(f"white {white.value:.3f}")

    too_much = new_instance(b"NSColorZRX")
    try:
        call(None, "NSColorZRX", constructor, too_much, 3.0, 0.0, 0.0, 1.0)
    except HostException as error:
        print(error)
    for value in (gray, space, orange, too_much):
        unlock(value)
    print(f"{len(values)} values left")


if __name__ == "__main__":
    main(sys.argv[1]) if len(sys.argv) == 2 else sys.exit("usage: host.py PLUGIN")
