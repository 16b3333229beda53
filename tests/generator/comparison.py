"""Says in what two fonts of one description differ, whatever the form in which they store it."""

from collections import defaultdict

import numpy
from font_generator.document import read_document
from font_generator.glyph_set import build_glyph_set
from font_generator.outlines import Outline
from font_reporter.font_file import open_font
from fontTools.misc.arrayTools import calcIntBounds
from fontTools.misc.roundTools import otRound
from fontTools.pens.recordingPen import RecordingPen
from fontTools.ttLib.tables._g_l_y_f import flagOverlapSimple

# What follows from the form of other tables, or what only the process of reading adds.
_FORM = {"tableTag", "checkSumAdjustment", "indexToLocFormat", "glyphOrder", "extraNames", "mapping"}


def differences(one, other, source):
    """One line for each thing in which the font files `one` and `other` of the description in the file `source` differ."""
    files = open_font(str(one)), open_font(str(other))
    fonts = [file.font for file in files]
    facts = [_facts(font) for font in fonts]
    found = []
    for font, said in zip(fonts, facts):
        if "glyf" in font:
            found += _take_out_extents(font, said)
    found += [line for key in sorted(facts[0].keys() | facts[1].keys())
             for line in _difference(key, facts[0].get(key), facts[1].get(key))]
    if fonts[0].getGlyphOrder() != fonts[1].getGlyphOrder():
        return found
    if "CFF " in fonts[0]:
        return found + list(_cubic_differences(*fonts))
    return found + list(_quadratic_differences(files, source))


def _take_out_extents(font, facts):
    """Holds what follows from the controls of quadratic curves, which are each generator's own, against the glyphs
    of the same font."""
    glyf, metrics = font["glyf"], facts.pop("hmtx")
    boxes = {name: calcIntBounds(glyf[name].coordinates) for name in font.getGlyphOrder() if glyf[name].numberOfContours}
    facts["advances"] = {name: advance for name, (advance, _) in metrics.items()}
    rights = [facts["advances"][name] - box[2] for name, box in boxes.items()]
    lefts, bottoms, widest, tops = zip(*boxes.values()) if boxes else [(0,)] * 4
    hhea = facts["hhea"]
    expected = {
        "head": dict(zip(("xMin", "yMin", "xMax", "yMax"), (min(lefts), min(bottoms), max(widest), max(tops)))),
        "hhea": {"minLeftSideBearing": min(lefts), "minRightSideBearing": min(rights + [32767]) if rights else 0,
                 "xMaxExtent": max(widest)},
        "OS/2": {"usWinAscent": max(hhea["ascent"], max(tops), 0), "usWinDescent": max(-hhea["descent"], -min(bottoms), 0)}}
    said = {table: {key: facts[table].pop(key) for key in keys} for table, keys in expected.items()}
    if said != expected:
        yield f"extents: {said} of glyphs that make {expected}"
    wrong = [name for name, (_, bearing) in metrics.items() if bearing != boxes.get(name, [0])[0]]
    if wrong:
        yield f"left side bearings: {wrong[:5]} do not begin where their outlines do"


def _difference(key, one, other):
    if isinstance(one, dict) and isinstance(other, dict):
        missing = "absent"
        parts = [part for part in one.keys() | other.keys() if one.get(part, missing) != other.get(part, missing)]
        if len(parts) > 5:
            yield f"{key}: {len(parts)} entries differ"
        for part in sorted(parts, key=str)[:5]:
            yield f"{key} {part}: {one.get(part, missing)!r} and {other.get(part, missing)!r}"
    elif one != other:
        yield f"{key}: {one!r:.300} and {other!r:.300}"


