"""Shows the objects of voxml in gdb: `print element` gives the address and the XML that it stands
for, up to `set print elements` characters.

Installed where gdb finds it by itself when the libraries are in the system's folders; `source` loads
it otherwise. It reads memory and calls nothing, so it works on core dumps and changes nothing in a
process. It needs no debugging information of the libraries but knows how their objects are laid
out, and therefore belongs to the version that it came with.

What a decoded document has not made objects of yet is shown from its text. In a namespace tree names
are {namespace}local, and where objects are not made yet, as the document has them. A pointer that
does not point to an object of its type is shown as gdb does.
"""
import struct

import gdb
import gdb.printing

HEADER = 16  # of an object: its sort, whose four low bits are flags, and its count
SORT_NAME = HEADER + 8
ARRAY_ITEMS = HEADER + 8  # behind the length
PENDING = 1  # in the address of a part: not made, this is what it will be made from

ELEMENT, INSTRUCTION, COMMENT, TEXT, CDATA, ATTRIBUTE = range(6)
KINDS = 0b111
ENCLOSING = {INSTRUCTION: ("<?", "?>"), COMMENT: ("<!--", "-->"), TEXT: ("", ""),
             CDATA: ("<![CDATA[", "]]>")}


def read(address, size):
    return gdb.selected_inferior().read_memory(address, size).tobytes()


def word(address):
    return struct.unpack("=Q", read(address, 8))[0]


def field(obj, index):
    """A field by its place; each takes eight bytes."""
    return word(obj + HEADER + 8 * index)


def sort_name(obj):
    name = gdb.Value(word((word(obj) & ~15) + SORT_NAME))
    return name.cast(gdb.lookup_type("char").pointer()).string("ascii", length=-1)


def limit():
    """Characters that are shown; none stands for all."""
    return gdb.parameter("print elements") or None


def most(length):
    """How much of something so long has to be read."""
    return length if limit() is None else min(length, limit() + 1)


# ---------------------------------------------------------------- plain values


def string(obj):
    length = most(field(obj, 0))
    units = struct.unpack(f"={length}I", read(obj + ARRAY_ITEMS, 4 * length))
    return "".join(chr(unit) if unit < 0x110000 else f"\\U{unit:08x}" for unit in units)


def quoted(obj):
    yield '"' + string(obj).replace("\\", "\\\\").replace('"', '\\"') + '"'


def buffer(obj):
    yield f"{field(obj, 0)} bytes " + repr(read(obj + ARRAY_ITEMS, most(field(obj, 0))))


def objects(vector):
    return [word(vector + ARRAY_ITEMS + 8 * index) for index in range(most(field(vector, 0)))]


def listed(pieces):
    """Each in a line of its own would be too long: between brackets, with commas."""
    yield "["
    for index, piece in enumerate(pieces):
        if index:
            yield ", "
        yield piece
    yield "]"


def vector(obj):
    return listed(shown(item) for item in objects(obj))


# ---------------------------------------------------------------- what is not made yet


class Outline:
    """The text of a decoded document and the records of its nodes and attributes."""
    SIZE = 176
    PER_BLOCK = 65536 - 16  # bytes, behind the head of a block

    def __init__(self, address):
        self.address = address
        self.text = word(address + 24)
        is_wide = read(address + 80, 1)[0]
        self.record = struct.Struct("=3Q" if is_wide else "=3I")
        self.count = word(address + 88)
        self.blocks = word(address + 96)
        self.names = word(address + 120)

    def node(self, number):
        """Kind, begin, end and number of the name."""
        per_block = self.PER_BLOCK // self.record.size
        block, index = divmod(number, per_block)
        start = word(self.blocks + 8 * (block - 1)) + 16 if block else self.address + self.SIZE
        begin, end, tag = self.record.unpack(
            read(start + index * self.record.size, self.record.size))
        return tag & KINDS, begin, end, tag >> 3

    def piece(self, begin, end):
        return read(self.text + begin, most(end - begin)).decode("utf-8", "replace")

    def name(self, number):
        begin, end = word(self.names + 16 * number), word(self.names + 16 * number + 8)
        return read(begin, end - begin).decode("utf-8", "replace")

    def behind(self, number):
        """The first record that is neither the node nor in it. Ahead of the node also where memory
        was overwritten, so that every walk ends."""
        kind, _, end, _ = self.node(number)
        return max(end, number + 1) if kind == ELEMENT else number + 1

    def behind_attributes(self, element):
        number, end = element + 1, self.node(element)[2]
        while number < end and self.node(number)[0] == ATTRIBUTE:
            number += 1
        return number

    def children(self, element):
        """Those of an element, or of the document, whose number is the largest there is."""
        is_root = element == 2**64 - 1
        number = 0 if is_root else self.behind_attributes(element)
        end = self.count if is_root else self.node(element)[2]
        while number < end:
            yield number
            number = self.behind(number)

    def shown_children(self, element):
        for number in self.children(element):
            yield self.shown(number)

    def shown(self, number):
        kind, begin, end, name = self.node(number)
        if kind == ELEMENT:
            return self.element(number, self.name(name))
        before, after = ENCLOSING[kind]
        return iter((before, self.piece(begin, end), after))

    def element(self, number, name):
        first = self.behind_attributes(number)
        yield "<" + name
        for attribute in range(number + 1, first):
            _, begin, end, _ = self.node(attribute)
            # The record ends at the closing quote.
            yield " " + self.piece(begin, end + 1)
        yield from closed(name, first < self.node(number)[2], self.shown_children(number))


# ---------------------------------------------------------------- nodes and lists


