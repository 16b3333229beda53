#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// What path data holds, found by one look at every character.
struct PathDataNotes {
  // Commands.
  bool relative = false;
  bool straightAlongAxis = false; ///< H, V
  bool smooth = false;            ///< S
  bool quadratic = false;         ///< Q, T
  bool arcs = false;
  bool linesWithoutLetter = false; ///< pairs behind the first of a move
  // Ways of writing.
  bool numbersWithoutSeparators = false;
  bool exponents = false;
  bool lineBreaks = false; ///< that touch a number, or stand within the numbers of a command
  bool unknownCharacters = false;

  std::size_t moves = 0;

  /// True for data that the plain reader takes as it is meant.
  bool isPlain() const;
  /// What it does not take, in words, the gravest first.
  std::vector<std::string> reasons() const;
};

PathDataNotes notesOnPathData(std::string_view pathData);

} // namespace quillery
