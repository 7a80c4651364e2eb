"""The reference: a page for each C header and for each part of voxml.hpp, from headers.py.

What is public and undocumented is one of its faults.
"""
import json
import re

import headers
from markup import Names, Target, Writer, heading, indented

# The parts of voxml.hpp: file name, title, classes, and other names. What stands here nowhere comes to
# a page at the end.
CPP = [
    ("document", "Documents", ["basic_document", "decode_options", "encode_options", "layout"],
     ["document"]),
    ("element", "Elements", ["basic_element", "basic_attr"], ["element", "attr"]),
    ("attributes", "Attributes", ["basic_attribute", "basic_attributes"],
     ["attribute", "attributes"]),
    ("items", "Children", ["basic_items", "basic_item", "basic_elements"],
     ["items", "item", "elements", "item_type"]),
    ("text", "Texts, comments and the like", ["text", "detail::marked_text"],
     ["comment", "cdata", "processing_instruction"]),
    ("view", "Views", ["basic_view", "basic_views"], ["view", "views"]),
    ("path", "Paths", ["path", "basic_selection"], ["selection"]),
    ("names", "Names and namespaces",
     ["qname", "expanded_name", "qname_arg", "namespace_map", "namespace_mapping"], []),
    ("result", "Results and failures", ["result", "result<void>", "failure", "failure::details",
                                        "location"], ["errc"]),
    ("string", "Strings and bytes", ["string", "string_arg", "buffer"], []),
    ("import", "Import", ["import_options"], ["import_document", "import_file"]),
    ("handle", "What all values have", ["handle", "adopt_t", "detail::list_range"], ["adopt"]),
]

ROLES = {"function": "func", "friend": "func", "define": "macro", "typedef": "type",
         "enumvalue": "enumerator", "struct": "struct", "enum": "enum", "variable": "member",
         "class": "class"}
C_DIRECTIVES = {"function": "function", "define": "macro", "typedef": "type",
                "enumvalue": "enumerator", "struct": "struct", "variable": "member"}
CPP_DIRECTIVES = {"function": "function", "friend": "function", "typedef": "type",
                  "enumvalue": "enumerator", "enum": "enum-class", "variable": "member"}


def page_of(header):
    """The page of a header, as other pages name it."""
    return "/reference/" + header.removesuffix(".h").split("/")[1]


