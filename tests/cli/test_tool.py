"""Runs the tool as its users do and checks what they get: test_tool.py TOOL"""

import json
import os
import pty
import re
import resource
import signal
import stat
import subprocess
import sys
import tempfile
import time
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))
DECLARATION = '<?xml version="1.0"?>\n'
CODE = "XML_DECODE_ERROR_CODE_"
NS_CODE = "XML_NS_DECODE_ERROR_CODE_"
LIFTED = "; importing takes it: 'voxml import', or --import"
DEEP = 100_000


class ToolTest(unittest.TestCase):
    """Every test has a directory of its own, in which the tool is run."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = directory.name
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "C", "TERM": "xterm"}

    def path(self, name):
        return os.path.join(self.directory, name)

    def put(self, name, content):
        """Writes a file; a text is a document's without its declaration."""
        if isinstance(content, str):
            content = (DECLARATION + content).encode()
        with open(self.path(name), "wb") as file:
            file.write(content)

    def content(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def voxml(self, *arguments, stdin=b"", stdout=subprocess.PIPE, **options):
        return subprocess.run([TOOL, *arguments], input=stdin, stdout=stdout,
                              stderr=subprocess.PIPE, cwd=self.directory, env=self.environment,
                              check=False, **options)

    def expect(self, arguments, status, output=b"", stderr="", **options):
        """Runs the tool and compares all it gives."""
        result = self.voxml(*arguments, **options)
        self.assertEqual(result.stderr.decode(), stderr)
        self.assertEqual(result.returncode, status)
        if result.stdout is not None:
            self.assertEqual(result.stdout, output)


class Errors(ToolTest):
    def test_a_message_has_the_place_the_line_a_caret_and_a_hint(self):
        rows = [
            # document, place, code, text, line, caret below, hint
            ("<a>\n<b></a>", "3:4", "TAG_MISMATCH", "mismatched opening/closing XML tags",
             "<b></a>", "   ^", "the open element is <b> of line 3, column 1"),
            ("</a>", "2:1", "TAG_MISMATCH", "mismatched opening/closing XML tags",
             "</a>", "^", "no element is open here"),
            ("<a><b>\n\n", "2:4", "TAG_NOT_CLOSED",
             "end of XML document encountered where closing tags were expected",
             "<a><b>", "   ^", "<b> has no end tag"),
            ("<a>1 & 2</a>", "2:6", "TEXT", "textual content in XML malformed",
             "<a>1 & 2</a>", "     ^", 'write &amp; for "&"'),
            ("<a>x&nbsp</a>", "2:5", "TEXT", "textual content in XML malformed",
             "<a>x&nbsp</a>", "    ^", 'write &amp; for "&", or end the reference with ";"'),
            ("<a>&#8364;</a>", "2:4", "TEXT", "textual content in XML malformed",
             "<a>&#8364;</a>", "   ^",
             "character references are for attribute values; write the character itself" + LIFTED),
            ("<!DOCTYPE a>", "2:1", "DOCTYPE",
             "XML DOCTYPE declaration found; this is not supported", "<!DOCTYPE a>", "^",
             "remove the declaration, and replace references to entities that it defines"),
            ("<a><2></a>", "2:4", "TAG", "XML element malformed",
             "<a><2></a>", "   ^", 'write &lt; where "<" does not begin a tag'),
            ("<a><!--x--y--></a>", "2:4", "COMMENT", "XML comment malformed",
             "<a><!--x--y--></a>", "   ^",
             'a comment is not empty, neither begins nor ends with "-" and holds no "--"'),
            ("<a><![CDATA[ </a>", "2:4", "CDATA", "XML CDATA section malformed",
             "<a><![CDATA[ </a>", "   ^", 'the section does not end in "]]>"'),
            ("<? x?>", "2:1", "PROCESSING_INSTRUCTION", "XML processing instruction malformed",
             "<? x?>", "^", 'an instruction begins with a name, right after "<?"'),
        ]
        for document, place, code, text, line, caret, hint in rows:
            with self.subTest(document):
                self.put("a.xml", document)
                self.expect(["check", "a.xml"], 1, stderr=f"a.xml:{place}: error: {text} "
                            f"[{CODE}{code}]\n{line}\n{caret}\nhint: {hint}\n")

    def hint(self, document, *options, declaration=DECLARATION):
        result = self.voxml("check", *options, stdin=(declaration + document).encode())
        self.assertEqual(result.returncode, 1)
        return result.stderr.decode().splitlines()[-1].removeprefix("hint: ")

    def test_the_hint_names_the_attribute_at_fault(self):
        rows = [
            ("<a b='1' c='2' b='3'/>", "attribute 'b' is given twice, first in line 2, column 4"),
            ("<a b/>", "attribute 'b' has no value"),
            ("<a b = 1/>", "the value of attribute 'b' must stand in quotes"),
            ("<a \u00e9='1' \u00fc='2/>", "the value of attribute '\u00fc' has no closing quote"),
            ("<a b='x<y'/>",
             "write &lt; for \"<\" in the value of attribute 'b', or close its quote"),
            ("<a b='x & y'/>", "write &amp; for \"&\" in the value of attribute 'b'"),
        ]
        for document, hint in rows:
            with self.subTest(document):
                self.assertEqual(self.hint(document), hint)
        self.put("a.xml", "<a\n b='1'\n c='2' d=''/>".replace("2", "&#0;"))
        self.assertRegex(self.voxml("check", "a.xml").stderr.decode(),
                         "(?s)^a.xml:4:5: .*\n c='&#0;' d=''/>\n    \\^\n")

    def test_the_hint_says_what_the_declaration_lacks(self):
        rows = [
            ("version='2.0'", 'the version is "1." and digits, such as "1.0"'),
            ("encoding='UTF-8'", 'the declaration must have a version, such as version="1.0"'),
            ("version='1.0' standalone='1'", 'the value of standalone is "yes" or "no"'),
            ("version='1.0' version='1.0'", "attribute 'version' is given twice, first in line 1, column 7"),
            ("version='1.0' &", 'the declaration must end in "?>"'),
        ]
        for attributes, hint in rows:
            with self.subTest(attributes):
                self.assertEqual(self.hint("", declaration=f"<?xml {attributes}?>"), hint)

    def test_the_hint_shows_what_does_not_belong_into_a_tag(self):
        for document, hint in (("<a b='1' %/>", "the tag 'a' cannot hold \"%\" here"),
                               ("<a></a b>", "the tag 'a' cannot hold \"b\" here"),
                               ("<a / b>", "the tag 'a' cannot hold \"b\" here"),
                               ("<a b='1'", "the tag 'a' does not end in \">\"")):
            with self.subTest(document):
                self.assertEqual(self.hint(document), hint)

    def test_namespace_errors_have_a_place_too(self):
        self.put("a.xml", "<a>\n <p:b/></a>")
        self.expect(["check", "a.xml"], 0)
        self.expect(["check", "--ns", "a.xml"], 1, stderr="a.xml:3:2: error: "
                    f"XML namespace prefix undefined [{NS_CODE}NAMESPACE_PREFIX_UNKNOWN]\n"
                    ' <p:b/></a>\n ^\nhint: declare the prefix with xmlns:p="..." '
                    "here or further out\n")
        self.assertIn("xmlns:q=", self.hint("<a q:x='1'/>", "--ns"))
        self.assertIn("'a:b:c'", self.hint("<a:b:c xmlns:a='u'/>", "--ns"))
        self.assertIn("':a'", self.hint("<:a/>", "--ns"))

    def test_an_input_without_a_declaration_has_no_place(self):
        example = '<?xml version="1.0" encoding="UTF-8"?>'
        rows = [
            (b"", "the input is empty"),
            (b" <a/>", f"a document begins with an XML declaration: {example}" + LIFTED),
            ("\ufeff<a/>".encode("utf-16-le"),
             f"a document begins with an XML declaration: {example}" + LIFTED),
            (b"<!-- --><?xml version='1.0'?>",
             "the XML declaration must come first; remove what stands before it"),
            (b"\x1bEL\x02\x01\0\x7f",
             r'this does not look like XML; it begins with "\u{1B}EL\u{2}\u{1}\u{0}\u{7F}"'),
            (b" " * 1020 + b"<?xml version='1.0'?><a/>",
             "the XML declaration must begin within the first 1024 bytes"),
            ("<?xml version='1.0' encoding='utf-8'?>\u00e9".encode("utf-16-le"),
             "the declaration is written in UTF-16LE, but names the encoding 'utf-8'"),
        ]
        for content, hint in rows:
            with self.subTest(content):
                self.put("a.xml", content)
                self.expect(["check", "a.xml"], 1, stderr="a.xml: error: invalid charset "
                            f"encoding [{CODE}CHARSET]\nhint: {hint}\n")

    def test_the_first_ill_formed_byte_has_a_place_and_the_rest_of_its_line_is_shown(self):
        rows = [
            (b"<?xml version='1.0'?>\n<a>\xe9t\xc3\xa9</a>", "2:4", "<a>\ufffdt\u00e9</a>", "   ^",
             "byte 0xE9 at offset 25 is not well-formed UTF-8; "
             "the declaration names no other encoding"),
            (b"<?xml version='1.0' encoding='utf-8'?>\n<a>\xe2\x82", "2:4", "<a>", "   ^",
             "byte 0xE2 at offset 42 is not well-formed UTF-8"),
            (b"<?xml version='1.0' encoding='nonsense'?>\n\xff", "2:1", "\ufffd", "^",
             "byte 0xFF at offset 42 is not well-formed UTF-8; "
             "the declared encoding 'nonsense' is not known"),
            ("<?xml version='1.0' encoding='us-ascii'?>\n<\u00e9>".encode(), "2:2",
             "<\ufffd\ufffd>", " ^", "the declaration names the encoding 'us-ascii', but the bytes "
             "are well-formed UTF-8"),
            (b"<?xml version='1.0' encoding='windows-1252'?>\n\x80\x81\x82", "2:2",
             "\u20ac\ufffd\u201a", " ^", "the declaration names the encoding 'windows-1252', but "
             "byte 0x81 at offset 47 is not valid in it"),
            (b"<?xml version='1.0'" + b" " * 1010 + b"encoding='latin1'?>\n\xe9.", "2:1",
             "\ufffd.", "^", "byte 0xE9 at offset 1049 is not well-formed UTF-8; "
             "an encoding counts if it is declared within the first 1024 bytes"),
            ("<?xml version='1.0'?>\n<a>\u20ac</a>".encode("utf-16")[:-1], "2:8",
             "<a>\u20ac</a", "       ^",
             "by its first bytes the text is in UTF-16LE, but the input ends within a character"),
        ]
        for content, place, line, caret, hint in rows:
            with self.subTest(content):
                self.put("a.xml", content)
                self.expect(["check", "a.xml"], 1, stderr=f"a.xml:{place}: error: invalid charset "
                            f"encoding [{CODE}CHARSET]\n{line}\n{caret}\nhint: {hint}\n")

    def test_an_encoding_that_is_not_known_is_noted(self):
        for name, hint in ("utf8x", "hint: did you mean UTF-8?\n"), ("klingon", ""):
            with self.subTest(name):
                self.put("a.xml", f"<?xml version='1.0' encoding='{name}'?><a/>".encode())
                note = (f"the declared encoding '{name}' is not known; the text is read as UTF-8")
                self.expect(["check", "a.xml"], 0, stderr=f"a.xml: note: {note}\n{hint}")
        result = self.voxml("tree", "--json-errors", "a.xml")
        self.assertEqual(json.loads(result.stderr),
                         {"file": "a.xml", "severity": "note", "message": note})
        self.expect(["check", "-q", "a.xml"], 0)

    def excerpt(self, line):
        """The excerpt for a line with one bare ampersand."""
        result = self.voxml("check", stdin=(DECLARATION + line).encode())
        shown, caret = result.stderr.decode().split("\n")[1:3]
        return shown, caret

    def test_the_caret_stands_under_the_place(self):
        rows = [
            ("\tab\t& \tx", "\tab\t& \tx", "\t  \t^"),
            ("\u65e5\u672c& x", "\u65e5\u672c& x", "    ^"),
            ("e\u0301o\u0308& x", "e\u0301o\u0308& x", "  ^"),
            ("\x01\x1b[31m& x", "\\u{1}\\u{1B}[31m& x", " " * 15 + "^"),
            ("a\u202eb\u200b& x", "a\\u{202E}b\\u{200B}& x", " " * 18 + "^"),
            ("\U0001f44d& x", "\U0001f44d& x", "  ^"),
        ]
        for line, shown, caret in rows:
            with self.subTest(line):
                self.assertEqual(self.excerpt(line), (shown, caret))

    def test_lines_end_and_columns_count_as_the_decoder_says(self):
        for newline in "\n", "\r\n", "\r", "\x85", "\u2028":
            with self.subTest(repr(newline)):
                document = DECLARATION + f"\u00e9{newline}\u00e9 &{newline}z"
                result = self.voxml("check", stdin=document.encode())
                lines = result.stderr.decode().split("\n")
                self.assertIn(":3:3: error:", lines[0])
                self.assertEqual(lines[1:3], ["\u00e9 &", "  ^"])

    def test_a_long_line_is_cut_around_the_place(self):
        rows = [("a" * 500, "b" * 500), ("", "b" * 500), ("a" * 500, ""),
                ("\u65e5" * 300, "\u672c" * 300), ("\t" * 99, "\t" * 99),
                ("\x01" * 99, "e\u0301" * 9999), ("\u0301" * 5000, "b")]
        for before, after in rows:
            with self.subTest(before=before[:1], after=after[:1]):
                shown, caret = self.excerpt(f"{before}&{after}")
                self.assertLessEqual(len(shown), 100)
                self.assertEqual(shown.startswith("..."), before != "")
                self.assertEqual(shown.endswith("..."), after not in ("", "b"))
                if before[:1] in "a":
                    self.assertEqual(shown[len(caret) - 1], "&")

    def test_every_file_is_checked_unless_told_otherwise(self):
        self.put("good.xml", "<a/>")
        self.put("bad.xml", "<a>")
        self.put("worse.xml", "<b>")
        files = ["bad.xml", "good.xml", "worse.xml"]
        result = self.voxml("check", *files)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(re.findall(rb"^(\w+)\.xml:", result.stderr, re.M), [b"bad", b"worse"])
        result = self.voxml("check", "--fail-fast", *files)
        self.assertEqual(re.findall(rb"^(\w+)\.xml:", result.stderr, re.M), [b"bad"])

    def test_standard_input_is_the_default_and_a_dash(self):
        for arguments in [], ["-"]:
            result = self.voxml("check", *arguments, stdin=(DECLARATION + "<a>").encode())
            self.assertTrue(result.stderr.startswith(b"<stdin>:2:1: error: "))

    def test_names_of_files_are_taken_as_they_are(self):
        for name in "check", "[a,b]", "-x":
            self.put(name, "<a>")
            result = self.voxml("check", "--", name)
            self.assertIn(f"{name}:2:1: error: ", result.stderr.decode())

    def test_files_that_cannot_be_read_are_told_apart(self):
        self.put("good.xml", "<a/>")
        self.put("bad.xml", "<a>")
        self.expect(["check", "no\x1b\n.xml", ".", "good.xml"], 3, stderr=
                    "no\\u{1B}\\n.xml: error: cannot be read: No such file or directory\n"
                    ".: error: cannot be read: Is a directory\n"
                    "hint: -r reads the files in folders\n")
        self.assertEqual(self.voxml("check", "missing", "bad.xml").returncode, 3)

    def test_an_input_larger_than_memory_is_an_error_like_any_other(self):
        with open(TOOL, "rb") as tool:
            if b"__asan_init" in (content := tool.read()) or b"__tsan_init" in content:
                self.skipTest("the sanitizers end the process instead")
        with open(self.path("huge.xml"), "wb") as huge:
            huge.truncate(1 << 42)
        self.put("bad.xml", "<a>")
        result = self.voxml("check", "huge.xml", "bad.xml")
        self.assertEqual(result.returncode, 6)
        self.assertRegex(result.stderr.decode(), "huge.xml: error: out of memory\nbad.xml:2:1: ")
        self.put("wide.xml", "<a/>" * (1 << 20))
        result = self.voxml("check", "wide.xml", preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_AS, (30 << 20, 30 << 20)))
        self.assertEqual(result.returncode, 6)
        self.assertTrue(result.stderr.endswith(b"voxml: error: out of memory\n"), result.stderr)

    def test_wrong_usage_is_said_in_one_line(self):
        rows = [
            ([], "voxml", "a command is required"),
            (["chekc"], "voxml", "unknown command 'chekc'; did you mean check?"),
            (["--bogus"], "voxml", "unknown option '--bogus'"),
            (["--ns", "check"], "voxml check",
             "'--ns' stands before the command, where options follow it"),
            (["a.xml"], "voxml", "a command is required before 'a.xml', such as check"),
            (["check", "-a.xml"], "voxml check",
             "unknown option '-a.xml'; write the file as ./-a.xml"),
            (["check", "--json"], "voxml check",
             "unknown option '--json'; did you mean --json-errors?"),
            (["check", "--bogus"], "voxml check", "unknown option '--bogus'"),
            (["tree", "--location"], "voxml tree",
             "unknown option '--location'; did you mean --locations?"),
            (["check", "-j", "-1"], "voxml check", "--jobs: Value -1 not in range 0 to 1024"),
            (["canonical", "a", "b"], "voxml canonical", "several documents would become one "
             "text; use -i, or --concatenate if that is wanted"),
            (["canonical", "-i"], "voxml canonical", "-i: takes no standard input"),
            (["canonical", "-i", "-o", "x", "a"], "voxml canonical",
             "-i and -o exclude each other"),
            (["convert", "a.xml"], "voxml convert", "--to is required"),
            (["canonical", "-o", "x", "a", "b"], "voxml canonical",
             "-o: takes one input file only"),
            (["convert", "--to", "utf8x"], "voxml convert", "unknown character set 'utf8x'; "
             "did you mean UTF-8? ('voxml charsets' lists all)"),
            (["convert", "--to", "ISO 8859 15"], "voxml convert", "unknown character set "
             "'ISO 8859 15'; did you mean ISO-8859-15? ('voxml charsets' lists all)"),
            (["canonical", "-o", ""], "voxml canonical", "--output: the name of a file is empty"),
            (["convert", "--to", "47"], "voxml convert",
             "unknown character set '47' ('voxml charsets' lists all)"),
            (["convert", "--to", "xyzzy"], "voxml convert",
             "unknown character set 'xyzzy' ('voxml charsets' lists all)"),
        ]
        self.put("a.xml", "<a/>")
        self.put("-a.xml", "<a/>")
        for arguments, command, text in rows:
            with self.subTest(arguments):
                self.expect(arguments, 2,
                            stderr=f"{command}: error: {text}\nTry '{command} --help'.\n")


