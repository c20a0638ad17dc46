"""How GDB shows MLCore's objects: holders, values, dates and times, collections.

Loaded by itself with an installed shared library, where GDB's auto-load finds it; otherwise "source mlcore_gdb.py".
Fields are read by their names from the program's debug information, and functions of the program are never called, so that core
files are shown, too. Texts are code page 1252. Plain std::string variables are shown so after "set target-charset CP1252".
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


def bare(type_):
    return type_.strip_typedefs().unqualified()


def name_of(type_):
    return str(bare(type_))


def members(value):
    """The members of its own class that each object has."""
    return [value[field] for field in value.type.strip_typedefs().fields()
            if field.name and not field.is_base_class and hasattr(field, "bitpos")]


def std_string(value):
    return quoted(int(value["_M_dataplus"]["_M_p"]), int(value["_M_string_length"]))


def vector_items(vector):
    begin, end = vector["_M_impl"]["_M_start"], vector["_M_impl"]["_M_finish"]
    # Counted, so that a damaged one ends, too.
    for index in range(max(0, int(end) - int(begin)) // begin.dereference().type.sizeof):
        yield (begin + index).dereference()


def tree_addresses(tree):
    """Where the entries of a std::set are, in their order."""
    header = tree["_M_t"]["_M_impl"]["_M_header"]
    node = header["_M_left"]
    head = bare(node.type).target().sizeof
    # Counted, so that damaged links end, too.
    for _ in range(int(tree["_M_t"]["_M_impl"]["_M_node_count"])):
        yield int(node) + head
        if node["_M_right"]:
            node = node["_M_right"]
            while node["_M_left"]:
                node = node["_M_left"]
        else:
            parent = node["_M_parent"]
            while node == parent["_M_right"]:
                node, parent = parent, parent["_M_parent"]
            if node["_M_right"] != parent:
                node = parent


def at(address, type_):
    return gdb.Value(address).cast(type_.pointer()).dereference()


def key_and_object(entry):
    """The text and the holder of an entry, whatever it calls them."""
    key = holder = None
    for member in members(entry):
        name = name_of(member.type)
        if name.startswith("std::__cxx11::basic_string<char"):
            key = member
        elif name.startswith("MLCore::CSHAREOBJECTPTR<"):
            holder = member
    return key, holder


def keyed_objects(value):
    """The keys and holders in a container, or in those that a class holds: a dictionary keeps few otherwise than many."""
    type_ = bare(value.type)
    name = str(type_)
    if name.startswith("std::vector<"):
        yield from map(key_and_object, vector_items(value))
    elif name.startswith("std::set<"):
        for address in tree_addresses(value):
            yield key_and_object(at(address, type_.template_argument(0)))
    elif name.startswith("std::unique_ptr<"):
        owned = at(int(value.address), type_.template_argument(0).pointer())
        if owned:
            yield from keyed_objects(owned.dereference())
    elif name.startswith("MLCore::") and type_.code == gdb.TYPE_CODE_STRUCT:
        for member in members(value):
            yield from keyed_objects(member)


def is_derived(type_, base):
    type_ = bare(type_)
    return type_.name == base or any(is_derived(field.type, base) for field in type_.fields() if field.is_base_class)


class Held:
    """An object behind a pointer, seen as the class that it is. What the debug information does not tell stays out: `object` and
    `count` are None. GCC describes classes with virtual functions only where it makes their tables, so those of the library are
    known when the library has debug information, or the program was compiled with -femit-class-debug-always."""

    def __init__(self, pointer):
        self.name, self.object, self.count = "null", None, None
        if not int(pointer):
            return
        try:
            actual = pointer.dynamic_type
            target = bare(actual.target())
            self.name = str(target)
            if actual == pointer.type:
                self.name = name_from_table(int(pointer)) or self.name
            if target.fields():
                self.object = pointer.cast(actual).dereference()
            if is_derived(target, "MLCore::CSHAREOBJECT"):
                self.count = use_count(int(self.object.cast(gdb.lookup_type("MLCore::CSHAREOBJECT")).address))
        except gdb.error:
            self.name = "unreadable"

    def __str__(self):
        return self.name if self.count is None else with_count(self.name, self.count)


def with_count(name, count):
    return "%s, %d reference%s" % (name, count, "" if count == 1 else "s")


def use_count(address):
    """Of a CSHAREOBJECT: the number behind its pointer to the virtual functions."""
    word = gdb.lookup_type("void").pointer().sizeof
    return struct.unpack("<i", bytes_at(address + word, 4))[0]


def shared_text(address):
    """Any CSHAREOBJECT."""
    return with_count(name_from_table(address) or "unknown class", use_count(address))


def name_from_table(address):
    """The class of an object without debug information, from the name of its table of virtual functions."""
    table = int(gdb.Value(address).cast(gdb.lookup_type("void").pointer().pointer()).dereference())
    symbol = gdb.execute("info symbol %d" % table, to_string=True)
    if not symbol.startswith("vtable for "):
        return None
    return symbol[len("vtable for "):].split(" in section ")[0].rsplit(" + ", 1)[0].strip()


def bytes_at(address, size):
    return bytes(gdb.selected_inferior().read_memory(address, size))


def date_text(day, month, year):
    return "null" if not (day or month or year) else "%04d-%02d-%02d" % (year, month, day)


def time_text(seconds):
    if seconds < 0:
        return "-" + time_text(-seconds)
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)


def date_time_text(day, month, year, seconds):
    date = date_text(day, month, year)
    return date if date == "null" else date + " " + time_text(seconds)


class Printer:
    def __init__(self, value):
        self.value = value


class HolderPrinter(Printer):
    def __init__(self, value):
        super().__init__(value)
        self.held = Held(value["mObject"])

    def to_string(self):
        return str(self.held)

    def children(self):
        if self.held.object is not None:
            yield "object", self.held.object


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


def guid_text(raw):
    first, second, third = struct.unpack_from("<IHH", raw)
    return "{%08X-%04X-%04X-%s-%s}" % (first, second, third, raw[8:10].hex().upper(), raw[10:16].hex().upper())


class ValuePrinter(Printer):
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

    def to_string(self):
        kind = str(self.value["mType"]).split("::")[-1]
        payload = bytes_at(int(self.value["mPayload"].address), 8)
        if kind in self.INLINE:
            number = struct.unpack_from(self.INLINE[kind], payload)[0]
            return "%s %s" % (kind, time_text(number) if kind == "Time" else number)
        block = struct.unpack("<Q", payload)[0]
        if kind == "String":
            # In front of the text stands its length.
            length = struct.unpack("<Q", bytes_at(block - 8, 8))[0] if block else 0
            return "String " + quoted(block, length)
        if kind == "Object":
            return "Object " + (shared_text(block) if block else "null")
        if kind in self.BLOCKS:
            size, shown = self.BLOCKS[kind]
            return "%s %s" % (kind, shown(bytes_at(block, size) if block else bytes(size)))
        return kind


class ValueObjectPrinter(Printer):
    def to_string(self):
        return "CVALUEOBJECT(%s)" % ValuePrinter(self.value["mValue"]).to_string()


class CollectionPrinter(Printer):
    """Elements as children; a class derives from it and gives `items`."""

    def count(self):
        return sum(1 for _ in self.items())

    def to_string(self):
        return "%s of %d" % (name_of(self.value.type), self.count())

    def children(self):
        for index, item in enumerate(self.items()):
            yield "[%d]" % index, item

    def display_hint(self):
        return "array"


class ArrayPrinter(CollectionPrinter):
    def count(self):
        elements = self.value["mObjects"]["_M_impl"]
        return int(elements["_M_finish"] - elements["_M_start"])

    def items(self):
        return vector_items(self.value["mObjects"])


class SetPrinter(CollectionPrinter):
    def items(self):
        # Elements that were removed leave holes.
        return (entry["object"] for entry in vector_items(self.value["mEntries"]) if entry["object"]["mObject"])


class DictionaryPrinter(CollectionPrinter):
    def items(self):
        return keyed_objects(self.value)

    def children(self):
        for index, (key, holder) in enumerate(self.items()):
            yield "key%d" % index, std_string(key)
            yield "value%d" % index, holder

    def display_hint(self):
        return "map"


def build():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("MLCore")
    for name, printer in (("CSHAREOBJECTPTR<.*>", HolderPrinter), ("CDATE", DatePrinter), ("CTIME", TimePrinter),
                          ("CDATETIME", DateTimePrinter), ("CTIMESPAN", TimeSpanPrinter), ("CVALUE", ValuePrinter),
                          ("CVALUEOBJECT", ValueObjectPrinter), ("CMEMARRAY", ArrayPrinter),
                          ("CMEMDICTIONARY", DictionaryPrinter), ("CMEMSET", SetPrinter)):
        printers.add_printer(name, "^MLCore::%s$" % name, printer)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
