"""The program's window, used with mouse and keyboard as its user would."""

import json
import os

from window_session import Screen, wait_for

DATE = {"SOURCE_DATE_EPOCH": "1700000000"}


def test_a_session_makes_the_font_that_the_command_line_makes(quillery, draw, tmp_path):
    """From dropped drawings to a kerned font; then the same steps in the shell."""
    drawings = [draw("A.svg", "M0 0 L30 90 L60 0 Z"), draw("V.svg", "M0 90 L30 0 L60 90 Z"), draw("o.svg"),
                draw("period.svg")]
    with Screen() as screen:
        use(screen, drawings, tmp_path)
    shell = tmp_path / "shell.fontproj"
    quillery("import", "--name", "Session", shell, *drawings)
    for steps in ("metrics A --left-side-bearing 300 --vertical-offset 500 --right-side-bearing 300",
                  "metrics A --left-side-bearing 299", "metrics A --vertical-offset 499 --scale 1.5",
                  "metrics --all --right-side-bearing 40",
                  "kern --common", "kern --set A V -200 --set V A -85"):
        command, *arguments = steps.split()
        quillery(command, shell, *arguments)
    quillery("export", shell, tmp_path / "shell.otf", env={**os.environ, **DATE})
    assert without_ids(tmp_path / "window.fontproj") == without_ids(shell)
    assert (tmp_path / "window.otf").read_bytes() == (tmp_path / "shell.otf").read_bytes()


def use(screen, drawings, folder):
    window = screen.start(env=DATE)
    source = screen.start_drag_source(drawings)
    window.drag(source.find("Drag source"), window.find("Import SVGs...", "push button"))
    cards = wait_for("four cards", lambda: (cards := window.list_items("Glyphs")) and len(cards) == 4 and cards)

    window.click(window.find("Font Name", "text"), count=3)
    window.type("Session")
    window.key("Return")
    window.click(next(card for card in cards if card.name == "A"))
    drag(window, "Outline of A", 250, -300)  # to the greatest left side bearing and offset
    drag(window, "Outline of A", -250, 0, button=3)
    window.key("ctrl+z")
    drag(window, "Outline of A", 250, 0, button=3)
    window.key("Left", "Down")
    enter(window, "Scale", "150")
    window.click(window.find("Glyphs", "list"))  # below the cards
    window.key("ctrl+a")
    enter(window, "Right Sidebearing", "40")

    window.click("Kerning")
    window.click(window.find("Generate common kerning pairs"))
    pairs = wait_for("the common pairs", lambda: window.list_items("Kerning pairs"))
    assert [pair.name for pair in pairs] == ["A V, +0", "A period, +0", "V A, +0", "V o, +0", "V period, +0"]
    window.click(pairs[0])
    drag(window, "Kerning canvas", -300, 0)
    wait_for("the least value", lambda: window.list_items("Kerning pairs")[0].name == "A V, -200")
    window.click(pairs[2])
    window.find("Adjust Kerning: V + A")
    enter(window, "Kerning value", "-85")
    window.key("ctrl+z", "ctrl+shift+z")
    wait_for("the value", lambda: window.list_items("Kerning pairs")[2].name == "V A, -85")

    window.key("ctrl+s")
    window.choose_file(folder / "window.fontproj")
    window.find("Quillery - window", "label")
    window.key("ctrl+e")
    window.click(window.find("Export Anyway", "push button"))
    window.choose_file(folder / "window.otf")
    window.find("Export Complete!")
    window.click("Done")
    window.wait_gone("Export Complete!")
    window.quit()
    # Qt says on standard error when something is wrong with the window.
    assert not [line for line in window.output().splitlines() if line.startswith(("Q", "qt."))]


def drag(window, canvas, x, y, button=1):
    """Drags so far from the middle that what follows the pointer stops at its limit."""
    canvas = window.find(canvas)
    cx, cy = canvas.middle
    window.drag(canvas, (cx + x, cy + y), button=button)


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
    return json.loads(project.read_text(), object_hook=lambda members: members | {"id": None})
