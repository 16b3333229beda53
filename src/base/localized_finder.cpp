#include "base/unicode.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>

#include <algorithm>

namespace quillery {
namespace {

icu::StringPiece piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

char asciiFolded(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Text whose letters are folded one by one, to ASCII letters.
bool isPlain(std::string_view text, CaseRules rules) {
  return isAscii(text) && !(rules == CaseRules::turkic && text.find('I') != std::string_view::npos);
}

std::string folded(std::string_view text, CaseRules rules) {
  std::string result(text);
  if (isPlain(text, rules)) {
    std::transform(result.begin(), result.end(), result.begin(), asciiFolded);
    return result;
  }
  // Composed before, so that equivalent texts fold alike; composed after, since folding can leave
  // letters and accents that belong together.
  result = composed(replaceInvalidUtf8(text));
  UErrorCode status = U_ZERO_ERROR;
  if (rules == CaseRules::lithuanian) {
    std::string lower;
    icu::StringByteSink<std::string> sink(&lower);
    icu::CaseMap::utf8ToLower("lt", 0, piece(result), sink, nullptr, status);
    result = std::move(lower);
  }
  std::string caseless;
  icu::StringByteSink<std::string> sink(&caseless);
  icu::CaseMap::utf8Fold(rules == CaseRules::turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I
                                                    : U_FOLD_CASE_DEFAULT,
                         piece(result), sink, nullptr, status);
  return composed(caseless);
}

// True where a letter ends and another, or none, begins.
bool isBetweenLetters(std::string_view text, std::size_t offset) {
  if (offset == 0 || offset == text.size() || isAscii(text.substr(offset, 1))) return true;
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
  return nfc->hasBoundaryBefore(static_cast<UChar32>(*firstScalar(text.substr(offset))));
}

} // namespace

CaseRules caseRules(const std::string& language) {
  const icu::Locale locale =
      language.empty() ? icu::Locale::getDefault() : icu::Locale(language.c_str());
  const std::string_view code = locale.getLanguage();
  if (code == "tr" || code == "az") return CaseRules::turkic;
  return code == "lt" ? CaseRules::lithuanian : CaseRules::common;
}

LocalizedFinder::LocalizedFinder(std::string_view needle, CaseRules rules)
    : rules_(rules), needle_(folded(needle, rules)) {}

bool LocalizedFinder::isIn(std::string_view haystack) const {
  // Lists of many thousand names, nearly all of them plain, are searched at every keystroke.
  if (isPlain(haystack, rules_))
    return std::search(haystack.begin(), haystack.end(), needle_.begin(), needle_.end(),
                       [](char straw, char wanted) { return asciiFolded(straw) == wanted; }) !=
               haystack.end() ||
           needle_.empty();
  const std::string text = folded(haystack, rules_);
  for (std::size_t at = text.find(needle_); at != std::string::npos;
       at = text.find(needle_, at + 1))
    if (isBetweenLetters(text, at) && isBetweenLetters(text, at + needle_.size())) return true;
  return false;
}

} // namespace quillery