class Importing(ToolTest):
    def test_what_decoding_refuses_is_written_in_canonical_layout(self):
        self.put("a.xml", b"<!DOCTYPE a [<!ENTITY e 'x&#33;'><!ATTLIST a d CDATA 'v'>]><a>&e;</a>")
        written = b'<?xml version="1.0" encoding="UTF-8"?><a d="v">x!</a>'
        self.assertEqual(self.voxml("check", "a.xml").returncode, 1)
        self.expect(["check", "--import", "--ns", "a.xml"], 0)
        for arguments in ["import"], ["canonical", "--import"], ["import", "--ns"]:
            self.expect([*arguments, "a.xml"], 0, written)
        self.expect(["import", "-i", "a.xml"], 0)
        self.expect(["canonical", "a.xml"], 0, written)

    def test_references_to_what_only_the_doctype_may_have_declared_are_noted(self):
        self.put("a.xml", b"<!DOCTYPE a SYSTEM 'x'>\n<a b='&c;'>&d;</a>")
        note = ("a.xml:2:4: note: &c; is not declared in the document itself\n"
                "<a b='&c;'>&d;</a>\n   ^\n"
                "hint: nothing else is read, so that such references stay as they are; other "
                "readers refuse them without the DOCTYPE\n")
        self.expect(["import", "a.xml"], 0, stderr=note, output=
                    b'<?xml version="1.0" encoding="UTF-8"?><a b="&c;">&d;</a>')
        self.expect(["check", "--import", "-q", "a.xml"], 0)

    def test_a_character_that_does_not_fit_need_not_stand_in_the_text(self):
        for content in "<a>\u20ac</a>".encode("utf-16"), b"<a>&#x20AC;</a>":
            with self.subTest(content):
                self.put("a.xml", content)
                self.expect(["convert", "--import", "--to", "us-ascii", "a.xml"], 4, stderr=
                            "a.xml: error: US-ASCII lacks the character U+20AC '\u20ac'\n"
                            "hint: UTF-8 has every character\n")

    def test_what_is_not_well_formed_has_a_place_and_the_line(self):
        self.put("a.xml", b"<a>\n  <b></a>")
        self.expect(["import", "a.xml"], 1,
                    stderr="a.xml:2:6: error: mismatched opening/closing XML tags "
                    f"[{CODE}TAG_MISMATCH]\n  <b></a>\n     ^\n"
                    "hint: the open element is <b> of line 2, column 3\n")
        self.put("a.xml", b"<!DOCTYPE a><a>\n  <b></a>")
        self.expect(["import", "a.xml"], 1,
                    stderr="a.xml:2:8: error: mismatched tag\n  <b></a>\n       ^\n")
        self.expect(["check", "--import", "--ns"], 1, stdin=b"<p:a/>", stderr="<stdin>:1:1: error: "
                    f"XML namespace prefix undefined [{NS_CODE}NAMESPACE_PREFIX_UNKNOWN]\n"
                    "<p:a/>\n^\n")


