"""Lays documents out as users do: test_format.py TOOL"""

import os
import unittest

from test_tool import ToolTest

HEAD = b'<?xml version="1.0" encoding="UTF-8"?>\n'


class Format(ToolTest):
    DOCUMENT = "<a><b c='1' d='2'/>\n\n\n<e>text</e></a>"
    FORMATTED = HEAD + b'<a>\n  <b c="1" d="2"/>\n\n  <e>text</e>\n</a>\n'

    def test_documents_are_laid_out_as_the_options_say(self):
        self.put("a.xml", self.DOCUMENT)
        self.expect(["format", "a.xml"], 0, self.FORMATTED)
        self.expect(["format"], 0, self.FORMATTED, stdin=self.content("a.xml"))
        self.expect(["format", "--indent", "tab", "--wrap-attributes", "10", "a.xml"], 0, HEAD +
                    b'<a>\n\t<b\n\t\t\tc="1"\n\t\t\td="2"/>\n\n\t<e>text</e>\n</a>\n')
        self.expect(["format", "--no-declaration", "--indent", "0", "a.xml"], 0,
                    b'<a>\n<b c="1" d="2"/>\n\n<e>text</e>\n</a>\n')
        self.expect(["format", "--ns"], 0, HEAD + b'<p:a xmlns:p="u">\n  <p:b/>\n</p:a>\n',
                    stdin=b"<?xml?><p:a xmlns:p='u'><p:b/></p:a>")
        self.expect(["format", "--import"], 0, HEAD + b"<a>\n  <b/>\n</a>\n", stdin=b"<a><b/></a>")

    def test_wrong_layouts_are_wrong_usage(self):
        for option, value in (("indent", "17"), ("indent", "x"), ("wrap-attributes", "0")):
            with self.subTest(option, value=value):
                result = self.voxml("format", f"--{option}", value)
                self.assertEqual(result.returncode, 2)
                self.assertIn(option.encode(), result.stderr)

    def test_a_check_names_the_documents_that_are_not_formatted_and_writes_nothing(self):
        self.put("a.xml", self.DOCUMENT)
        self.put("b.xml", self.FORMATTED)
        self.put("c.xml", self.FORMATTED.replace(b"  <e>", b"\t<e>"))
        self.put("d.xml", b"\xef\xbb\xbf" + self.FORMATTED)
        self.expect(["format", "--check", "b.xml"], 0)
        self.expect(["format", "--check", "a.xml", "b.xml", "c.xml", "d.xml"], 1, stderr=
                    'a.xml:1:20: error: is not formatted\n<?xml version="1.0"?>\n'
                    "                   ^\n"
                    "c.xml:5:1: error: is not formatted\n\t<e>text</e>\n^\n"
                    "d.xml: error: is not formatted\n")

    def test_files_that_are_formatted_are_not_touched(self):
        self.put("a.xml", self.DOCUMENT)
        self.put("b.xml", self.FORMATTED)
        os.utime(self.path("b.xml"), (1, 1))
        self.expect(["format", "-i", "a.xml", "b.xml"], 0)
        self.assertEqual(self.content("a.xml"), self.FORMATTED)
        self.assertEqual(os.stat(self.path("b.xml")).st_mtime, 1)

    def test_a_character_set_that_is_too_small_is_reported(self):
        self.put("a.xml", b"<?xml version='1.0' encoding='ISO-8859-1'?><a b='&#x20AC;'/>")
        self.expect(["format", "--import", "a.xml"], 0,
                    b'<?xml version="1.0" encoding="ISO-8859-1"?>\n<a b="&#8364;"/>\n')
        self.put("b.xml", "<a xmlns='&#xD800;'/>")
        result = self.voxml("format", "--ns", "b.xml")
        self.assertEqual((result.returncode, result.stdout), (4, b""))


if __name__ == "__main__":
    unittest.main()
