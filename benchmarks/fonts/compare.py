#!/usr/bin/python3
"""Times fonts made of the same drawings by Quillery, FontForge and fontmake, in turn.

    compare.py [--quillery PROGRAM] [--rounds N] [--many N]

Prints tables of medians and ratios for benchmarks/fonts/README.md. What it needs from Debian:
python3-fontforge, fontmake, fonts-dejavu-core.
"""

import argparse
import json
import os
import sys
import tempfile
from pathlib import Path

from drawings import outlines, write_drawings, write_ufo
from measuring import middle, peak_memory, ratios, run, run_all

ROOT = Path(__file__).resolve().parents[2]
PYTHON = "/usr/bin/python3"
FEW = 5000
FORMATS = ("otf", "ttf", "woff2")
TARGETS = {"otf": "1/8", "ttf": "1/2", "woff2": "1/2"}


def quillery(program, folder, extension):
    """The commands that make a font of the drawings in `folder` from nothing."""
    project = folder.with_suffix(".fontproj")
    project.unlink(missing_ok=True)
    return [[program, "import", project, folder, "--units-per-em", "1000"],
            [program, "export", project, folder.with_suffix(f".quillery.{extension}")]]


def fontforge(folder, extension):
    script = Path(__file__).with_name("fontforge_font.py")
    return [[PYTHON, script, folder, folder.with_suffix(f".fontforge.{extension}")]]


def fontmake(folder, extension):
    return [["fontmake", "-u", folder.with_suffix(".ufo"), "-o", extension, "--keep-overlaps",
             "--output-path", folder.with_suffix(f".fontmake.{extension}")]]


def compare_tools(program, folder, rounds):
    print("| Format | Quillery | FontForge | fontmake | Quillery : FontForge | target | by processor time |")
    print("|---|---|---|---|---|---|---|")
    for extension in FORMATS:
        tools = [lambda: quillery(program, folder, extension), lambda: fontforge(folder, extension)]
        if extension != "woff2":
            tools.append(lambda: fontmake(folder, extension))
        runs = [[] for _ in tools]
        for _ in range(rounds):
            for made, tool in zip(runs, tools):
                made.append(run_all(tool()))
        cells = [f"{middle(made).seconds:.2f} s" for made in runs] + ["–"] * (3 - len(runs))
        clock, processor = ratios(runs[0], runs[1])
        print(f"| {extension} | {' | '.join(cells)} | {clock:.2f} | {TARGETS[extension]} | {processor:.2f} |",
              flush=True)


def compare_sizes(program, few, many, factor, rounds):
    print("\n| Format | the few | the many | ratio | target |\n|---|---|---|---|---|")
    for extension in FORMATS:
        runs = [[], []]
        for _ in range(rounds):
            for made, folder in zip(runs, (few, many)):
                made.append(run_all(quillery(program, folder, extension)))
        clock, _ = ratios(runs[1], runs[0])
        print(f"| {extension} | {middle(runs[0]).seconds:.2f} s | {middle(runs[1]).seconds:.2f} s | {clock:.2f} "
              f"| under 5 for {factor:g} times the drawings |", flush=True)


def compare_memory(program, folders):
    print("\n| Drawings | Format | Quillery | FontForge | ratio | target |\n|---|---|---|---|---|---|")
    for count, folder in folders.items():
        for extension in FORMATS:
            mine = peak_memory(quillery(program, folder, extension))
            other = peak_memory(fontforge(folder, extension))
            print(f"| {count:,} | {extension} | {mine:.0f} MB | {other:.0f} MB | {mine / other:.2f} | under 3 |",
                  flush=True)


def time_pairs(folder, rounds, count=50000, glyphs=500):
    """What 50,000 pairs add to a font of 500 glyphs."""
    document = {"name": "Pairs", "designer": "", "version": "1.0", "copyright": "", "unitsPerEm": 1000,
                "ascender": 800, "descender": -200, "capHeight": 700, "xHeight": 500, "kerningPairs": [],
                "glyphs": [{"name": f"g{index}", "unicode": chr(0x4E00 + index), "advanceWidth": 600,
                            "leftSideBearing": 0, "rightSideBearing": 0, "fontPath": []}
                           for index in range(glyphs)]}
    plain, kerned = folder / "plain.json", folder / "kerned.json"
    plain.write_text(json.dumps(document))
    document["kerningPairs"] = [
        {"leftGlyph": f"g{index // 100 % glyphs}", "rightGlyph": f"g{index * 7 % glyphs}",
         "value": -1 - index * 31 % 90} for index in range(count)]
    kerned.write_text(json.dumps(document))
    runs = [[], []]
    for _ in range(rounds):
        for made, source in zip(runs, (plain, kerned)):
            made.append(run([PYTHON, ROOT / "resources/generate_font.py", source, folder / "pairs.otf"]))
    without, with_pairs = map(middle, runs)
    print(f"\n{count:,} kerning pairs add {with_pairs.seconds - without.seconds:.2f} s to the "
          f"{without.seconds:.2f} s of a font of {glyphs} glyphs (target: under 0.5 s).")


def main():
    parser = argparse.ArgumentParser(description="Times Quillery against FontForge and fontmake.")
    parser.add_argument("--quillery", default=ROOT / "build/release/bin/quillery")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--many", type=int, default=20000)
    options = parser.parse_args()
    # The drawings stay off slow disks where the system has a place for that.
    with tempfile.TemporaryDirectory(dir=os.environ.get("BENCHMARK_FOLDER")) as place:
        place = Path(place)
        made = outlines(options.many)
        folders = {FEW: place / "few", options.many: place / "many"}
        for count, folder in folders.items():
            write_drawings(folder, made[:count])
        write_ufo(place / "few.ufo", made[:FEW])
        print(f"{FEW:,} drawings, medians of {options.rounds} runs in turn on {os.cpu_count()} processors, "
              f"load {os.getloadavg()[0]:.1f} at the start:\n")
        compare_tools(options.quillery, folders[FEW], options.rounds)
        compare_sizes(options.quillery, *folders.values(), options.many / FEW, max(options.rounds // 2, 1))
        compare_memory(options.quillery, folders)
        time_pairs(place, options.rounds)
        print(f"\nLoad at the end: {os.getloadavg()[0]:.1f}.")


if __name__ == "__main__":
    sys.exit(main())
