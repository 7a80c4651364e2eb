"""Pages of the tool, from what it says of itself: one for each command, and its character sets.

A file docs/tool/parts/COMMAND.md is put behind what a command's help says first; a command without
one has a page all the same.
"""
import itertools
import re
import subprocess

ITEM = re.compile(r" {2,6}(\S.*?)(?:  +(\S.*))?")
HEADING = re.compile(r"[A-Z]\w+(?: \w+)?:")
MEANING_COLUMN = 12  # a line that begins there or behind goes on with a meaning


def run(voxml, *arguments):
    return subprocess.run([voxml, *arguments], text=True, capture_output=True, check=True).stdout


def blocks(text):
    """The blocks of a help text, between blank lines: a heading or "", and its lines."""
    for block in re.split(r"\n\s*\n", text.strip("\n")):
        lines = block.split("\n")
        if HEADING.fullmatch(lines[0]) and len(lines) > 1:
            yield lines[0].removesuffix(":"), lines[1:]
        else:
            yield "", lines


def items(lines):
    """Names and meanings of a list."""
    found = []
    for line in lines:
        if found and len(line) - len(line.lstrip()) >= MEANING_COLUMN:
            name, meaning = found[-1]
            found[-1] = (name, f"{meaning} {line.strip()}".strip())
        else:
            name, meaning = ITEM.fullmatch(line).groups()
            found.append((name, meaning or ""))
    return found


def list_of(voxml, heading):
    return next(items(lines) for title, lines in blocks(run(voxml, "--help")) if title == heading)


def escaped(text):
    return re.sub(r"([*_<>\\`|\[\]])", r"\\\1", text)


def marked(heading, lines):
    """A block of help as Markdown."""
    if heading == "Usage":
        return ["```text", *(line.strip() for line in lines), "```"]
    if heading:
        found = [f"## {heading}", ""]
        for name, meaning in items(lines):
            found += [f"`{name}`", f": {escaped(meaning)}", ""]
        return found
    found = []
    for is_code, group in itertools.groupby(lines, lambda line: line.startswith("  ")):
        if is_code:
            found += ["```text", *(line[2:] for line in group), "```", ""]
        else:
            found += [escaped(" ".join(group)), ""]
    return found


def page(voxml, command, part):
    lines = [f"# voxml {command}", ""]
    for number, (heading, block) in enumerate(blocks(run(voxml, command, "--help"))):
        lines += [*marked(heading, block), ""]
        if number == 1 and part.exists():
            lines += [part.read_text(), ""]
    lines += ["[All commands and what their exit status means](index.md)"]
    return "\n".join(lines) + "\n"


def charset_table(voxml):
    lines = ["| number | name | also known as |", "|---|---|---|"]
    for line in run(voxml, "charsets").splitlines():
        number, name, aliases = re.fullmatch(r" *(\d+)  (\S+) *(.*)", line).groups()
        lines.append(f"| {number} | {escaped(name)} | {escaped(aliases)} |")
    return "\n".join(lines) + "\n"


def write(voxml, source):
    commands = list_of(voxml, "Commands")
    for command, _ in commands:
        (source / "tool" / f"{command}.md").write_text(
            page(voxml, command, source / "tool" / "parts" / f"{command}.md"))
    rows = [f"| [`voxml {command}`]({command}.md) | {escaped(meaning)} |"
            for command, meaning in commands]
    toctree = ["```{toctree}", ":hidden:", "", *(command for command, _ in commands), "```"]
    generated = source / "generated"
    generated.mkdir(exist_ok=True)
    (generated / "commands.md").write_text(
        "\n".join(["| command | does |", "|---|---|", *rows, "", *toctree]) + "\n")
    (generated / "statuses.md").write_text("\n".join(
        ["| exit status | means |", "|---|---|",
         *(f"| {number} | {escaped(meaning)} |" for number, meaning in list_of(voxml, "Exit status"))])
        + "\n")
    (generated / "charsets.md").write_text(charset_table(voxml))
