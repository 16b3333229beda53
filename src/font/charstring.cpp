#include "font/charstring.h"

#include "font/cff_numbers.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace quillery::font {

namespace {

enum Operator : std::uint8_t {
  vmoveto = 4,
  rlineto = 5,
  hlineto = 6,
  vlineto = 7,
  rrcurveto = 8,
  endchar = 14,
  rmoveto = 21,
  hmoveto = 22,
  rcurveline = 24,
  rlinecurve = 25,
  vvcurveto = 26,
  hhcurveto = 27,
  vhcurveto = 30,
  hvcurveto = 31,
};

constexpr int kImpossible = std::numeric_limits<int>::max() / 2;

std::uint32_t hashOf(const char* begin, const char* end) {
  std::uint32_t hash = 0x811C9DC5;
  for (; begin != end; ++begin) hash = (hash ^ static_cast<unsigned char>(*begin)) * 0x01000193;
  return hash == kOwnToken ? 1 : hash;
}

} // namespace

void Charstrings::append(const Charstrings& others) {
  const auto bytesBefore = static_cast<std::uint32_t>(bytes.size());
  const auto tokensBefore = static_cast<std::uint32_t>(tokens.size());
  bytes += others.bytes;
  for (const CharstringToken& token : others.tokens)
    tokens.push_back({token.end + bytesBefore, token.hash});
  for (const std::uint32_t glyph : others.glyphs) glyphs.push_back(glyph + tokensBefore);
}

void CharstringEncoder::begin(std::string_view own) {
  pen_ = {};
  out_.bytes += own;
  finishToken(true);
}

void CharstringEncoder::end() {
  out_.bytes += static_cast<char>(endchar);
  finishToken(false);
  out_.glyphs.push_back(static_cast<std::uint32_t>(out_.tokens.size()));
}

void CharstringEncoder::contour(const GridOutline& outline, const GridContour& contour) {
  const GridPoint move = contour.start - pen_;
  waitingCount_ = 0;
  if (move.y == 0) {
    operation_ = hmoveto;
    waiting_[waitingCount_++] = move.x;
  } else {
    operation_ = move.x == 0 ? vmoveto : rmoveto;
    if (move.x != 0) waiting_[waitingCount_++] = move.x;
    waiting_[waitingCount_++] = move.y;
  }
  pen_ = contour.start;
  const GridSegment* segments = outline.segments.data() + contour.first;
  const std::size_t count = contour.end - contour.first;
  choose(segments, count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto state = static_cast<State>(chosen_[i]);
    addSegment(segments[i], state, choices_[i][state]);
    pen_ = pen_ + segments[i].toControl1 + segments[i].toControl2 + segments[i].toEnd;
  }
  flush();
}

// The operators of fewest bytes, by the cheapest way to every state behind each segment.
void CharstringEncoder::choose(const GridSegment* segments, std::size_t count) {
  choices_.resize(count);
  chosen_.resize(count);
  std::array<int, stateCount> costs{};
  costs.fill(kImpossible);
  costs[ended] = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const GridSegment& segment = segments[i];
    const auto cheapest =
        static_cast<State>(std::min_element(costs.begin(), costs.end()) - costs.begin());
    std::array<int, stateCount> next{};
    next.fill(kImpossible);
    const auto offer = [&](State state, State before, bool begins, int cost) {
      if (cost >= next[state]) return;
      next[state] = cost;
      choices_[i][state] = {before, begins};
    };
    const auto join = [&](State state, State before, int operands) {
      offer(state, before, false, costs[before] + operands);
    };
    const auto start = [&](State state, int operands) {
      offer(state, cheapest, true, costs[cheapest] + operands + 1);
    };
    const auto [x3, y3] = segment.toEnd;
    const int dx3 = encodedSize(x3), dy3 = encodedSize(y3);
    if (!segment.isCurve) {
      join(lines, lines, dx3 + dy3);
      start(lines, dx3 + dy3);
      join(ended, curves, dx3 + dy3);
      if (y3 == 0) {
        join(afterHorizontal, afterVertical, dx3);
        start(afterHorizontal, dx3);
      } else if (x3 == 0) {
        join(afterVertical, afterHorizontal, dy3);
        start(afterVertical, dy3);
      }
    } else {
      const auto [x1, y1] = segment.toControl1;
      const int dx1 = encodedSize(x1), dy1 = encodedSize(y1);
      const int middle = encodedSize(segment.toControl2.x) + encodedSize(segment.toControl2.y);
      const int all = dx1 + dy1 + middle + dx3 + dy3;
      join(curves, curves, all);
      start(curves, all);
      join(ended, lines, all);
      if (y3 == 0) {
        if (y1 == 0) join(horizontalCurves, horizontalCurves, dx1 + middle + dx3);
        start(horizontalCurves, dx1 + middle + dx3 + (y1 == 0 ? 0 : dy1));
      }
      if (x3 == 0) {
        if (x1 == 0) join(verticalCurves, verticalCurves, dy1 + middle + dy3);
        start(verticalCurves, dy1 + middle + dy3 + (x1 == 0 ? 0 : dx1));
      }
      if (y1 == 0) {
        const State state = x3 == 0 ? verticalNext : ended;
        const int operands = dx1 + middle + dy3 + (x3 == 0 ? 0 : dx3);
        join(state, horizontalNext, operands);
        start(state, operands);
      }
      if (x1 == 0) {
        const State state = y3 == 0 ? horizontalNext : ended;
        const int operands = dy1 + middle + dx3 + (y3 == 0 ? 0 : dy3);
        join(state, verticalNext, operands);
        start(state, operands);
      }
    }
    costs = next;
  }
  auto state =
      static_cast<std::uint8_t>(std::min_element(costs.begin(), costs.end()) - costs.begin());
  for (std::size_t i = count; i-- > 0;) {
    chosen_[i] = state;
    state = choices_[i][state].before;
  }
}

