#include "base/unicode.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

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

} // namespace quillery
