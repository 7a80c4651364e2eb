"""Help, the manual page and the completions say the same, and shells understand them.

Usage: test_pages.py TOOL
The pages lie beside the tool. What needs zsh or fish is skipped where they are not installed.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))
PAGES = os.path.dirname(TOOL)


def output(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def page(name):
    with open(os.path.join(PAGES, name), encoding="utf-8") as file:
        return file.read()


def help_of(*command):
    return output(TOOL, *command, "--help", env={"COLUMNS": "100"})


def options_of(*command):
    """The names of the options that help lists."""
    terms = re.findall(r"^ +(-.*?)(?:  .*|)$", help_of(*command), re.M)
    return {name for term in terms for name in re.findall(r"(?<![\w-])--?\w[\w-]*", term)}


COMMANDS = re.findall(r"^  (\w+)  ", help_of().split("Commands:")[1].split("Options:")[0], re.M)


class Help(unittest.TestCase):
    def test_lines_keep_to_the_width(self):
        for width in 40, 60, 200:
            for command in [], *([name] for name in COMMANDS):
                text = output(TOOL, *command, "--help", env={"COLUMNS": str(width)})
                # What stands as it is, terms, and what nothing can break.
                lines = [line for line in text.splitlines() if not re.match(r"  \S|  +-", line)]
                for line in lines:
                    self.assertLessEqual(len(line), min(max(width, 50), 100), text)

class Manual(unittest.TestCase):
    def test_it_is_sound(self):
        with tempfile.TemporaryDirectory() as folder:
            file = shutil.copy(os.path.join(PAGES, "voxml.1"), folder)
            lint = subprocess.run(["mandoc", "-Tlint", "-Wwarning", file], capture_output=True,
                                  text=True, check=False)
        self.assertEqual(lint.stdout + lint.stderr, "")

    def test_it_has_every_command_and_option(self):
        text = output("mandoc", "-Tutf8", "-Owidth=200", os.path.join(PAGES, "voxml.1"))
        text = re.sub(".\b", "", text)
        common = text.split("\nCOMMON OPTIONS\n")[1].split("\nMESSAGES\n")[0]
        sections = re.split(r"^   (\w+)$", text.split("\nCOMMANDS\n")[1].split("\nCOMMON ")[0], flags=re.M)
        self.assertEqual(sections[1::2], COMMANDS)
        for command, section in zip(sections[1::2], sections[2::2]):
            with self.subTest(command):
                listed = set(re.findall(r"(?<![\w-])--?\w[\w-]*", section + common))
                self.assertLessEqual(options_of(command), listed)
                usage = re.search(r"^  (voxml .*)", help_of(command), re.M).group(1)
                self.assertIn(usage, text.split("\nDESCRIPTION\n")[0])

    def test_its_examples_are_no_wrong_usage(self):
        examples = page("voxml.1").split(".Sh EXAMPLES")[1]
        commands = [command.replace(r"\(dq", '"')
                    for command in re.findall(r"^\.Dl (.*)", examples, re.M)]
        self.assertGreater(len(commands), 15)
        document = output(TOOL, "format", input='<?xml version="1.0"?><a/>')
        for command in commands:
            with self.subTest(command), tempfile.TemporaryDirectory() as folder:
                os.mkdir(f"{folder}/folder")
                names = set(re.findall(r"[\w.]+\.(?:xml|xhtml|canonical)\b", command))
                for name in names | {"a.xml", "folder/a.xml", "folder/a.svg"}:
                    with open(f"{folder}/{name}", "w", encoding="utf-8") as file:
                        file.write(document)
                if "zcat" in command:
                    subprocess.run(["gzip", "a.xml"], cwd=folder, check=True)
                generator = f"generate() {{ printf %s '{document}'; }}; less() {{ cat; }}\n"
                path = f"{os.path.dirname(TOOL)}:{os.environ['PATH']}"
                result = subprocess.run(
                    ["bash", "-c", generator + command.replace("...; fi", ":; fi")], cwd=folder,
                    env={"PATH": path}, capture_output=True, text=True, check=False)
                self.assertEqual((result.returncode, result.stderr), (0, ""))


BASH = """
source "$1"
COMP_WORDS=("${@:2}")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_voxml
for word in "${COMPREPLY[@]}"; do printf '%s\\n' "$word"; done
"""


def in_bash(*words, **options):
    """What bash offers for the last word."""
    completion = os.path.join(PAGES, "voxml.bash")
    return output("bash", "--norc", "-c", BASH, "bash", completion, "voxml", *words,
                  **options).splitlines()


class Completions(unittest.TestCase):
    def test_bash_offers_commands_options_and_values(self):
        self.assertEqual(set(in_bash("")), {*COMMANDS, *options_of()})
        self.assertEqual(in_bash("ca"), ["canonical"])
        for command in COMMANDS:
            self.assertEqual(set(in_bash(command, "-")), options_of(command), command)
        self.assertEqual(in_bash("check", "--color", ""), ["auto", "always", "never"])
        self.assertEqual(in_bash("check", "--color", "="), ["auto", "always", "never"])
        self.assertEqual(in_bash("check", "--color", "=", "N"), ["never"])
        self.assertEqual(in_bash("convert", "--to", "utf-8"), ["UTF-8"])
        self.assertEqual(len(in_bash("convert", "--to", "")), 51)
        self.assertEqual(in_bash("format", "--indent", ""), ["tab"])
        self.assertEqual(in_bash("unknown", ""), [])

    def test_bash_offers_files_where_there_can_be_some(self):
        with tempfile.TemporaryDirectory() as folder:
            names = ["a b.xml", "a$(c).xml", "always"]
            for name in names:
                open(os.path.join(folder, name), "w", encoding="utf-8").close()
            for words in (["check", "a"], ["check", "--ns", "-q", "a"], ["canonical", "-o", "a"],
                          ["canonical", "--output", "=", "a"]):
                self.assertEqual(sorted(in_bash(*words, cwd=folder)), sorted(names), words)
            for words in ["charsets", "a"], ["check", "-j", "a"], ["check", "--name", "a"]:
                self.assertEqual(in_bash(*words, cwd=folder), [], words)

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_zsh_reads_its_file(self):
        output("zsh", "-n", os.path.join(PAGES, "_voxml"))

    @unittest.skipUnless(shutil.which("fish"), "fish is not installed")
    def test_fish_offers_commands_options_and_values(self):
        def offers(line):
            script = f"source {os.path.join(PAGES, 'voxml.fish')}; complete -C {line!r}"
            home = {"HOME": folder, "PATH": os.environ["PATH"]}
            lines = output("fish", "--no-config", "-c", script, env=home, cwd=folder).splitlines()
            return {line.split("\t")[0] for line in lines}

        with tempfile.TemporaryDirectory() as folder:
            open(os.path.join(folder, "file.xml"), "w", encoding="utf-8").close()
            self.assertLessEqual(set(COMMANDS), offers("voxml "))
            self.assertNotIn("file.xml", offers("voxml "))
            for command in COMMANDS:
                long = {name for name in options_of(command) if name.startswith("--")}
                self.assertEqual(offers(f"voxml {command} --"), long)
            self.assertEqual(offers("voxml check --color "), {"auto", "always", "never"})
            self.assertIn("file.xml", offers("voxml check f"))
            self.assertNotIn("file.xml", offers("voxml charsets f"))
            self.assertEqual(len(offers("voxml convert --to ")), 51)

    def test_all_three_name_every_option(self):
        for name in "voxml.bash", "_voxml", "voxml.fish":
            text = page(name)
            for command in COMMANDS:
                for option in options_of(command):
                    form = option.lstrip("-")
                    self.assertRegex(text, rf"(?m)(--?|-[ls] ){form}(?![\w-])", (name, option))


if __name__ == "__main__":
    unittest.main()
