#include "font/subroutines.h"

#include "base/parallel.h"
#include "font/cff_numbers.h"
#include "font/repeats.h"

#include <algorithm>
#include <cassert>

namespace quillery::font {

namespace {

constexpr char kReturn = 11, kEndchar = 14, kCallgsubr = 29;

constexpr int kDeepest = 10;
constexpr std::size_t kMostSubroutines = 65000;
// Costs are counted in parts of a byte, for a subroutine's own bytes are shared by its callers.
constexpr std::int32_t kByte = 256;
// More of what begins at a place are not looked at; only patterns of many equal contours have them.
constexpr int kMostBeginnings = 32;
constexpr std::size_t kPartsPerChunk = 2048;
constexpr std::size_t kGlyphsPerChunk = 512;

/// What is subtracted from a subroutine's index where it is called.
int biasOf(std::size_t count) {
  return count < 1240 ? 107 : count < 33900 ? 1131 : 32768;
}

/// The indices of `count` subroutines, those that take the fewest bytes to call first.
std::vector<std::int32_t> cheapestIndices(std::size_t count) {
  std::vector<std::int32_t> indices;
  indices.reserve(count);
  const int bias = biasOf(count);
  for (int size = 1; size <= 3; ++size)
    for (int i = 0; i < static_cast<int>(count); ++i)
      if (encodedSize(i - bias) == size) indices.push_back(i);
  return indices;
}

std::size_t at(std::int32_t index) {
  return static_cast<std::size_t>(index);
}

/// A repeat that is, or might become, a subroutine.
struct Candidate {
  bool alive = true;
  /// How often it is called, and how deep it calls others, itself counted.
  std::int32_t uses = 0;
  int depth = 1;
  /// Bytes of its body with the calls in it, and of a call.
  std::int32_t body = 0;
  std::int32_t call = 3;
  /// What a call counts for while cuts are chosen.
  std::int32_t price = 0;
  std::int32_t index = 0;
  /// The longest one alive that begins it, or is it.
  std::int32_t nearest = kNoRepeat;
};

/// A run of tokens within one glyph: places in the text.
struct Part {
  std::int32_t start;
  std::int32_t end;
};

/// How a part is cut: what is called at a place, if anything.
struct Cutting {
  std::vector<std::int32_t> costs;
  std::vector<std::int32_t> calls;
};

class Sharing {
public:
  explicit Sharing(const Charstrings& charstrings)
      : charstrings_(charstrings), tokens_(findRepeatedTokens(charstrings)),
        repeats_(findRepeats(charstrings, tokens_)), candidates_(repeats_.all.size()) {
    findParts();
    for (std::size_t i = 0; i < candidates_.size(); ++i) {
      const Repeat& repeat = repeats_.all[i];
      candidates_[i].body = bytesBetween(repeat.start, repeat.start + repeat.length);
      candidates_[i].uses = repeat.places;
      byLength_.push_back(static_cast<std::int32_t>(i));
    }
    std::stable_sort(byLength_.begin(), byLength_.end(),
                     [&](std::int32_t a, std::int32_t b) { return lengthOf(a) < lengthOf(b); });
  }

  /// Chooses subroutines: what each costs depends on how often others leave it to be called, so
  /// that cutting and counting take turns.
  void choose() {
    constexpr int kRounds = 3; // more change nothing
    for (int round = 0; round < kRounds; ++round) {
      setPrices(true);
      countUses();
      dropWhatCosts();
    }
    setPrices(false);
    limitDepth();
    countUses();
    dropWhatCosts();
    setPrices(false);
    limitDepth();
    countUses();
  }

