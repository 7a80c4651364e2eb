"""Every function of the public headers is documented: by a comment at the head of its paragraph, or
by one about its @name group that says more than the name. Comments keep their layout.
"""
import re
import sys

from headers import INCLUDE, headers

GROUP = re.compile(r"/\*\* @name[^\n]*\n(.*?)@\{ \*/(.*?)/\*\* @\} \*/", re.DOTALL)
TITLED = re.compile(r"/\*\* @name[^\n]*@\{ \*/")


def faults(text):
    """What is wrong in a header, as pieces of its text."""
    yield from re.findall(r"^ \*(?:[^ /\n].*| [^ \n].*)", text, re.MULTILINE)  # reflowed
    text = TITLED.sub("", text)
    text = GROUP.sub("", text)
    for paragraph in re.split(r"\n\s*\n", text):
        functions = re.findall(r"^VO_(?:API|NEW)\b.*", paragraph, re.MULTILINE)
        if functions and not paragraph.lstrip().startswith("/**"):
            yield from functions


found = [f"{header}: {fault}" for header in headers()
         for fault in faults((INCLUDE / header).read_text())]
print(*found, sep="\n")
sys.exit(bool(found) or not headers())