def _facts(font):
    """All that a font says, by where it says it."""
    facts = {"glyph order": font.getGlyphOrder(), "numGlyphs": font["maxp"].numGlyphs,
             "hmtx": dict(font["hmtx"].metrics),
             "name": {(record.platformID, record.platEncID, record.langID, record.nameID): record.toUnicode()
                      for record in font["name"].names}}
    for tag in ("head", "hhea", "OS/2", "post"):
        facts[tag] = {key: vars(value) if key == "panose" else value
                      for key, value in vars(font[tag]).items() if key not in _FORM}
    for table in font["cmap"].tables:
        mapping = table.cmap if table.format != 14 else {
            (scalar, selector): name or table.cmap.get(scalar)
            for selector, entries in table.uvsDict.items() for scalar, name in entries}
        facts[f"cmap {table.platformID} {table.platEncID}"] = mapping
    for tag, values in (("GPOS", _kerning), ("GSUB", _ligatures)):
        if tag in font:
            facts[tag] = _features(font[tag].table, values)
    if "GDEF" in font:
        facts["GDEF"] = {name: kind for name, kind in font["GDEF"].table.GlyphClassDef.classDefs.items() if kind}
    if "CFF " in font:
        cff = font["CFF "].cff
        top = cff.topDictIndex[0]
        keys = ("version", "FullName", "FamilyName", "isFixedPitch", "ItalicAngle", "FontBBox", "UnderlinePosition")
        facts["CFF"] = {key: getattr(top, key, None) for key in keys} | {
            "name": cff.fontNames, "FontMatrix": [round(number, 9) for number in top.FontMatrix],
            # Widths are told apart from metrics by the readers that know only this table.
            "widths": {name: _width(top, name) for name in font.getGlyphOrder()} == {
                name: advance for name, (advance, _) in font["hmtx"].metrics.items()}}
    else:
        facts["gasp"], facts["prep"] = font["gasp"].gaspRange, font["prep"].program.getBytecode()
    return facts


def _width(top, name):
    charstring = top.CharStrings[name]
    charstring.draw(RecordingPen())
    return charstring.width


def _features(table, values):
    """(script, language, feature, what goes in) -> what comes out, and an entry for each feature."""
    result = {}
    for record in table.ScriptList.ScriptRecord:
        languages = [("dflt", record.Script.DefaultLangSys)]
        languages += [(language.LangSysTag, language.LangSys) for language in record.Script.LangSysRecord]
        for tag, language in languages:
            for index in language.FeatureIndex if language else ():
                feature = table.FeatureList.FeatureRecord[index]
                key = record.ScriptTag, tag, feature.FeatureTag
                result[key] = True
                for number in feature.Feature.LookupListIndex:
                    subtables = [getattr(subtable, "ExtSubTable", subtable)
                                 for subtable in table.LookupList.Lookup[number].SubTable]
                    result |= {(*key, entry): value for entry, value in values(subtables).items() if value}
    return result


def _kerning(subtables):
    """The value of each pair: the first subtable that knows it counts."""
    result, ended = {}, set()
    for subtable in subtables:
        covered = [left for left in subtable.Coverage.glyphs if left not in ended]
        if subtable.Format == 1:
            for left, pair_set in zip(subtable.Coverage.glyphs, subtable.PairSet):
                for record in pair_set.PairValueRecord if left not in ended else ():
                    result.setdefault((left, record.SecondGlyph), record.Value1.XAdvance)
            continue
        rights = defaultdict(list)
        for right, number in subtable.ClassDef2.classDefs.items():
            rights[number].append(right)
        for left in covered:
            row = subtable.Class1Record[subtable.ClassDef1.classDefs.get(left, 0)].Class2Record
            for number, names in rights.items():
                value = getattr(row[number].Value1, "XAdvance", 0)
                for right in names:
                    result.setdefault((left, right), value)
        ended.update(covered)
    return result


def _ligatures(subtables):
    return {(first, *ligature.Component): ligature.LigGlyph for subtable in reversed(subtables)
            for first, ligatures in subtable.ligatures.items() for ligature in reversed(ligatures)}


def _cubic_differences(*fonts):
    """Outlines are the same points, wherever a contour begins and however it is closed."""
    drawn = [font.getGlyphSet() for font in fonts]
    for name in fonts[0].getGlyphOrder():
        contours = [_contours(glyphs[name]) for glyphs in drawn]
        if contours[0] != contours[1]:
            yield f"outline of {name}: {contours[0]!r:.400} and {contours[1]!r:.400}"


