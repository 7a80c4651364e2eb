"""Pages of the tool, from what it says of itself: one for each command, and its character sets.

A file tool/parts/COMMAND.md is put in front of what --help lists; a command without one has a page
all the same.
"""
import re
import subprocess

ITEM = re.compile(r"^  (\S.*?)(?:  +(.*))?$")


def run(voxml, *arguments):
    return subprocess.run([voxml, *arguments], text=True, capture_output=True, check=True).stdout


def sections(text):
    """The headed lists of a help text: (what is said first, [(heading, [(name, meaning)])])."""
    first, found = [], []
    for line in text.splitlines():
        heading = re.fullmatch(r"(\S[^:]*):", line)
        item = ITEM.match(line)
        if heading:
            found.append((heading[1], []))
        elif found and item:
            found[-1][1].append((item[1], item[2] or ""))
        elif found and line.startswith("   ") and found[-1][1]:  # a meaning that goes on
            name, meaning = found[-1][1][-1]
            found[-1][1][-1] = (name, f"{meaning} {line.strip()}".strip())
        elif line.strip():
            first.append(line)
    return first, found


def commands(voxml):
    _, found = sections(run(voxml, "--help"))
    return dict(next(items for heading, items in found if heading == "Subcommands"))


def escaped(text):
    return re.sub(r"([*_<>\\`|\[\]])", r"\\\1", text)


def page(voxml, command, parts):
    first, found = sections(run(voxml, command, "--help"))
    usage = next(line for line in first if line.startswith("Usage:")).removeprefix("Usage: ")
    lines = [f"# voxml {command}", "", escaped(first[0]) + ".", "", "```text", usage, "```", ""]
    part = parts / f"{command}.md"
    if part.exists():
        lines += [part.read_text(), ""]
    for heading, items in found:
        if heading == "Exit status":  # of all commands alike, told once
            continue
        lines += [f"## {heading}", ""]
        for name, meaning in items:
            lines += [f"`{re.sub(r',(?=-)', ', ', name)}`", f": {escaped(meaning)}", ""]
    lines += ["See also [all commands, exit statuses](index.md)."]
    return "\n".join(lines) + "\n"


def charset_table(voxml):
    lines = ["| number | name | also known as |", "|---|---|---|"]
    for line in run(voxml, "charsets").splitlines():
        number, name, aliases = re.fullmatch(r" *(\d+)  (\S+) *(.*)", line).groups()
        shown = ", ".join(f"{escaped(alias)}" for alias in aliases.split(", ") if alias)
        lines.append(f"| {number} | {escaped(name)} | {shown} |")
    return "\n".join(lines) + "\n"


def write(voxml, source):
    folder = source / "tool"
    found = commands(voxml)
    for command in found:
        (folder / f"{command}.md").write_text(page(voxml, command, folder / "parts"))
    rows = [f"| [`voxml {command}`]({command}.md) | {escaped(meaning)} |"
            for command, meaning in found.items()]
    toctree = ["```{toctree}", ":hidden:", "", *found, "```"]
    _, listed = sections(run(voxml, "--help"))
    statuses = next((items for heading, items in listed if heading == "Exit status"), [])
    generated = source / "generated"
    generated.mkdir(exist_ok=True)
    (generated / "commands.md").write_text(
        "\n".join(["| command | does |", "|---|---|", *rows, "", *toctree]) + "\n")
    (generated / "statuses.md").write_text("\n".join(
        ["| exit status | means |", "|---|---|",
         *(f"| {number} | {escaped(meaning)} |" for number, meaning in statuses)]) + "\n")
    (generated / "charsets.md").write_text(charset_table(voxml))
