#!/usr/bin/python3
"""Times fonts made of the same drawings by Quillery (with its executable and with its script), FontForge
and fontmake, in turn.

    compare.py [--quillery PROGRAM] [--generator EXECUTABLE] [--rounds N] [--many N]

Prints tables of medians and ratios for benchmarks/fonts/README.md. What it needs from Debian:
python3-fontforge, fontmake, fonts-dejavu-core, fonts-noto-cjk, g++.
"""

import argparse
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from drawings import CJK, outlines, write_drawings, write_ufo
from measuring import middle, peak_memory, ratios, run_all

ROOT = Path(__file__).resolve().parents[2]
PYTHON = "/usr/bin/python3"
SCRIPT = ROOT / "resources/generate_font.py"
FEW = 5000
FORMATS = ("otf", "ttf", "woff2")
FIRST_HAN = 0x4E00
TARGETS = {"otf": "1/12", "otf without hints": "1/4", "ttf": "1/4", "woff2": "0.6"}


def quillery(program, folder, *extensions, generator="native"):
    """The commands that make fonts of the drawings in `folder` from nothing."""
    project = folder.with_suffix(".fontproj")
    project.unlink(missing_ok=True)
    return [[program, "import", project, folder, "--units-per-em", "1000"],
            *export(program, folder, *extensions, generator=generator)]


def export(program, folder, *extensions, generator="native"):
    fonts = [folder.with_suffix(f".quillery.{extension}") for extension in extensions]
    return [[program, "export", folder.with_suffix(".fontproj"), *fonts, "--generator", generator]]


def fontforge(folder, extension, *flags):
    script = Path(__file__).with_name("fontforge_font.py")
    return [[PYTHON, script, folder, folder.with_suffix(f".fontforge.{extension}"), *flags]]


def fontmake(folder, extension):
    return [["fontmake", "-u", folder.with_suffix(".ufo"), "-o", extension, "--keep-overlaps",
             "--output-path", folder.with_suffix(f".fontmake.{extension}")]]


def in_turn(rounds, *tools):
    """The runs of each tool, which take turns; a tool gives its commands anew for each round."""
    runs = [[] for _ in tools]
    for _ in range(rounds):
        for made, tool in zip(runs, tools):
            made.append(run_all(tool()))
    return runs


def compare_tools(program, folder, rounds):
    print("| Format | Quillery | its script | FontForge | fontmake | Quillery : FontForge | target | by processor time |")
    print("|---|---|---|---|---|---|---|---|")
    for title, target in TARGETS.items():
        extension, *unhinted = title.split(maxsplit=1)
        flags = ("no-hints", "no-flex") if unhinted else ()
        tools = [lambda: quillery(program, folder, extension), lambda: fontforge(folder, extension, *flags)]
        if not unhinted:
            tools.append(lambda: quillery(program, folder, extension, generator="python"))
        if not unhinted and extension != "woff2":
            tools.append(lambda: fontmake(folder, extension))
        runs = in_turn(rounds, *tools)
        mine, other, script, made = [f"{middle(run).seconds:.2f} s" for run in runs] + ["–"] * (4 - len(runs))
        clock, processor = ratios(runs[0], runs[1])
        print(f"| {title} | {mine} | {script} | {other} | {made} | {clock:.3f} | {target} | {processor:.3f} |", flush=True)


def compare_exports(program, folder, rounds):
    """What four formats cost beside the one that takes longest."""
    run_all(quillery(program, folder, "otf"))
    runs = in_turn(rounds, lambda: export(program, folder, "otf", "ttf", "woff", "woff2"),
                   lambda: export(program, folder, "woff2"))
    clock, _ = ratios(*runs)
    print(f"\nOTF, TTF, WOFF and WOFF2 in one export take {middle(runs[0]).seconds:.2f} s, WOFF2 alone "
          f"{middle(runs[1]).seconds:.2f} s: {clock:.2f} times.")


def compare_sizes(program, few, many, factor, rounds):
    print("\n| Format | the few | the many | ratio | target |\n|---|---|---|---|---|")
    for extension in FORMATS:
        runs = in_turn(rounds, lambda: quillery(program, few, extension), lambda: quillery(program, many, extension))
        clock, _ = ratios(runs[1], runs[0])
        print(f"| {extension} | {middle(runs[0]).seconds:.2f} s | {middle(runs[1]).seconds:.2f} s | {clock:.2f} "
              f"| 4.3 for {factor:g} times the drawings |", flush=True)


def compare_memory(program, folders):
    print("\n| Drawings | Format | Quillery | FontForge | ratio | target |\n|---|---|---|---|---|---|")
    for count, folder in folders.items():
        for extension in FORMATS:
            mine = peak_memory(quillery(program, folder, extension))
            other = peak_memory(fontforge(folder, extension))
            print(f"| {count:,} | {extension} | {mine:.0f} MB | {other:.0f} MB | {mine / other:.2f} | at most 1 |",
                  flush=True)