class Reference:
    def __init__(self, folder):
        self.folder = folder
        self.names = Names()
        self.faults = []
        self.counts = {}
        self.c_files = [headers.compound(folder, name) for name in sorted(
            path.stem for path in folder.glob("*_8h.xml"))]
        self.files = {node.find("location").get("file"):
                      (node, headers.blocks(folder, node)) for node in self.c_files}
        self.classes = {}
        self.free = {}
        self.read_cpp()
        self.cpp_pages = self.pages_of_cpp()
        self.name_c()
        self.name_cpp()

    # ---- what there is

    def pages_of_cpp(self):
        listed = {name for _, _, classes, names in CPP for name in classes + names}
        classes = [name for name in self.classes if name not in listed]
        names = [name for name in self.free if name.removeprefix("ns::") not in listed]
        return CPP + ([("more", "More", classes, names)] if classes or names else [])

    def read_cpp(self):
        for path in sorted(self.folder.glob("*voxml_1_1*.xml")):
            node = headers.compound(self.folder, path.stem)
            if node.get("kind") not in ("class", "struct"):
                continue
            name = headers.tight(node.findtext("compoundname")).removeprefix("voxml::")
            name = name.replace("std::", "")
            listed = any(name in classes for _, _, classes, _ in CPP)
            if node.get("prot", "public") != "public" or (not listed and self.is_internal(name)):
                continue
            self.classes[name] = (node, headers.blocks(self.folder, node))
        for space in ("namespacevoxml", "namespacevoxml_1_1ns"):
            node = headers.compound(self.folder, space)
            for block in headers.blocks(self.folder, node, "voxml.hpp"):
                for entry in block.entries:
                    self.take_free(node, block, entry)

    def take_free(self, node, block, entry):
        prefix = "ns::" if node.findtext("compoundname").endswith("::ns") else ""
        said = entry.said if entry.said is not None else block.said
        for one in entry.declarations:
            self.free.setdefault(prefix + one.name, []).append((one, said, entry.parts, block.title))

    @staticmethod
    def is_internal(name):
        return name.startswith(("detail::", "hash<", "formatter<")) or "::" in name

    # ---- what can be referred to

    def name_c(self):
        for header, (_, found) in self.files.items():
            self.names.add(header, Target("", "doc", page_of(header)))
            for block in found:
                for entry in block.entries:
                    for one in entry.declarations:
                        if one.kind != "enum":
                            self.names.add(one.name, Target("c", ROLES[one.kind], one.name))
                    if entry.declarations[0].kind == "enum":
                        for part in entry.parts:
                            each = part.declarations[0]
                            self.names.add(each.name, Target("c", "enumerator", each.name))

    def name_cpp(self):
        alias_of = {}
        for key, found in self.free.items():
            one = found[0][0]
            self.names.add("voxml::" + key, Target("cpp", ROLES[one.kind], "voxml::" + key))
            aliased = re.search(r"= *(basic_\w+|detail::marked_text)<", one.text)
            if aliased and "::" not in key:
                alias_of.setdefault(aliased[1], key)
            if one.kind == "enum":
                for part in found[0][2]:
                    value = part.declarations[0].name
                    self.names.add(f"{one.name}::{value}",
                                   Target("cpp", "enumerator", f"voxml::{one.name}::{value}"))
        for name, (_, found) in self.classes.items():
            full = f"voxml::{name}"
            if "<" in name:
                continue
            self.names.add(full, Target("cpp", "class", full))
            for block in found:
                for entry in block.entries:
                    for one in entry.declarations:
                        if one.kind not in ("function", "friend") or "operator" in one.name:
                            continue
                        target = Target("cpp", "func", f"{full}::{one.name}")
                        short = alias_of.get(name, name)
                        for word in (f"{full}::{one.name}", f"{name}::{one.name}",
                                     f"voxml::{short}::{one.name}", f"{short}::{one.name}", one.name):
                            self.names.add(word, target)

    # ---- pages

    def c_page(self, header):
        node, found = self.files[header]
        parts = [heading(header.split("/")[1], "="), f"``#include \"{header}\"``\n",
                 Writer(self.names).blocks(headers.said_of(node))]
        for block in found:
            parts.append(self.c_block(header, block))
        return "\n\n".join(part for part in parts if part) + "\n"

    def c_block(self, header, block):
        parts = [heading(block.title, "-")] if block.title else []
        is_shared = block.said is not None and any(e.said is None for e in block.entries)
        if block.said is not None and not is_shared:
            parts.append(Writer(self.names).blocks(block.said))
        for entry in block.entries:
            shared = block.said if entry.said is None else None
            parts.append(self.c_entry(header, entry, shared, block.title))
        return "\n\n".join(parts)

    def c_entry(self, header, entry, shared, title):
        first = entry.declarations[0]
        said = entry.said if entry.said is not None else shared
        self.count("C", entry)
        if first.kind == "enum":
            return self.c_enum(header, entry)
        if said is None:
            self.faults += [f"{header}: {one.name} is not documented" for one in entry.declarations]
        if title == "Common operations":
            body = "Of every type; see :ref:`common-operations`."
        else:
            body = Writer(self.names, [d.name + "()" for d in entry.declarations]).blocks(said)
            own = self.ownership(entry)
            ends_in_list = body.split("\n\n")[-1].startswith(("- ", ".. ", " "))
            body += ("\n\n" if ends_in_list else "") + own
        for part in entry.parts:
            body += "\n\n" + self.directive("c", part, Writer(self.names).blocks(part.said))
        return self.directive("c", entry, body)

    @staticmethod
    def ownership(entry):
        new = [one for one in entry.declarations if one.gives_reference]
        if not new:
            return ""
        if len(new) == len(entry.declarations):
            return " :ref:`New reference <ownership>`." if len(new) == 1 \
                else " :ref:`New references <ownership>`."
        return " An object that is given is a :ref:`new reference <ownership>`."

    def c_enum(self, header, entry):
        parts = [Writer(self.names).blocks(entry.said)]
        for value in entry.parts:
            if value.said is None and entry.said is None:
                self.faults.append(f"{header}: {value.declarations[0].name} is not documented")
            self.count("C", value)
        silent = all(value.said is None for value in entry.parts)
        if silent:
            joined = headers.Entry([v.declarations[0] for v in entry.parts], None)
            return "\n\n".join([parts[0], self.directive("c", joined, "")])
        parts += [self.directive("c", value, Writer(self.names).blocks(value.said))
                  for value in entry.parts]
        return "\n\n".join(parts)

    @staticmethod
    def directive(domain, entry, body):
        kinds = C_DIRECTIVES if domain == "c" else CPP_DIRECTIVES
        kind = kinds[entry.declarations[0].kind]
        start = f".. {domain}:{kind}:: "
        lines = [one.text for one in entry.declarations]
        text = start + ("\n" + " " * len(start)).join(lines)
        return text + ("\n\n" + indented(body, 3) if body.strip() else "") + "\n"

    def count(self, language, entry):
        for one in entry.declarations:
            key = (language, "functions" if one.kind in ("function", "friend") else
                   "constants" if one.kind in ("define", "enumvalue") else
                   "fields" if one.kind == "variable" else "types")
            self.counts[key] = self.counts.get(key, 0) + 1

    # ---- C++

    def cpp_page(self, page):
        _, title, classes, names = page
        parts = [heading(title, "="), "``#include <voxml.hpp>``\n"]
        for name in names:
            for key in (name, "ns::" + name):
                if key in self.free:
                    parts.append(self.cpp_free(key))
        for name in classes:
            parts.append(self.cpp_class(name))
        return "\n\n".join(part for part in parts if part) + "\n"

    def cpp_free(self, key):
        found = self.free[key]
        first, _, parts, title = found[0]
        said = next((said for _, said, _, _ in found if said is not None), None)
        scope = "voxml::ns" if key.startswith("ns::") else "voxml"
        entry = headers.Entry([one for one, *_ in found], said)
        self.count("C++", entry)
        alias = first.kind == "typedef"
        if said is None and not alias:
            self.faults.append(f"voxml.hpp: {key} is not documented")
        body = Writer(self.names, [first.name + "()"]).blocks(said) if said is not None else ""
        if alias and key.startswith("ns::"):
            body = "The tree with namespaces: names are pairs."
        elif alias and not body:
            body = title + "." if title else ""
        if alias:
            shown = first.name if "marked_text" in first.text else first.text
            entry.declarations = [headers.Declaration(first.name, first.kind, f"{scope}::{shown}",
                                                      first.line)]
            scope = "NULL"
        for value in parts:
            self.count("C++", value)
            if value.said is None and first.name != "item_type":
                self.faults.append(f"voxml.hpp: {key}::{value.declarations[0].name} is not documented")
            body += "\n\n" + self.directive("cpp", value, Writer(self.names).blocks(value.said))
        return f".. cpp:namespace:: {scope}\n\n" + self.directive("cpp", entry, body)

    def cpp_class(self, name):
        node, found = self.classes[name]
        said = headers.said_of(node)
        kind = node.get("kind")
        template = headers.template_of(node) or ("template<> " if "<" in name else "")
        base = ", ".join(headers.tight(headers.words(each))
                         for each in node.findall("basecompoundref"))
        if said is None:
            self.faults.append(f"voxml.hpp: {name} is not documented")
        shown = name.removeprefix("basic_").removeprefix("detail::")
        title = {"marked_text": "Comments, CDATA sections and processing instructions",
                 "list_range": "Lists"}.get(shown, shown)
        if name.startswith("basic_"):
            title += " (plain and with namespaces)" if shown != "attr" else ""
        body = Writer(self.names).blocks(said)
        parts = [heading(title, "-"), ".. cpp:namespace:: voxml\n",
                 f".. cpp:{kind}:: {template}{name}{' : ' + base if base else ''}\n\n"
                 + indented(body, 3) + "\n",
                 f".. cpp:namespace-push:: {template}{name}\n"]
        self.counts[("C++", "types")] = self.counts.get(("C++", "types"), 0) + 1
        for block in found:
            entries = [e for e in block.entries if self.is_shown(name, e)]
            if not entries:
                continue
            if block.title:
                parts.append(heading(block.title, "~"))
            is_shared = block.said is not None and any(e.said is None for e in entries)
            if block.said is not None and not is_shared:
                parts.append(Writer(self.names).blocks(block.said))
            parts += [self.cpp_entry(name, e, block.said if e.said is None else None)
                      for e in entries]
        parts.append(".. cpp:namespace-pop::\n")
        return "\n\n".join(part for part in parts if part)

    @staticmethod
    def is_shown(name, entry):
        """Copying, moving and comparing go without saying where nothing is said of them; so do the
        constructors that come from a base."""
        first = entry.declarations[0]
        own = name.split("::")[-1].split("<")[0]
        if first.name == "handle" and own != "handle":
            return False
        copies = re.fullmatch(rf"(?:explicit )?{own}\((?:const )?{own} &&?\w*\).*", first.text)
        return entry.said is not None or not (
            copies or first.name == "operator!=" or first.name.startswith("operator="))

    def cpp_entry(self, name, entry, shared):
        said = entry.said if entry.said is not None else shared
        self.count("C++", entry)
        if said is None and not self.goes_without_saying(name, entry.declarations[0]):
            self.faults += [f"voxml.hpp: {name}::{one.name} is not documented"
                            for one in entry.declarations]
        own = [one.name + "()" for one in entry.declarations]
        return self.directive("cpp", entry, Writer(self.names, own).blocks(said))

    @staticmethod
    def goes_without_saying(name, one):
        """Of fields and constructors the comment of their class tells; of comparisons that of handle."""
        own = name.split("::")[-1].split("<")[0]
        return one.kind in ("typedef", "variable") or one.name in (own, "operator==", "operator<<")

    # ---- all of it

    def write(self, target):
        target.mkdir(parents=True, exist_ok=True)
        for header in self.files:
            path = target / (page_of(header).split("/")[-1] + ".rst")
            path.write_text(self.c_page(header))
        for page in self.cpp_pages:
            (target / f"cpp-{page[0]}.rst").write_text(self.cpp_page(page))
        self.write_lists(target)
        known = {word: (t.domain, t.role, t.name) for word, t in self.names.targets.items()
                 if word not in self.names.ambiguous}
        (target / "names.json").write_text(json.dumps(known))

    def write_lists(self, target):
        """Tables of contents, for the pages that introduce each part to include."""
        runtime = [h for h in self.files if h.startswith("vo/")]
        spaces = [h for h in self.files if h.startswith("xml/xml_ns_")]
        plain = [h for h in self.files if h not in runtime + spaces]
        for name, files in (("runtime", runtime), ("namespaces", spaces), ("plain", plain)):
            rows = [f"   * - :doc:`{h} <{page_of(h)}>`\n     - {self.first_sentence(h)}"
                    for h in files]
            hidden = "\n".join(f"   {page_of(h)}" for h in files)
            (target / f"{name}.inc").write_text(
                f".. toctree::\n   :hidden:\n\n{hidden}\n\n.. list-table::\n   :widths: 35 65\n\n"
                + "\n".join(rows) + "\n")
        pages = "\n".join(f"   cpp-{page[0]}" for page in self.cpp_pages)
        (target / "cpp.inc").write_text(f".. toctree::\n   :maxdepth: 2\n\n{pages}\n")

    def first_sentence(self, header):
        said = headers.said_of(self.files[header][0])
        text = headers.words(said)
        found = re.match(r".*?[.:](?= [A-Z]|$| -)", text)
        return Writer(self.names).inline_text(found[0] if found else text)
