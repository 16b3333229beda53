#pragma once

#include "base/json_writer.h"
#include "base/parallel.h"
#include "model/font_project.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillery {

// What the documents made of a project have in common: members one a line, long lists written by
// several threads, and no number without a JSON form.

/// A member that holds one number, of the font or of a glyph.
template <typename Record> struct NumberMember {
  std::string_view name;
  double Record::*value;
};

/// A member of a glyph that holds a rectangle.
struct BoxMember {
  std::string_view name;
  Rect GlyphRecord::*value;
};

/// The numbers in a document, but for the points of outlines and the kerning values.
struct NumberMembers {
  std::span<const NumberMember<FontInfo>> font;
  std::span<const BoxMember> boxes;
  std::span<const NumberMember<GlyphRecord>> lengths;
};

/// The first place whose number is not finite ("glyphs[3].advanceWidth of glyph \"A\""); empty
/// when there is none. The boxes of a glyph come first: its metrics follow an infinite box.
std::string placeOfNonFinite(const FontProject& project, const NumberMembers& members);

/// Members of a record, all behind the same key up to their name.
template <typename Record>
void writeNumbers(JsonWriter& out, std::string_view key, const Record& record,
                  std::span<const NumberMember<std::type_identity_t<Record>>> members) {
  for (const auto& member : members) {
    out.raw(key);
    out.raw(member.name);
    out.number("\" : ", record.*member.value);
  }
}

/// Items of a list, each on a line of its own that `write(item)` begins with its indentation.
template <typename Items, typename Write>
void writeItems(JsonWriter& out, const Items& items, bool isFirst, Write write) {
  for (const auto& item : items) {
    out.raw(std::exchange(isFirst, false) ? "\n" : ",\n");
    write(item);
  }
}

inline constexpr std::size_t kGlyphsPerPiece = 8;
inline constexpr std::size_t kPairsPerPiece = 256;

/// Hands the pieces of a document to a sink, in their order.
class DocumentWriter {
public:
  /// The sink outlives this.
  explicit DocumentWriter(const ByteSink& sink) : sink_(sink) {}

  /// False when nothing more is wanted: the sink stopped, or a number was not finite.
  bool take(const JsonWriter& piece);
  bool take(std::string_view text);

  /// A list behind `key`, whose items `write(JsonWriter&, item)` writes on any thread, `perPiece`
  /// of them at a time. Pieces of some ten KB are worth a thread's while and fit its cache.
  template <typename Item, typename Write>
  void list(std::string_view key, const std::vector<Item>& items, std::size_t perPiece,
            Write write) {
    take(key);
    take("[");
    produceInOrder((items.size() + perPiece - 1) / perPiece,
                   [&](std::size_t piece) {
                     const std::size_t first = piece * perPiece;
                     const auto some =
                         std::span(items).subspan(first, std::min(perPiece, items.size() - first));
                     JsonWriter out;
                     writeItems(out, some, first == 0, [&](const Item& item) { write(out, item); });
                     return out;
                   },
                   [&](std::size_t, const JsonWriter& piece) { return take(piece); });
    take(items.empty() ? "]" : "\n  ]");
  }

  bool isFinite() const { return finite_; }

private:
  const ByteSink& sink_;
  bool finite_ = true;
  bool goesOn_ = true;
};

} // namespace quillery
