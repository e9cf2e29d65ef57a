"""The documents as pages for a browser, with links that lead to where things stand in the package."""

import html
import posixpath
import re
import subprocess

import checkout

FRAME = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<link rel="stylesheet" href="style.css">
</head>
<body>
{body}</body>
</html>
"""

# What only those read who have the checkout before them.
CHECKOUT_ONLY = re.compile(r"^<!-- checkout -->\n.*?^<!-- /checkout -->\n", re.M | re.S)
HEADING = re.compile(r"<h([1-6])>(.*?)</h\1>", re.S)
LINK = re.compile(r'<a href="([^"]*)">(.*?)</a>', re.S)
PICTURE = re.compile(r'(<img src=")([^"]*)(")')
ELSEWHERE = re.compile(r"[a-z]+:|#")


def page_names():
    """The pages by what they are made of."""
    guides = [name for name in checkout.tracked("docs") if re.fullmatch(r"docs/[\w-]+\.md", name)]
    others = {"README.md": "docs/index.html", "CHANGELOG.md": "docs/changes.html", "SECURITY.md": "docs/security.html"}
    return {**{name: name.removesuffix("md") + "html" for name in guides}, **others}


def to_html(markdown):
    converter = ["cmark-gfm", "--extension", "table", "--extension", "autolink"]
    return subprocess.run(converter, input=markdown, check=True, capture_output=True, text=True).stdout


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup))


def slug(title):
    """The name that a heading has in links."""
    return re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-")


def with_names(page):
    """Headings that links can lead to."""
    taken = {}

    def named(heading):
        name = slug(plain(heading[2]))
        count = taken[name] = taken.get(name, -1) + 1
        return f'<h{heading[1]} id="{name}{f"-{count}" if count else ""}">{heading[2]}</h{heading[1]}>'

    return HEADING.sub(named, page)


class BrokenLink(Exception):
    pass


class Links:
    """Those of one document, which stands elsewhere in the package than in the checkout."""

    def __init__(self, source, places):
        self.source, self.places = source, places

    def target(self, address):
        """The address in the package; None for what is not in it."""
        if ELSEWHERE.match(address):
            return address
        path, hash_, heading = address.partition("#")
        wanted = posixpath.normpath(posixpath.join(posixpath.dirname(self.source), html.unescape(path)))
        if not (checkout.ROOT / wanted).exists():
            raise BrokenLink(f"{self.source}: {address}")
        place = self.places.get(wanted) or self.folder(wanted)
        return place and posixpath.relpath(place, posixpath.dirname(self.places[self.source])) + hash_ + heading

    def folder(self, wanted):
        """Where all of a folder's files stand together."""
        for name, place in self.places.items():
            if name.startswith(wanted + "/") and place.endswith(name.removeprefix(wanted)):
                return place.removesuffix(name.removeprefix(wanted))
        return None

    def settle(self, page):
        return PICTURE.sub(self.settled_picture, LINK.sub(self.settled_link, page))

    def settled_link(self, link):
        target = self.target(link[1])
        return f'<a href="{target}">{link[2]}</a>' if target else link[2]

    def settled_picture(self, picture):
        target = self.target(picture[2])
        if not target:
            raise BrokenLink(f"{self.source}: the picture {picture[2]} is not in the package")
        return picture[1] + target + picture[3]


def page(source, places):
    body = to_html(CHECKOUT_ONLY.sub("", checkout.text(source)))
    title = plain(HEADING.search(body)[2])
    body = Links(source, places).settle(with_names(body))
    return FRAME.format(title=html.escape(title), body=body).encode("utf-8")


def pages(others):
    """The bytes of the pages by their names. others: where the rest of the package stands, by what it is in the checkout."""
    names = page_names()
    places = {**others, **names}
    made = {target: page(source, places) for source, target in names.items()}
    return {**made, "docs/style.css": checkout.read("packaging/style.css")}
