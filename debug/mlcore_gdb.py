"""How GDB shows MLCore's objects: holders, values, dates and times, collections.

Loaded by itself with an installed shared library, where GDB's auto-load finds it; otherwise "source mlcore_gdb.py".
The library needs no debug information. GCC describes a class with virtual functions only where it emits their table, so a program
knows nothing of the library's collections: an object's class is read from the symbol of its table, and what it holds from the
places below. Functions of the program are never called, so core files are shown, too. Texts are code page 1252. Plain std::string
variables are shown so after "set target-charset CP1252".
"""

import struct

import gdb
import gdb.printing

# Bytes that the code page leaves undefined stand for the control character of that number.
_UNDEFINED = {byte: chr(byte) for byte in (0x81, 0x8D, 0x8F, 0x90, 0x9D)}
_CHARACTERS = [_UNDEFINED.get(byte) or bytes([byte]).decode("cp1252") for byte in range(256)]
_MAX_TEXT = 200
_ESCAPES = {"\n": "\\n", "\r": "\\r", "\t": "\\t", '"': '\\"', "\\": "\\\\"}


def quoted(data, length):
    """The text of the first `length` bytes of memory, in quotes; its end is left out when it is long."""
    shown = min(length, _MAX_TEXT)
    raw = bytes_at(data, shown) if shown else b""
    text = "".join(_ESCAPES.get(character) or
                   (character if character.isprintable() else "\\x%02x" % byte)
                   for byte, character in zip(raw, map(_CHARACTERS.__getitem__, raw)))
    # What the terminal cannot show is escaped rather than an error.
    charset = gdb.host_charset()
    try:
        text = text.encode(charset, "backslashreplace").decode(charset)
    except LookupError:
        text = text.encode("ascii", "backslashreplace").decode("ascii")
    return '"' + text + '"' + ("..." if length > shown else "")


# Where members stand in objects of the library, in bytes, on 64-bit systems with libstdc++. tests/debugger/ compares.
USE_COUNT = 8  # of CSHAREOBJECT
VALUE = 12  # of CVALUEOBJECT
VALUE_PAYLOAD = 4  # of CVALUE; its type is in front
ARRAY = 24  # of CMEMARRAY: a vector of holders
SET = 16  # of CMEMSET: a vector of entries
SET_ENTRY, SET_HOLDER = 16, 8
DICTIONARY, DICTIONARY_TREE = 16, 40  # of CMEMDICTIONARY: a vector of entries, or a pointer to a set of them when there are many
DICTIONARY_ENTRY, DICTIONARY_HOLDER = 40, 32  # the key is in front
TREE_FIRST, TREE_COUNT = 24, 40  # of std::set
NODE_PARENT, NODE_LEFT, NODE_RIGHT, NODE_ENTRY = 8, 16, 24, 32


def bytes_at(address, size):
    return bytes(gdb.selected_inferior().read_memory(address, size))


def unpacked(form, address):
    return struct.unpack(form, bytes_at(address, struct.calcsize(form)))


def word(address):
    return unpacked("<Q", address)[0]


def at(address, type_):
    return gdb.Value(address).cast(type_.pointer()).dereference()


def std_string(address):
    return quoted(*unpacked("<QQ", address))


def std_vector(address, size):
    """Where the elements of a std::vector are."""
    begin, end = unpacked("<QQ", address)
    return range(begin, end - size + 1, size)


def std_set(address):
    """Where the elements of a std::set are, in their order."""
    node = word(address + TREE_FIRST)
    # Counted, so that damaged links end, too.
    for _ in range(word(address + TREE_COUNT)):
        yield node + NODE_ENTRY
        right = word(node + NODE_RIGHT)
        if right:
            node = right
            while word(node + NODE_LEFT):
                node = word(node + NODE_LEFT)
        else:
            while node == word(word(node + NODE_PARENT) + NODE_RIGHT):
                node = word(node + NODE_PARENT)
            node = word(node + NODE_PARENT)


# The elements of a collection: where their keys are, in a dictionary, and their holders.
def array_elements(address):
    return ((None, place) for place in std_vector(address + ARRAY, 8))


def set_elements(address):
    # Elements that were removed leave holes.
    places = (entry + SET_HOLDER for entry in std_vector(address + SET, SET_ENTRY))
    return ((None, place) for place in places if word(place))


def dictionary_elements(address):
    tree = word(address + DICTIONARY_TREE)
    for entry in std_set(tree) if tree else std_vector(address + DICTIONARY, DICTIONARY_ENTRY):
        yield entry, entry + DICTIONARY_HOLDER


COLLECTIONS = {"MLCore::CMEMARRAY": array_elements, "MLCore::CMEMSET": set_elements,
               "MLCore::CMEMDICTIONARY": dictionary_elements}


def class_name(table):
    """The class of a table of virtual functions, from its symbol."""
    symbol = gdb.execute("info symbol %d" % table, to_string=True)
    if not symbol.startswith("vtable for "):
        return None
    return symbol[len("vtable for "):].split(" in section ")[0].rsplit(" + ", 1)[0].strip()


def complete_type(name):
    """The class of this name, when the debug information describes it."""
    try:
        type_ = gdb.lookup_type(name)
        return type_ if type_.fields() else None
    except (gdb.error, TypeError):
        return None


