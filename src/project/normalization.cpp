#include "project/normalization.h"

#include "base/console.h"
#include "base/unicode.h"

namespace quillery {
namespace {

// "U+0041 U+0308"
std::string hexList(const std::vector<char32_t>& values) {
  std::string list;
  for (const char32_t value : values) {
    if (!list.empty()) list += ' ';
    list += "U+" + scalarHex(value);
  }
  return list;
}

} // namespace

void normalizeGlyphCharacters(FontProject& project) {
  const LineBatch batch;
  printLine("🔍 Starting unicode normalization check for " + std::to_string(project.glyphs.size()) +
            " glyphs...");
  long long normalizedCount = 0;
  for (Glyph& glyph : project.glyphs) {
    if (!glyph.unicode()) continue;
    const std::string& old = *glyph.unicode();
    const std::vector<char32_t> oldScalars = scalars(old);
    if (glyph.name() == "Adieresis" || glyph.name() == "A")
      printLine("  DEBUG " + glyph.name() + ": unicode=" + hexList(oldScalars) +
                " scalarCount=" + std::to_string(oldScalars.size()));
    if (isAscii(old) && old.size() <= 1) continue;

    const std::string normalized = composed(old);
    const std::vector<char32_t> newScalars = scalars(normalized);
    if (newScalars.size() != oldScalars.size()) {
      printLine("  ⚠️ Normalized '" + glyph.name() + "': " + hexList(oldScalars) + " -> " +
                hexList(newScalars));
      glyph.setUnicode(normalized);
      ++normalizedCount;
      continue;
    }
    const std::string first(firstCharacter(normalized));
    if (first.size() == normalized.size()) continue;
    printLine("  ⚠️ Truncated '" + glyph.name() + "': multi-char to '" + first + "'");
    glyph.setUnicode(first);
  }
  if (normalizedCount == 0) {
    printLine("✅ No unicode normalization needed");
    return;
  }
  printLine("✅ Normalized " + std::to_string(normalizedCount) +
            " unicode values from decomposed to composed form");
  printLine("⚠️  IMPORTANT: Save the project (Cmd+S) to persist these changes!");
}

} // namespace quillery
