#!/usr/bin/python3
"""Judges what roads from drawings to outlines make of drawings.

    judge.py [--quillery PROGRAM] [--roads plain flatten fontforge] [--pairs N] [--second]
             -o RESULTS FOLDER...
    judge.py --check [--quillery PROGRAM]
    judge.py --self-check FOLDER...

Every folder of drawings is a source. Writes RESULTS/results.json, table.md, and with --pairs
worst_ROAD.png and over_flatten_*.png. README.md says what the columns mean. --check holds `quillery
flatten` to the hand-made drawings and what tests/drawings/expected.json says of them: it prints
what is wrong and ends with 1, or with 77 where the libraries to judge with are missing.
"""

import argparse
import json
import multiprocessing
import re
import sys
import time
from pathlib import Path
from statistics import median

try:
    import numpy

    import outlines
    import pictures
    import roads
    import sheet
except (ImportError, ValueError) as missing:
    print(f"can't judge here: {missing}", file=sys.stderr)
    sys.exit(77)

ROOT = Path(__file__).resolve().parents[2]
RIGHT, WRONG, LOOK = 0.01, 0.05, 0.005
LIMIT = 2.0  # seconds that a drawing may take
HAND_MADE = ROOT / "tests/drawings"


def off(ours, drawn):
    """Difference of area as a share of the drawing's ink."""
    return float(numpy.logical_xor(ours, drawn).sum()) / max(int(drawn.sum()), 1)


