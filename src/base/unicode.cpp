#include "base/unicode.h"

#include <simdjson.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cassert>
#include <cstring>

namespace quillery {
namespace {

icu::StringPiece piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

// Calls `visit` with every scalar and the offset behind it, until it returns false.
template <typename Visit> void forEachScalar(std::string_view text, Visit visit) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  std::size_t i = 0;
  while (i < text.size()) {
    UChar32 c;
    U8_NEXT_OR_FFFD(bytes, i, text.size(), c);
    if (!visit(static_cast<char32_t>(c), i)) return;
  }
}

struct CloseBreaks {
  void operator()(UBreakIterator* breaks) const { ubrk_close(breaks); }
};

// One break iterator a thread: opening one costs more than splitting a file name.
UBreakIterator* characterBreaks(UText* text) {
  thread_local const std::unique_ptr<UBreakIterator, CloseBreaks> breaks = [] {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<UBreakIterator, CloseBreaks>(
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
  }();
  UErrorCode status = U_ZERO_ERROR;
  ubrk_setUText(breaks.get(), text, &status);
  assert(U_SUCCESS(status));
  return breaks.get();
}

// Calls `visit` with every user-perceived character, until it returns false.
template <typename Visit> void forEachCharacter(std::string_view text, Visit visit) {
  UErrorCode status = U_ZERO_ERROR;
  UText* wrapped =
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
  UBreakIterator* breaks = characterBreaks(wrapped);
  std::int32_t begin = ubrk_first(breaks);
  for (std::int32_t end = ubrk_next(breaks); end != UBRK_DONE; end = ubrk_next(breaks)) {
    if (!visit(text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin))))
      break;
    begin = end;
  }
  utext_close(wrapped);
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
  return simdjson::validate_utf8(bytes.data(), bytes.size());
}

std::string replaceInvalidUtf8(std::string_view bytes) {
  if (isValidUtf8(bytes)) return std::string(bytes);
  std::string text;
  forEachScalar(bytes, [&](char32_t scalar, std::size_t) {
    text += scalarText(scalar);
    return true;
  });
  return text;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<signed char>(c) >= 0; });
}

std::vector<char32_t> scalars(std::string_view text) {
  std::vector<char32_t> result;
  forEachScalar(text, [&](char32_t scalar, std::size_t) {
    result.push_back(scalar);
    return true;
  });
  return result;
}

std::optional<char32_t> firstScalar(std::string_view text) {
  std::optional<char32_t> first;
  forEachScalar(text, [&](char32_t scalar, std::size_t) {
    first = scalar;
    return false;
  });
  return first;
}

std::string scalarText(char32_t scalar) {
  std::uint8_t bytes[U8_MAX_LENGTH];
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, static_cast<std::uint32_t>(scalar));
  return {reinterpret_cast<const char*>(bytes), length};
}

std::string scalarHex(char32_t scalar) {
  std::string hex;
  for (auto value = static_cast<std::uint32_t>(scalar); value != 0 || hex.size() < 4; value >>= 4)
    hex.insert(hex.begin(), "0123456789ABCDEF"[value & 0x0F]);
  return hex;
}

bool isScalarValue(std::uint32_t value) {
  return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> result;
  if (isAscii(text) && text.find('\r') == std::string_view::npos) {
    // Nothing joins two ASCII characters but a line break of two.
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) result.push_back(text.substr(i, 1));
    return result;
  }
  forEachCharacter(text, [&](std::string_view character) {
    result.push_back(character);
    return true;
  });
  return result;
}

std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> result;
  std::size_t begin = 0;
  std::size_t before = 0;
  forEachScalar(text, [&](char32_t scalar, std::size_t after) {
    const bool isBreak = (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 ||
                         scalar == 0x2029;
    if (isBreak) {
      result.push_back(text.substr(begin, before - begin));
      begin = after;
    }
    before = after;
    return true;
  });
  result.push_back(text.substr(begin));
  return result;
}

std::string_view firstCharacter(std::string_view text) {
  if (text.size() == 1) return text;
  if (text.size() > 1 && isAscii(text.substr(0, 2)) && text[0] != '\r') return text.substr(0, 1);
  std::string_view first;
  forEachCharacter(text, [&](std::string_view character) {
    first = character;
    return false;
  });
  return first;
}

bool isLetter(char32_t scalar) {
  return u_isUAlphabetic(static_cast<UChar32>(scalar));
}

bool isAlphanumeric(char32_t scalar) {
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) &
          (U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK)) != 0;
}

bool isLetterNumberOrSymbol(char32_t scalar) {
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) &
          (U_GC_L_MASK | U_GC_N_MASK | U_GC_S_MASK)) != 0;
}

bool isSpace(char32_t scalar) {
  return scalar == U'\t' || u_charType(static_cast<UChar32>(scalar)) == U_SPACE_SEPARATOR;
}

bool isNonspacingMark(char32_t scalar) {
  return u_charType(static_cast<UChar32>(scalar)) == U_NON_SPACING_MARK;
}

bool isPrintable(char32_t scalar) {
  return scalar == U' ' ||
         (U_GET_GC_MASK(static_cast<UChar32>(scalar)) &
          (U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK | U_GC_P_MASK | U_GC_S_MASK)) != 0;
}

std::string_view scriptCode(char32_t scalar) {
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(static_cast<UChar32>(scalar), &status);
  const char* code = U_SUCCESS(status) ? uscript_getShortName(script) : nullptr;
  return code != nullptr ? code : "Zzzz";
}

std::string_view trimSpaces(std::string_view text) {
  const auto isPlain = [](char c) { return c > ' ' && c != 0x7F; };
  if (text.empty() || (isPlain(text.front()) && isPlain(text.back()))) return text;
  std::size_t begin = text.size();
  std::size_t end = 0;
  std::size_t before = 0;
  forEachScalar(text, [&](char32_t scalar, std::size_t after) {
    if (!isSpace(scalar)) {
      begin = std::min(begin, before);
      end = after;
    }
    before = after;
    return true;
  });
  return begin < end ? text.substr(begin, end - begin) : std::string_view();
}

std::string lowercased(std::string_view text) {
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
  return result;
}

std::string uppercased(std::string_view text) {
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToUpper("", 0, piece(text), sink, nullptr, status);
  return result;
}

namespace {

std::string normalized(std::string_view text, const icu::Normalizer2* (*form)(UErrorCode&)) {
  if (isAscii(text)) return std::string(text);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = form(status);
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  normalizer->normalizeUTF8(0, piece(text), sink, nullptr, status);
  return result;
}

} // namespace

std::string composed(std::string_view text) {
  return normalized(text, icu::Normalizer2::getNFCInstance);
}

std::string decomposed(std::string_view text) {
  return normalized(text, icu::Normalizer2::getNFDInstance);
}

std::string compatibilityDecomposed(std::string_view text) {
  return normalized(text, icu::Normalizer2::getNFKDInstance);
}

int compareNames(std::string_view a, std::string_view b) {
  // UTF-8 keeps the order of scalar values byte by byte.
  if (isAscii(a) && isAscii(b)) return a.compare(b);
  return composed(a).compare(composed(b));
}

} // namespace quillery
