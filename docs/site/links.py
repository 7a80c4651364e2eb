"""Makes the names of the library in the pages lead to their descriptions.

`xmlElementChild()`, `XML_FLAG_DECODE_LOCATION`, `xml/xml_text.h` or `voxml::view` between backquotes
become references. A name of the C interface that is not in the reference is a warning, so that no
page speaks of what does not exist.
"""
import json
import pathlib
import re

from docutils import nodes
from sphinx import addnodes
from sphinx.transforms import SphinxTransform
from sphinx.util import logging

OURS = re.compile(r"(?:xml|vo)[A-Z]\w*\(\)|(?:XML|VO)_[A-Z0-9_]+|(?:xml|vo)/\w+\.h")
PLAIN = re.compile(r"[\w:/.]+(?:\(\))?")
logger = logging.getLogger(__name__)


class NameLinks(SphinxTransform):
    default_priority = 400

    def apply(self, **kwargs):
        if not self.env.doc2path(self.env.docname).endswith(".md"):
            return  # reStructuredText is made by reference.py, with its references in it
        for literal in list(self.document.findall(nodes.literal)):
            text = literal.astext()
            inside = isinstance(literal.parent, (nodes.reference, addnodes.pending_xref))
            if inside or literal["classes"] or not PLAIN.fullmatch(text):
                continue  # {code}`...` is for names of others
            target = self.config.voxml_names.get(text.removesuffix("()"))
            if target and (target[1] == "func") == text.endswith("()"):
                literal.replace_self(self.reference(literal, *target))
            elif OURS.fullmatch(text):
                logger.warning("%s is not in the reference", text, location=literal)

    def reference(self, literal, domain, role, name):
        link = addnodes.pending_xref("", literal.deepcopy(), refdomain=domain or "std", reftype=role,
                                     reftarget=name, refexplicit=True, refwarn=True,
                                     refdoc=self.env.docname)
        return link


def load(app, config):
    config.voxml_names = json.loads(
        (pathlib.Path(app.srcdir) / "reference" / "names.json").read_text())


def setup(app):
    app.add_config_value("voxml_names", {}, False)
    app.connect("config-inited", load)
    app.add_transform(NameLinks)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