CharstringEncoder::Operands CharstringEncoder::operandsOf(const GridSegment& segment, State state,
                                                          State before, bool begins) {
  const auto [x1, y1] = segment.toControl1;
  const auto [x2, y2] = segment.toControl2;
  const auto [x3, y3] = segment.toEnd;
  switch (state) {
  case afterHorizontal:
    return {{x3}, 1, hlineto};
  case afterVertical:
    return {{y3}, 1, vlineto};
  case horizontalCurves:
    if (y1 != 0) return {{y1, x1, x2, y2, x3}, 5, hhcurveto};
    return {{x1, x2, y2, x3}, 4, hhcurveto};
  case verticalCurves:
    if (x1 != 0) return {{x1, y1, x2, y2, y3}, 5, vvcurveto};
    return {{y1, x2, y2, y3}, 4, vvcurveto};
  case verticalNext:
    return {{x1, x2, y2, y3}, 4, hvcurveto};
  case horizontalNext:
    return {{y1, x2, y2, x3}, 4, vhcurveto};
  default:
    if (!segment.isCurve) return {{x3, y3}, 2, rlineto};
    if (state == curves || (!begins && before == lines))
      return {{x1, y1, x2, y2, x3, y3}, 6, rrcurveto};
    // The last one of curves that begin and end in turn may end in any direction.
    if (begins ? y1 == 0 : before == horizontalNext) return {{x1, x2, y2, y3, x3}, 5, hvcurveto};
    return {{y1, x2, y2, x3, y3}, 5, vhcurveto};
  }
}

void CharstringEncoder::addSegment(const GridSegment& segment, State state, Choice choice) {
  const Operands operands = operandsOf(segment, state, choice.before, choice.begins);
  if (choice.begins || waitingCount_ + operands.count > waiting_.size()) {
    flush();
    operation_ = operands.operation;
  } else if (state == ended && choice.before == lines) {
    operation_ = rlinecurve;
  } else if (state == ended && choice.before == curves) {
    operation_ = rcurveline;
  }
  std::copy_n(operands.numbers.begin(), operands.count, waiting_.begin() + waitingCount_);
  waitingCount_ += operands.count;
}

void CharstringEncoder::flush() {
  for (std::size_t i = 0; i < waitingCount_; ++i) {
    assert(waiting_[i] >= kLeastCoordinate && waiting_[i] <= kGreatestCoordinate);
    appendNumber(out_.bytes, waiting_[i]);
  }
  out_.bytes += static_cast<char>(operation_);
  waitingCount_ = 0;
  finishToken(false);
}

void CharstringEncoder::finishToken(bool own) {
  const std::size_t start = out_.tokens.empty() ? 0 : out_.tokens.back().end;
  const char* bytes = out_.bytes.data();
  out_.tokens.push_back({static_cast<std::uint32_t>(out_.bytes.size()),
                         own ? kOwnToken : hashOf(bytes + start, bytes + out_.bytes.size())});
}

} // namespace quillery::font
