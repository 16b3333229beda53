#pragma once

#include "project/drawing_flattener.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// What the letters of a sheet are called: as the user said for one of them, else as the sheet
/// calls it, else by the characters that the user typed for all that are called nothing, one after
/// the other in the order of the page. Names are read as file names of drawings are.
class SheetNames {
public:
  explicit SheetNames(const DrawingSheet& sheet);

  std::size_t size() const { return letters_.size(); }
  /// Empty for a letter without a name.
  const Utf8& name(std::size_t letter) const { return letters_[letter].shown; }
  /// The name as a file of the letter's own would have it, so that a letter called by one
  /// character stands for that character, whichever it is.
  Utf8 fileName(std::size_t letter) const;
  /// Empty lets the letter be called as if nothing had been said.
  void setName(std::size_t letter, Utf8 name);
  /// Spaces are passed over, and so are characters beyond the last letter.
  void setCharacters(std::string_view characters);

  std::size_t namedCount() const;
  /// Letters whose glyph another one before them makes already, so that it would be replaced.
  std::size_t repeatedCount() const;

private:
  struct Letter {
    Utf8 own;
    Utf8 said;
    Utf8 shown;
  };
  void nameAgain();

  std::vector<Letter> letters_;
  std::vector<Utf8> characters_;
};

} // namespace quillery