  SharedCharstrings write();

private:
  std::int32_t lengthOf(std::int32_t candidate) const { return repeats_.all[at(candidate)].length; }
  /// Bytes of the text's places from `start` to before `end`, in one part.
  std::int32_t bytesBetween(std::int32_t start, std::int32_t end) const {
    return static_cast<std::int32_t>(charstrings_.tokens[tokens_.tokens[at(end) - 1]].end -
                                     charstrings_.tokenStart(tokens_.tokens[at(start)]));
  }
  bool endsGlyph(std::int32_t candidate) const {
    const Repeat& repeat = repeats_.all[at(candidate)];
    const std::uint32_t last = tokens_.tokens[at(repeat.start + repeat.length) - 1];
    return charstrings_.bytes[charstrings_.tokens[last].end - 1] == kEndchar;
  }
  /// Bytes besides the body: the offset to it, and the return.
  std::int32_t upkeep(std::int32_t candidate) const { return endsGlyph(candidate) ? 2 : 3; }

  void findParts();
  void setPrices(bool withBodies);
  void countUses();
  void dropWhatCosts();
  void limitDepth();
  void cut(Part part, std::int32_t whole, Cutting& cutting) const;
  Part bodyOf(std::int32_t candidate) const {
    const Repeat& repeat = repeats_.all[at(candidate)];
    return {repeat.start, repeat.start + repeat.length};
  }
  template <typename Use> std::int32_t walk(Part part, const Cutting& cutting, Use use) const;
  std::vector<std::int32_t> numberUsed();
  void writePart(Part part, const Cutting& cutting, int bias, Bytes& bytes) const;
  struct Glyphs;
  Glyphs writeGlyphs(std::size_t first, std::size_t end, int bias) const;

  const Charstrings& charstrings_;
  RepeatedTokens tokens_;
  Repeats repeats_;
  std::vector<Candidate> candidates_;
  std::vector<std::int32_t> byLength_;
  std::vector<Part> parts_;
};

void Sharing::findParts() {
  const SymbolText& text = tokens_.text;
  std::int32_t start = 0;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(text.size()); ++i) {
    if (text[at(i)] > kPartEnd) continue;
    if (i > start) parts_.push_back({start, i});
    start = i + 1;
  }
}

void Sharing::setPrices(bool withBodies) {
  std::vector<std::int32_t> used;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(candidates_.size()); ++i)
    if (candidates_[at(i)].alive) used.push_back(i);
  std::stable_sort(used.begin(), used.end(), [&](std::int32_t a, std::int32_t b) {
    return candidates_[at(a)].uses > candidates_[at(b)].uses;
  });
  if (used.size() > kMostSubroutines && !withBodies) {
    for (std::size_t i = kMostSubroutines; i < used.size(); ++i)
      candidates_[at(used[i])].alive = false;
    used.resize(kMostSubroutines);
  }
  const std::vector<std::int32_t> indices =
      cheapestIndices(std::min(used.size(), kMostSubroutines));
  const int bias = biasOf(indices.size());
  for (std::size_t i = 0; i < used.size(); ++i) {
    Candidate& candidate = candidates_[at(used[i])];
    candidate.index = indices[std::min(i, indices.size() - 1)];
    candidate.call = encodedSize(candidate.index - bias) + 1;
    candidate.price = candidate.call * kByte;
    if (withBodies)
      candidate.price += (candidate.body + upkeep(used[i])) * kByte / std::max(candidate.uses, 1);
  }
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(candidates_.size()); ++i) {
    const std::int32_t beginning = repeats_.all[at(i)].beginning;
    candidates_[at(i)].nearest = candidates_[at(i)].alive ? i
                                 : beginning != kNoRepeat ? candidates_[at(beginning)].nearest
                                                          : kNoRepeat;
  }
}

