"""What the public headers declare and say, as doxygen reads them: files of blocks of entries.

An entry is one or more declarations with what is said of them. In C, declarations that stand
together without a blank line share the comment in front of the first, in C++ overloads do; those of
an @name group share the group's description. What has neither is undocumented.
"""
import pathlib
import re
import subprocess
import xml.etree.ElementTree as ET
from dataclasses import dataclass, field

INCLUDE = pathlib.Path(__file__).resolve().parents[2] / "include"
SETTINGS = """
QUIET = YES
INPUT = @INCLUDE@
RECURSIVE = YES
FILE_PATTERNS = *.h *.hpp
STRIP_FROM_PATH = @INCLUDE@
GENERATE_HTML = NO
GENERATE_LATEX = NO
GENERATE_XML = YES
XML_PROGRAMLISTING = NO
OUTPUT_DIRECTORY = @OUTPUT@
EXTRACT_ALL = YES
EXTRACT_PRIVATE = NO
WARN_NO_PARAMDOC = NO
WARN_IF_INCOMPLETE_DOC = NO
AUTOLINK_SUPPORT = NO
MACRO_EXPANSION = YES
EXPAND_ONLY_PREDEF = YES
INPUT_FILTER = "sed -E 's:/[*][*] @name ([^@]*[^@ ]) *@[{] [*]/:/** @name \\1 */ /** @{ */:'"
PREDEFINED = VO_API= VO_NORETURN= VOXML_LIFETIMEBOUND= VO_BEGIN_DECLS= VO_END_DECLS= \\
    __cplusplus=201703L __cpp_lib_format __GNUC__=12
"""


@dataclass
class Declaration:
    name: str
    kind: str             # function, define, typedef, enum, enumvalue, variable, friend, struct
    text: str             # as Sphinx reads it
    line: int
    gives_reference: bool = False
    is_cpp: bool = False


@dataclass
class Entry:
    declarations: list
    said: ET.Element      # None where nothing is
    parts: list = field(default_factory=list)  # entries of enumerators or fields


@dataclass
class Block:
    title: str            # "" outside of groups
    said: ET.Element
    entries: list


def run_doxygen(output):
    """Leaves doxygen's XML in a folder, which it gives. What doxygen complains of is an error."""
    settings = SETTINGS.replace("@INCLUDE@", str(INCLUDE)).replace("@OUTPUT@", str(output))
    done = subprocess.run(["doxygen", "-"], input=settings, text=True, check=True,
                          stderr=subprocess.PIPE)
    complaints = [line for line in done.stderr.splitlines()
                  if "scope for class std::" not in line]  # specialisations, which nobody looks up
    if complaints:
        raise SystemExit("\n".join(complaints))
    return pathlib.Path(output) / "xml"


def words(node):
    """The text of a node on one line."""
    return " ".join("".join(node.itertext()).split()) if node is not None else ""


def said_of(node):
    for kind in ("detaileddescription", "briefdescription"):
        if words(node.find(kind)):
            return node.find(kind)
    return None


def line_of(node):
    return int(node.find("location").get("line"))


def compound(folder, name):
    return ET.parse(folder / f"{name}.xml").getroot()[0]


def tight(text):
    """Without doxygen's blanks inside of angle brackets, and without attributes of the house."""
    text = re.sub(r"\bVO_(?:NEW|API)\b ?", "", text)
    return re.sub(r" +>", ">", text.replace("< ", "<")).strip()


def template_of(node):
    parameters = node.find("templateparamlist")
    if parameters is None:
        return ""
    each = []
    for parameter in parameters:
        text = words(parameter.find("type"))
        name, default = parameter.findtext("declname"), parameter.find("defval")
        if name and not text.endswith(name):
            text += " " + name
        if default is not None:
            text += " = " + words(default)
        each.append(tight(text))
    return f"template<{', '.join(each)}> "