class Many(ToolTest):
    def setUp(self):
        super().setUp()
        os.makedirs(self.path("d/e"))
        for i in range(60):
            self.put(f"d/{i:02}.xml", "<a>" if i % 3 else f"<a>{i}</a>")
        self.put("d/e/x.svg", "<b>")
        self.put("d/e/y.xml", "<b>")
        os.symlink("..", self.path("d/e/up"))

    def test_folders_are_read_with_all_below_them(self):
        result = self.voxml("check", "-r", "d")
        files = re.findall(r"^(\S+?):2:1: ", result.stderr.decode(), re.M)
        self.assertEqual(files, [f"d/{i:02}.xml" for i in range(60) if i % 3] + ["d/e/y.xml"])
        result = self.voxml("check", "-r", "--name", "*.svg", "--name", "y*", "d/e")
        self.assertEqual(re.findall(rb"^(\S+?):2:1: ", result.stderr, re.M),
                         [b"d/e/x.svg", b"d/e/y.xml"])
        self.expect(["check", "-r", "--name", "z", "d"], 3,
                    stderr="d: error: no file in it is called z\n")
        self.expect(["check", "-r", "d/none"], 3,
                    stderr="d/none: error: cannot be read: No such file or directory\n")

    def test_threads_change_nothing_but_the_time(self):
        for arguments in (["tree", "-r", "d"], ["check", "-r", "d"], ["check", "-r", "d", "-q"],
                          ["check", "-r", "d", "--fail-fast"], ["tree", "-r", "d", "d/none", "d"],
                          ["canonical", "--concatenate", "-r", "d"]):
            alone = self.voxml(*arguments)
            for threads in "2", "7", "0":
                with self.subTest(arguments=arguments, threads=threads):
                    self.expect([*arguments, "-j", threads], alone.returncode, alone.stdout,
                                alone.stderr.decode())

    def test_messages_can_be_data_or_left_out(self):
        self.put("bad.xml", '<a>"\\\u00e9\x01<b></a>')
        lines = self.voxml("check", "--json-errors", "bad.xml", "d", "bad.xml").stderr
        first, second, third = [json.loads(line) for line in lines.splitlines()]
        self.assertEqual(first, third)
        self.assertEqual(first, {
            "file": "bad.xml", "line": 2, "column": 11, "offset": 32, "severity": "error",
            "code": CODE + "TAG_MISMATCH",
            "message": "mismatched opening/closing XML tags",
            "hint": "the open element is <b> of line 2, column 8"})
        self.assertEqual(second, {"file": "d", "severity": "error",
                                  "message": "cannot be read: Is a directory",
                                  "hint": "-r reads the files in folders"})
        self.expect(["check", "-q", "bad.xml"], 1)
        result = self.voxml("check", "--stdin-name", "page.xml", stdin=b"<?xml?><a>")
        self.assertTrue(result.stderr.startswith(b"page.xml:1:8: error: "))

    def test_a_line_on_the_terminal_tells_how_far_it_has_come(self):
        os.mkfifo(self.path("slow"))
        controller, terminal = pty.openpty()
        with subprocess.Popen([TOOL, "check", "d/00.xml", "slow", "d/01.xml"], stderr=terminal,
                              cwd=self.directory, env=self.environment):
            time.sleep(2.2)
            self.put("slow", "<a/>")
        os.close(terminal)
        out = os.read(controller, 4096)
        os.close(controller)
        self.assertTrue(out.startswith(b"\r2 of 3 files\x1b[K\r\x1b[K"), out)
        self.assertIn(b"d/01.xml:2:1:", out)