def closed(name, has_content, content):
    """The rest of an element from the end of its start tag on."""
    if has_content:
        yield ">"
        yield content
        yield f"</{name}>"
    else:
        yield "/>"


def expanded(obj):
    """The name of an element or attribute of a namespace tree."""
    local, namespace = string(field(obj, 0)), field(obj, 1)
    return f"{{{string(namespace)}}}{local}" if namespace else local


def character_data(kind):
    before, after = ENCLOSING[kind]
    return lambda obj: iter((before, string(field(obj, 0)), after))


def attribute_text(name, text):
    value = string(field(text, 0))
    quote = "'" if '"' in value else '"'
    yield f"{name}={quote}{value}{quote}"


def attribute(obj):
    return attribute_text(string(field(obj, 0)), field(obj, 1))


def ns_attribute(obj):
    return attribute_text(expanded(obj), field(obj, 2))


def attributes(obj):
    """Of either tree."""
    return vector(field(obj, 0))


def content(items):
    """The nodes of an item list of either tree."""
    made = field(items, 0)
    if not made & PENDING:
        for item in objects(made):
            yield node(item)
    elif sort_name(items) == "XML_NS_ITEMS":
        yield from content(field(items, 1))
    else:
        yield from Outline(made - PENDING).shown_children(field(items, 1))


def is_empty(items):
    """Whether a list has nothing in it. One that is not made yet has something."""
    made = field(items, 0)
    return not made & PENDING and field(made, 0) == 0


def node(item):
    """The node of an item of either tree."""
    tag, made = field(item, 0), field(item, 1)
    if not made & PENDING:
        return shown(made)
    if sort_name(item) == "XML_NS_ITEM":
        return node(field(item, 2))
    return Outline(made - PENDING).shown(tag >> 4)


def items(obj):
    return listed(content(obj))


def element_text(name, attrs, list_of_items, declared=0):
    yield "<" + name
    for mapping in objects(field(declared, 0)) if declared else []:
        prefix, namespace = field(mapping, 0), field(mapping, 1)
        yield " xmlns" + (":" + string(prefix) if prefix else "")
        yield '="' + (string(namespace) if namespace else "") + '"'
    for attr in objects(field(attrs, 0)):
        yield " "
        yield shown(attr)
    yield from closed(name, not is_empty(list_of_items), content(list_of_items))


def element(obj):
    return element_text(string(field(obj, 0)), field(obj, 1), field(obj, 2))


def ns_element(obj):
    return element_text(expanded(obj), field(obj, 2), field(obj, 3), field(obj, 4))


def document(obj):
    """Of either tree. One that was encoded from a namespace tree may have no list yet."""
    version, nodes = field(obj, 0), field(obj, 3)
    standalone = " standalone='yes'" if field(obj, 2) & 0xffffffff else ""
    yield f"<?xml version='{string(version) if version else '1.0'}'{standalone}?>"
    yield "(not made yet)" if nodes & PENDING else content(nodes)


PRINTERS = {
    "voString": quoted, "voBuffer": buffer, "voVector": vector,
    "XML_TEXT": character_data(TEXT), "XML_CDATA": character_data(CDATA),
    "XML_COMMENT": character_data(COMMENT),
    "XML_PROCESSING_INSTRUCTION": character_data(INSTRUCTION),
    "XML_ATTRIBUTE": attribute, "XML_NS_ATTRIBUTE": ns_attribute,
    "XML_ATTRIBUTES": attributes, "XML_NS_ATTRIBUTES": attributes,
    "XML_ITEM": node, "XML_NS_ITEM": node, "XML_ITEMS": items, "XML_NS_ITEMS": items,
    "XML_ELEMENT": element, "XML_NS_ELEMENT": ns_element,
    "XML_DOCUMENT": document, "XML_NS_DOCUMENT": document,
}


def shown(obj):
    """What an object of any sort is shown as: texts, and iterators over the like."""
    name = sort_name(obj)
    return PRINTERS[name](obj) if name in PRINTERS else iter((name,))


def flat(pieces):
    """The text of the pieces, in one line and not longer than it may be. Keeps the iterators that
    it is in on a stack of its own: trees may be deep."""
    room = limit()
    texts, length, waiting = [], 0, [pieces]
    while waiting and (room is None or length <= room):
        piece = next(waiting[-1], None)
        if piece is None:
            waiting.pop()
        elif isinstance(piece, str):
            texts.append(piece)
            length += len(piece)
        else:
            waiting.append(piece)
    text = "".join(texts)
    text = text if room is None or len(text) <= room else text[:room] + "..."
    line = "".join(c if c >= " " and c != "\x7f" else repr(c)[1:-1] for c in text)
    return line.encode("utf-8", "backslashreplace").decode()


class Printer:
    def __init__(self, address):
        self.address = address

    def to_string(self):
        return f"{self.address:#x} {flat(shown(self.address))}"


class Lookup(gdb.printing.PrettyPrinter):
    """Finds the printer of a value: that of a pointer to an object that it points to indeed."""

    def __init__(self):
        super().__init__("voxml")

    def __call__(self, value):
        pointer = value.type.strip_typedefs()
        if pointer.code != gdb.TYPE_CODE_PTR:
            return None
        tag = pointer.target().unqualified().strip_typedefs().tag
        if tag != "voObj" and tag not in PRINTERS:
            return None
        address = int(value)
        try:
            name = sort_name(address)
        except (gdb.error, gdb.MemoryError, UnicodeDecodeError, struct.error):
            return None
        return Printer(address) if name == tag or tag == "voObj" else None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Lookup(), replace=True)
