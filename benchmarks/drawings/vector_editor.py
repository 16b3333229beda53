"""Letters and shapes as Inkscape writes them from its command line."""

import os
import subprocess
import tempfile
from pathlib import Path

from letters import LETTERS

TIME = 300
HEAD = ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
        'xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" '
        'xmlns:sodipodi="http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd" '
        'width="40mm" height="40mm" viewBox="0 0 120 120">')


def _text(letter, style="", more=""):
    character = {"&": "&amp;"}.get(letter.character, letter.character)
    return (f'<text id="letter" x="20" y="90" style="font-size:90px;{letter.css()};{style}" '
            f'{more}>{character}</text>')


def _stroked(letter):
    return _text(letter, "fill:none;stroke:#000;stroke-width:5;stroke-linejoin:round")


def _layers(letter):
    layer = '<g inkscape:groupmode="layer" inkscape:label="{}" {}>{}</g>'
    return (layer.format("sketch", 'style="display:none"', '<circle cx="60" cy="60" r="55"/>')
            + layer.format("ink", 'transform="matrix(.8 .1 -.2 .9 20 4)"', _text(letter))
            + layer.format("rule", "", '<path d="M0 115h120" style="stroke:#c8c8c8"/>'))


def _clones(letter):
    return (_text(letter, "font-size:50px", 'transform="translate(-10,-40)"')
            + '<use xlink:href="#letter" transform="rotate(20 60 60) translate(50 10)"/>'
            + '<use xlink:href="#letter" x="4" y="48"/>')


def _shapes(letter):
    star = ('<path sodipodi:type="star" sodipodi:sides="5" sodipodi:cx="60" sodipodi:cy="60" '
            'sodipodi:r1="50" sodipodi:r2="20" sodipodi:arg1="{}" sodipodi:arg2="{}" '
            'inkscape:rounded="0.2" inkscape:randomized="0" d="M0 0"/>')
    turn = letter.index * 0.1
    return star.format(turn, turn + 0.63) + '<rect x="4" y="4" width="30" height="20" rx="6"/>'


def _overlapping(letter):
    return _text(letter) + '<ellipse id="disc" cx="60" cy="70" rx="40" ry="22"/>'


OUTLINES = "select-all;object-to-path"
# How a drawing begins and what the editor is told to do with it.
WAYS = (
    (_text, OUTLINES + ";export-plain-svg"),
    (_text, OUTLINES + ";selection-ungroup;path-combine"),
    (_text, "export-plain-svg"),
    (_stroked, "select-all;object-to-path;selection-ungroup;object-stroke-to-path"),
    (_stroked, OUTLINES + ";transform-rotate:25;export-plain-svg"),
    (_layers, OUTLINES),
    (_clones, "select-by-id:letter;object-to-path"),
    (_shapes, "select-all;object-flip-horizontal;transform-rotate:15;transform-translate:3,-4"),
    (_overlapping, OUTLINES + ";selection-ungroup;select-all;path-exclusion;export-plain-svg"),
    (_overlapping, "select-all;object-set-clip"),
)


def inkscape(folder):
    with tempfile.TemporaryDirectory() as temporary:
        lines = []
        for letter in LETTERS:
            start, actions = WAYS[letter.index % len(WAYS)]
            drawing = Path(temporary, f"{letter.name}.svg")
            drawing.write_text(f"{HEAD}{start(letter)}</svg>", encoding="utf-8")
            # The shell keeps its export options from file to file.
            plain = "true" if actions.endswith("export-plain-svg") else "false"
            actions = actions.removesuffix(";export-plain-svg").removesuffix("export-plain-svg")
            lines.append(";".join(filter(None, (
                f"file-open:{drawing}", actions, f"export-plain-svg:{plain}",
                f"export-filename:{folder / drawing.name}", "export-do", "file-close"))))
        environment = dict(os.environ, INKSCAPE_PROFILE_DIR=temporary)
        subprocess.run(["inkscape", "--shell"], input="\n".join(lines) + "\nquit\n", text=True,
                       check=True, timeout=TIME, env=environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
