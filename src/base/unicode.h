#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

// All text is UTF-8. Text from outside is checked or mended (isValidUtf8, replaceInvalidUtf8) where
// it enters; the other functions read an invalid sequence as U+FFFD. All may be called on any
// thread. Properties, mappings and boundaries are those of the Unicode version of the ICU library.

bool isValidUtf8(std::string_view bytes);

/// The text with every invalid sequence replaced by U+FFFD.
std::string replaceInvalidUtf8(std::string_view bytes);

/// True for text of U+0000 to U+007F only.
bool isAscii(std::string_view text);

/// The scalar values of the text, in order.
std::vector<char32_t> scalars(std::string_view text);

/// The first scalar value; nothing for empty text.
std::optional<char32_t> firstScalar(std::string_view text);

/// The text of one scalar value.
std::string scalarText(char32_t scalar);

/// The value in upper-case hexadecimal, at least four digits ("00E9", "1F600").
std::string scalarHex(char32_t scalar);

/// True for Unicode scalar values: at most U+10FFFF and no surrogate.
bool isScalarValue(std::uint32_t value);

/// The user-perceived characters (extended grapheme clusters, UAX #29), as views into `text`.
std::vector<std::string_view> characters(std::string_view text);

/// The text split at every line break: line feed, carriage return, vertical tab, form feed, next
/// line, line and paragraph separator. A carriage return and a line feed are two breaks.
std::vector<std::string_view> lines(std::string_view text);

/// The first user-perceived character; empty for empty text.
std::string_view firstCharacter(std::string_view text);

/// Letter: the Alphabetic property.
bool isLetter(char32_t scalar);

/// Letters, marks and numbers (general categories L*, M* and N*).
bool isAlphanumeric(char32_t scalar);

/// What a name can't lose without reading as another: letters, numbers and symbols (general
/// categories L*, N* and S*).
bool isLetterNumberOrSymbol(char32_t scalar);

/// Tab and the space separators (general category Zs); no line breaks.
bool isSpace(char32_t scalar);

/// A mark that takes no room of its own (general category Mn).
bool isNonspacingMark(char32_t scalar);

/// Something to see, or the space: no control or format character, no separator, no private use,
/// nothing unassigned.
bool isPrintable(char32_t scalar);

/// The code of the script that the character belongs to (ISO 15924), as "Latn"; "Zyyy" and "Zinh"
/// for characters of several scripts, "Zzzz" for none.
std::string_view scriptCode(char32_t scalar);

/// The text without spaces (isSpace) at either end.
std::string_view trimSpaces(std::string_view text);

/// Full case mappings, the same in every locale.
std::string lowercased(std::string_view text);
std::string uppercased(std::string_view text);

/// Unicode Normalization Forms C, D and KD.
std::string composed(std::string_view text);
std::string decomposed(std::string_view text);
std::string compatibilityDecomposed(std::string_view text);

/// Order of names: by scalar values after composition, so that all ASCII capitals come before the
/// small letters. Negative, zero or positive.
int compareNames(std::string_view a, std::string_view b);

/// Orders text as a file manager lists files: case and width do not matter, digits count by their
/// value ("glyph2" before "glyph10"), in the user's language.
class DisplayOrder {
public:
  DisplayOrder();
  ~DisplayOrder();
  DisplayOrder(const DisplayOrder&) = delete;
  DisplayOrder& operator=(const DisplayOrder&) = delete;

  /// A key whose byte order is this order; equal keys for text that the order does not tell apart.
  std::string sortKey(std::string_view text) const;

private:
  struct Collator;
  std::unique_ptr<Collator> collator_;
};

/// Which letters differ in nothing but case.
enum class CaseRules {
  common,     ///< all languages but these
  turkic,     ///< Turkish, Azeri: dotless ı has the capital I, and i has İ
  lithuanian, ///< a small i or j keeps its dot below an accent
};

/// The rules of a language, which is named as in "tr" or "tr_TR"; of the user's when none is.
CaseRules caseRules(const std::string& language = {});

/// Finds one text in many, whatever the case of either (full case folding: "ß" is "ss"). Accents
/// and width count. Canonically equivalent texts are the same, and letter and accent are not taken
/// apart: "e" is not in "é", however that is encoded, nor a syllable of two Korean letters in one
/// of three. Half of a letter that folds to two is found ("s" in "ß"). An empty needle is contained
/// in every text.
class LocalizedFinder {
public:
  explicit LocalizedFinder(std::string_view needle, CaseRules rules = caseRules());

  bool isIn(std::string_view haystack) const;

private:
  CaseRules rules_;
  std::string needle_; // folded
};

} // namespace quillery
