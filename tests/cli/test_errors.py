"""Checks all that `voxml check` tells of one document: test_errors.py TOOL"""

import json
import random
import unittest

from test_tool import CODE, DECLARATION, ToolTest


class ErrorsTest(ToolTest):
    def errors(self, *arguments, **options):
        """All messages, each a dictionary."""
        result = self.voxml("check", "--json-errors", *arguments, **options)
        messages = [json.loads(line) for line in result.stderr.decode().splitlines()]
        self.assertEqual(result.returncode, any(m["severity"] == "error" for m in messages))
        return messages


class AllErrors(ErrorsTest):
    def test_errors_behind_the_first_are_told_unless_it_may_have_caused_them(self):
        rows = [
            ("<a>&\u00e9 & <b c='&;&' d='&'/>&amp\n&#xZZ;</a>", "2:4 2:7 2:15 2:17 2:23 2:27 3:1"),
            ("<a><b></a>", "2:7"),
            ("<a><b></c></a>", "2:7"),
            ("<a><b></c></b></a>", "2:7"),
            ("<a><b><c></b></c></a>", "2:10"),
            ("<a><b></a></b></a>", "2:7"),
            ("<b><a><b></x></b></a></b>", "2:10"),
            ("</a><b>&</b>", "2:1 2:8"),
            ("<a><b x='>'\n></a><c></d>&", "3:2 3:9 3:13"),
            ("<a><b><c></a><d><e></d>", "2:10 2:20"),
            ("<a><!--<b>--><![CDATA[<b>]]><?b <b>?><b / ></c></a>", "2:44"),
            ("<a>&<b c>&</b></a>", "2:4 2:8"),
            ("&<a>", "2:1 2:2"),
            ("<a b='&' b='' c/>", "2:7 2:10"),
            ("<a b='&lt;' c='&></a>", "2:13"),
        ]
        for document, places in rows:
            with self.subTest(document):
                messages = self.errors(stdin=(DECLARATION + document).encode())
                self.assertEqual([f"{m['line']}:{m['column']}" for m in messages], places.split())

    def test_no_more_than_twenty_errors_are_told_of_an_input(self):
        for number, notes in (20, []), (21, ["note"]):
            messages = self.errors(stdin=(DECLARATION + "&\n" * number).encode())
            self.assertEqual([m["severity"] for m in messages], ["error"] * 20 + notes)
        self.assertEqual(messages[-1]["message"], "there are more errors")

    def test_errors_in_one_part_of_a_document_bring_none_in_another(self):
        """Each child of the root is damaged once or not at all."""
        chance = random.Random(5)

        def element(depth):
            name = chance.choice("abc")
            inner = [element(depth - 1) for _ in range(chance.randrange(3) if depth else 0)]
            return [f"<{name}>", *sum(inner, []), f"</{name}>"]

        def damage(tokens):
            at = chance.randrange(1, len(tokens) - 1)
            kind = chance.randrange(4)
            if kind == 0:
                del tokens[at]
            elif kind == 1:
                tokens[at] = tokens[at].replace(">", "x>")
            else:
                tokens.insert(at + 1, ["&", f"</{chance.choice('abcd')}>"][kind - 2])

        documents = []
        for number in range(400):
            document, parts = "<root>", []
            for _ in range(6):
                child = ["<child>", *element(3), "</child>"]
                damaged = chance.randrange(3) == 0
                if damaged:
                    damage(child)
                begin = len(document)
                document += "".join(child)
                parts.append((begin, len(document), damaged))
            documents.append((document + "</root>", parts))
            self.put(f"{number}.xml", documents[-1][0])
        told = {}
        for message in self.errors("-r"):
            told.setdefault(message["file"], []).append(message["offset"] - len(DECLARATION))
        found = lost = 0
        for number, (document, parts) in enumerate(documents):
            with self.subTest(document):
                places = told.get(f"./{number}.xml", [])
                self.assertEqual(bool(places), any(damaged for *_, damaged in parts))
                for begin, end, damaged in parts:
                    within = sum(begin <= place < end for place in places)
                    self.assertLessEqual(within, damaged)
                    found += within
                    lost += damaged - within
        self.assertLess(10 * lost, found)


