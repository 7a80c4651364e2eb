"""The directive of the cookbook: shows the programs of a folder with their input and output.

    :::{recipe} find
    :::

The folder holds find.cpp, find.c, the output of both, and the documents that they read.
"""
import pathlib

from docutils import nodes
from docutils.statemachine import StringList
from sphinx.util.docutils import SphinxDirective

LANGUAGES = {".cpp": "cpp", ".c": "c", ".xml": "xml", ".txt": "text", ".h": "c"}


class Recipe(SphinxDirective):
    required_arguments = 1

    def run(self):
        name = self.arguments[0]
        folder = pathlib.Path(self.env.srcdir) / "cookbook" / name
        lines = []
        for title, path in self.files(folder, name):
            self.env.note_dependency(str(path))
            lines += [f"## {title}", "", f"```{{literalinclude}} /cookbook/{name}/{path.name}",
                      f":language: {LANGUAGES[path.suffix]}", ":force:", "```", ""]
        node = nodes.Element()
        self.state.nested_parse(StringList(lines, source=str(folder)), self.content_offset, node,
                                match_titles=True)
        return node.children

    @staticmethod
    def files(folder, name):
        inputs = sorted(path for path in folder.glob("*.xml"))
        for path in inputs:
            yield f"Input: {path.name}", path
        yield "C++", folder / f"{name}.cpp"
        yield "C", folder / f"{name}.c"
        yield "Output", folder / "output.txt"


def setup(app):
    app.add_directive("recipe", Recipe)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
