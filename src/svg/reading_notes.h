#pragma once

#include "model/outline.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// What the reader does not take from a drawing as it was meant.
struct ReadingNotes {
  /// In words, the gravest first: "relative commands", "2 further shapes", "a transform". Empty for
  /// a drawing that the reader takes whole.
  std::vector<std::string> reasons;

  /// "relative commands, 2 further shapes".
  std::string inWords() const;
};

/// Looks through the content of a drawing's file. Linear time; entities are not expanded and
/// nothing that the drawing names is opened. May be called on any thread.
ReadingNotes notesOnReading(std::string_view svg);

/// True for most drawings on which there is nothing to note, for a fraction of the time. `pathData`
/// is what the reader takes of it, and `outline` what readPlainPath made of that.
bool hasNothingToNote(std::string_view svg, std::string_view pathData, const Outline& outline);

} // namespace quillery