class Strict(ErrorsTest):
    def check(self, content, *options):
        return self.errors("--strict", *options, stdin=content)

    def test_what_other_readers_refuse_has_a_place_and_a_hint(self):
        rows = [
            ("<a/>\n<a/>", "2:1", "several root elements", "one root element"),
            ("<!--a-->", "1:9", "no root element", "exactly one"),
            ("<a/>\n b", "2:2", "text beside the root element", "white space, comments"),
            ("<!--a-->\nb<a/>", "2:1", "text beside the root element", "white space, comments"),
            ("<a/><![CDATA[]]>", "1:5", "CDATA section beside the root element", "into the root"),
            ("<a>\u00e9\x01</a>", "1:5", "character that XML 1.0 does not have", "U+0001"),
            ("<a b='\uffff'/>", "1:7", "character that XML 1.0 does not have", "U+FFFF"),
            ("<a>b]]></a>", "1:5", '"]]>" in a text', "]]&gt;"),
            ("<a>&amp;&nbsp;</a>", "1:9", "undefined entity", "&quot; and &apos;"),
            ("<a b='&lt;&nbsp;'/>", "1:11", "undefined entity", "write the character itself"),
            ("<a>&#1;</a>", "1:4", "reference to a character that XML 1.0 does not have", ""),
            ("<a>&#x;</a>", "1:4", "character reference malformed", "hexadecimal"),
            ("<a/>\n<?xml version='1.0'?>", "2:1",
             "XML declaration behind the beginning of the document", "at the very beginning"),
            (" <?xml version='1.0'?><a/>", "1:2",
             "XML declaration behind the beginning of the document", "at the very beginning"),
            ("<a><?XmL b?></a>", "1:4", "processing instruction called xml in capital letters",
             "use another one"),
            ("< a/>", "1:2", 'white space behind "<"', "&lt;"),
            ("<a></ a>", "1:6", 'white space behind "/"', "remove"),
            ("<a b='1'c='2'/>", "1:9", "no white space between attributes", "in front of 'c'"),
            ("<a\u2070/>", "1:3", "character that not every XML reader takes in a name", "U+2070"),
            ("<a/><!DOCTYPE a>", "1:5", "DOCTYPE declaration that cannot stand here", "in front"),
            ("<?xml encoding='utf-8' version='1.0'?><a/>", "1:7", "XML declaration malformed",
             "in this order"),
            ("<?xml version='1.0' encoding='utf8x'?><a/>", "1:31", "unknown encoding",
             "did you mean"),
            ("<?xml version='1.0' encoding='windows-1251'?><a/>", "1:31",
             "encoding that not every XML reader knows", "'voxml convert --to UTF-8'"),
        ]
        for document, place, text, hint in rows:
            with self.subTest(document):
                [message] = self.check(document.encode())
                self.assertEqual((f"{message['line']}:{message['column']}", message["message"]),
                                 (place, text))
                self.assertIn(hint, message["hint"])

    def test_errors_of_the_decoder_come_without_those_that_are_none_elsewhere(self):
        rows = [
            # As with a declaration in front, but at their own places
            ("<a><b></a>", [("1:7", "the open element is <b> of line 1, column 4")]),
            ("\n<a b='' b=''/>",
             [("2:9", "attribute 'b' is given twice, first in line 2, column 4")]),
            ("<a b='' b=''/>",
             [("1:9", "attribute 'b' is given twice, first in line 1, column 4")]),
            ("<a>&#65;<!----><b c='&#x10FFFF;'></a>",
             [("1:34", "the open element is <b> of line 1, column 16")]),
            ("<?xml version='2.0' encoding='iso-8859-1'?>\n<a>&#65;& &#66;</a>",
             [("2:9", 'write &amp; for "&"')]),
            ("<a>&b;<c>&d;</a>]]>", [
                ("1:4", "without a DOCTYPE only &lt; &gt; &amp; &quot; and &apos; are defined; "
                        "write the character itself"),
                ("1:10", "without a DOCTYPE only &lt; &gt; &amp; &quot; and &apos; are defined; "
                         "write the character itself"),
                ("1:13", "the open element is <c> of line 1, column 7")]),
        ]
        for document, expected in rows:
            for encoding in "utf-8", "utf-16":
                if encoding == "utf-16" and "iso" in document:
                    continue
                with self.subTest(document, encoding=encoding):
                    messages = self.check(document.encode(encoding))
                    self.assertEqual([(f"{m['line']}:{m['column']}", m["hint"]) for m in messages],
                                     expected)

    def test_what_is_no_text_or_no_xml_is_told_apart(self):
        rows = [
            (b"", "the input is empty"),
            (b"{}", "this looks like JSON"),
            (b"\x89PNG", "this does not look like XML"),
            (b"<a>\xff</a>", "not all bytes are UTF-8"),
            (b"<?xml version='1.0'?><a>\xff</a>", "byte 0xFF at offset 24"),
            (b"<?xml version='1.0' encoding='utf-16'?><a />", "but names the encoding 'utf-16'"),
        ]
        for content, hint in rows:
            with self.subTest(content):
                [message] = self.check(content)
                self.assertIn(hint, message["hint"])

    def test_a_note_tells_what_only_importing_reads(self):
        self.put("a.xml", "<p:a>&#65;</p:a>")
        self.put("b.xml", b"<!DOCTYPE b [<!ENTITY c 'd'>]><b>&c;</b>")
        self.expect(["check", "--strict", "a.xml"], 0, stderr=(
            "a.xml:2:6: note: well-formed, but read only by importing: 'voxml import', or --import "
            f"[{CODE}TEXT]\n<p:a>&#65;</p:a>\n     ^\n"
            "hint: character references are for attribute values; write the character itself\n"))
        self.assertEqual([m["severity"] for m in self.errors("--strict", "b.xml")], ["note"])
        for options in ["--import"], ["-q"]:
            self.expect(["check", "--strict", *options, "a.xml", "b.xml"], 0)
        self.assertEqual([m["severity"] for m in self.errors("--strict", "--ns", "a.xml")],
                         ["note", "error"])
        self.expect(["check", "--strict", "--ns", "-q", "a.xml"], 1)
        self.expect(["check", "--strict", "-q"], 1, stdin=b"<!DOCTYPE a><a>&b;</a>")


if __name__ == "__main__":
    unittest.main()