class Writing(ToolTest):
    DOCUMENT = "<a x = '1'  y='\"'><b></b>&lt;\u00e9<!--c--><?p i?><![CDATA[<]]></a >\n"
    CANONICAL = ('<?xml version="1.0" encoding="UTF-8"?>\n<a x="1" y=\'"\'><b/>&lt;\u00e9<!--c-->'
                 "<?p i?><![CDATA[<]]></a>\n").encode()

    def test_the_canonical_form_goes_to_standard_output(self):
        self.put("a.xml", self.DOCUMENT)
        self.put("b.xml", "<b/>")
        self.put("bad.xml", "<b>")
        bare = self.CANONICAL.split(b"?>", 1)[1]
        self.expect(["canonical", "a.xml"], 0, self.CANONICAL)
        self.expect(["canonical", "-o", "-"], 0, self.CANONICAL, stdin=self.content("a.xml"))
        many = ["canonical", "--no-declaration", "--concatenate"]
        self.expect([*many, "a.xml", "b.xml"], 0, bare + b"\n<b/>")
        result = self.voxml(*many, "bad.xml", "b.xml")
        self.assertEqual((result.stdout, result.returncode), (b"\n<b/>", 1))

    def test_namespaces_are_written_anew(self):
        self.put("a.xml", "<p:a xmlns:p='u' p:b='1'><c xmlns='u'/></p:a>")
        self.expect(["canonical", "--ns", "--no-declaration", "a.xml"], 0,
                    b'\n<p:a p:b="1" xmlns:p="u"><p:c xmlns="u"/></p:a>')

    def test_a_file_can_be_rewritten_in_place(self):
        self.put("a.xml", self.DOCUMENT)
        os.chmod(self.path("a.xml"), 0o640)
        os.symlink("a.xml", self.path("link.xml"))
        self.expect(["canonical", "-o", "link.xml", "link.xml"], 0)
        self.assertEqual(self.content("a.xml"), self.CANONICAL)
        self.assertEqual(stat.S_IMODE(os.stat(self.path("a.xml")).st_mode), 0o640)
        self.assertEqual(os.readlink(self.path("link.xml")), "a.xml")
        self.assertEqual(sorted(os.listdir(self.directory)), ["a.xml", "link.xml"])

    def test_many_files_can_be_rewritten_in_place(self):
        for name in "a.xml", "b.xml":
            self.put(name, self.DOCUMENT)
        self.put("bad.xml", "<b>")
        self.assertEqual(self.voxml("canonical", "-i", "a.xml", "bad.xml", "b.xml").returncode, 1)
        self.assertEqual(self.content("a.xml"), self.CANONICAL)
        self.assertEqual(self.content("b.xml"), self.CANONICAL)
        self.assertEqual(self.content("bad.xml"), (DECLARATION + "<b>").encode())

    def test_a_new_file_gets_the_usual_permissions(self):
        self.put("a.xml", self.DOCUMENT)
        os.symlink("new.xml", self.path("dangling.xml"))
        self.expect(["canonical", "-o", "dangling.xml", "a.xml"], 0,
                    preexec_fn=lambda: os.umask(0o027))
        self.assertEqual(self.content("new.xml"), self.CANONICAL)
        self.assertEqual(stat.S_IMODE(os.stat(self.path("new.xml")).st_mode), 0o640)

    def test_a_failure_leaves_the_old_file_and_nothing_else(self):
        def limit_file_size():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        large = "<a>" + "\u00e9" * 5000 + "</a>"
        rows = [
            (3, ["canonical", "-o", "old.xml"], large, limit_file_size, b"File too large"),
            (4, ["convert", "--to", "us-ascii", "-o", "old.xml"], large, None, b"US-ASCII lacks"),
            (1, ["canonical", "-o", "old.xml"], "<a>", None, b"TAG_NOT_CLOSED"),
            (3, ["canonical", "-o", "no/old.xml"], large, None, b"No such file or directory"),
            (3, ["canonical", "-o", "."], large, None, b"Is a directory"),
        ]
        for status, arguments, document, prepare, text in rows:
            with self.subTest(arguments, text=text):
                self.put("old.xml", b"old")
                self.put("a.xml", document)
                result = self.voxml(*arguments, "a.xml", preexec_fn=prepare)
                self.assertEqual(result.returncode, status)
                self.assertIn(text, result.stderr)
                self.assertEqual(self.content("old.xml"), b"old")
                self.assertEqual(sorted(os.listdir(self.directory)), ["a.xml", "old.xml"])

    def test_devices_are_written_to_and_not_replaced(self):
        self.put("a.xml", self.DOCUMENT)
        os.mkfifo(self.path("fifo"))
        reader = os.open(self.path("fifo"), os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, reader)
        self.expect(["canonical", "-o", "fifo", "a.xml"], 0)
        self.assertEqual(os.read(reader, 1000), self.CANONICAL)
        self.expect(["canonical", "-o", "/dev/stderr", "a.xml"], 0,
                    stderr=self.voxml("canonical", "a.xml").stdout.decode())
        self.expect(["canonical", "-o", "/dev/full", "a.xml"], 3,
                    stderr="/dev/full: error: cannot be written: No space left on device\n")

    def test_standard_output_that_fails_is_reported_once_and_a_closed_pipe_not_at_all(self):
        self.put("a.xml", self.DOCUMENT)
        many = ["tree", *["a.xml"] * 50]
        with open("/dev/full", "wb") as full:
            for arguments in many, ["canonical", "a.xml"], ["--help"], ["charsets"]:
                self.expect(arguments, 3, stdout=full,
                            stderr="<stdout>: error: cannot be written: No space left on device\n")
        self.expect(many, 3, stdout=None, preexec_fn=lambda: os.close(1),
                    stderr="<stdout>: error: cannot be written: Bad file descriptor\n")
        for handling, status in (signal.SIG_DFL, -signal.SIGPIPE), (signal.SIG_IGN, 3):
            reader, writer = os.pipe()
            os.close(reader)
            self.expect(many, status, stdout=writer, restore_signals=False,
                        preexec_fn=lambda: signal.signal(signal.SIGPIPE, handling))
            os.close(writer)

    def test_conversion_to_every_character_set_and_back_keeps_the_document(self):
        self.put("a.xml", "<a b='1'>text</a>")
        original = self.voxml("canonical", "a.xml").stdout
        names = [line.split()[1] for line in self.voxml("charsets").stdout.decode().splitlines()]
        self.assertEqual(len(names), 51)
        for name in names:
            with self.subTest(name):
                self.expect(["convert", "--to", name.lower(), "-o", "b.xml", "a.xml"], 0)
                self.expect(["convert", "--to", "UTF-8", "b.xml"], 0, original)

    def test_the_first_character_that_does_not_fit_is_shown(self):
        self.put("a.xml", "<a>\u00e9\n<b \u00fc='1'>\t\u20ac</b>\u0142</a>")
        rows = [
            ("us-ascii", "2:4", "US-ASCII lacks the character U+00E9 '\u00e9'",
             "<a>\u00e9", "   ^"),
            ("latin1", "3:11", "ISO-8859-1 lacks the character U+20AC '\u20ac'",
             "<b \u00fc='1'>\t\u20ac</b>\u0142</a>", "         \t^"),
            ("windows-1252", "3:16", "windows-1252 lacks the character U+0142 '\u0142'",
             "<b \u00fc='1'>\t\u20ac</b>\u0142</a>", "         \t     ^"),
        ]
        for charset, place, text, line, caret in rows:
            with self.subTest(charset):
                self.expect(["convert", "--to", charset, "a.xml"], 4, stderr=
                            f"a.xml:{place}: error: {text}\n{line}\n{caret}\n"
                            "hint: UTF-8 has every character\n")

    def test_a_character_is_not_blamed_for_what_another_does_at_its_place(self):
        self.put("a.xml", "<a>\x1b \u65e5\u00e9</a>")
        result = self.voxml("convert", "--to", "ISO-2022-JP", "a.xml")
        self.assertIn("a.xml:2:7: error: ISO-2022-JP lacks the character U+00E9",
                      result.stderr.decode())
        self.put("a.xml", "<a>\x1b(B</a>")
        result = self.voxml("convert", "--to", "ISO-2022-JP", "a.xml")
        self.assertIn("as they follow each other", result.stderr.decode())

    def test_a_character_that_a_namespace_name_refers_to_must_fit_too(self):
        rows = [
            ("&#xD800;", "utf-8", "UTF-8 lacks the character U+D800",
             "a surrogate is not a character"),
            ("&#x20AC;", "latin1", "ISO-8859-1 lacks the character U+20AC '\u20ac'",
             "UTF-8 has every character"),
        ]
        for reference, charset, text, hint in rows:
            with self.subTest(reference):
                line = f"<a><b xmlns='{reference}'/></a>"
                self.put("a.xml", line)
                self.expect(["convert", "--ns", "--to", charset, "a.xml"], 4, stderr=
                            f"a.xml:2:4: error: {text} of a namespace name\n{line}\n   ^\n"
                            f"hint: {hint}\n")


