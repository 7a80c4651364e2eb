"""The command select: test_select.py TOOL"""

import json
import unittest

from test_tool import DECLARATION, ToolTest

MENU = """<menu xmlns="m" xmlns:p="q" day='"x"'>
<dish p:id="1">Bread &amp; <b>butter</b></dish>
<!--c--><dish p:id="2"><![CDATA[T]]>ea, "hot"
</dish><p:x/></menu>"""


class Select(ToolTest):
    def setUp(self):
        super().setUp()
        self.put("menu.xml", MENU)

    def expect_output(self, arguments, output, status=0):
        self.expect(["select", *arguments, "menu.xml"], status, output.encode())

    def test_nodes_are_printed_by_their_kinds(self):
        rows = [
            (["//_:dish[1]"], '<dish p:id="1" xmlns="m" xmlns:p="q">Bread &amp; <b>butter</b></dish>\n'),
            (["//_:b | //comment()"], '<b xmlns="m">butter</b>\n<!--c-->\n'),
            (["//{q}x"], '<p:x xmlns:p="q"/>\n'),
            (["/_:menu/@day"], '"x"\n'),
            (["//@n:id", "--ns", "n=q"], "1\n2\n"),
            (["//_:dish/text()"], 'Bread & \nTea, "hot"\n\n'),
            (["--text", "//_:dish[1] | //comment()"], "Bread & butter\nc\n"),
            (["--count", "//_:dish"], "2\n"),
            (["--locations", "//_:dish | //_:b"], "menu.xml:3:1\nmenu.xml:3:28\nmenu.xml:4:9\n"),
        ]
        for arguments, output in rows:
            with self.subTest(arguments=arguments):
                self.expect_output(arguments, output)
        whole = self.voxml("select", "/", "menu.xml").stdout
        again = self.voxml("select", "/", stdin=DECLARATION.encode() + whole.strip())
        self.assertEqual(again.stdout.strip(), whole.strip())

    def test_nothing_selected_has_a_status_of_its_own(self):
        self.expect_output(["//dish"], "", 5)
        self.expect_output(["--count", "//dish"], "0\n", 5)
        self.put("other.xml", "<dish/>")
        self.put("bad.xml", "<dish>")
        self.expect(["select", "--count", "//dish", "menu.xml", "other.xml"], 0,
                    b"menu.xml:0\nother.xml:1\n")
        self.assertEqual(self.voxml("select", "//none", "menu.xml", "bad.xml").returncode, 1)

    def test_json_tells_all_about_a_node_and_a_path_to_it(self):
        result = self.voxml("select", "--json", "//node() | //@*", "menu.xml")
        lines = [json.loads(line) for line in result.stdout.splitlines()]
        self.assertEqual(lines[-1], {"file": "menu.xml", "line": 5, "column": 8, "kind": "element",
                                     "path": "/{m}menu[1]/{q}x[1]", "text": ""})
        self.assertEqual({line["kind"] for line in lines},
                         {"element", "attribute", "text", "comment"})
        for line in lines:
            again = self.voxml("select", "--json", line["path"], "menu.xml")
            self.assertEqual(json.loads(again.stdout), line)

    def test_tables_have_a_row_for_each_node(self):
        columns = ["--each", "//_:dish", "--column", "id=@n:id", "--column", "text=.",
                   "--column", "b=_:b", "--ns", "n=q"]
        self.expect_output(["--csv", *columns],
                           'id,text,b\n1,Bread & butter,butter\n2,"Tea, ""hot""\n",\n')
        self.expect_output(["--tsv", *columns],
                           'id\ttext\tb\n1\tBread & butter\tbutter\n2\tTea, "hot"\\n\t\n')

    def test_many_files_in_order_and_imported_documents(self):
        self.put("plain.html", b"<!DOCTYPE dish><dish xmlns='m'>&#65;</dish>")
        self.expect(["select", "--import", "-j", "4", "//_:dish/text()[1]"] +
                    ["menu.xml", "plain.html"] * 20, 0, b'Bread & \nTea, "hot"\n\nA\n' * 20)
        self.expect(["select", "--count", "//_:dish", "-r", "."], 0, b"./menu.xml:2\n")

    def test_wrong_usage_is_said_in_one_line(self):
        rows = [
            ([], "a path is required"),
            (["//a["], "'//a[', column 5: a step is missing"),
            (["//p:a"], "'//p:a', column 3: this prefix is not bound: p"),
            (["//a", "--ns", "p"], "--ns: expects PREFIX=NAMESPACE, not 'p'"),
            (["//a", "--ns", "1=p"], "--ns: not a prefix and a namespace: 1"),
            (["--csv", "//a"], "a table takes --csv or --tsv, --each and --column"),
            (["--csv", "--each", "//a", "--column", "b"], "--column: expects NAME=PATH, not 'b'"),
            (["--csv", "--each", "//a", "--column", "b=]"],
             "']', column 1: this is not expected here: ]"),
        ]
        for arguments, text in rows:
            with self.subTest(arguments=arguments):
                self.expect(["select", *arguments], 2, stderr=
                            f"voxml select: error: {text}\nTry 'voxml select --help'.\n")


if __name__ == "__main__":
    unittest.main()
