"""The letters that languages of the Latin script need.

Each entry has the letters beyond a to z that everyday text is written with, in lower case;
their capitals belong to them. A language counts as complete when a font has all of them, a to z
and A to Z.
"""

from string import ascii_letters
from unicodedata import normalize


def _vietnamese() -> str:
    """Twelve vowels, plain and with each of five tones, and the crossed d."""
    tones = ["", "\u0300", "\u0301", "\u0303", "\u0309", "\u0323"]
    letters = (normalize("NFC", vowel + tone) for vowel in "aăâeêioôơuưy" for tone in tones)
    return "đ" + "".join(letter for letter in letters if not letter.isascii())


_LETTERS = {
    "Afrikaans": "áèéêëíîïóôúû", "Albanian": "çë", "Azerbaijani": "çəğıİöşü", "Basque": "ñ",
    "Bosnian": "čćđšž", "Catalan": "àçèéíïòóúü·", "Croatian": "čćđšž", "Czech": "áčďéěíňóřšťúůýž",
    "Danish": "åæéø", "Dutch": "áéèëïíóöúü", "English": "", "Esperanto": "ĉĝĥĵŝŭ",
    "Estonian": "äõöšüž", "Faroese": "áæðíóøúý", "Filipino": "ñ", "Finnish": "äåö",
    "French": "àâæçèéêëîïôœùûüÿ", "Galician": "áéíïñóúü", "German": "äößü", "Greenlandic": "åæø",
    "Hausa": "ɓɗƙƴ", "Hungarian": "áéíóöőúüű", "Icelandic": "áæðéíóöþúý", "Indonesian": "",
    "Irish": "áéíóú", "Italian": "àèéìòù", "Latvian": "āčēģīķļņšūž", "Lithuanian": "ąčėęįšūųž",
    "Lower Sorbian": "ćčěłńŕśšźž", "Luxembourgish": "äéëöü", "Malay": "", "Maltese": "àċèġħìòùż",
    "Māori": "āēīōū", "Northern Sámi": "áčđŋšŧž", "Norwegian": "åæéø", "Polish": "ąćęłńóśźż",
    "Portuguese": "àáâãçéêíóôõú", "Romanian": "ăâîșț", "Romansh": "àèéìòù",
    "Scottish Gaelic": "àèìòù", "Slovak": "áäčďéíĺľňóôŕšťúýž", "Slovenian": "čšž", "Somali": "",
    "Spanish": "áéíñóúü¡¿", "Swahili": "", "Swedish": "äåéö", "Turkish": "âçğıİîöşûü",
    "Turkmen": "äçňöşüýž", "Upper Sorbian": "ćčěłńóřšž", "Vietnamese": _vietnamese(),
    "Welsh": "áâäàêëîïôöûŵŷ", "Xhosa": "", "Zulu": "",
}


def letters_of(language: str) -> set[str]:
    """Every letter that text in the language may need, both cases."""
    letters = set(ascii_letters)
    for letter in _LETTERS[language]:
        letters.add(letter)
        if len(letter.upper()) == 1:  # ß has no single capital in everyday text
            letters.add(letter.upper())
    return letters


LANGUAGES = tuple(_LETTERS)
