"""The font report: what it measures is true, and what it writes is one harmless page."""

import json
import math
import re
from html.parser import HTMLParser

import pytest
from conftest import FORMATS, run_generator
from drawings import box, circle, document, glyph, hard_project, pair
from font_generator.command import GeneratorError
from font_generator.document import read_document
from font_reporter.cli import make_report
from font_reporter.facts import collect


@pytest.fixture
def report(tmp_path):
    """Makes a font of a document and the report on it; returns the facts and the page."""
    def run(project, extension="ttf"):
        source, font, page = tmp_path / "d.json", tmp_path / f"f.{extension}", tmp_path / "r.html"
        source.write_text(json.dumps(project, ensure_ascii=False), encoding="utf-8")
        assert run_generator("script", source, font, "--brotli-quality", "4").status == 0
        make_report(str(source), str(font), str(page))
        facts = collect(read_document(str(source)), str(font))
        return facts, page.read_text(encoding="utf-8")
    return run


@pytest.mark.parametrize("extension", FORMATS)
def test_fonts_of_hard_drawings_are_true_to_them(report, extension):
    facts, page = report(hard_project(), extension)
    lost = {entry.name for entry in facts.glyphs if math.isinf(entry.distance.length)}
    assert lost == {"tiny"} and 0.05 < facts.worst < 1
    assert ("tiny", "its drawing is too small for the font's units, so it shows nothing") in facts.warnings
    assert [pair.value for pair in facts.pairs] == [pair.wanted for pair in facts.pairs] != []
    assert f"data:font/{extension};base64," in page and page.count("<figure>") > len(facts.glyphs)


class _Page(HTMLParser):
    """Checks that tags nest, and collects their names and attributes."""

    def __init__(self, page):
        super().__init__()
        self.open, self.tags, self.attributes = [], set(), {}
        self.feed(page)
        self.close()

    def handle_starttag(self, tag, attributes):
        self.tags.add(tag)
        for name, value in attributes:
            self.attributes.setdefault(name, set()).add(value)
        if tag not in ("meta", "br"):
            self.open.append(tag)

    def handle_startendtag(self, tag, attributes):
        self.tags.add(tag)

    def handle_endtag(self, tag):
        assert self.open.pop() == tag


EVIL = '</title><script>alert(1)</script>"\'><img src=x onerror=y>&\u202e\x00'


def test_texts_of_a_project_stay_texts(report):
    project = document([glyph(EVIL, "A", circle(300, 300, 200)), glyph(EVIL + "2", "<", box(0, 0, 9, 9))],
                       [pair(EVIL, EVIL + "2", -50)], name=EVIL, designer=EVIL, copyright=EVIL, version=EVIL)
    _, html = report(project)
    page = _Page(html)
    assert page.open == [] and not page.tags & {"script", "img", "link", "iframe"}
    assert not {"onerror", "onload", "src", "href"} & set(page.attributes)
    assert "&lt;script&gt;" in html and "\u202e" not in html and "\x00" not in html
    assert not re.search(r"https?://", html)


@pytest.mark.parametrize("project", [document(), document([glyph("", None)], name=" "),
                                     document([glyph("acute", "\u0301", box(0, 0, 9, 9))], ascender=0, descender=0)])
def test_a_project_of_hardly_anything_has_a_report(report, project):
    _, html = report(project, "otf")
    assert _Page(html).open == []


def test_what_can_not_be_reported_is_refused_in_one_sentence(tmp_path):
    good, other = document([glyph("A", "A", box(0, 0, 9, 9))]), document([glyph("B", "B", box(0, 0, 9, 9))])
    for name, project in (("good", good), ("other", other)):
        (tmp_path / f"{name}.json").write_text(json.dumps(project))
        run_generator("script", tmp_path / f"{name}.json", tmp_path / f"{name}.otf")
    (tmp_path / "cut.otf").write_bytes((tmp_path / "good.otf").read_bytes()[:400])
    (tmp_path / "text.otf").write_text("no font")
    page = tmp_path / "report.html"
    page.write_text("the old page")
    for font, words in {"other.otf": "not made from this project", "cut.otf": "damaged", "absent.otf": "cannot be read",
                        "text.otf": "not a font"}.items():
        with pytest.raises(GeneratorError) as refusal:
            make_report(str(tmp_path / "good.json"), str(tmp_path / font), str(page))
        assert words in str(refusal.value) and "\n" not in str(refusal.value)
    assert page.read_text() == "the old page"
    assert not [entry for entry in tmp_path.iterdir() if entry.suffix == ".part"]