class Held:
    """The object at an address, seen as the class that it is. `address` is that of the whole object; `type` is None when the debug
    information does not describe the class."""

    def __init__(self, address):
        self.name, self.address, self.type, self.references = "null", address, None, ""
        if not address:
            return
        try:
            table = word(address)
            # A pointer to a second base points into the object.
            self.address += unpacked("<q", table - 16)[0]
            self.name = class_name(table) or "unknown class"
            self.type = complete_type(self.name)
            count = unpacked("<i", self.address + USE_COUNT)[0]
            self.references = " (%d reference%s)" % (count, "" if count == 1 else "s")
        except gdb.error:
            self.name = "unreadable"

    def text(self):
        return self.contents() + self.references

    def contents(self):
        if self.name in COLLECTIONS:
            return "%s of %d" % (self.name, sum(1 for _ in COLLECTIONS[self.name](self.address)))
        if self.name == "MLCore::CVALUEOBJECT":
            return "CVALUEOBJECT(%s)" % value_text(self.address + VALUE)
        return self.name

    def members(self):
        """What the class adds to the library's: names and values."""
        value = at(self.address, self.type)
        return [(field.name, value[field]) for field in self.type.fields()
                if hasattr(field, "bitpos") and not (field.is_base_class and field.name.startswith("MLCore::"))]


def date_text(day, month, year):
    return "null" if not (day or month or year) else "%04d-%02d-%02d" % (year, month, day)


def time_text(seconds):
    if seconds < 0:
        return "-" + time_text(-seconds)
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)


def date_time_text(day, month, year, seconds):
    date = date_text(day, month, year)
    return date if date == "null" else date + " " + time_text(seconds)


def guid_text(raw):
    first, second, third = struct.unpack_from("<IHH", raw)
    return "{%08X-%04X-%04X-%s-%s}" % (first, second, third, raw[8:10].hex().upper(), raw[10:16].hex().upper())


# The kinds of values by their numbers.
KINDS = ("Unknown", "Short", "UShort", "Long", "ULong", "Date", "Time", "String", "Float", "Double", "DateTime", "Bool", "Object",
         "Guid")
# What stands in the value itself.
INLINE = {"Short": "<h", "UShort": "<H", "Long": "<i", "ULong": "<I", "Bool": "<i", "Time": "<i"}
# What stands in a block: its size, and how its bytes are shown.
BLOCKS = {
    "Date": (6, lambda raw: date_text(*struct.unpack("<hhh", raw))),
    "DateTime": (10, lambda raw: date_time_text(*struct.unpack("<hhhi", raw))),
    "Float": (4, lambda raw: "%.7g" % struct.unpack("<f", raw)),
    "Double": (8, lambda raw: repr(struct.unpack("<d", raw)[0])),
    "Guid": (16, guid_text),
}


def value_text(address):
    """A CVALUE."""
    number = unpacked("<i", address)[0]
    kind = KINDS[number] if 0 <= number < len(KINDS) else "damaged"
    payload = address + VALUE_PAYLOAD
    if kind in INLINE:
        number = unpacked(INLINE[kind], payload)[0]
        return "%s %s" % (kind, time_text(number) if kind == "Time" else number)
    if kind == "String":
        # In front of the text stands its length.
        block = word(payload)
        return "String " + quoted(block, word(block - 8) if block else 0)
    if kind == "Object":
        held = Held(word(payload))
        return "Object " + held.name + held.references
    if kind in BLOCKS:
        size, shown = BLOCKS[kind]
        block = word(payload)
        return "%s %s" % (kind, shown(bytes_at(block, size) if block else bytes(size)))
    return kind


class Printer:
    def __init__(self, value):
        self.value = value


class HolderPrinter(Printer):
    def __init__(self, value):
        super().__init__(value)
        self.held = Held(int(value["mObject"]))

    def to_string(self):
        return self.held.text()

    def children(self):
        if self.held.name in COLLECTIONS:
            for index, (key, place) in enumerate(COLLECTIONS[self.held.name](self.held.address)):
                if key:
                    yield "key%d" % index, std_string(key)
                yield "[%d]" % index, at(place, self.value.type)
        elif self.held.type and self.held.name != "MLCore::CVALUEOBJECT":
            yield from self.held.members()

    def display_hint(self):
        if self.held.name in COLLECTIONS:
            return "map" if self.held.name == "MLCore::CMEMDICTIONARY" else "array"
        return None


class DatePrinter(Printer):
    def to_string(self):
        return date_text(*(int(self.value[name]) for name in ("mDay", "mMonth", "mYear")))


class TimePrinter(Printer):
    def to_string(self):
        return time_text(int(self.value["mSeconds"]))


class DateTimePrinter(Printer):
    def to_string(self):
        date = self.value["mDate"]
        return date_time_text(*(int(date[name]) for name in ("mDay", "mMonth", "mYear")),
                              int(self.value["mTime"]["mSeconds"]))


class TimeSpanPrinter(Printer):
    def to_string(self):
        seconds = int(self.value["mSeconds"])
        sign, seconds = ("-", -seconds) if seconds < 0 else ("", seconds)
        return "%s%d:%02d:%02d" % (sign, seconds // 3600, seconds // 60 % 60, seconds % 60)


class ValuePrinter(Printer):
    def to_string(self):
        return value_text(int(self.value.address))


def build():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("MLCore")
    for name, printer in (("CSHAREOBJECTPTR<.*>", HolderPrinter), ("CDATE", DatePrinter), ("CTIME", TimePrinter),
                          ("CDATETIME", DateTimePrinter), ("CTIMESPAN", TimeSpanPrinter), ("CVALUE", ValuePrinter)):
        printers.add_printer(name, "^MLCore::%s$" % name, printer)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
