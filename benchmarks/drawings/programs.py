"""Letters and plots as other programs write them: one function a program, which writes at most 50
drawings into a folder. Each draws in several ways by turns, as people do."""

import io
import math
import os
import subprocess

from letters import LETTERS

SIZE = 120  # of a page, in the program's unit
TIME = 120  # seconds that a program may take for all of its drawings


def potrace(folder):
    from PIL import Image, ImageDraw, ImageFont

    for letter in LETTERS:
        image = Image.new("1", (640, 640), 1)
        font = ImageFont.truetype(letter.file, 440)
        ImageDraw.Draw(image).text((120, 40), letter.character, font=font, fill=0)
        bitmap = io.BytesIO()
        image.save(bitmap, "PPM")
        subprocess.run(["potrace", "-b", "svg", "-o", folder / f"{letter.name}.svg", "-"],
                       input=bitmap.getvalue(), check=True, timeout=TIME)


def _cairo_letter(context, letter):
    """One letter on a cairo page, in one of five ways."""
    import cairo

    slant = cairo.FONT_SLANT_ITALIC if letter.style == "Italic" else cairo.FONT_SLANT_NORMAL
    bold = letter.style in ("Bold", "Black")
    context.select_font_face(letter.family, slant,
                             cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL)
    context.set_font_size(90)
    context.move_to(20, 90)
    way = letter.index % 5
    if way == 0:
        context.show_text(letter.character)
        return
    if way == 4:
        context.arc(60, 60, 58, 0, 2 * math.pi)
        context.fill()
        context.set_source_rgb(1, 1, 1)
        context.move_to(30, 85)
        context.set_font_size(70)
    context.text_path(letter.character)
    if way == 1:
        context.set_fill_rule(cairo.FILL_RULE_EVEN_ODD)
        context.fill()
    elif way == 2:
        context.scale(1.5, 0.8)
        context.set_line_width(4)
        context.set_line_join(cairo.LINE_JOIN_ROUND)
        context.stroke()
    elif way == 3:
        context.clip()
        for row in range(0, 120, 12):
            context.rectangle(0, row, 120, 8)
        context.fill()
    else:
        context.fill()
        context.set_source_rgb(0, 0, 0)
        context.set_dash([9, 5], 3)
        context.set_line_cap(cairo.LINE_CAP_ROUND)
        context.arc(60, 60, 50, 0.3, 2 * math.pi)
        context.stroke()


def cairo(folder):
    import cairo as library

    for letter in LETTERS:
        with library.SVGSurface(str(folder / f"{letter.name}.svg"), SIZE, SIZE) as surface:
            _cairo_letter(library.Context(surface), letter)


def poppler(folder):
    import cairo as library

    for letter in LETTERS:
        page = folder / f"{letter.name}.pdf"
        if letter.index % 2:
            with library.PDFSurface(str(page), SIZE, SIZE) as surface:
                _cairo_letter(library.Context(surface), letter)
        else:
            _matplotlib_letter(letter, page)
        subprocess.run(["pdftocairo", "-svg", page, page.with_suffix(".svg")], check=True,
                       timeout=TIME)
        page.unlink()


def qt(folder):
    os.environ["QT_QPA_PLATFORM"] = "offscreen"
    from PyQt6.QtCore import QPointF, QRectF, Qt
    from PyQt6.QtGui import QColor, QFont, QGuiApplication, QPainter, QPainterPath, QPen
    from PyQt6.QtSvg import QSvgGenerator

    application = QGuiApplication([])
    for letter in LETTERS:
        generator = QSvgGenerator()
        generator.setFileName(str(folder / f"{letter.name}.svg"))
        generator.setViewBox(QRectF(0, 0, SIZE, SIZE))
        font = QFont(letter.family)
        font.setStyleName(letter.style)
        font.setPixelSize(90)
        path = QPainterPath()
        path.addText(QPointF(20, 90), font, letter.character)
        painter = QPainter(generator)
        way = letter.index % 5
        if way == 0:
            painter.fillPath(path, Qt.GlobalColor.black)
        elif way == 1:
            pen = QPen(QColor("navy"), 5, Qt.PenStyle.SolidLine, Qt.PenCapStyle.FlatCap,
                       Qt.PenJoinStyle.MiterJoin)
            painter.strokePath(path, pen)
        elif way == 2:
            painter.setFont(font)
            painter.drawText(QPointF(20, 90), letter.character)
        elif way == 3:
            painter.translate(60, 60)
            painter.rotate(20)
            painter.shear(0.3, 0)
            painter.translate(-60, -60)
            painter.fillPath(path, QColor("darkred"))
            painter.setPen(QPen(Qt.GlobalColor.black, 3, Qt.PenStyle.DashLine))
            painter.drawEllipse(QRectF(10, 10, 100, 100))
        else:
            painter.fillRect(QRectF(0, 0, SIZE, SIZE), Qt.GlobalColor.white)
            painter.setBrush(Qt.GlobalColor.black)
            painter.drawRoundedRect(QRectF(4, 4, 112, 112), 20, 20)
            painter.fillPath(path, Qt.GlobalColor.white)
        painter.end()
    del application


def fontforge(folder):
    import fontforge as library

    for letter in LETTERS:
        font = library.open(letter.file)
        font[ord(letter.character)].export(str(folder / f"{letter.name}.svg"))
        font.close()


def _pyplot():
    import matplotlib

    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "drawings", "svg.fonttype": "path"})
    from matplotlib import pyplot

    return pyplot


def _matplotlib_letter(letter, target):
    pyplot = _pyplot()
    figure = pyplot.figure(figsize=(2, 2))
    figure.text(0.2, 0.2, letter.character, fontproperties={"fname": letter.file}, size=100)
    figure.savefig(target, metadata={"CreationDate" if target.suffix == ".pdf" else "Date": None})
    pyplot.close(figure)


def _plot(axes, number):
    """One of eight kinds of plot."""
    import numpy

    made = numpy.random.default_rng(number)
    x = numpy.linspace(0, 6, 30)
    y = numpy.sin(x + number) + made.normal(0, 0.1, 30)
    kind = number % 8
    if kind == 0:
        axes.plot(x, y, "o--", lw=2)
    elif kind == 1:
        axes.bar(range(6), made.uniform(1, 5, 6), hatch="//", edgecolor="black")
    elif kind == 2:
        axes.fill_between(x, y - 0.3, y + 0.3, alpha=0.4)
        axes.plot(x, y, label="sine")
        axes.legend()
    elif kind == 3:
        axes.contourf(made.normal(0, 1, (8, 8)))
    elif kind == 4:
        axes.pie(made.uniform(1, 5, 5), labels=list("abcde"), explode=[0.1] * 5)
    elif kind == 5:
        axes.scatter(x, y, s=made.uniform(5, 90, 30), marker="^")
        axes.grid(True)
    elif kind == 6:
        axes.hist(made.normal(0, 1, 200), bins=12, histtype="step")
        axes.set_title(r"$\sum_{i=0}^n x_i^2$")
    else:
        axes.step(x, y, color="black")
        axes.annotate("here", (3, 0), (4, 0.8), arrowprops={"arrowstyle": "->"})


def matplotlib(folder):
    pyplot = _pyplot()
    for letter in LETTERS[:25]:
        _matplotlib_letter(letter, folder / f"{letter.name}.svg")
    for number in range(25):
        figure, axes = pyplot.subplots(figsize=(3, 3))
        _plot(axes, number)
        figure.savefig(folder / f"plot_{number:02}.svg", metadata={"Date": None})
        pyplot.close(figure)
