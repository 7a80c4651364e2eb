"""Builds the manual: build.py TOOL WORK_FOLDER SITE_FOLDER

Gathers the pages, those that the headers and the tool tell of among them, has Sphinx make a site of
them, and checks its links. Any warning, undocumented name or broken link is a failure.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

import check_links
import figures
import headers
import reference
import tool

SITE = pathlib.Path(__file__).resolve().parent
DOCS = SITE.parent


def version():
    text = (headers.INCLUDE / "xml" / "xml_module.h").read_text()
    return ".".join(re.findall(r"VOXML_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)", text))


def write_reference(work, source):
    found = reference.Reference(headers.run_doxygen(work))
    found.write(source / "reference")
    if found.faults:
        raise SystemExit("\n".join(["scripts/docs: the reference is not complete", *found.faults]))
    return found.counts


def run_sphinx(source, work, site):
    environment = dict(os.environ, VOXML_DOCS_SITE=str(SITE), VOXML_VERSION=version(),
                       PYTHONDONTWRITEBYTECODE="1")
    command = ["sphinx-build", "-W", "--keep-going", "-E", "-q", "-j", "auto",
               "-d", str(work / "doctrees"), str(source), str(site)]
    if subprocess.run(command, env=environment).returncode:
        raise SystemExit("scripts/docs: Sphinx warns")


def main(voxml, work, site):
    source = work / "source"
    shutil.rmtree(source, ignore_errors=True)
    shutil.rmtree(site, ignore_errors=True)
    work.mkdir(parents=True, exist_ok=True)
    shutil.copytree(DOCS, source, ignore=shutil.ignore_patterns("site", "__pycache__"))
    (work / "examples").unlink(missing_ok=True)
    (work / "examples").symlink_to(DOCS.parent / "examples")  # which pages show
    counts = write_reference(work, source)
    tool.write(voxml, source)
    (source / "generated" / "figures.md").write_text("\n".join(figures.tables()))
    run_sphinx(source, work, site)
    faults = check_links.faults(site)
    if faults:
        raise SystemExit("\n".join(["scripts/docs: broken links", *faults]))
    pages = sum(1 for _ in site.rglob("*.html"))
    print(f"{pages} pages; of " + ", of ".join(
        f"{language} {number} {what}" for (language, what), number in sorted(counts.items())))
    print(f"{site}/index.html")


main(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:4]))
