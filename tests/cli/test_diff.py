"""Compares documents as users do: test_diff.py TOOL"""

import json
import os
import pathlib
import random
import re
import unittest
from collections import Counter
from xml.etree import ElementTree

from test_tool import DEEP, DECLARATION, ToolTest


class Diff(ToolTest):
    def differences(self, a, b, *options):
        """Each difference as its change, its node, and for both documents path and value."""
        self.put("a.xml", a)
        self.put("b.xml", b)
        result = self.voxml("diff", "--json", *options, "a.xml", "b.xml")
        self.assertEqual(result.stderr, b"")
        found = [json.loads(line) for line in result.stdout.splitlines()]
        self.assertEqual(result.returncode, 1 if found else 0)
        return [(one["change"], one["node"],
                 *((one[side]["path"], one[side].get("value")) for side in "ab")) for one in found]

    def test_a_difference_has_the_places_and_values_of_both(self):
        self.put("a.xml", "<a>\n<b c='1'/><d/></a>")
        self.put("b.xml", "<a>\n <b c='2'/>\n<e f='3' g='&lt;'/></a>")
        self.expect(["diff", "a.xml", "b.xml"], 1, b"""\
changed text /a/text()
- a.xml:2:4: "\\n"
+ b.xml:2:4: "\\n "
changed attribute /a/b/@c
- a.xml:3:4: "1"
+ b.xml:3:5: "2"
removed element /a/d
- a.xml:3:11: <d>
+ b.xml:2:1: not here
added text /a/text()[2]
- a.xml:2:1: not here
+ b.xml:3:12: "\\n"
added element /a/e
- a.xml:2:1: not here
+ b.xml:4:1: <e f="3" g="<">
""")
        self.expect(["diff", "-q", "a.xml", "b.xml"], 1)
        self.expect(["diff", "a.xml", "-"], 0, stdin=self.content("a.xml"))
        self.assertIn(b"\x1b[1;31m-\x1b[m",
                      self.voxml("diff", "--color", "always", "a.xml", "b.xml").stdout)

    def test_long_values_are_shown_around_the_first_difference(self):
        for name, digit in ("a.xml", "1"), ("b.xml", "2"):
            self.put(name, "<a>" + "\u00e9" * 100 + digit + "x" * 100 + "</a>")
        out = self.voxml("diff", "a.xml", "b.xml").stdout.decode().splitlines()
        for line, digit in zip(out[1:], "12"):
            self.assertRegex(line, f'"\\.\\.\\.\u00e9{{10}}{digit}x{{30,60}}\\.\\.\\."$')

    def test_what_does_not_count_is_no_difference(self):
        rows = [
            ("<a b='1' c='2'></a>", "<a c=\"2\" b=\"1\"/>"),
            ("<a b='&#x26;'>&quot;</a>", "<a b='&amp;'>\"</a>"),
        ]
        for a, b in rows:
            self.assertEqual(self.differences(a, b), [])
        self.put("b.xml", b"<?xml version='1.1' encoding='UTF-16LE'?><a/>".decode().encode("UTF-16LE"))
        self.put("a.xml", "<a/>")
        self.expect(["diff", "--ignore-space", "a.xml", "b.xml"], 0)
        self.assertEqual(self.differences("<a> <b/>\n x\ty </a>", "<a><b/>x y</a>", "--ignore-space"),
                         [])
        self.assertEqual(self.differences("<p:a xmlns:p='u' p:b='1'/>", "<a xmlns='u' xmlns:q='u' "
                                          "q:b='1'/>", "--ns"), [])

    def test_every_kind_of_difference_is_named(self):
        rows = [
            # of a, of b, change, node, path and value of a, of b
            ("<a/>", "<b/>", "changed", "element", ("/a", "a"), ("/b", "b")),
            ("<a/>", "<a b=''/>", "added", "attribute", ("/a", None), ("/a/@b", "")),
            ("<a b='&e;'/>", "<a b='&amp;e;'/>", None),
            ("<a><b/><b/><c/></a>", "<a><b/><c/></a>", "removed", "element",
             ("/a/b[2]", "b"), ("/a", None)),
            ("<a><!--c--><b/></a>", "<a><!--d--><b/></a>", "changed", "comment",
             ("/a/comment()", "c"), ("/a/comment()", "d")),
            ("<?p i?><a/>", "<a/>", "removed", "instruction",
             ("/processing-instruction()", "p i"), ("/", None)),
            ("<a><![CDATA[1]]></a>", "<a><![CDATA[2]]></a>", "changed", "cdata",
             ("/a/text()", "1"), ("/a/text()", "2")),
            ("<a>1<![CDATA[2]]><b/>3</a>", "<a>1<![CDATA[2]]><b/>4</a>", "changed", "text",
             ("/a/text()[2]", "3"), ("/a/text()[2]", "4")),
            ("<a>1<b/>2</a>", "<a>1<b/>3</a>", "changed", "text",
             ("/a/text()[2]", "2"), ("/a/text()[2]", "3")),
        ]
        for a, b, *wanted in rows:
            with self.subTest(a, b=b):
                found = self.differences(DECLARATION.encode() + a.encode(),
                                         DECLARATION.encode() + b.encode())
                found = [one for one in found if one[1] != "text" or "text" in wanted]
                if wanted[0] is None:
                    self.assertEqual(len(found), 1)
                else:
                    self.assertEqual(found, [tuple(wanted)])

    def test_positions_count_the_texts_that_are_ignored(self):
        self.assertEqual(
            self.differences("<a>\n<b/>x<c/></a>", "<a>\n<b/>y<c/></a>", "--ignore-space"),
            [("changed", "text", ("/a/text()[2]", "x"), ("/a/text()[2]", "y"))])

    def test_items_are_paired_with_those_most_like_them(self):
        a = "<a><s i='1' p='x'/><s i='2' p='x'/><s i='3' p='y'/></a>"
        b = "<a><s i='2' p='z'/><s i='4' p='y'/></a>"
        self.assertEqual([one[:3] for one in self.differences(a, b)], [
            ("removed", "element", ("/a/s[1]", "s")),
            ("changed", "attribute", ("/a/s[2]/@p", "x")),
            ("changed", "attribute", ("/a/s[3]/@i", "3"))])

    def test_what_cannot_be_compared_is_trouble(self):
        self.put("a.xml", "<a/>")
        self.put("bad.xml", "<a>")
        for arguments, status in ((["a.xml", "bad.xml"], 3), (["a.xml", "none"], 3),
                                  (["a.xml"], 2), (["-", "-"], 2), (["a.xml", "a.xml", "a.xml"], 2)):
            with self.subTest(arguments):
                self.assertEqual(self.voxml("diff", *arguments).returncode, status)

    def test_lists_are_aligned_with_the_fewest_differences(self):
        source = random.Random(1)
        for _ in range(40):
            a, b = ("".join(source.choices("abc", k=source.randrange(60))) for _ in "ab")
            xml_a, xml_b = ("<r>" + "".join(f"<i x='{item}'/>" for item in items) + "</r>"
                            for items in (a, b))
            common = [0] * (len(b) + 1)
            for one in a:
                row = [0]
                for j, other in enumerate(b):
                    row.append(common[j] + 1 if one == other else max(row[j], common[j + 1]))
                common = row
            least = max(len(a), len(b)) - common[-1]
            most = len(a) + len(b) - 2 * common[-1]
            count = len(self.differences(xml_a, xml_b))
            self.assertTrue(least <= count <= most, (a, b, count, least, most))

    def test_time_is_in_proportion_to_what_is_compared(self):
        deep = [f"{'<a>' * DEEP}{text}{'</a>' * DEEP}" for text in "12"]
        found = self.differences(*deep)
        self.assertEqual([one[:2] for one in found], [("changed", "text")])
        self.assertLess(len(found[0][2][0]), 500)
        wide = ["<r>" + "".join(f"<i>{number * factor}</i>" for number in range(DEEP)) + "</r>"
                for factor in (1, -3)]
        self.assertLess(len(self.differences(*wide)), 2 * DEEP)


