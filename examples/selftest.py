#!/usr/bin/env python3
"""Tests the plugin where it is installed, against the frameworks of the system.

    python3 selftest.py chromabridge.dylib

It needs only this file, Python 3.8 or later, and the library. It loads the library as a host does, runs the checks below, and
prints what only this system can tell. The last line is "N passed, M failed"; the exit code is 1 if a check failed. A check that
needs a message that the system does not have is listed as not run.
"""
import ctypes
import os
import platform
import re
import sys
import tempfile
from ctypes import CFUNCTYPE, c_bool, c_char_p, c_double, c_int32, c_ssize_t, c_uint32, c_void_p

UTF8, UTF16, UTF32, ASCII, UNKNOWN = 0x08000100, 0x0100, 0x0C000100, 0x0600, 0xFFFF
ENCODINGS = {UTF8: "utf-8", ASCII: "ascii", 0x0201: "latin-1", 0x0500: "cp1252", 0: "mac_roman", UNKNOWN: "mac_roman",
             UTF16: "utf-16-" + sys.byteorder[:1] + "e", UTF32: "utf-32-" + sys.byteorder[:1] + "e"}


# ---- A host: values with counted references, and the entry points by name. include/chromabridge/host_abi.h documents each.

def record(*fields):
    """A structure whose words are as wide as a pointer; a name ends in its type, '*' for a pointer and '$' for text."""
    types = {"*": c_void_p, "$": c_char_p}
    return type("Record", (ctypes.Structure,),
                {"_fields_": [(field.rstrip("*$"), types.get(field[-1], c_ssize_t)) for field in fields]})


Property = record("group$", "name$", "type$", "flags", "getter*", "setter*", "parameter", "a", "b", "c", "d", "e")
Method = record("function*", "setter*", "declaration$", "flags", "a", "b")
Class = record("version", "name$", "super$", "size", "offset", "constructor*", "destructor*", "properties*", "property_count",
               "methods*", "method_count", "events*", "event_count", "event_instances*", "event_instance_count", "interfaces*",
               "bindings*", "binding_count", "constants*", "constant_count", "flags", "shared_properties*",
               "shared_property_count", "shared_methods*", "shared_method_count")


def rows(address, count, row):
    return [row.from_address(address + i * ctypes.sizeof(row)) for i in range(count or 0)]


class Member:
    """A method, read from its declaration."""

    def __init__(self, row):
        self.function = row.function
        name, parameters, self.result = re.fullmatch(r"(\w+)(?:\(((?:[^()]|\(\))*)\))?(?: as (\S+))?",
                                                     row.declaration.decode()).groups()
        types = [re.sub(" *=.*", "", parameter).split(" as ") for parameter in (parameters or "").split(",") if parameter]
        self.name, self.types = name, [type_.lower() for _, type_ in types]


class HostException(Exception):
    pass


class Value:
    """An object, a string, an array or a memory block: the memory that the plugin sees, and a count of references."""

    def __init__(self, size=40, record=None):
        self.memory = ctypes.create_string_buffer(size)
        self.address = ctypes.addressof(self.memory)
        self.references, self.record, self.encoding, self.bytes, self.items = 1, record, UNKNOWN, b"", []
        values[self.address] = self

    def store(self, data):
        self.bytes = data
        self.buffer = ctypes.create_string_buffer(b"\0" + data)  # a string's text starts at the second byte
        c_void_p.from_buffer(self.memory, 4).value = ctypes.addressof(self.buffer)
        c_int32.from_buffer(self.memory, 12).value = len(data)

    @property
    def native(self):
        """Returns the system's object inside a host object."""
        return c_void_p.from_buffer(self.memory, 24).value


values, classes, pending = {}, {name: Class(name=name) for name in (b"RuntimeException", b"OutOfBoundsException")}, []


def lock(address):
    values[address].references += 1


def unlock(address):
    value = values[address]
    value.references -= 1
    if value.references:
        return
    if value.record and value.record.destructor:
        CFUNCTYPE(None, c_void_p)(value.record.destructor)(address)
    for item in value.items:
        if isinstance(item, int):
            unlock(item)
    del values[address]


def register_class(address):
    definition = Class.from_address(address)
    definition.offset = 24
    definition.members = [Member(row) for row in rows(definition.methods, definition.method_count, Method)]
    definition.shared = [Member(row) for row in rows(definition.shared_methods, definition.shared_method_count, Method)]
    definition.getters = {row.name: row for row in rows(definition.properties, definition.property_count, Property)}
    classes[definition.name] = definition


