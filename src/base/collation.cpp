#include "base/unicode.h"

#include <unicode/coll.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>
#include <unicode/usetiter.h>

#include <algorithm>
#include <bitset>
#include <cstring>

namespace quillery {
namespace {

icu::UnicodeString utf16(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::unique_ptr<icu::Collator> userCollator() {
  UErrorCode status = U_ZERO_ERROR;
  // Without a language the system's order is that of bytes, in which case matters.
  const icu::Locale& user = icu::Locale::getDefault();
  const bool bytewise = std::strcmp(user.getVariant(), "POSIX") == 0;
  std::unique_ptr<icu::Collator> collator(
      icu::Collator::createInstance(bytewise ? icu::Locale::getRoot() : user, status));
  // Accents count, case does not.
  if (collator) {
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
  }
  return collator;
}

char asciiLowercased(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

using AsciiSet = std::bitset<128>;

/// The ASCII characters, in lower case, that are more than themselves in the user's language: "c"
/// and "h" where "ch" is a letter, "i" where "I" is not its capital. In most languages there are
/// none, and nothing but case is disregarded in ASCII text.
AsciiSet specialAscii(const icu::Collator& collator) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::UnicodeSet> tailored(collator.getTailoredSet(status));
  const UColAttributeValue punctuation = collator.getAttribute(UCOL_ALTERNATE_HANDLING, status);
  AsciiSet special;
  if (U_FAILURE(status) || punctuation != UCOL_NON_IGNORABLE) return special.set();
  const auto add = [&special](UChar32 c) {
    if (c < 0x80) special.set(static_cast<std::size_t>(asciiLowercased(static_cast<char>(c))));
  };
  for (icu::UnicodeSetIterator each(*tailored); each.nextRange();) {
    if (each.isString()) {
      const icu::UnicodeString& text = each.getString();
      const char16_t* const end = text.getBuffer() + text.length();
      if (std::all_of(text.getBuffer(), end, [](char16_t c) { return c < 0x80; }))
        std::for_each(text.getBuffer(), end, add);
    } else {
      for (UChar32 c = each.getCodepoint(); c <= std::min(each.getCodepointEnd(), 0x7F); ++c)
        add(c);
    }
  }
  return special;
}

bool isPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

} // namespace

struct DisplayOrder::Collator {
  std::unique_ptr<icu::Collator> collator;
};

DisplayOrder::DisplayOrder() : collator_(std::make_unique<Collator>()) {
  collator_->collator = userCollator();
  UErrorCode status = U_ZERO_ERROR;
  if (collator_->collator)
    collator_->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
}

DisplayOrder::~DisplayOrder() = default;

std::string DisplayOrder::sortKey(std::string_view text) const {
  if (!collator_->collator) return std::string(text);
  const icu::UnicodeString source = utf16(text);
  std::string key(text.size() * 2 + 8, '\0');
  for (;;) {
    const auto capacity = static_cast<std::int32_t>(key.size());
    const std::int32_t needed = collator_->collator->getSortKey(
        source, reinterpret_cast<std::uint8_t*>(key.data()), capacity);
    key.resize(static_cast<std::size_t>(needed));
    if (needed <= capacity) return key;
  }
}

struct LocalizedFinder::Search {
  std::string lowercasedNeedle;
  bool isPlain = false; // an ASCII needle that is found in ASCII text byte by byte
  std::unique_ptr<icu::Collator> collator; // used by `search` as long as that lives
  std::unique_ptr<icu::StringSearch> search;
};

LocalizedFinder::LocalizedFinder(std::string_view needle) : search_(std::make_unique<Search>()) {
  search_->lowercasedNeedle = lowercased(needle);
  if (needle.empty()) return; // ICU has no search for nothing
  search_->collator = userCollator();
  static const AsciiSet special =
      search_->collator ? specialAscii(*search_->collator) : AsciiSet().set();
  search_->isPlain =
      isPrintableAscii(needle) && std::none_of(needle.begin(), needle.end(), [](char c) {
        return special.test(static_cast<std::size_t>(asciiLowercased(c)));
      });
  UErrorCode status = U_ZERO_ERROR;
  auto search = std::make_unique<icu::StringSearch>(
      utf16(needle), icu::UnicodeString(u" "),
      dynamic_cast<icu::RuleBasedCollator*>(search_->collator.get()), nullptr, status);
  if (U_SUCCESS(status)) search_->search = std::move(search);
}

LocalizedFinder::~LocalizedFinder() = default;

bool LocalizedFinder::isIn(std::string_view haystack) const {
  if (search_->lowercasedNeedle.empty()) return true;
  if (haystack.empty()) return false;
  // Lists of many thousand names are searched at every keystroke.
  if (search_->isPlain && isPrintableAscii(haystack))
    return std::search(haystack.begin(), haystack.end(), search_->lowercasedNeedle.begin(),
                       search_->lowercasedNeedle.end(), [](char straw, char wanted) {
                         return asciiLowercased(straw) == wanted;
                       }) != haystack.end();
  if (!search_->search)
    return lowercased(haystack).find(search_->lowercasedNeedle) != std::string::npos;
  UErrorCode status = U_ZERO_ERROR;
  search_->search->setText(utf16(haystack), status);
  const std::int32_t at = search_->search->first(status);
  return U_SUCCESS(status) && at != USEARCH_DONE;
}

} // namespace quillery
