"""The command edit: test_edit.py TOOL"""

import os
import unittest

from test_tool import ToolTest

MENU = b"""<?xml version="1.0" encoding="ISO-8859-1"?>\r
<menu xmlns='m' xmlns:p="q"\t>\r
  <dish  id='1' p:id='x'>Cr\xe8me</dish >\r
  <!-- c -->\r
  <dish id='2'/>\r
</menu>"""


class Edit(ToolTest):
    def setUp(self):
        super().setUp()
        self.put("menu.xml", MENU)

    def expect_change(self, arguments, before, behind):
        self.assertEqual(MENU.count(before), 1)
        self.expect(["edit", *arguments, "menu.xml"], 0, MENU.replace(before, behind))

    def test_each_edit_changes_what_it_is_about(self):
        rows = [
            (["--set", "//_:dish[1]/@id", "<-5>"], b"'1'", b"'&lt;-5>'"),
            (["--set=//_:dish[1]/@id", ""], b"'1'", b"''"),
            (["--set", "//@n:id", "[a,b]", "--ns", "n=q"], b"'x'", b"'[a,b]'"),
            (["--set", "//_:dish[1]", "Th\u00e9"], b"Cr\xe8me", b"Th\xe9"),
            (["--set-xml", "//_:dish[1]", "<b/>"], b"Cr\xe8me", b"<b/>"),
            (["--set-attribute", "//_:dish[2]", "new", "\u20ac"], b"'2'", b"'2' new=\"&#8364;\""),
            (["--delete", "//comment()"], b"  <!-- c -->\r\n", b""),
            (["--rename", "//_:dish[2]", "p:dish", "--insert-into", "//_:dish[2]", "<a/>"],
             b"<dish id='2'/>", b"<p:dish id='2'><a/></p:dish>"),
            (["--insert-before", "//comment()", "1", "--insert-after", "//comment()", "2"],
             b"<!-- c -->", b"1<!-- c -->2"),
        ]
        for arguments, before, behind in rows:
            with self.subTest(arguments=arguments):
                self.expect_change(arguments, before, behind)

    def test_files_are_edited_in_place_and_others_not_touched(self):
        self.put("other.xml", "<other/>")
        os.utime(self.path("other.xml"), (1, 1))
        self.expect(["edit", "-i", "-j2", "--delete", "//@id", "menu.xml", "other.xml"], 0)
        self.assertEqual(self.content("menu.xml"),
                         MENU.replace(b"  id='1'", b"").replace(b" id='2'", b""))
        self.assertEqual(os.stat(self.path("other.xml")).st_mtime, 1)
        self.expect(["edit", "-o", "out.xml", "--set", "/other", "x"], 0,
                    stdin=b"<?xml version='1.0'?><other/>")
        self.assertEqual(self.content("out.xml"), b"<?xml version='1.0'?><other>x</other>")

    def test_what_cannot_be_done_has_a_status_and_changes_nothing(self):
        self.put("bad.xml", b"<a/>")
        rows = [
            ([], 2, "an edit is required"),
            (["--set", "//@[", "1"], 2, "column 4"),
            (["--rename", "//@id", "1"], 2, "not a name"),
            (["--insert-into", "/_:menu", "<b>"], 2, "not the content"),
            (["--import", "--delete", "//a"], 2, "import"),
            (["--set", "//@none", "1"], 5, ""),
            (["--set", "//_:dish", "\u20ac"], 4, "--set //_:dish: the character set"),
            (["--rename", "//@p:id", "id", "--ns", "p=q"], 1, "not acceptable"),
            (["--insert-into", "/_:menu", "<n:b/>"], 1, "not acceptable"),
            (["--delete", "//_:dish", "--set", "//@id", "1"], 1, "menu.xml:3:13: error: --set"),
            (["--delete", "/"], 1, "does not apply"),
        ]
        for arguments, status, message in rows:
            with self.subTest(arguments=arguments):
                result = self.voxml("edit", "-i", *arguments, "menu.xml")
                self.assertEqual(result.returncode, status, result.stderr)
                self.assertIn(message, result.stderr.decode())
                self.assertEqual(self.content("menu.xml"), MENU)
        result = self.voxml("edit", "--delete", "//a", "bad.xml")
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"voxml import", result.stderr)


if __name__ == "__main__":
    unittest.main()