// The cheapest way to the end from each place, last place first. A body is not cut into itself.
void Sharing::cut(Part part, std::int32_t whole, Cutting& cutting) const {
  const int deepest = whole == kNoRepeat ? kDeepest : kDeepest - 1;
  const std::size_t size = at(part.end - part.start);
  cutting.costs.resize(size + 1);
  cutting.calls.resize(size);
  cutting.costs[size] = 0;
  for (std::int32_t place = part.end - 1; place >= part.start; --place) {
    const std::size_t i = at(place - part.start);
    std::int32_t best = bytesBetween(place, place + 1) * kByte + cutting.costs[i + 1];
    std::int32_t call = kNoRepeat;
    const std::int32_t longest = repeats_.longest[at(place)];
    std::int32_t candidate = longest == kNoRepeat ? kNoRepeat : candidates_[at(longest)].nearest;
    for (int tries = 0; candidate != kNoRepeat && tries < kMostBeginnings; ++tries) {
      const std::int32_t length = lengthOf(candidate);
      if (place + length <= part.end && candidate != whole &&
          candidates_[at(candidate)].depth <= deepest) {
        const std::int32_t cost = candidates_[at(candidate)].price + cutting.costs[i + at(length)];
        if (cost < best) {
          best = cost;
          call = candidate;
        }
      }
      const std::int32_t beginning = repeats_.all[at(candidate)].beginning;
      candidate = beginning == kNoRepeat ? kNoRepeat : candidates_[at(beginning)].nearest;
    }
    cutting.costs[i] = best;
    cutting.calls[i] = call;
  }
}

/// Tells `use` what a part calls; returns its bytes.
template <typename Use>
std::int32_t Sharing::walk(Part part, const Cutting& cutting, Use use) const {
  std::int32_t bytes = 0;
  for (std::int32_t place = part.start; place < part.end;) {
    const std::int32_t call = cutting.calls[at(place - part.start)];
    bytes += call == kNoRepeat ? bytesBetween(place, place + 1) : candidates_[at(call)].call;
    place += call == kNoRepeat ? 1 : lengthOf(call);
    if (call != kNoRepeat) use(call);
  }
  return bytes;
}

void Sharing::countUses() {
  for (Candidate& candidate : candidates_) candidate.uses = 0;
  produceInOrder((parts_.size() + kPartsPerChunk - 1) / kPartsPerChunk,
                 [&](std::size_t chunk) {
                   std::vector<std::int32_t> called;
                   Cutting cutting;
                   const std::size_t end = std::min(parts_.size(), (chunk + 1) * kPartsPerChunk);
                   for (std::size_t i = chunk * kPartsPerChunk; i < end; ++i) {
                     cut(parts_[i], kNoRepeat, cutting);
                     walk(parts_[i], cutting, [&](std::int32_t call) { called.push_back(call); });
                   }
                   return called;
                 },
                 [&](std::size_t, const std::vector<std::int32_t>& called) {
                   for (const std::int32_t call : called) ++candidates_[at(call)].uses;
                   return true;
                 });
  // What calls a candidate is longer than it.
  Cutting cutting;
  for (std::size_t i = byLength_.size(); i-- > 0;) {
    Candidate& candidate = candidates_[at(byLength_[i])];
    if (!candidate.alive || candidate.uses == 0) continue;
    const Part body = bodyOf(byLength_[i]);
    cut(body, byLength_[i], cutting);
    candidate.body = walk(body, cutting, [&](std::int32_t call) { ++candidates_[at(call)].uses; });
  }
}

void Sharing::dropWhatCosts() {
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(candidates_.size()); ++i) {
    Candidate& candidate = candidates_[at(i)];
    const std::int64_t saved =
        static_cast<std::int64_t>(candidate.uses) * (candidate.body - candidate.call);
    candidate.alive = candidate.alive && saved > candidate.body + upkeep(i);
  }
}

// Shorter ones first, so that how deep they call others is known to those that call them.
void Sharing::limitDepth() {
  Cutting cutting;
  for (const std::int32_t i : byLength_) {
    if (!candidates_[at(i)].alive) continue;
    cut(bodyOf(i), i, cutting);
    int deepest = 0;
    walk(bodyOf(i), cutting,
         [&](std::int32_t call) { deepest = std::max(deepest, candidates_[at(call)].depth); });
    candidates_[at(i)].depth = deepest + 1;
  }
}