def _contours(glyph):
    pen = RecordingPen()
    glyph.draw(pen)
    contours = []
    for kind, points in pen.value:
        if kind == "moveTo":
            contours.append([("lineTo", points)])
        elif points:
            before = contours[-1][-1][1][-1]
            straight = kind == "curveTo" and points[0] == before and points[1] == points[2]
            contours[-1].append(("lineTo", points[-1:]) if straight else (kind, points))
    return [_normalized(contour) for contour in contours]


def _normalized(contour):
    """Every segment with its end, from the least of the rotations."""
    (_, (start,)), *segments = contour
    if segments and segments[-1][1][-1] != start:
        segments.append(("lineTo", (start,)))
    return min(segments[place:] + segments[:place] for place in range(len(segments))) if segments else []


def _quadratic_differences(files, source):
    """Outlines stay as close to the drawing as fonts promise, and keep the points that it names."""
    document = read_document(str(source))
    tolerance = max(document.units_per_em / 4000, 0.25) + 0.7072 + document.units_per_em / 10000
    contours = [file.contours() for file in files]
    for index, glyph in enumerate(build_glyph_set(document).glyphs):
        name, drawn = glyph.name, [fonts[index] for fonts in contours]
        drawing = [contour for contour in glyph.source.outline.contours if Outline([contour]).rounded().contours]
        if len(drawn[0]) != len(drawing) or len(drawn[1]) != len(drawing):
            yield f"outline of {name}: {len(drawn[0])} and {len(drawn[1])} of {len(drawing)} contours"
            continue
        for which, exported in enumerate(drawn):
            for contour, points in zip(drawing, exported):
                ends = {tuple(map(otRound, segment[-2:])) for segment in contour}
                if lost := ends - {segment[-2:] for segment in points}:
                    yield f"outline of {name}: font {which} has lost {sorted(lost)[:5]}"
        if all(len(segment) == 2 for contour in drawing for segment in contour):
            if list(map(_of_lines, drawn[0])) != list(map(_of_lines, drawn[1])):
                yield f"outline of {name}: {drawn[0]!r:.400} and {drawn[1]!r:.400}"
            continue
        for which, exported in enumerate(drawn):
            off = max(_distance(*pair) for pair in zip(exported, drawing))
            if off > tolerance:
                yield f"outline of {name}: font {which} is {off:.3f} units off"
        flags = [file.font["glyf"][name].flags[:1] for file in files]
        if (flags[0] and flags[0][0] & flagOverlapSimple) != (flags[1] and flags[1][0] & flagOverlapSimple):
            yield f"outline of {name}: one font says that it overlaps, the other that it does not"


def _distance(exported, drawing):
    """How far points of an exported contour lie from the drawn one at most."""
    points, line = _flattened(exported, lambda size: 7), _flattened(drawing, lambda size: 64 + int((8 * size) ** 0.5))
    starts, steps = line, numpy.roll(line, -1) - line
    squares = numpy.where(steps == 0, 1, abs(steps) ** 2)
    most = 0.0
    for some in numpy.array_split(points, len(points) // 64 + 1):
        off = some[:, None] - starts
        along = numpy.clip((off * steps.conj()).real / squares, 0, 1)
        most = max(most, abs(off - along * steps).min(axis=1).max())
    return most


def _flattened(contour, count):
    """Points of a contour as complex numbers, of each curve so many as its size counts."""
    result = []
    for before, segment in zip(contour, contour[1:] + [contour[0]]):
        bezier = [complex(*before[-2:]), *(complex(x, y) for x, y in zip(segment[::2], segment[1::2]))]
        steps = count(sum(abs(other - one) for one, other in zip(bezier, bezier[1:]))) if len(bezier) > 2 else 1
        at = numpy.arange(steps) / steps
        while len(bezier) > 1:
            bezier = [one + (other - one) * at for one, other in zip(bezier, bezier[1:])]
        result.append(bezier[0])
    return numpy.concatenate(result)


def _of_lines(contour):
    return _normalized([("lineTo", (point,)) for point in contour])