def new_instance(name):
    if name not in classes:
        return None
    value = Value(40 + (classes[name].size or 0), classes[name])
    if value.record.constructor:
        CFUNCTYPE(None, c_void_p)(value.record.constructor)(value.address)
    return value.address


def build_string(address, length, encoding=UNKNOWN):
    return new_string(ctypes.string_at(address, length), encoding)


def new_string(data, encoding=UTF8):
    value = Value()
    value.store(data)
    value.encoding = encoding
    return value.address


def text_of(address):
    value = values[address]
    return value.bytes.decode(ENCODINGS[value.encoding])


def convert_string(address, encoding):
    return new_string(text_of(address).encode(ENCODINGS[encoding]), encoding) if address else None


def set_message(exception, name, string):
    if name == b"Message":
        values[exception].message = text_of(string) if string else ""


def property_string(file, name, result):
    if name != b"NativePath":
        return False
    c_void_p.from_address(result).value = new_string(values[file].bytes)
    return True


def new_array(element_type, upper_bound):
    value = Value()
    value.items = [0.0 if element_type == 2 else None] * (upper_bound + 1)
    return value.address


def insert(array, index, item):
    items = values[array].items
    if index == len(items):
        items.append(item)
    else:
        items[index] = item
    if isinstance(item, int):
        lock(item)


def new_block(size):
    value = Value()
    value.block = ctypes.create_string_buffer(max(size, 1))
    value.size = size
    return value.address


def raise_exception(exception):
    lock(exception)
    pending.append(exception)


get_double = CFUNCTYPE(c_double, c_void_p, c_int32)(lambda array, index: values[array].items[index])
insert_double = CFUNCTYPE(None, c_void_p, c_int32, c_double)(insert)
insert_object = CFUNCTYPE(None, c_void_p, c_int32, c_void_p)(insert)


def entry(function, result, *arguments):
    return CFUNCTYPE(result, *arguments)(function)


ENTRIES = {
    b"REALGetRBVersion": entry(lambda: 2021.0, c_double),
    b"RegisterPluginVersion": entry(lambda version: None, None, c_int32),
    b"PluginRegisterClass": entry(register_class, None, c_void_p),
    b"PluginNewInstance": entry(new_instance, c_void_p, c_char_p),
    b"REALLockObject": entry(lock, None, c_void_p),
    b"REALUnlockObject": entry(unlock, None, c_void_p),
    b"REALLockString": entry(lock, None, c_void_p),
    b"REALUnlockString": entry(unlock, None, c_void_p),
    b"RuntimeRaiseException": entry(raise_exception, None, c_void_p),
    b"REALSetPropValueString": entry(set_message, None, c_void_p, c_char_p, c_void_p),
    b"REALSetPropValueInteger": entry(lambda *unused: None, None, c_void_p, c_char_p, c_int32),
    b"REALGetPropValueString": entry(property_string, c_bool, c_void_p, c_char_p, c_void_p),
    b"REALBuildString": entry(build_string, c_void_p, c_void_p, c_int32),
    b"REALBuildStringWithEncoding": entry(build_string, c_void_p, c_void_p, c_int32, c_uint32),
    b"REALGetStringEncoding": entry(lambda string: values[string].encoding, c_uint32, c_void_p),
    b"REALSetStringEncoding": entry(lambda string, encoding: setattr(values[string], "encoding", encoding), None, c_void_p,
                                    c_uint32),
    b"REALConvertString": entry(convert_string, c_void_p, c_void_p, c_uint32),
    b"RuntimeArrayCreateSingleDimBoundedArray": entry(new_array, c_void_p, c_int32, c_int32),
    b"RuntimeUBound": entry(lambda array: len(values[array].items) - 1, c_int32, c_void_p),
    b"PluginDoubleArrayInsertProc": entry(lambda array: ctypes.cast(insert_double, c_void_p).value, c_void_p, c_void_p),
    b"PluginObjectArrayInsertProc": entry(lambda array: ctypes.cast(insert_object, c_void_p).value, c_void_p, c_void_p),
    b"PluginDoubleArrayGetProc": entry(lambda array: ctypes.cast(get_double, c_void_p).value, c_void_p, c_void_p),
    b"newMemoryBlock": entry(new_block, c_void_p, c_int32),
    b"memoryBlockGetPtr": entry(lambda block: ctypes.addressof(values[block].block), c_void_p, c_void_p),
    b"memoryBlockGetSize": entry(lambda block: values[block].size, c_int32, c_void_p),
}


