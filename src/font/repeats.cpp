#include "font/repeats.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillery::font {

namespace {

/// Numbers for tokens of equal bytes, in a table of the first of each.
class TokenNumbers {
public:
  explicit TokenNumbers(const Charstrings& charstrings)
      : charstrings_(charstrings),
        firsts_(std::bit_ceil(charstrings.tokens.size() * 2 + 1), kNothing) {}

  /// The index of the first token of the same bytes.
  std::uint32_t firstLike(std::uint32_t token) {
    const std::size_t mask = firsts_.size() - 1;
    std::size_t place = charstrings_.tokens[token].hash & mask;
    while (firsts_[place] != kNothing && !same(firsts_[place], token)) place = (place + 1) & mask;
    if (firsts_[place] == kNothing) firsts_[place] = token;
    return firsts_[place];
  }

private:
  static constexpr std::uint32_t kNothing = 0xFFFFFFFF;

  bool same(std::uint32_t a, std::uint32_t b) const {
    if (charstrings_.tokens[a].hash != charstrings_.tokens[b].hash) return false;
    const std::size_t startA = charstrings_.tokenStart(a), startB = charstrings_.tokenStart(b);
    const std::size_t size = charstrings_.tokens[a].end - startA;
    return size == charstrings_.tokens[b].end - startB &&
           std::memcmp(charstrings_.bytes.data() + startA, charstrings_.bytes.data() + startB,
                       size) == 0;
  }

  const Charstrings& charstrings_;
  std::vector<std::uint32_t> firsts_;
};

// The fewest bytes of a call, and those of a subroutine besides its body.
constexpr std::int64_t kCall = 2, kUpkeep = 3;

/// Neighbours in the order of suffixes that begin alike.
struct Interval {
  std::size_t first = 0;
  std::int32_t length = 0;
  /// What stands before all of them; a part's end when they differ.
  std::int32_t before = kPartEnd;
};

struct Found {
  std::size_t first;
  std::size_t last;
  std::int32_t length;
};

} // namespace

RepeatedTokens findRepeatedTokens(const Charstrings& charstrings) {
  const std::size_t count = charstrings.tokens.size();
  constexpr std::int32_t kOnce = -1, kAgain = -2;
  // First of each token which one is the first like it, then the symbol of that.
  std::vector<std::uint32_t> firsts(count);
  std::vector<std::int32_t> symbols(count, kOnce);
  TokenNumbers numbers(charstrings);
  for (std::uint32_t i = 0; i < count; ++i) {
    firsts[i] = i;
    if (charstrings.tokens[i].hash == kOwnToken) continue;
    firsts[i] = numbers.firstLike(i);
    if (firsts[i] != i) symbols[firsts[i]] = kAgain;
  }
  RepeatedTokens result;
  result.symbols = kPartEnd + 1;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::int32_t& symbol = symbols[firsts[i]];
    if (symbol == kAgain) symbol = result.symbols++;
    if (symbol == kOnce && (result.text.empty() || result.text.back() == kPartEnd)) continue;
    result.text.push_back(symbol == kOnce ? kPartEnd : symbol);
    result.tokens.push_back(i);
  }
  result.text.push_back(kTextEnd);
  return result;
}

Repeats findRepeats(const Charstrings& charstrings, const RepeatedTokens& repeated) {
  const SymbolText& text = repeated.text;
  const auto at = [](std::int32_t index) { return static_cast<std::size_t>(index); };
  const std::vector<std::int32_t> order = suffixArray(text, repeated.symbols);
  std::vector<Found> found;
  {
    const std::vector<std::int32_t> common = commonPrefixes(text, order);
    const auto symbolBefore = [&](std::size_t i) {
      return order[i] == 0 ? kPartEnd : text[at(order[i]) - 1];
    };
    const auto saves = [&](const Interval& interval, std::size_t last) {
      const std::size_t token = repeated.tokens[at(order[interval.first])];
      const std::int64_t bytes = charstrings.tokens[token + at(interval.length) - 1].end -
                                 static_cast<std::int64_t>(charstrings.tokenStart(token));
      const auto places = static_cast<std::int64_t>(last - interval.first + 1);
      return places * (bytes - kCall) > bytes + kUpkeep;
    };
    const auto merge = [](Interval& into, const Interval& part) {
      if (into.before != part.before) into.before = kPartEnd;
    };
    std::vector<Interval> open{{}};
    for (std::size_t i = 1; i <= order.size(); ++i) {
      const std::int32_t length = i < order.size() ? common[i] : 0;
      Interval part{i - 1, length, symbolBefore(i - 1)};
      while (open.back().length > length) {
        merge(open.back(), part);
        part = open.back();
        open.pop_back();
        // What the same token precedes everywhere is part of a longer repeat.
        if (part.before == kPartEnd && saves(part, i - 1))
          found.push_back({part.first, i - 1, part.length});
      }
      if (open.back().length == length)
        merge(open.back(), part);
      else
        open.push_back({part.first, length, part.before});
    }
  }
  // From the outside in, each repeat behind those that begin it.
  std::sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
    return a.first != b.first ? a.first < b.first : a.last > b.last;
  });
  Repeats repeats;
  repeats.longest.assign(text.size(), kNoRepeat);
  std::vector<std::int32_t> open;
  std::size_t next = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    while (!open.empty() && found[at(open.back())].last < i) open.pop_back();
    for (; next < found.size() && found[next].first == i; ++next) {
      const auto places = static_cast<std::int32_t>(found[next].last - found[next].first + 1);
      repeats.all.push_back(
          {order[i], found[next].length, places, open.empty() ? kNoRepeat : open.back()});
      open.push_back(static_cast<std::int32_t>(next));
    }
    if (!open.empty()) repeats.longest[at(order[i])] = open.back();
  }
  return repeats;
}

} // namespace quillery::font