def second_off(ours, drawn):
    """The same beside a picture with antialiased edges: pixels on an edge of ours are not counted."""
    # Every nth pixel of the larger picture: drawings with clips are rendered twice as large.
    step = max(round(ours.shape[1] / drawn.shape[1]), 1)
    other = max(round(drawn.shape[1] / ours.shape[1]), 1)
    ours, drawn = ours[step // 2::step, step // 2::step], drawn[other // 2::other, other // 2::other]
    if abs(ours.shape[0] - drawn.shape[0]) > 2 or abs(ours.shape[1] - drawn.shape[1]) > 2:
        return None
    high, wide = (min(a, b) for a, b in zip(ours.shape, drawn.shape))
    ours, drawn = ours[:high, :wide], drawn[:high, :wide]
    differs = numpy.logical_xor(ours, drawn) & ~pictures.edges(ours)
    return float(differs.sum()) / max(int(drawn.sum()), 1)


class Subject:
    """A drawing, its page and its ink."""

    def __init__(self, file):
        self.svg = file.read_bytes()
        self.page = pictures.page_of(self.svg)
        while True:
            try:
                self.drawn = pictures.ink(pictures.paint(self.svg, self.page))
                return
            except pictures.NoPicture:
                # Letters of more than about a thousand pixels are beyond the font library.
                if b"<text" not in self.svg or self.page.pixels < pictures.PAGE / 2:
                    raise
                self.page.pixels //= 2

    def mask(self, outline):
        svg = outline.svg
        if not self.page.sized:
            # Such a drawing's units are pixels, whatever page its outline was given.
            svg = roads.one_path("", outline.path)
        try:
            return pictures.ink(pictures.paint(svg, self.page))
        except pictures.NoPicture:
            return numpy.zeros_like(self.drawn)


def judge(work):
    """One row of results: a drawing by every road."""
    file, chosen, second = work
    row = {"source": file.parent.name, "drawing": file.name, "bytes": file.stat().st_size,
           "roads": {}}
    try:
        subject = Subject(file)
    except pictures.NoPicture as error:
        subject, row["unjudged"] = None, str(error)
    if subject:
        row["blank"] = not subject.drawn.any()
        row["drawn points"] = outlines.drawn_points(subject.svg, subject.page, subject.drawn)
        other = pictures.second_mask(second) if second else None
        if other is not None:
            row["judges differ"] = second_off(subject.page.inner(subject.drawn), other)
    for name, road in chosen.items():
        outline = road(file, file.read_bytes())
        row["roads"][name] = found = {"state": outline.state, "seconds": outline.seconds,
                                      "said": outline.said[:400]}
        if outline.state != "drawn" or not subject or row["blank"]:
            continue
        mask = subject.mask(outline)
        found["off"] = off(mask, subject.drawn)
        found["off on page"] = off(subject.page.inner(mask), subject.page.inner(subject.drawn))
        if other is not None:
            found["second"] = second_off(subject.page.inner(mask), other)
        if name == "flatten":
            height = outline_height(outline) or subject.page.height
            found.update(outlines.fitness(outline.path, height))
    return row


def outline_height(outline):
    """Of the page that an outline's file says."""
    handle = pictures.load(outline.svg)
    _, _, _, _, has_box, box = handle.get_intrinsic_dimensions()
    return box.height if has_box else None


def share(count, whole):
    return f"{100 * count / whole:.1f}" if whole else "–"


def table(rows, names):
    """Markdown: one line a source and road, and one for all together."""
    sources = list(dict.fromkeys(row["source"] for row in rows))
    lines = ["| source | road | drawings | right | second judge: right | over 5 % | not named | "
             "refused | over time | median ms | all s | points | slivers | close points |",
             "|---|---|---|---|---|---|---|---|---|---|---|---|---|---|"]
    for source in [*sources, "all"]:
        for name in names:
            lines.append(_line(source, name, [row for row in rows
                                              if source in (row["source"], "all")]))
    return "\n".join(lines) + "\n"


def _line(source, name, rows):
    judged = [row for row in rows if not row.get("unjudged") and not row["blank"]]
    found = [row["roads"][name] for row in judged]
    drawn = [one for one in found if "off" in one]
    seconds = [row["roads"][name]["seconds"] for row in rows]
    second = [one["second"] for row, one in zip(judged, found)
              if one.get("second") is not None and row["judges differ"] <= RIGHT]
    ratios = [one["points"] / row["drawn points"] for row, one in zip(judged, found)
              if "points" in one and row["drawn points"]]
    wrong = [one for one in drawn if one["off"] > WRONG]
    return "| " + " | ".join((
        source, name, str(len(judged)),
        share(sum(one["off"] <= RIGHT for one in drawn), len(judged)),
        share(sum(value <= RIGHT for value in second), len(second)),
        share(len(wrong), len(judged)),
        str(sum(not one["said"] for one in wrong)),
        str(sum(one["state"] == "refused" for one in found)),
        str(sum(one["state"] == "over time" or one["seconds"] > LIMIT for one in found)),
        f"{1000 * median(seconds):.0f}", f"{sum(seconds):.1f}",
        f"{median(ratios):.2f} ({max(ratios):.2f}, {len(ratios)})" if ratios else "–",
        str(sum(one["slivers"] for one in drawn)) if name == "flatten" else "–",
        str(sum(one["close"] for one in drawn)) if name == "flatten" else "–")) + " |"


def pairs(rows, name, road, count, folder):
    """Contact sheets of the worst by one road, and of all that `flatten` made more than half a
    percent off."""
    drawn = [row for row in rows if "off" in row["roads"][name]]
    drawn.sort(key=lambda row: -row["roads"][name]["off"])
    tiles = []
    for row in drawn:
        found = row["roads"][name]
        # Most of what the other roads make is off: of those, the worst are enough.
        if len(tiles) >= count and (found["off"] <= LOOK or name != "flatten"):
            break
        file = Path(row["path"])
        subject = Subject(file)
        outline = road(file, subject.svg)
        label = (f"{row['source']}/{row['drawing']}  {100 * found['off']:.2f} %  "
                 f"{found['said'].splitlines()[0][-110:] if found['said'] else ''}")
        half = len(label) // 2 if len(label) > 110 else len(label)
        tiles.append((found["off"], sheet.tile(label[:half] + "\n" + label[half:], subject.svg,
                                               subject.page, subject.drawn,
                                               subject.mask(outline))))
    sheet.write([one for _, one in tiles[:count]], folder / f"worst_{name}.png")
    over = [one for amount, one in tiles if amount > LOOK and name == "flatten"]
    for number, start in enumerate(range(0, len(over), 16)):
        sheet.write(over[start:start + 16], folder / f"over_{name}_{number:02}.png")


def fault(row, expected):
    """What is wrong with a hand-made drawing by `flatten`, in words; nothing when it is right."""
    name, found = row["drawing"], row["roads"]["flatten"]
    if name in expected["refused"]:
        if found["state"] == "refused" and re.search(expected["refused"][name], found["said"]):
            return ""
        return f"should be refused for '{expected['refused'][name]}': {found}"
    if found["state"] != "drawn":
        return f"{found['state']}: {found['said']}"
    noted = expected["noted"].get(name)
    if noted and not re.search(noted, found["said"]):
        return f"'{noted}' is not in its notes: {found['said']}"
    if name in expected["guides"] or noted:
        return ""
    if "off" not in found:
        return f"could not be judged: {row.get('unjudged', 'blank')}"
    if found["off"] > RIGHT:
        return f"{100 * found['off']:.2f} % off"
    return f"took {found['seconds']:.1f} s" if found["seconds"] > LIMIT else ""


def check(rows):
    expected = json.loads((HAND_MADE / "expected.json").read_text())
    faults = {row["drawing"]: fault(row, expected) for row in rows}
    for name, words in faults.items():
        if words:
            print(f"{name}: {words}")
    print(f"{len(rows)} drawings, {sum(map(bool, faults.values()))} of them wrong")
    return 1 if any(faults.values()) else 0


def self_check(files):
    """What the method reads where the answer is known: every drawing beside itself, its area by
    another grid of samples, and a square that is a hundredth wider."""
    same, less = [], []
    for file in files:
        try:
            subject = Subject(file)
        except pictures.NoPicture:
            continue
        if not subject.drawn.any():
            continue
        again = pictures.ink(pictures.paint(subject.svg, subject.page))
        same.append(off(again, subject.drawn))
        moved = pictures.Page(**{**vars(subject.page), "pixels": round(subject.page.pixels / 1.37)})
        coarse = pictures.ink(pictures.paint(subject.svg, moved))
        less.append(abs(float(coarse.mean() / subject.drawn.mean()) - 1))
    print(f"{len(same)} drawings; beside themselves at most {100 * max(same):.4f} % off; "
          f"their area by another grid of samples {100 * median(less):.4f} % off in the median, "
          f"{100 * max(less):.3f} % at most")
    for grown in (1.0, 1.01):
        square = roads.one_path('viewBox="0 0 100 100"', "M10 10H90V90H10Z").replace(
            b"90V90", f"{10 + 80 * grown}V90".encode())
        page = pictures.page_of(square)
        plain = roads.one_path('viewBox="0 0 100 100"', "M10 10H90V90H10Z")
        masks = [pictures.ink(pictures.paint(svg, page)) for svg in (square, plain)]
        print(f"a square {grown:.2f} times as wide: {100 * off(*masks):.3f} % off")


def main():
    options = argparse.ArgumentParser(description="judges outlines made of drawings")
    options.add_argument("folders", nargs="*", type=Path)
    options.add_argument("-o", "--out", type=Path, default=Path("judged"))
    options.add_argument("--quillery", type=Path, default=ROOT / "build/dev/bin/quillery")
    options.add_argument("--roads", nargs="+", default=["plain", "flatten", "fontforge"],
                         choices=["plain", "flatten", "fontforge", "turned"])
    options.add_argument("--pairs", type=int, default=0, metavar="N")
    options.add_argument("--second", action="store_true", help="judge beside Inkscape's pictures too")
    options.add_argument("--jobs", type=int, default=2)
    options.add_argument("--check", action="store_true", help="hold the hand-made drawings")
    options.add_argument("--self-check", action="store_true")
    chosen = options.parse_args()
    if chosen.check:
        chosen.folders, chosen.roads = [HAND_MADE], ["flatten"]
    files = [file.resolve() for folder in chosen.folders for file in sorted(folder.glob("*.svg"))]
    if chosen.self_check:
        return self_check(files)
    program = str(chosen.quillery.resolve())
    made = {"plain": roads.Plain(program), "flatten": roads.Flatten(program),
            "fontforge": roads.FontForge(), "turned": roads.FontForge("turned")}
    made = {name: made[name] for name in chosen.roads}
    if chosen.check:
        with multiprocessing.Pool(chosen.jobs) as pool:
            return check(pool.map(judge, [(file, made, None) for file in files]))
    chosen.out.mkdir(parents=True, exist_ok=True)
    second = pictures.second_pictures(files, chosen.out / "second") if chosen.second else {}
    started = time.monotonic()
    with multiprocessing.Pool(chosen.jobs) as pool:
        rows = pool.map(judge, [(file, made, second.get(file)) for file in files], chunksize=4)
    for file, row in zip(files, rows):
        row["path"] = str(file)
    (chosen.out / "results.json").write_text(json.dumps(rows, indent=1) + "\n")
    lines = table(rows, chosen.roads)
    (chosen.out / "table.md").write_text(lines)
    print(lines, f"{len(rows)} drawings judged in {time.monotonic() - started:.0f} s", sep="\n")
    for name in chosen.roads if chosen.pairs else ():
        pairs(rows, name, made[name], chosen.pairs, chosen.out)
    return 0


if __name__ == "__main__":
    sys.exit(main())