@CFUNCTYPE(c_void_p, c_char_p)
def resolve(name):
    return ctypes.cast(ENTRIES[name], c_void_p).value if name in ENTRIES else None


# ---- Calls as a host program performs them. Objects are addresses. All results of a check are released after it.

RESULTS = {None: None, "double": c_double, "integer": c_ssize_t, "color": c_uint32, "boolean": c_bool}
held, problems = [], []  # of the current check


def hold(address):
    if address:
        held.append(address)
    return address


def invoke(function, type_, arguments):
    type_ = type_.lower() if type_ else None
    kinds = [c_double if isinstance(a, float) else c_void_p for a in arguments]
    result = CFUNCTYPE(RESULTS.get(type_, c_void_p), *kinds)(function)(*arguments)
    if type_ not in RESULTS:
        hold(result)
    if pending:
        exception = values[pending.pop()]
        error = HostException(f"{exception.record.name.decode()}: {getattr(exception, 'message', '')}")
        unlock(exception.address)
        raise error
    return (text_of(result) if result else "") if type_ == "string" else result


def call(target, name, *arguments, first=None):
    """Calls a method of an object, or a shared method of the class with that name. `first` is the type of the first parameter,
    where several methods have as many."""
    shared = isinstance(target, str)
    definition = classes[target.encode()] if shared else values[target].record
    [member, *_] = [member for member in (definition.shared if shared else definition.members)
                    if member.name.lower() == name.lower() and len(member.types) == len(arguments)
                    and first in (None, *member.types[:1])]
    arguments = [hold(new_string(a.encode())) if isinstance(a, str) else a for a in arguments]
    return invoke(member.function, member.result, arguments if shared else [target, *arguments])


def get(target, name):
    row = values[target].record.getters[name.encode()]
    return invoke(row.getter, row.type.decode(), [target, row.parameter])


def new(class_name, *arguments, first=None):
    created = hold(new_instance(class_name.encode()))
    if arguments:
        call(created, "Constructor", *arguments, first=first)
    return created


def color(factory, *arguments):
    return call("NSColorZRX", factory, *arguments)


def color_names():
    return [member.name for member in classes[b"NSColorZRX"].shared if member.name.endswith("Color") and not member.types]


def outputs(target, name, count):
    """Returns what a method writes through its parameters."""
    numbers = [c_double(9.0) for _ in range(count)]
    call(target, name, *(ctypes.addressof(number) for number in numbers))
    return [number.value for number in numbers]


def components(target):
    return values[call(target, "Components")].items


def block_of(data):
    block = hold(new_block(len(data)))
    ctypes.memmove(values[block].block, data, len(data))
    return block


def native_send(receiver, message):
    """Sends a message without arguments to an object of the system, and returns its word."""
    selector = runtime("sel_registerName", c_char_p)(message)
    if hasattr(plugin, "objc_msg_lookup"):
        method = runtime("objc_msg_lookup", c_void_p, c_void_p)(receiver, selector)
        return CFUNCTYPE(c_void_p, c_void_p, c_void_p)(method)(receiver, selector)
    return runtime("objc_msgSend", c_void_p, c_void_p)(receiver, selector)


def runtime(name, *arguments):
    """Returns a function of the Objective-C runtime, which the library is linked with."""
    return CFUNCTYPE(c_void_p, *arguments)((name, plugin))


def new_pool():
    pool_class = runtime("objc_getClass", c_char_p)(b"NSAutoreleasePool")
    return native_send(native_send(pool_class, b"alloc"), b"init")


def release_after(count):
    """Releases what was held since there were so many."""
    for address in held[count:]:
        unlock(address)
    del held[count:]


# ---- The checks

checks = []


class NotRun(Exception):
    pass


def check(function):
    checks.append((function.__name__.replace("_", " "), function))
    return function


def near(given, expected, tolerance=1e-6):
    given = list(given)
    assert len(given) == len(expected) and all(abs(g - e) <= tolerance for g, e in zip(given, expected)), \
        f"{given} instead of {expected}"


def same(given, expected):
    assert given == expected, f"{given!r} instead of {expected!r}"


def raised(name, body):
    try:
        body()
    except HostException as error:
        assert name in str(error), f"{error} instead of {name}"
        return str(error)
    raise AssertionError(f"no {name}")