class Showing(ToolTest):
    DOCUMENT = ("<!--c--><r:a xmlns:r='u' xmlns='' r:b='1' c='&lt;'>\n\t<d><![CDATA[x]]></d>\u00e9"
                "<?p i?></r:a>")

    def tree(self, *arguments):
        self.put("a.xml", self.DOCUMENT)
        result = self.voxml("tree", *arguments, "a.xml")
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return result.stdout.decode()

    def test_the_tree_has_one_node_a_line(self):
        self.assertEqual(self.tree(), """\
document 1.0 UTF-8
  text "\\n"
  comment "c"
  element r:a
    attribute xmlns:r="u"
    attribute xmlns=""
    attribute r:b="1"
    attribute c="&lt;"
    text "\\n\\t"
    element d
      cdata "x"
    text "\u00e9"
    instruction "p i"
""")

    def test_the_tree_of_namespaces_has_expanded_names_and_declarations(self):
        self.assertEqual(self.tree("--ns", "--locations"), """\
document 1.0 UTF-8
  text "\\n"  1:22
  comment "c"  2:1
  element {u}a  2:9
    attribute {u}b="1"  2:35
    attribute c="&lt;"  2:43
    declaration xmlns:r="u"
    declaration xmlns=""
    text "\\n\\t"  2:52
    element d  3:2
      cdata "x"  3:5
    text "\u00e9"  3:22
    instruction "p i"  3:23
""")

    def test_statistics_count_everything(self):
        self.put("a.xml", self.DOCUMENT)
        self.put("b.xml", "<b/>")
        out = self.voxml("stats", "a.xml", "b.xml").stdout.decode()
        blocks = re.split(r"^(a\.xml|b\.xml|total of 2)$", out, flags=re.M)[1:]
        size = [len(self.content(name)) for name in ("a.xml", "b.xml")]
        counts = {
            "a.xml": [2, 4, 3, 4, 1, 1, 1, 1, 2, size[0]],
            "b.xml": [1, 0, 1, 1, 0, 0, 0, 0, 1, size[1]],
            "total of 2": [3, 4, 4, 5, 1, 1, 1, 1, 2, sum(size)],
        }
        for name, block in zip(blocks[::2], blocks[1::2]):
            figures = re.findall(r"^[\w ]+: +([\d.]+)", block, re.M)
            self.assertEqual([int(figure) for figure in figures[:10]], counts[name], name)
            self.assertRegex(block, r"decode time: +[\d.]+ ms\nthroughput: +[\d.]+ MB/s\n$")

    def test_depth_costs_neither_stack_nor_room(self):
        self.put("deep.xml", "<a>" * DEEP + "</a>" * DEEP)

        def small_stack():
            resource.setrlimit(resource.RLIMIT_STACK, (1 << 20, 1 << 20))

        result = self.voxml("stats", "deep.xml", preexec_fn=small_stack)
        self.assertRegex(result.stdout, rb"maximum depth: +%d\n" % DEEP)
        for arguments in ["tree"], ["tree", "--ns"]:
            result = self.voxml(*arguments, "deep.xml", preexec_fn=small_stack)
            self.assertEqual(result.stdout.count(b"element"), DEEP)
            self.assertLess(len(result.stdout), 12_000_000)
        for arguments in ["check", "--ns"], ["canonical"]:
            result = self.voxml(*arguments, "deep.xml", preexec_fn=small_stack)
            self.assertEqual(result.returncode, 0)

    def test_colours_are_for_terminals_that_want_them(self):
        self.put("a.xml", self.DOCUMENT)
        self.put("bad.xml", "<a>")
        rows = [({}, True), ({"NO_COLOR": "1"}, False), ({"NO_COLOR": ""}, True),
                ({"TERM": "dumb"}, False)]
        for variables, coloured in rows:
            with self.subTest(variables):
                controller, terminal = pty.openpty()
                subprocess.run([TOOL, "tree", "a.xml", "bad.xml"], stdout=terminal,
                               stderr=terminal, cwd=self.directory, check=False,
                               env=self.environment | variables)
                os.close(terminal)
                out = b""
                try:
                    while chunk := os.read(controller, 4096):
                        out += chunk
                except OSError:
                    pass
                os.close(controller)
                self.assertEqual(b"\x1b[" in out, coloured)
                self.assertEqual(b"\x1b[1;31merror:\x1b[m" in out, coloured)
        self.assertNotIn(b"\x1b", self.voxml("tree", "a.xml", "bad.xml").stdout)
        self.assertIn(b"\x1b", self.voxml("tree", "--color", "always", "a.xml").stdout)

    def test_help_and_version_are_answers(self):
        self.assertEqual(self.voxml("help", "tree").stdout, self.voxml("tree", "-h").stdout)
        self.assertRegex(self.voxml("--version").stdout, rb"^voxml \d+\.\d+\.\d+\n$")
        for command in ("check", "canonical", "convert", "import", "tree", "stats", "charsets"):
            result = self.voxml(command, "--help")
            self.assertEqual((result.returncode, result.stderr), (0, b""))
            self.assertIn(command.encode(), self.voxml("--help").stdout)

    def test_character_sets_are_listed_with_their_aliases(self):
        lines = self.voxml("charsets").stdout.decode().splitlines()
        self.assertEqual([int(line.split()[0]) for line in lines], list(range(51)))
        self.assertRegex(lines[44], "^ 44  UTF-8 ")
        self.assertIn("latin1", lines[1].lower())


if __name__ == "__main__":
    unittest.main()
