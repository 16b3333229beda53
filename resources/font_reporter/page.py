"""Puts the page together."""

from base64 import b64encode

from . import proof, samples, tables
from .facts import Facts
from .markup import text
from .style import STYLE

_MEDIA_TYPES = {"otf": "font/otf", "ttf": "font/ttf", "woff": "font/woff", "woff2": "font/woff2"}

# Nothing is loaded and nothing runs, whatever a project's texts hold.
_POLICY = "default-src 'none'; style-src 'unsafe-inline'; font-src data:"


def page(facts: Facts) -> str:
    """The report as one file of HTML; the font itself is in it."""
    name = facts.family if facts.style == "Regular" else f"{facts.family} {facts.style}"
    kind = _MEDIA_TYPES[facts.file.extension]
    data = b64encode(facts.file.data).decode("ascii")
    face = f'@font-face{{font-family:"Reported";src:url(data:{kind};base64,{data})}}'
    sections = [samples.title(facts), samples.specimen(facts), samples.waterfall(facts), tables.metrics(facts),
                tables.coverage(facts), samples.kerning(facts), proof.accuracy(facts), samples.warnings(facts),
                proof.glyphs(facts)]
    return (f'<!doctype html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
            f'<meta http-equiv="Content-Security-Policy" content="{_POLICY}">\n'
            f'<meta name="viewport" content="width=device-width, initial-scale=1">\n'
            f'<meta name="color-scheme" content="light dark">\n'
            f"<title>{text(name)} – font report</title>\n<style>\n{face}\n{STYLE}</style>\n</head>\n<body>\n"
            f'<main>\n{"".join(sections)}</main>\n'
            f"<footer>{text(facts.postscript)} · {text(facts.version)} · {facts.format_name}</footer>\n"
            "</body>\n</html>\n")
