#include "font/cff_strings.h"

namespace quillery::font {

namespace {

// Strings that every reader knows by number, from 0 on, as far as they name glyphs of common fonts
// (Adobe Technical Note 5176, appendix A).
constexpr std::string_view kNumberedStrings =
    ".notdef space exclam quotedbl numbersign dollar percent ampersand quoteright parenleft "
    "parenright asterisk plus comma hyphen period slash zero one two three four five six seven "
    "eight nine colon semicolon less equal greater question at A B C D E F G H I J K L M N O P "
    "Q R S T U V W X Y Z bracketleft backslash bracketright asciicircum underscore quoteleft a "
    "b c d e f g h i j k l m n o p q r s t u v w x y z braceleft bar braceright asciitilde "
    "exclamdown cent sterling fraction yen florin section currency quotesingle quotedblleft "
    "guillemotleft guilsinglleft guilsinglright fi fl endash dagger daggerdbl periodcentered "
    "paragraph bullet quotesinglbase quotedblbase quotedblright guillemotright ellipsis "
    "perthousand questiondown grave acute circumflex tilde macron breve dotaccent dieresis ring "
    "cedilla hungarumlaut ogonek caron emdash AE ordfeminine Lslash Oslash OE ordmasculine ae "
    "dotlessi lslash oslash oe germandbls onesuperior logicalnot mu trademark Eth onehalf "
    "plusminus Thorn onequarter divide brokenbar degree thorn threequarters twosuperior "
    "registered minus eth multiply threesuperior copyright Aacute Acircumflex Adieresis Agrave "
    "Aring Atilde Ccedilla Eacute Ecircumflex Edieresis Egrave Iacute Icircumflex Idieresis "
    "Igrave Ntilde Oacute Ocircumflex Odieresis Ograve Otilde Scaron Uacute Ucircumflex "
    "Udieresis Ugrave Yacute Ydieresis Zcaron aacute acircumflex adieresis agrave aring atilde "
    "ccedilla eacute ecircumflex edieresis egrave iacute icircumflex idieresis igrave ntilde "
    "oacute ocircumflex odieresis ograve otilde scaron uacute ucircumflex udieresis ugrave "
    "yacute ydieresis zcaron ";

// Where the numbers of a font's own strings begin.
constexpr std::size_t kFirstOwn = 391;

} // namespace

CffStrings::CffStrings() {
  for (std::size_t start = 0; start < kNumberedStrings.size();) {
    const std::size_t end = kNumberedStrings.find(' ', start);
    const auto number = static_cast<std::uint32_t>(numbers_.size());
    numbers_.emplace(kNumberedStrings.substr(start, end - start), number);
    start = end + 1;
  }
}

std::uint32_t CffStrings::numberOf(std::string_view text) {
  const auto [place, isNew] =
      numbers_.try_emplace(std::string(text), static_cast<std::uint32_t>(kFirstOwn + count_));
  if (isNew) {
    ++count_;
    own_.add(text);
  }
  return place->second;
}

} // namespace quillery::font
