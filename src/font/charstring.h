#pragma once

#include "font/bytes.h"
#include "font/rounded_outline.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillery::font {

/// An operator of a charstring with its operands: where it ends, and a hash of it.
struct CharstringToken {
  std::uint32_t end = 0;
  std::uint32_t hash = 0;
};

/// The hash of what belongs to one glyph alone, its width and hints: no subroutine has it.
inline constexpr std::uint32_t kOwnToken = 0;

/// The charstrings of glyphs, one behind the other. Each begins with a token of its own, which may
/// be empty.
struct Charstrings {
  Bytes bytes;
  std::vector<CharstringToken> tokens;
  /// Where each glyph's tokens end.
  std::vector<std::uint32_t> glyphs;

  std::size_t size() const { return glyphs.size(); }
  std::size_t firstToken(std::size_t glyph) const { return glyph == 0 ? 0 : glyphs[glyph - 1]; }
  std::size_t tokenStart(std::size_t token) const { return token == 0 ? 0 : tokens[token - 1].end; }
  /// The bytes of a glyph are these to before `glyphStart(glyph + 1)`.
  std::size_t glyphStart(std::size_t glyph) const { return tokenStart(firstToken(glyph)); }

  void append(const Charstrings& others);
};

/// Writes outlines as Type 2 charstrings (Adobe Technical Note 5177) of as few bytes as the path
/// operators allow. A contour is written alike wherever it stands and whatever stands before it.
class CharstringEncoder {
public:
  /// What is written goes to the end of `charstrings`, which outlives the encoder.
  explicit CharstringEncoder(Charstrings& charstrings) : out_(charstrings) {}

  /// Begins a glyph: `own` is what precedes its first operator, the width.
  void begin(std::string_view own);
  void contour(const GridOutline& outline, const GridContour& contour);
  void end();

private:
  /// What is open after a segment: an operator that other segments of some kind may join.
  enum State : std::uint8_t {
    lines,
    afterHorizontal, // of lines that are horizontal and vertical in turn
    afterVertical,
    curves,
    horizontalCurves, // that begin and end horizontally
    verticalCurves,
    horizontalNext, // of curves that begin and end in turn
    verticalNext,
    ended,
    stateCount
  };
  struct Choice {
    State before = ended;
    bool begins = true; // with an operator of its own
  };
  using Choices = std::array<Choice, stateCount>;
  /// A segment as operands of an operator.
  struct Operands {
    std::array<int, 6> numbers;
    std::size_t count;
    std::uint8_t operation; // if nothing is waiting for its operator
  };

  void choose(const GridSegment* segments, std::size_t count);
  static Operands operandsOf(const GridSegment& segment, State state, State before, bool begins);
  void addSegment(const GridSegment& segment, State state, Choice choice);
  void flush();
  void finishToken(bool own);

  Charstrings& out_;
  GridPoint pen_;
  std::vector<Choices> choices_;
  std::vector<std::uint8_t> chosen_;
  std::array<int, 48> waiting_{};
  std::size_t waitingCount_ = 0;
  std::uint8_t operation_ = 0;
};

} // namespace quillery::font