@check
def registers_its_three_classes():
    same([name for name in classes if name.endswith(b"ZRX")], [b"NSColorZRX", b"NSColorListZRX", b"NSColorSpaceZRX"])
    same(len(color_names()), 47)


for factory, given, reader in (
        ("colorWithCalibratedRGB", (1.0, 0.5, 0.0, 0.8), "getRGB"), ("colorWithCalibratedHSV", (0.25, 0.5, 0.75, 0.8), "getHSV"),
        ("colorWithCalibratedWhite", (0.3, 0.8), "getWhite"), ("colorWithDeviceRGB", (0.1, 0.2, 0.3, 0.4), "getRGB"),
        ("colorWithDeviceHSV", (0.75, 0.5, 0.25, 1.0), "getHSV"), ("colorWithDeviceWhite", (0.6, 0.5), "getWhite"),
        ("colorWithDeviceCMYK", (0.1, 0.2, 0.3, 0.4, 0.5), "getCMYK"), ("colorWithSRGB", (0.1, 0.2, 0.3, 0.4), "getRGB"),
        ("colorWithDisplayP3", (0.1, 0.2, 0.3, 0.4), "getRGB"), ("colorWithGenericGamma22White", (0.6, 0.5), "getWhite")):
    def keeps(factory=factory, given=given, reader=reader):
        near(outputs(color(factory, *given), reader, len(given)), given)

    checks.append((f"{factory} keeps its components", keeps))


@check
def a_constructor_takes_components_and_a_host_colour():
    orange = new("NSColorZRX", 1.0, 0.5, 0.0, 0.8)
    near(components(orange), (1.0, 0.5, 0.0, 0.8))
    near((get(orange, "redComponent"), get(orange, "alphaComponent")), (1.0, 0.8))
    same(get(new("NSColorZRX", 0xFF804020), "colorValue"), 0x804020)
    message = raised("OutOfBoundsException", lambda: new("NSColorZRX", 3.0, 0.0, 0.0, 1.0))
    same(message, "OutOfBoundsException: Invalid values. Please pass values in range 0.0 to 1.0.")


@check
def an_empty_object_and_null_do_nothing():
    same((get(new("NSColorZRX"), "description"), get(new("NSColorSpaceZRX"), "localizedName")), ("", ""))
    same(call(new("NSColorZRX"), "colorWithAlphaComponent", 0.5), None)


@check
def colours_blend_and_take_another_alpha():
    black, white = color("colorWithCalibratedRGB", 0.0, 0.0, 0.0, 1.0), color("colorWithCalibratedRGB", 1.0, 1.0, 1.0, 1.0)
    near(components(call(black, "blendedColorWithFraction", 0.25, white)), (0.25, 0.25, 0.25, 1.0))
    near(components(call(white, "colorWithAlphaComponent", 0.25)), (1.0, 1.0, 1.0, 0.25))


@check
def grey_becomes_rgb_of_equal_components():
    grey = call(color("colorWithCalibratedWhite", 0.5, 0.8), "colorUsingColorSpaceName", "NSCalibratedRGBColorSpace")
    red, green, blue, alpha = components(grey)
    near((green, blue, alpha), (red, red, 0.8), 1e-3)
    near((red,), (0.5,), 0.02)


@check
def calibrated_red_is_this_colour_in_srgb():
    red = color("colorWithCalibratedRGB", 1.0, 0.0, 0.0, 1.0)
    in_srgb = call(red, "colorUsingColorSpace", call("NSColorSpaceZRX", "sRGBColorSpace"))
    near([min(max(part, 0.0), 1.0) for part in components(in_srgb)], (1.0, 0.149, 0.0, 1.0), 0.02)
    back = call(in_srgb, "colorUsingColorSpaceName", "NSCalibratedRGBColorSpace")
    near(components(back), (1.0, 0.0, 0.0, 1.0), 0.05)  # this red is outside sRGB


@check
def an_unknown_space_has_no_colours():
    same(call(color("colorWithCalibratedWhite", 0.5, 0.8), "colorUsingColorSpaceName", "NoSuchColorSpace"), None)


