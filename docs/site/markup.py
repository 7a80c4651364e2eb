"""Descriptions that doxygen has read as reStructuredText, with references to what has a name."""
import re
from dataclasses import dataclass

import headers

WORD = re.compile(r"(?:vo|xml)/\w+\.h\b|(?:\b[A-Za-z_]\w*::)*[A-Za-z_]\w*(?:\(\))?")
SPECIAL = re.compile(r"([\\*`|_])")


@dataclass
class Target:
    domain: str
    role: str
    name: str


class Names:
    """Where what can be referred to is described, by the words that refer to it."""

    def __init__(self):
        self.targets = {}
        self.ambiguous = set()

    def add(self, word, target):
        if self.targets.get(word, target) != target:
            self.ambiguous.add(word)
        self.targets[word] = target

    def find(self, word):
        bare = word.removesuffix("()")
        target = self.targets.get(bare)
        if not target or bare in self.ambiguous:
            return None
        is_function = target.role == "func"
        return target if is_function == word.endswith("()") else None

    def reference(self, word):
        """A cross-reference, or None where the word refers to nothing."""
        target = self.find(word)
        if not target:
            return None
        role = f"{target.domain}:{target.role}" if target.domain else target.role
        return f":{role}:`{word} <{target.name}>`"


class Writer:
    """Descriptions as reStructuredText."""

    def __init__(self, names, own=()):
        self.names = names
        self.own = set(own)  # words that the description itself is about

    def inline_text(self, text):
        pieces, end = [], 0
        for match in WORD.finditer(text):
            link = match[0] not in self.own and self.is_telling(match[0]) \
                and self.names.reference(match[0])
            if link:
                before, after = text[end:match.start()], text[match.end():match.end() + 1]
                pieces += [SPECIAL.sub(r"\\\1", before), separator(before[-1:]), link,
                           separator(after)]
                end = match.end()
        return "".join(pieces) + SPECIAL.sub(r"\\\1", text[end:])

    @staticmethod
    def is_telling(word):
        """Not a plain English word, which may happen to be the name of something."""
        return word.endswith(("()", ".h")) or "::" in word or re.match(r"(XML|VO)_|vo[A-Z]", word)

    def paragraph(self, node):
        """The blocks of a paragraph: doxygen puts lists and code into the one before."""
        text = self.inline_text(node.text or "")
        for child in node:
            block = self.block(child)
            if block is None:
                text += self.inline(child) + self.inline_text(child.tail or "")
                continue
            yield clean(text)
            yield from block
            text = self.inline_text(child.tail or "")
        yield clean(text)

    def inline(self, node):
        if node.tag == "computeroutput":
            word = headers.words(node)
            return self.names.reference(word) or f"``{word}``"
        return self.inline_text(headers.words(node))

    def block(self, node):
        """The lines of a block, or None for what stands in a line."""
        if node.tag == "itemizedlist":
            return ["\n".join("- " + indented(self.blocks(item), 2).lstrip() for item in node)]
        if node.tag in ("verbatim", "programlisting"):
            return [code(text_of_code(node))]
        if node.tag == "simplesect":
            return [clean(f"**Result:** {self.blocks(node)}" if node.get("kind") == "return"
                          else self.blocks(node))]
        if node.tag == "parameterlist":
            return ["\n".join(self.parameter(item) for item in node)]
        return None

    def parameter(self, item):
        name = headers.words(item.find("parameternamelist"))
        said = self.blocks(item.find("parameterdescription"))
        return f"- ``{name}``: {indented(said, 2).lstrip()}"

    def blocks(self, said):
        if said is None:
            return ""
        found = [block for node in said for block in self.paragraph(node) if block.strip()]
        return "\n\n".join(found)


def separator(neighbour):
    """What reStructuredText needs between a reference and a character that is no blank."""
    return r"\ " if neighbour and not neighbour.isspace() else ""


def clean(text):
    return re.sub(r"\s+", " ", text).strip()


def text_of_code(node):
    if node.tag == "verbatim":
        return node.text
    return "\n".join("".join(" " if part.tag == "sp" else (part.text or "") for part in line.iter())
                     for line in node)


def code(text):
    lines = text.strip("\n").rstrip().splitlines()
    least = min((len(line) - len(line.lstrip()) for line in lines if line.strip()), default=0)
    language = "text"
    if re.search(r";\s*$", text, re.MULTILINE):
        language = "cpp" if re.search(r"\bauto |::", text) else "c"
    return f".. code-block:: {language}\n\n" + indented("\n".join(l[least:] for l in lines), 3)


def indented(text, by):
    return "\n".join(" " * by + line if line.strip() else "" for line in text.split("\n"))


def heading(text, mark):
    return f"{text}\n{mark * len(text)}\n"
