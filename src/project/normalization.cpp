#include "project/normalization.h"

#include "base/console.h"
#include "base/unicode.h"

#include <unordered_set>

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

std::string quoted(const Glyph& glyph) {
  return "glyph '" + glyph.name() + "'";
}

std::string quoted(const KerningPair& pair) {
  return "kerning pair '" + pair.leftGlyph + "/" + pair.rightGlyph + "'";
}

Glyph withId(const Glyph& glyph, const Uuid& id) {
  GlyphRecord record = glyph.record();
  record.id = id;
  return Glyph(std::move(record));
}

KerningPair withId(KerningPair pair, const Uuid& id) {
  pair.id = id;
  return pair;
}

template <typename Item, typename IdOf>
void giveUniqueIdsTo(std::vector<Item>& items, const IdOf& idOf) {
  std::unordered_set<Uuid> taken;
  taken.reserve(items.size());
  for (Item& item : items) {
    if (taken.insert(idOf(item)).second) continue;
    const Uuid fresh = Uuid::random();
    printLine("  ⚠️ New id for " + quoted(item) + ": " + idOf(item).toString() +
              " was taken already");
    item = withId(item, fresh);
    taken.insert(fresh);
  }
}

} // namespace

void giveUniqueIds(FontProject& project) {
  giveUniqueIdsTo(project.glyphs, [](const Glyph& glyph) { return glyph.id(); });
  giveUniqueIdsTo(project.kerningPairs, [](const KerningPair& pair) { return pair.id; });
}

void normalizeGlyphCharacters(FontProject& project) {
  const LineBatch batch;
  printLine("🔍 Starting unicode normalization check for " + std::to_string(project.glyphs.size()) +
            " glyphs...");
  long long normalizedCount = 0;
  for (Glyph& glyph : project.glyphs) {
    if (!glyph.unicode()) continue;
    const Utf8& old = *glyph.unicode();
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
      glyph.setUnicode(Utf8::mended(normalized));
      ++normalizedCount;
      continue;
    }
    const std::string first(firstCharacter(normalized));
    if (first.size() == normalized.size()) continue;
    printLine("  ⚠️ Truncated '" + glyph.name() + "': multi-char to '" + first + "'");
    glyph.setUnicode(Utf8::mended(first));
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
