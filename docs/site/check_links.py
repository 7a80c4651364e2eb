"""Finds links of a site that lead nowhere within it: to files, and to places in pages."""
import html.parser
import pathlib
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.places = set(), set()
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("id", "name") and value:
                self.places.add(value)
            elif name in ("href", "src") and value:
                self.links.add(value)


def faults(site):
    pages = {path: Page(path.read_text()) for path in sorted(site.rglob("*.html"))}
    return [f"{path.relative_to(site)}: {link}" for path, page in pages.items()
            for link in sorted(page.links) if not leads_somewhere(pages, path, link)]


def leads_somewhere(pages, path, link):
    parts = urllib.parse.urlsplit(link)
    if parts.scheme or parts.netloc:
        return True  # of other sites nothing is known here
    target = path
    if parts.path:
        target = pathlib.Path(path.parent, urllib.parse.unquote(parts.path)).resolve()
    if target.is_dir():
        target /= "index.html"
    if not target.is_file():
        return False
    place = urllib.parse.unquote(parts.fragment)
    return not place or target not in pages or place in pages[target].places
