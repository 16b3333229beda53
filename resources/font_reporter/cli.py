"""The reporter's command line: reads the operands, makes the page and writes it."""

from collections.abc import Sequence

from font_generator.command import Warnings, check_target, fail, run, write_whole

USAGE = "usage: font_report.py INPUT.json FONT.(otf|ttf|woff|woff2) OUTPUT.html"


def main(arguments: Sequence[str]) -> int:
    """Makes the report that the arguments ask for; returns the exit status."""
    if len(arguments) != 3:
        return fail(USAGE, 2)
    return run(lambda: make_report(*arguments), "font report")


def make_report(source: str, font: str, target: str) -> Warnings:
    """Writes the page; the warnings are on it. Raises GeneratorError."""
    from font_generator.document import read_document

    from .facts import collect
    from .page import page

    check_target(target, "font report")
    html = page(collect(read_document(source), font))
    write_whole(target, html.encode("utf-8"), "font report")
    return ()
