#pragma once

#include <string>

namespace quillery {

/// Why something could not be done, in words for the user.
struct Problem {
  /// A file, a member of a document ("glyphs[3].fontPath[0]"), a place in a text ("line 7, byte
  /// 12") or what was tried ("Could not run /bin/x"). Empty when the whole is meant.
  std::string place;
  std::string reason;

  /// The place, ": " and the reason.
  std::string description() const { return place.empty() ? reason : place + ": " + reason; }
};

} // namespace quillery
