"""The program's window, used with mouse and keyboard as its user would."""

import json
import os
import subprocess

import pytest
from fontTools.ttLib import TTFont
from window_session import Screen, wait_for


@pytest.fixture(scope="module")
def screen():
    with Screen() as screen:
        yield screen


def assert_quiet(window):
    """Qt says on standard error when something is wrong with the window."""
    for line in window.output().splitlines():
        assert not line.startswith(("QObject", "QWidget", "QPainter", "qt.", "QLayout", "Q")), line


def assert_sound(font):
    assert subprocess.run(["ots-sanitize", font, "/dev/null"], capture_output=True, check=False).returncode == 0
    return TTFont(font)


def test_dropped_drawings_become_cards_and_then_a_font(screen, draw, tmp_path):
    window = screen.start()
    window.find("No Glyphs Yet", "label")
    source = screen.start_drag_source([draw("A.svg"), draw("b.svg"), draw("exclam.svg", "M0 0 L20 0 L20 90 Z")])
    window.drag(source.find("Drag source"), window.find("Import SVGs...", "push button"))
    cards = wait_for("three cards", lambda: (cards := window.list_items("Glyphs")) and len(cards) == 3 and cards)
    assert [card.name for card in cards] == ["exclam", "A", "b"]
    assert sum(card.has("selected") for card in cards) == 1
    assert window.find("3 glyphs", "label")

    window.click(cards[1])
    wait_for("the card to be selected", lambda: window.list_items("Glyphs")[1].has("selected"))
    window.key("ctrl+e")
    window.click(window.find("Export Anyway", "push button"))
    font = tmp_path / "My Font.otf"
    window.choose_file(font)
    window.find("Export Complete!", "label")
    window.click(window.find("Done", "push button"))
    window.wait_gone("Export Complete!")
    assert {"exclam", "A", "b"} <= set(assert_sound(font).getGlyphOrder())
    window.quit()
    assert_quiet(window)


DATE = {"SOURCE_DATE_EPOCH": "1700000000"}
WEDGE = "M0 0 L30 90 L60 0 Z"


def far(canvas, x, y):
    """A point so far from the middle of a canvas that what follows the pointer stops at its limit."""
    cx, cy = canvas.middle
    return cx + x, cy + y


def test_a_session_makes_the_font_that_the_command_line_makes(screen, quillery, draw, tmp_path):
    """From an empty window to a kerned font; then the same steps in the shell."""
    drawings = [draw("A.svg", WEDGE), draw("V.svg", "M0 90 L30 0 L60 90 Z"), draw("o.svg"), draw("period.svg")]
    window = screen.start(env=DATE)
    window.find("No Glyphs Yet")
    source = screen.start_drag_source(drawings)
    window.drag(source.find("Drag source"), window.find("Import SVGs...", "push button"))
    cards = wait_for("four cards", lambda: (cards := window.list_items("Glyphs")) and len(cards) == 4 and cards)

    window.click(window.find("Font Name", "text"), count=3)
    window.type("Session")
    window.key("Return")
    window.click(next(card for card in cards if card.name == "A"))
    canvas = window.find("Outline of A")
    window.drag(canvas, far(canvas, 90, -200))  # to the greatest left side bearing and offset
    window.drag(canvas, far(canvas, -90, 0), button=3)
    window.key("ctrl+z")
    window.drag(canvas, far(canvas, 90, 0), button=3)
    window.key("Left", "Down")
    enter(window, "Scale", "150")
    window.click(next(card for card in window.list_items("Glyphs") if card.name == "V"))
    window.find("Outline of V")
    window.click(window.find("Left Sidebearing", "slider"))
    window.key("End", "Left", "Left", "ctrl+z")

    window.click(window.find("Glyphs", "list"))  # below the cards; the selection stays
    window.key("ctrl+a")
    enter(window, "Right Sidebearing", "40")

    window.click("Kerning")
    window.click(window.find("Generate common kerning pairs"))
    pairs = wait_for("the common pairs", lambda: window.list_items("Kerning pairs"))
    assert [pair.name for pair in pairs] == ["A V, +0", "A period, +0", "V A, +0", "V o, +0", "V period, +0"]
    window.click(pairs[0])
    canvas = window.find("Kerning canvas")
    window.drag(canvas, far(canvas, -300, 0))
    wait_for("the least value", lambda: window.list_items("Kerning pairs")[0].name == "A V, -200")
    window.click(pairs[2])
    window.find("Adjust Kerning: V + A")
    enter(window, "Kerning value", "-85")
    window.key("ctrl+z", "ctrl+shift+z")
    wait_for("the value", lambda: window.list_items("Kerning pairs")[2].name == "V A, -85")

    window.key("ctrl+s")
    window.choose_file(tmp_path / "window.fontproj")
    window.find("Quillery - window", "label")
    window.key("ctrl+e")
    window.click(window.find("Export Anyway", "push button"))
    window.choose_file(tmp_path / "window.otf")
    window.find("Export Complete!")
    window.click("Done")
    window.wait_gone("Export Complete!")
    window.quit()
    assert_quiet(window)

    shell = tmp_path / "shell.fontproj"
    quillery("import", "--name", "Session", shell, *drawings)
    for steps in ("metrics A --left-side-bearing 300 --vertical-offset 500 --right-side-bearing 300",
                  "metrics A --left-side-bearing 299", "metrics A --vertical-offset 499 --scale 1.5",
                  "metrics V --left-side-bearing 299", "metrics --all --right-side-bearing 40",
                  "kern --common", "kern --set A V -200 --set V A -85"):
        command, *arguments = steps.split()
        quillery(command, shell, *arguments)
    quillery("export", shell, tmp_path / "shell.otf", env={**os.environ, **DATE})
    assert without_ids(tmp_path / "window.fontproj") == without_ids(shell)
    assert (tmp_path / "window.otf").read_bytes() == (tmp_path / "shell.otf").read_bytes()
    assert "GPOS" in assert_sound(tmp_path / "window.otf")


def enter(window, name, value):
    """Types a value where a slider shows its own."""
    slider = window.find(name, "slider")
    slider.focus()  # as assistive technology does; a click would move it
    wait_for("the slider to have the focus", lambda: slider.has("focused"))
    window.key("F2")
    field = window.find(name, "text")
    wait_for("the field to have the focus", lambda: field.has("focused"))
    window.type(value)
    window.key("Return")
    window.wait_gone(name, "text")


def without_ids(project):
    def strip(value):
        if isinstance(value, dict):
            return {key: strip(member) for key, member in value.items() if key != "id"}
        return [strip(member) for member in value] if isinstance(value, list) else value
    return strip(json.loads(project.read_text()))
