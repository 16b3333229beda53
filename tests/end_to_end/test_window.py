"""The program's window, used with mouse and keyboard as its user would."""

import subprocess

import pytest
from conftest import SQUARE
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
