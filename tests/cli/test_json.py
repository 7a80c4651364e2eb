"""Takes documents to JSON and back as users do: test_json.py TOOL"""

import json
import os
import pathlib
import random
import resource
import subprocess
import unittest

from test_tool import DEEP, TOOL, ToolTest

CONFORMANCE = pathlib.Path(__file__).resolve().parents[2].parent / "shared" / "conformance"


class Json(ToolTest):
    def document(self, content):
        return {"version": "1.0", "encoding": "UTF-8", "content": ["\n", *content]}

    def reversed(self, value, **options):
        text = value if isinstance(value, bytes) else json.dumps(value).encode()
        return self.voxml("json", "--reverse", stdin=text, **options)

    def test_each_kind_of_node_has_its_form(self):
        rows = [
            ("<p:a xmlns:p='u' b='1'/>",
             [{"element": "p:a", "attributes": {"xmlns:p": "u", "b": "1"}}]),
            ("<a>x<b/>y</a>", [{"element": "a", "content": ["x", {"element": "b"}, "y"]}]),
            ("<!--c--><![CDATA[<]]><?p i?>",
             [{"comment": "c"}, {"cdata": "<"}, {"instruction": "p i"}]),
            ("<a b='&lt;&amp;\u00e9'>&amp;&lt;</a>",
             [{"element": "a", "attributes": {"b": "<&\u00e9"}, "content": ["&<"]}]),
            ("<a b='&#x41;' c=\"&quot;'\">></a>",
             [{"element": "a", "attributes": {"b": {"text": "A", "escaped": "&#x41;"},
                                              "c": {"text": "\"'", "escaped": "&quot;'"}},
               "content": [">"]}]),
            ("<a b='&e;'>1&gt;</a>",
             [{"element": "a", "attributes": {"b": {"escaped": "&e;"}},
               "content": [{"text": "1>", "escaped": "1&gt;"}]}]),
            ("<a b='&#xD800;'>\x01\"\\\t</a>",
             [{"element": "a", "attributes": {"b": {"text": "\ufffd", "escaped": "&#xD800;"}},
               "content": ["\x01\"\\\t"]}]),
        ]
        for xml, content in rows:
            with self.subTest(xml):
                self.put("a.xml", xml)
                line = self.voxml("json", "a.xml").stdout
                self.assertEqual(json.loads(line), self.document(content))
                self.assertEqual(line.count(b"\n"), 1)
                self.assertEqual(self.reversed(line).stdout, self.voxml("canonical", "a.xml").stdout)
                shuffled = json.dumps(json.loads(line), sort_keys=True).encode()
                if len(content[0].get("attributes", {})) < 2:
                    self.assertEqual(self.reversed(shuffled).stdout,
                                     self.voxml("canonical", "a.xml").stdout)

    def test_the_declaration_comes_back(self):
        xml = "<?xml version='1.1' encoding='ISO-8859-1' standalone='yes'?><a>\u00e9</a>"
        self.put("a.xml", xml.encode("latin-1"))
        line = self.voxml("json", "a.xml").stdout
        self.assertTrue(line.startswith(
            b'{"version":"1.1","encoding":"ISO-8859-1","standalone":true,"content":['), line)
        self.assertEqual(self.reversed(line).stdout, self.voxml("canonical", "a.xml").stdout)
        self.assertEqual(self.reversed(b"\xef\xbb\xbf {}").stdout,
                         b'<?xml version="1.0" encoding="UTF-8"?>')

    def test_a_text_that_was_changed_is_escaped_anew(self):
        for value, xml in (({"text": ">", "escaped": "&gt;"}, "&gt;"),
                           ({"text": "<", "escaped": "&gt;"}, "&lt;"),
                           ({"text": "&e;", "escaped": "&e;"}, "&amp;e;"), ("]]>", "]]>")):
            out = self.reversed({"content": [value]}).stdout.decode()
            self.assertEqual(out.split("?>")[1], xml)

    def test_wrong_json_is_refused_with_its_place(self):
        rows = [
            ('{"content":[{"element":"a b"}]}', "1:24", '"a b" is no XML name'),
            ('{"content":\n[{"element":"a","attributes":{"b\\"":"1"}}]}', "2:31",
             '"b\\"" is no XML name'),
            ('{"content":[{"element":"a","attributes":{"b":"1","b":"2"}}]}', "1:50",
             "the attribute is there already"),
            ('{"content":[{"comment":"-"}]}', "1:24", "no comment can hold this text"),
            ('{"content":[{"escaped":"a & b"}]}', "1:24",
             'there is a "<", or an "&" without a reference'),
            ('{"content":[{"element":"a","comment":"b"}]}', "1:38", "a node is of one kind only"),
            ('{"content":[{"\u00e9":1}]}', "1:14", 'unknown key "\u00e9"'),
            ('{"content":[null]}', "1:16", "null is not expected here"),
            ('{"encoding":"x"}', "1:13", 'unknown character set "x"'),
            ('{"content":[]}\n\n1', "3:1",
             "the document root must not be followed by other values"),
            ('{"content":["\\ud800"]}', "1:14", "The surrogate pair in string is invalid"),
        ]
        for text, place, message in rows:
            with self.subTest(text):
                result = self.reversed(text.encode())
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stderr.decode().splitlines()[0].lower(),
                                 f"<stdin>:{place}: error: {message}".lower())
        for content in ([{}], [{"text": "a", "comment": "b"}], [{"comment": "a", "content": ["b"]}],
                        [{"comment": "a", "attributes": {"b": "c"}}], [["a"]], {"a": "b"},
                        [{"element": "a", "attributes": {"b": {}}}], [{"content": ["a"]}]):
            with self.subTest(content):
                self.assertEqual(self.reversed({"content": content}).returncode, 1)

    def test_a_character_that_does_not_fit_has_its_place(self):
        result = self.reversed('{"encoding":"US-ASCII","content":["\u00e9"]}'.encode())
        self.assertEqual(result.returncode, 4)
        self.assertIn(b"<stdin>:1:36: error: US-ASCII lacks", result.stderr)

    def test_the_compact_form_is_for_programs_that_want_data(self):
        rows = [
            ("<a/>", {"a": None}),
            ("<a> x </a>", {"a": "x"}),
            ("<a b='&lt;'>x</a>", {"a": {"@b": "<", "#text": "x"}}),
            ("<a>\n<b>1</b>&gt;<c><b/></c><b>2</b><!--c--><b d='3'/><c/></a>",
             {"a": {"b": ["1", "2", {"@d": "3"}], "c": [{"b": None}, None], "#text": ">"}}),
            ("<a>x<![CDATA[<]]> &e;<b/></a><c/><a/>",
             {"a": [{"b": None, "#text": "x< &e;"}, None], "c": None}),
        ]
        for xml, value in rows:
            with self.subTest(xml):
                self.put("a.xml", xml)
                line = self.voxml("json", "--compact", "a.xml").stdout
                self.assertEqual(json.loads(line), value)
                self.assertEqual(list(json.loads(line)), list(value))

    def test_several_documents_are_lines_and_wrong_options_usage(self):
        self.put("a.xml", "<a/>")
        self.expect(["json", "--compact", "a.xml", "a.xml"], 0, b'{"a":null}\n' * 2)
        self.expect(["json", "--compact", "-o", "a.json", "a.xml"], 0)
        self.assertEqual(self.content("a.json"), b'{"a":null}\n')
        for arguments in (["-i", "a.xml"], ["-o", "x", "a.xml", "a.xml"], ["--reverse", "--compact"],
                          ["--reverse", "a.json", "a.json"]):
            with self.subTest(arguments):
                self.assertEqual(self.voxml("json", *arguments).returncode, 2)

    def test_depth_costs_neither_stack_nor_time(self):
        self.put("deep.xml", "<a>" * DEEP + "x" + "</a>" * DEEP)

        def small_stack():
            resource.setrlimit(resource.RLIMIT_STACK, (1 << 20, 1 << 20))

        line = self.voxml("json", "deep.xml", preexec_fn=small_stack).stdout
        self.assertEqual(self.reversed(line, preexec_fn=small_stack).stdout,
                         self.voxml("canonical", "deep.xml").stdout)
        self.assertEqual(self.reversed(b'{"content":[' * DEEP).returncode, 1)
        compact = self.voxml("json", "--compact", "deep.xml", preexec_fn=small_stack).stdout
        self.assertEqual(compact.count(b'{"a":'), DEEP)

    def test_damaged_json_gives_a_document_or_an_error(self):
        self.put("a.xml", "<a b='&#65;' c='1'>x<!--c--><![CDATA[d]]><?p i?>&gt;<e/></a>")
        line = self.voxml("json", "a.xml").stdout
        source = random.Random(3)
        names = []
        for number in range(300):
            damaged = bytearray(line)
            for _ in range(source.randrange(1, 4)):
                at = source.randrange(len(damaged))
                damaged[at:at + source.randrange(3)] = source.choice(
                    [b"", b'"', b"{", b"]", b"\\", b",", b"\xff", b"text", b"<", b"\0", b"&"])
            names.append(f"{number}.json")
            self.put(names[-1], bytes(damaged))
        result = self.voxml("json", "--reverse", "--concatenate", *names)
        self.assertEqual(result.returncode, 1)
        for line in result.stderr.splitlines():
            self.assertNotIn(b"source/", line)

    def check_folder(self, folder):
        """Takes all documents of a folder to JSON and back."""
        many = ["-q", "-r", "--name", "*", folder]
        lines = self.voxml("json", *many).stdout.split(b"\n")[:-1]
        names = []
        for number, line in enumerate(lines):
            json.loads(line)
            names.append(f"{number:05}.json")
            self.put(names[-1], line)
        wanted = self.voxml("canonical", "--concatenate", *many).stdout
        self.put("wanted", wanted)
        self.assertGreater(len(names), 0)
        result = subprocess.run([TOOL, "json", "--reverse", "--concatenate", "-r", "--name",
                                 "*.json", "."], cwd=self.directory, capture_output=True,
                                check=True)
        self.assertEqual(result.stderr, b"")
        self.assertTrue(result.stdout == wanted)
        return len(names)

    @unittest.skipUnless(CONFORMANCE.exists(), "no conformance cases")
    def test_conformance_cases_come_back(self):
        self.check_folder(CONFORMANCE)

    @unittest.skipUnless("VOXML_CORPUS" in os.environ, "VOXML_CORPUS names no files")
    def test_real_files_come_back(self):
        print(self.check_folder(os.environ["VOXML_CORPUS"]), "files came back")


if __name__ == "__main__":
    unittest.main()
