"""Settings of Sphinx for the manual. scripts/docs builds it, from a copy of this folder with the
generated pages in it."""
import os
import sys

sys.path.insert(0, os.environ["VOXML_DOCS_SITE"])

project = "voxml"
author = "the authors of voxml"
version = release = os.environ["VOXML_VERSION"]
copyright = author  # without a year, which would age

extensions = ["myst_parser", "sphinx_copybutton", "links", "recipe"]
exclude_patterns = ["site", "cookbook/data", "tool/parts", "generated"]
source_suffix = {".md": "markdown", ".rst": "restructuredtext"}
myst_enable_extensions = ["deflist", "colon_fence"]
myst_heading_anchors = 4

nitpicky = True
nitpick_ignore_regex = [
    # Types of the languages and their libraries.
    (r"c:identifier", r"u?int\d+_t|size_t"),
    (r"cpp:identifier", r"(std|Layer)(::.*)?|.*_t|T|Text|Traits|Edit|Predicate|Parts|Name|List|XML_.*|vo[A-Z].*"),
    # What deduces types in voxml.hpp, and is no concern of callers.
    (r"cpp:identifier", r"(voxml::)?detail(::.*)?|kind|kept|name_arg|name_view|item_type|voxml|voxml::ns|iterator|sentinel|view_type|VO_CHARSET_\w+"),
]
primary_domain = "cpp"
highlight_language = "none"
smartquotes = False

html_theme = "furo"
html_title = f"voxml {version}"
html_static_path = ["static"]
html_css_files = ["voxml.css"]
html_show_sourcelink = False
html_copy_source = False
html_show_sphinx = False
html_use_index = True
pygments_style = "friendly"
pygments_dark_style = "monokai"
html_theme_options = {
    "light_css_variables": {
        "color-brand-primary": "#1f6b53",
        "color-brand-content": "#1f6b53",
        "color-api-name": "#8a3b12",
        "color-code-background": "#f4f6f5",
        "font-stack": "system-ui, 'Segoe UI', 'DejaVu Sans', sans-serif",
        "font-stack--monospace": "ui-monospace, 'DejaVu Sans Mono', Menlo, Consolas, monospace",
    },
    # All colours of the dark side: some packages of the theme lack them where the system asks for it.
    "dark_css_variables": {
        "color-brand-primary": "#6cc4a4",
        "color-brand-content": "#6cc4a4",
        "color-foreground-primary": "#dcdfe2",
        "color-foreground-secondary": "#a3a8ae",
        "color-foreground-muted": "#8a9097",
        "color-foreground-border": "#666666",
        "color-background-primary": "#15171a",
        "color-background-secondary": "#1b1e22",
        "color-background-hover": "#23272c",
        "color-background-hover--transparent": "#23272c00",
        "color-background-border": "#31363c",
        "color-background-item": "#444444",
        "color-highlighted-background": "#0c3b2d",
        "color-highlight-on-target": "#26332b",
        "color-admonition-background": "#1b1e22",
        "color-card-border": "#1b1e22",
        "color-card-background": "#1b1e22",
        "color-card-marginals-background": "#23272c",
        "color-code-background": "#1d2125",
        "color-problematic": "#ee7171",
        "color-api-name": "#e8b36b",
        "color-api-pre-name": "#a3a8ae",
        "color-api-keyword": "#a3a8ae",
        "color-api-background": "#1e2226",
    },
}
copybutton_prompt_text = "$ "
copybutton_only_copy_prompt_lines = True