/// The subroutines by their index.
std::vector<std::int32_t> Sharing::numberUsed() {
  std::vector<std::int32_t> used;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(candidates_.size()); ++i)
    if (candidates_[at(i)].uses > 0) used.push_back(i);
  std::stable_sort(used.begin(), used.end(), [&](std::int32_t a, std::int32_t b) {
    return candidates_[at(a)].uses > candidates_[at(b)].uses;
  });
  const std::vector<std::int32_t> indices = cheapestIndices(used.size());
  std::vector<std::int32_t> byIndex(used.size());
  for (std::size_t i = 0; i < used.size(); ++i) {
    candidates_[at(used[i])].index = indices[i];
    byIndex[at(indices[i])] = used[i];
  }
  return byIndex;
}

void Sharing::writePart(Part part, const Cutting& cutting, int bias, Bytes& bytes) const {
  for (std::int32_t place = part.start; place < part.end;) {
    const std::int32_t call = cutting.calls[at(place - part.start)];
    if (call == kNoRepeat) {
      const std::uint32_t token = tokens_.tokens[at(place++)];
      const std::size_t start = charstrings_.tokenStart(token);
      bytes.append(charstrings_.bytes, start, charstrings_.tokens[token].end - start);
    } else {
      appendNumber(bytes, candidates_[at(call)].index - bias);
      bytes += kCallgsubr;
      place += lengthOf(call);
    }
  }
}

struct Sharing::Glyphs {
  Bytes bytes;
  std::vector<std::size_t> ends;
};

Sharing::Glyphs Sharing::writeGlyphs(std::size_t first, std::size_t end, int bias) const {
  Glyphs glyphs;
  Cutting cutting;
  auto part = std::partition_point(parts_.begin(), parts_.end(), [&](const Part& before) {
    return tokens_.tokens[at(before.start)] < charstrings_.firstToken(first);
  });
  for (std::size_t glyph = first; glyph < end; ++glyph) {
    std::size_t token = charstrings_.firstToken(glyph);
    const std::size_t last = charstrings_.firstToken(glyph + 1);
    const auto copyTo = [&](std::size_t next) {
      const std::size_t start = charstrings_.tokenStart(token);
      glyphs.bytes.append(charstrings_.bytes, start, charstrings_.tokenStart(next) - start);
    };
    for (; part != parts_.end() && tokens_.tokens[at(part->start)] < last; ++part) {
      copyTo(tokens_.tokens[at(part->start)]);
      cut(*part, kNoRepeat, cutting);
      writePart(*part, cutting, bias, glyphs.bytes);
      token = tokens_.tokens[at(part->end) - 1] + 1;
    }
    copyTo(last);
    glyphs.ends.push_back(glyphs.bytes.size());
  }
  return glyphs;
}

SharedCharstrings Sharing::write() {
  SharedCharstrings shared;
  const std::vector<std::int32_t> subroutines = numberUsed();
  const int bias = biasOf(subroutines.size());
  Cutting cutting;
  Bytes body;
  for (const std::int32_t subroutine : subroutines) {
    body.clear();
    cut(bodyOf(subroutine), subroutine, cutting);
    writePart(bodyOf(subroutine), cutting, bias, body);
    if (!endsGlyph(subroutine)) body += kReturn;
    shared.subroutines.add(body);
  }
  produceInOrder((charstrings_.size() + kGlyphsPerChunk - 1) / kGlyphsPerChunk,
                 [&](std::size_t chunk) {
                   const std::size_t first = chunk * kGlyphsPerChunk;
                   return writeGlyphs(first, std::min(charstrings_.size(), first + kGlyphsPerChunk),
                                      bias);
                 },
                 [&](std::size_t, const Glyphs& glyphs) {
                   const std::string_view bytes = glyphs.bytes;
                   std::size_t start = 0;
                   for (const std::size_t end : glyphs.ends) {
                     shared.charstrings.add(bytes.substr(start, end - start));
                     start = end;
                   }
                   return true;
                 });
  return shared;
}

} // namespace

SharedCharstrings shareSubroutines(const Charstrings& charstrings) {
  Sharing sharing(charstrings);
  sharing.choose();
  return sharing.write();
}

} // namespace quillery::font
