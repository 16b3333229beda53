#pragma once

#include "base/result.h"
#include "font/bytes.h"
#include "font/description.h"

#include <string>

namespace quillery::font {

/// How the font is called. The words of weight and slope at the end of a project's name are its
/// style; the family keeps at least one word.
struct Naming {
  enum class Slope { upright, italic, oblique };

  std::string family;
  /// "Regular" for the plain one.
  std::string style;
  /// As in an OS/2 table.
  int weight = 400;
  int width = 5;
  Slope slope = Slope::upright;
  /// Below 32767, of three decimals at most.
  double revision = 1;
  /// ASCII letters and digits with one hyphen, 63 at most.
  std::string postscript;

  bool bold() const { return weight == 700; }
  std::string full() const { return style == "Regular" ? family : family + " " + style; }
  /// The revision with its three decimals.
  std::string version() const;
};

Naming parseNaming(const std::string& projectName, const std::string& version);

/// The name table: Windows records only, none of them empty. Programs that know four styles a
/// family find any other style as a family of its own (names 1 and 2); the family as it is stands
/// in 16 and 17 then. Fails when the texts are longer than the table's offsets reach.
Result<Table, FontError> makeNameTable(const FontDescription& description, const Naming& naming);

} // namespace quillery::font