@check
def lists_keep_colours_by_key():
    colors, red = new("NSColorListZRX"), color("colorWithCalibratedRGB", 1.0, 0.0, 0.0, 1.0)
    same((call(colors, "Create", "self-test"), call(colors, "name"), call(colors, "isEditable")), (True, "self-test", True))
    call(colors, "setColor", red, "red")
    call(colors, "insertColor", color("colorWithCalibratedWhite", 0.5, 1.0), "grey", 0)
    near(components(call(colors, "colorWithKey", "red")), (1.0, 0.0, 0.0, 1.0))
    near(components(call(colors, "colorWithKey", "grey")), (0.5, 1.0))
    call(colors, "removeColorWithKey", "grey")
    same(call(colors, "colorWithKey", "grey"), None)
    raised("NSRangeException", lambda: call(colors, "insertColor", red, "red", 7))


@check
def lists_are_written_and_read():
    colors, copy = new("NSColorListZRX"), new("NSColorListZRX")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "self-test.clr")
        call(colors, "Create", "self-test")
        call(colors, "setColor", color("colorWithCalibratedRGB", 0.5, 0.25, 0.125, 1.0), "gr\u00fcn \U0001F3A8")
        same(call(colors, "writeToFile", path), True)
        same(call(copy, "Create", "copy", path), True)
        near(components(call(copy, "colorWithKey", "gr\u00fcn \U0001F3A8")), (0.5, 0.25, 0.125, 1.0))


SPACES = {"genericRGBColorSpace": 3, "genericGrayColorSpace": 1, "genericCMYKColorSpace": 4, "deviceRGBColorSpace": 3,
          "deviceGrayColorSpace": 1, "deviceCMYKColorSpace": 4, "sRGBColorSpace": 3, "adobeRGB1998ColorSpace": 3,
          "genericGamma22GrayColorSpace": 1}
for name, count in SPACES.items():
    def is_space(name=name, count=count):
        space = call("NSColorSpaceZRX", name)
        same((get(space, "numberOfColorComponents"), get(space, "colorSpaceModel")), (count, {1: 0, 3: 1, 4: 2}[count]))
        assert get(space, "localizedName"), "no name"

    checks.append((f"{name} has {count} components", is_space))


@check
def a_space_takes_as_many_components_as_it_has():
    space = call("NSColorSpaceZRX", "genericRGBColorSpace")
    array = hold(new_array(2, 3))
    values[array].items = [0.1, 0.2, 0.3, 0.4]
    near(components(color("colorWithColorSpace", space, array)), (0.1, 0.2, 0.3, 0.4))


@check
def the_spaces_of_a_model_are_listed():
    spaces = values[call("NSColorSpaceZRX", "availableColorSpacesWithModel", 1)].items
    assert spaces and all(get(space, "colorSpaceModel") == 1 for space in spaces), f"{len(spaces)} spaces"


@check
def a_profile_makes_the_space_that_it_came_from():
    space = call("NSColorSpaceZRX", "sRGBColorSpace")
    block = call(space, "ICCProfileData")
    data = values[block].block.raw[:values[block].size]
    same(data[36:40], b"acsp")
    same(get(new("NSColorSpaceZRX", block), "localizedName"), get(space, "localizedName"))
    with tempfile.TemporaryDirectory() as folder:
        file = values[hold(Value().address)]
        file.bytes = os.path.join(folder, "profile.icc").encode()
        with open(file.bytes, "wb") as written:
            written.write(data)
        read = call("NSColorSpaceZRX", "ColorSpaceWithICCProfileData", file.address, first="folderitem")
    same(get(read, "localizedName"), get(space, "localizedName"))
    same(call("NSColorSpaceZRX", "ColorSpaceWithICCProfileData", block_of(b"no profile"), first="memoryblock"), None)


for encoding in ENCODINGS:
    def crosses(encoding=encoding):
        words = {ASCII: "plain", UTF8: "\u00fc\U0001F3A8", UTF16: "\u00fc\U0001F3A8", UTF32: "\u00fc\U0001F3A8"}
        for repeats in 1, 200:  # the longer text is converted on the heap
            text = words.get(encoding, "gr\u00fcn") * repeats
            colors = new("NSColorListZRX")
            call(colors, "Create", hold(new_string(text.encode(ENCODINGS[encoding]), encoding)))
            same(call(colors, "name"), text)

    label = "unknown encoding" if encoding == UNKNOWN else ENCODINGS[encoding]
    checks.append((f"text in {label} arrives and comes back", crosses))