def text_of(member):
    kind, name = member.get("kind"), member.findtext("name")
    given = words(member.find("type"))
    if kind == "define":
        parameters = [p.findtext("defname") or "" for p in member.findall("param")]
        return name + (f"({', '.join(parameters)})" if member.find("param") is not None else "")
    if kind == "typedef":
        pointer = member.findtext("argsstring") or ""
        is_alias = (member.findtext("definition") or "").startswith("using")
        return f"{template_of(member)}{name} = {tight(given)}" if is_alias else name + pointer
    if kind in ("enum", "enumvalue"):
        return name
    arguments = re.sub(r"\s*=\s*default$", "", member.findtext("argsstring") or "")
    arguments = re.sub(r"(?<=\w)=(?=\S)", " = ", arguments)
    before = [word for word in ("static", "explicit", "virtual") if member.get(word) == "yes"
              and not given.startswith(word)]
    if kind == "variable" and member.find("initializer") is not None and "constexpr" not in given:
        arguments += " " + words(member.find("initializer"))
    given = given.removeprefix("friend ")
    return template_of(member) + tight(" ".join([*before, given, name + arguments]).replace("  ", " "))


def declaration(member):
    is_new = words(member.find("type")).startswith("VO_NEW")
    plain = re.search(r"\b(char|void) \*", words(member.find("type")))
    return Declaration(member.findtext("name"), member.get("kind"), text_of(member),
                       line_of(member), is_new and not plain,
                       member.find("location").get("file").endswith(".hpp"))


def enumerators(member):
    for value in member.findall("enumvalue"):
        name = value.findtext("name")
        text = f"{name} {words(value.find('initializer'))}".strip()
        yield Entry([Declaration(name, "enumvalue", text, line_of(member))], said_of(value))


def is_public(member):
    if member.get("prot") != "public" or (member.findtext("argsstring") or "").endswith("=delete"):
        return False
    return not (member.findtext("name") or "").startswith(("~", "@")) or member.get("kind") == "enum"


def fields(folder, member):
    """The fields of a structure that C callers fill in or read."""
    reference = member.find("type/ref[@kindref='compound']")
    if reference is None or not words(member.find("type")).startswith("struct"):
        return []
    return [entry for block in blocks(folder, compound(folder, reference.get("refid")))
            for entry in block.entries]


def blocks(folder, node, file=None):
    """The blocks of a file, class or namespace, in the order of the source; a namespace does not
    tell its file."""
    lines = (INCLUDE / (file or node.find("location").get("file"))).read_text().splitlines()
    found = []
    for section in node.findall("sectiondef"):
        title = (section.findtext("header") or "").replace("@{", "").strip()
        members = sorted((m for m in section.findall("memberdef") if is_public(m)), key=line_of)
        if not members:
            continue
        described = section.find("description")
        said = described if words(described) else None
        entries = entries_of(folder, members, lines, said)
        if title:
            found.append(Block(title, said, entries))
        else:
            found += [Block("", None, [entry]) for entry in entries]
    return joined(sorted(found, key=lambda block: block.entries[0].declarations[0].line))


def entries_of(folder, members, lines, group_said):
    entries = []
    for member in members:
        said, own = said_of(member), declaration(member)
        if not said and entries and shares(entries[-1], own, lines):
            entries[-1].declarations.append(own)
            continue
        entry = Entry([own], said)
        if own.kind == "enum":
            entry.parts = list(enumerators(member))
        elif own.kind == "typedef":
            entry.parts = fields(folder, member)
            if entry.parts:
                own.kind = "struct"
        if not said and group_said is not None and entries and entries[-1].said is None \
                and same_sort(entries[-1].declarations[0], own):
            entries[-1].declarations.append(own)
            continue
        entries.append(entry)
    return entries


def shares(before, own, lines):
    """Whether what is said of the entry before holds for a declaration behind it: in C when no blank
    line stands between, in C++, where bodies do, for overloads."""
    last = before.declarations[-1]
    if before.said is None or not same_sort(last, own):
        return False
    if own.is_cpp:
        return last.name == own.name
    return not has_gap(lines, last.line, own.line)


def same_sort(a, b):
    """Whether Sphinx can show both in one directive."""
    functions = ("function", "friend")
    return a.kind == b.kind or (a.kind in functions and b.kind in functions)


def has_gap(lines, first, last):
    """Whether a blank line or a comment stands between two lines, counted from 1."""
    between = lines[first:last - 1]
    return any(not line.strip() or line.strip().startswith("/**") for line in between)


def joined(found):
    """Blocks outside of groups that follow each other as one."""
    whole = []
    for block in found:
        if not block.title and whole and not whole[-1].title:
            whole[-1].entries += block.entries
        else:
            whole.append(block)
    return whole
