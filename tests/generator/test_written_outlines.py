"""Outlines in the program's own layout read as those in any other."""

import json
import random

import pytest
from drawings import CLOSE, circle, line, move, written_commands
from font_generator.outlines import EMPTY, read_outline
from font_generator.written_outlines import read_written_outline, take_outlines


def commands(seed):
    """A drawing with numbers of every form that the layout has."""
    pick = random.Random(seed)
    numbers = [0, -0.0, 7, -3, 0.5, -12.25, 124.02000000000001, 1e15, 3.552713678800501e-14, -1e-9,
               pick.uniform(-900, 900)]

    def change(entry):
        return {key: value if key == "type" else {axis: pick.choice(numbers) for axis in "xy"}
                for key, value in entry.items()}

    paths = [circle(0, 0, 1), [move(0, 0), line(0, 0), line(0, 0), CLOSE], [move(0, 0), CLOSE],
             [move(0, 0), line(1, 1)]]
    return [change(entry) for _ in range(pick.randrange(5)) for entry in pick.choice(paths)]


def test_what_the_program_writes_is_read_at_once():
    assert read_written_outline(b"") is EMPTY
    for seed in range(60):
        path = commands(seed)
        text = written_commands(path).encode()
        assert read_written_outline(text) == read_outline(path), seed
        data = b'{"a" : "]", "fontPath" : [%s], "b":[1]}' % text
        rest, outlines = take_outlines(data)
        assert outlines == [text] and json.loads(rest) == {"a": "]", "fontPath": 0, "b": [1]}


TEXT = written_commands([move(1, 2), *circle(1, 2, 3)[1:-1], line(4.5, 5), CLOSE])
OTHER = {
    "other spaces": TEXT.replace('"x" : ', '"x": '),
    "y first": TEXT.replace('"x"', '"z"').replace('"y"', '"x"').replace('"z"', '"y"'),
    "other controls": TEXT.replace("control1", "control0").replace("control2", "control1"),
    "a control too many": TEXT.replace("control2", "control22"),
    "a control without number": TEXT.replace("control2", "control"),
    "another command": TEXT.replace("lineTo", "lineto"),
    "no comma": TEXT.replace("},\n", "}\n", 1),
    "a comma at the end": TEXT.replace("}\n      ", "},\n      "),
    "a positive exponent": TEXT.replace("4.5", "4.5e+14"),
    "a leading zero": TEXT.replace("4.5", "04.5"),
    "no digits after the point": TEXT.replace("4.5", "4."),
    "two numbers": TEXT.replace("4.5", "4 5"),
    "half an exponent": TEXT.replace("4.5", "4.5e-"),
    "no number": TEXT.replace("4.5", ""),
    "not finite": TEXT.replace("4.5", "9" * 400),
    "no start": TEXT.replace("moveTo", "lineTo"),
    "goes on after closing": TEXT.replace("\n      ", ",\n        " + written_commands([line(7, 7)]).strip()),
    "no text": "é",
}


@pytest.mark.parametrize("case", OTHER)
def test_anything_else_is_left_to_the_usual_way(case):
    assert read_written_outline(TEXT.encode()) is not None
    assert OTHER[case] != TEXT and read_written_outline(OTHER[case].encode()) is None