@check
def ten_thousand_exceptions_are_caught():
    grey = color("colorWithCalibratedWhite", 0.5, 1.0)
    for _ in range(10000):
        message = raised("RuntimeException", lambda: outputs(grey, "getRGB", 3))
    same(len(values), len(held))
    assert "getRed:green:blue:alpha:" in message, message
    same(get(grey, "redComponent"), 0.0)  # a getter drops the exception


@check
def objects_of_the_system_are_retained_and_released_alike():
    colors = new("NSColorListZRX")
    call(colors, "Create", "self-test")
    call(colors, "setColor", color("colorWithCalibratedRGB", 0.1, 0.2, 0.3, 1.0), "key")
    space = call("NSColorSpaceZRX", "genericRGBColorSpace")
    for find, native in ((lambda: call(colors, "colorWithKey", "key"), values[call(colors, "colorWithKey", "key")].native),
                         (lambda: call("NSColorSpaceZRX", "genericRGBColorSpace"), values[space].native)):
        before, first = native_send(native, b"retainCount"), len(held)
        pool = new_pool()
        for _ in range(100):
            find()
        release_after(first)
        native_send(pool, b"drain")
        same(native_send(native, b"retainCount"), before)


# ---- Running them

def run(function):
    """Returns None if the check passed, else why it failed, or as NotRun why it could not run."""
    del problems[:]
    before, pool, failure = len(values), new_pool(), None
    try:
        function()
    except HostException as error:
        failure = NotRun(error) if "unrecognized selector" in str(error) else error
    except Exception as error:
        failure = error
    release_after(0)
    native_send(pool, b"drain")
    if failure is None and problems:
        failure = problems[0]
    if failure is None and len(values) != before:
        failure = AssertionError(f"{len(values) - before} host values are left")
    return failure


def outcome(function):
    """Returns the function's result, or the text of the host exception that it raises."""
    try:
        return function()
    except HostException as error:
        return str(error)


def numbers(shown):
    return " ".join(f"{component:.6g}" for component in components(shown))


def describe(name):
    shown = color(name)
    parts = outcome(lambda: numbers(shown))
    if "Exception" in parts:  # a catalog colour has no components
        converted = outcome(lambda: call(shown, "colorUsingColorSpaceName", "NSCalibratedRGBColorSpace"))
        parts = "in calibrated RGB " + numbers(converted) if isinstance(converted, int) else str(converted)
    return f"{get(shown, 'description')} | {get(shown, 'colorSpaceName')} | {parts}"


def report():
    """Prints what no list of expected results can hold, because each system has its own."""
    print(f"\nsystem: {'macOS ' + platform.mac_ver()[0] if platform.mac_ver()[0] else platform.platform()}")
    print(f"architecture: {platform.machine()}, Python {platform.python_version()}")
    print(f"{len(color_names())} colours: description | colour space | components")
    for name in color_names():
        print(f"  {name}: {outcome(lambda: describe(name))}")
    for name, arguments in ("redColor", ()), ("colorWithCalibratedRGB", (0.1, 0.2, 0.3, 1.0)):
        first, second = (values[color(name, *arguments)].native for _ in range(2))
        print(f"two equal colours of {name} are {'one object' if first == second else 'two objects'}")
    grey = color("colorWithCalibratedWhite", 0.5, 1.0)
    print(f"a refused component: {outcome(lambda: outputs(grey, 'getRGB', 3))}")
    wrong = hold(new_array(2, 2))
    print("a wrong number of components: "
          f"{outcome(lambda: color('colorWithColorSpace', call('NSColorSpaceZRX', 'genericRGBColorSpace'), wrong))}")


def main(library):
    global plugin
    plugin = ctypes.CDLL(os.path.abspath(library))
    sys.unraisablehook = lambda problem: problems.append(problem.exc_value)  # raised in a function that the plugin called
    plugin.REALPluginMain(resolve)
    passed, failed, not_run = 0, [], []
    for name, function in checks:
        failure = run(function)
        if failure is None:
            passed += 1
            print(f"passed   {name}")
        else:
            kind, list_ = ("not run ", not_run) if isinstance(failure, NotRun) else ("FAILED  ", failed)
            list_.append(name)
            print(f"{kind} {name}: {type(failure).__name__ + ': ' if kind == 'FAILED  ' else ''}{failure}")
    run(report)
    if not_run:
        print(f"\nnot run, because the system has no such message: {', '.join(not_run)}")
    print(f"{passed} passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]) if len(sys.argv) == 2 else "usage: selftest.py LIBRARY")
