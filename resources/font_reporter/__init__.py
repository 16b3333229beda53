"""Makes a page of HTML about a font: how it looks, what it covers, how true it is to its drawings.

The way through the package: `font_file` reads the exported font and finds its glyphs in the
project, `distances` measures outlines against drawings, `pairs` looks kerning up as a shaper
does, `coverage` and `languages` say which characters are there; `facts` is all of that in one
record. `markup` has what all of the page shares, `samples`, `proof`, `tables` and `page` write
its sections, `style` dresses it. Lengths are font units with y upwards until they reach `markup`.
"""