def document(glyphs):
    """A description of glyphs (commands, advance) in a thousand units to the em."""
    kinds = {"M": "moveTo", "L": "lineTo", "C": "curveTo", "Z": "closePath"}
    names = {1: ["point"], 3: ["control1", "control2", "point"], 0: []}

    def command(letter, points):
        members = zip(names[len(points)], ({"x": x * 10, "y": y * 10} for x, y in points))
        return {"type": kinds[letter]} | dict(members)

    return {"name": "Made", "designer": "", "version": "1.0", "copyright": "", "unitsPerEm": 1000,
            "ascender": 800, "descender": -200, "capHeight": 700, "xHeight": 500, "kerningPairs": [],
            "glyphs": [{"name": f"g{index}", "unicode": chr(FIRST_HAN + index), "advanceWidth": advance * 10,
                        "leftSideBearing": 0, "rightSideBearing": 0,
                        "fontPath": [command(*one) for one in commands]}
                       for index, (commands, advance) in enumerate(glyphs)]}


def time_small(generator, glyphs, folder, rounds):
    """A small font is made by a process that hardly takes longer than one that does nothing."""
    source, empty = folder / "small.json", folder / "empty"
    source.write_text(json.dumps(document(glyphs)))
    subprocess.run(["g++", "-O2", "-x", "c++", "-o", empty, "-"], input=b"int main() {}", check=True)
    runs = in_turn(20 * rounds, *(lambda command=command: [command] for command in (
        [generator, source, folder / "small.otf"], [empty], [PYTHON, SCRIPT, source, folder / "small.otf"])))
    made, nothing, script = (middle(run).seconds * 1000 for run in runs)
    print(f"\nA document of {len(glyphs)} glyphs becomes an OTF in {made:.1f} ms (target: 15 ms), with the script in "
          f"{script:.0f} ms; a process that does nothing takes {nothing:.1f} ms.")


def time_pairs(generator, glyphs, folder, rounds, count=50000):
    """What 50,000 pairs add to a font of 500 glyphs."""
    plain, kerned = folder / "plain.json", folder / "kerned.json"
    project = document(glyphs)
    plain.write_text(json.dumps(project))
    project["kerningPairs"] = [
        {"leftGlyph": f"g{index // 100 % len(glyphs)}", "rightGlyph": f"g{index * 7 % len(glyphs)}",
         "value": -1 - index * 31 % 90} for index in range(count)]
    kerned.write_text(json.dumps(project))
    for name, command in (("", [generator]), (" with the script", [PYTHON, SCRIPT])):
        runs = in_turn(rounds, *(lambda source=source: [[*command, source, folder / "pairs.otf"]]
                                 for source in (plain, kerned)))
        without, with_pairs = (middle(run).seconds * 1000 for run in runs)
        print(f"\n{count:,} kerning pairs add {with_pairs - without:.0f} ms to the {without:.0f} ms of a font of "
              f"{len(glyphs)} glyphs{name} (target: 50 ms).")


def main():
    parser = argparse.ArgumentParser(description="Times Quillery against FontForge and fontmake.")
    parser.add_argument("--quillery", default=ROOT / "build/release/bin/quillery")
    parser.add_argument("--generator", default=ROOT / "build/release/bin/generate_font")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--many", type=int, default=20000)
    options = parser.parse_args()
    # The drawings stay off slow disks where the system has a place for that.
    with tempfile.TemporaryDirectory(dir=os.environ.get("BENCHMARK_FOLDER")) as place:
        place = Path(place)
        latin, han = outlines(FEW), outlines(options.many, CJK, FIRST_HAN)
        few, han_folders = place / "few", {FEW: place / "han", options.many: place / "many"}
        write_drawings(few, latin)
        write_ufo(place / "few.ufo", latin)
        for count, folder in han_folders.items():
            write_drawings(folder, han[::options.many // count])  # later ones have more strokes
        print(f"{FEW:,} drawings, medians of {options.rounds} runs in turn on {os.cpu_count()} processors, "
              f"load {os.getloadavg()[0]:.1f} at the start:\n")
        compare_tools(options.quillery, few, options.rounds)
        compare_exports(options.quillery, few, options.rounds)
        compare_sizes(options.quillery, *han_folders.values(), options.many / FEW, max(options.rounds // 2, 1))
        compare_memory(options.quillery, {FEW: few, options.many: han_folders[options.many]})
        time_small(options.generator, latin[:100], place, options.rounds)
        time_pairs(options.generator, latin[:500], place, options.rounds)
        print(f"\nLoad at the end: {os.getloadavg()[0]:.1f}.")


if __name__ == "__main__":
    sys.exit(main())
