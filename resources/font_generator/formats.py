"""The formats of fonts, and what each makes of a drawing. Loads nothing that it need not."""

from .document import Encoder

FORMATS = ("otf", "ttf", "woff", "woff2")


def encoder_for(extension: str) -> Encoder:
    """What makes shapes of drawings for fonts of this format."""
    if extension == "otf":
        from .charstrings import encode_charstring
        return lambda units_per_em: encode_charstring
    from .glyf import Pack, encode_shape
    pack: Pack | None = None
    if extension == "woff2":
        from .woff2 import pack_outline
        pack = pack_outline
    return lambda units_per_em: lambda outline: encode_shape(outline, units_per_em, pack)