class Edits(ToolTest):
    """Edits at random are named one by one."""

    def setUp(self):
        super().setUp()
        self.random = random.Random(7)

    def rewritten(self, tree):
        return DECLARATION.encode() + ElementTree.tostring(tree, "utf-8")

    def edit(self, element, parent, name):
        """Makes an edit of an element below the root and gives what must be said about it."""
        choice = self.random.randrange(6)
        if choice == 0:
            element.set(name, "1")
            return ("added", "attribute", None, "1")
        if choice == 1 and element.attrib:
            key = self.random.choice(list(element.attrib))
            old = element.attrib[key]
            element.set(key, name)
            return ("changed", "attribute", old, name)
        if choice == 2 and element.attrib:
            key = self.random.choice(list(element.attrib))
            return ("removed", "attribute", element.attrib.pop(key), None)
        if choice == 3 and element.text and element.text.strip():
            old, element.text = element.text, name
            return ("changed", "text", " ".join(re.findall("[^ \t\r\n]+", old)), name)
        if choice == 4 and not (element.tail or "").strip():
            parent.remove(element)
            return ("removed", "element", element.tag, None)
        element.insert(0, ElementTree.Element(name))
        element[0].tail, element.text = element.text, None
        return ("added", "element", None, name)

    def check(self, tree, edits):
        before = self.rewritten(tree)
        parents = {child: parent for parent in tree.iter() for child in parent}
        elements = list(parents)
        self.random.shuffle(elements)
        used, wanted = set(), Counter()
        for element in elements:
            line = [element]
            while line[-1] in parents:
                line.append(parents[line[-1]])
            # Edits do not touch each other: none is in an element that another one changes, and each
            # parent has one at most.
            if used.intersection(line[:-1]) or any(e in used for e in element.iter()):
                continue
            used.update([element, parents[element], *element.iter(), *parents[element]])
            used.discard(tree)
            wanted[self.edit(element, parents[element], f"edit{len(wanted)}")] += 1
            if wanted.total() == edits:
                break
        self.put("a.xml", before)
        self.put("b.xml", self.rewritten(tree))
        result = self.voxml("diff", "--import", "--ns", "--json", "--ignore-space",
                            "a.xml", "b.xml")
        found = Counter()
        for line in result.stdout.splitlines():
            one = json.loads(line)
            found[(one["change"], one["node"], one["a"].get("value"), one["b"].get("value"))] += 1
        return wanted.total(), wanted == found, wanted, found

    def test_edits_of_a_document_are_named(self):
        for seed in range(int(os.environ.get("VOXML_EDITS", 180)) // 3):
            self.random.seed(seed)
            tree = ElementTree.Element("r")
            elements = [tree]
            for _ in range(self.random.randrange(10, 60)):
                parent = self.random.choice(elements[-20:])
                child = ElementTree.SubElement(parent, self.random.choice("abc"))
                child.tail = "\n"
                if self.random.random() < .5:
                    child.text = str(self.random.random())
                if self.random.random() < .7:
                    child.set("id", str(self.random.random()))
                elements.append(child)
            count, isSame, wanted, found = self.check(tree, 3)
            self.assertTrue(isSame, (seed, wanted - found, found - wanted))

    @unittest.skipUnless("VOXML_CORPUS" in os.environ, "VOXML_CORPUS names no files")
    def test_edits_of_real_files_are_named(self):
        edits, wrong = 0, []
        for path in sorted(pathlib.Path(os.environ["VOXML_CORPUS"]).rglob("*.*")):
            if not path.is_file() or path.suffix == ".tsv" or path.stat().st_size > 1_000_000:
                continue
            try:
                tree = ElementTree.parse(path).getroot()
            except (ElementTree.ParseError, ValueError, LookupError):
                continue
            count, isSame, wanted, found = self.check(tree, 4)
            edits += count
            if not isSame:
                wrong.append((str(path), wanted - found, found - wanted))
        print(f"{edits} edits, {len(wrong)} files with other differences")
        for one in wrong[:20]:
            print(*one)


if __name__ == "__main__":
    unittest.main()
