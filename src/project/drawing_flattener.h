#pragma once

#include "base/result.h"
#include "base/utf8.h"
#include "model/flat_drawing.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// One drawing with many letters.
struct DrawingSheet {
  struct Letter {
    /// What its group, layer or shape is called, as a file of its own would be; empty when it is
    /// called nothing that names a glyph.
    Utf8 name;
    /// In the units of the sheet. The artboard is the box of its ink, until the sheet is placed.
    FlatDrawing drawing;
  };

  /// In the order of the page: by lines, each from left to right.
  std::vector<Letter> letters;
  /// How many of the letters each line has.
  std::vector<std::size_t> lines;
  /// Where horizontal guides and layers of these names lie, from top to bottom.
  struct Guide {
    enum class Kind { baseline, xHeight, capHeight, ascender, descender } kind;
    double y;
  };
  std::vector<Guide> guides;
};

/// Makes one plain path of a drawing that any program wrote. All operations may be called on any
/// thread, on several at once; `file` is the content of a drawing's file, and the error says why it
/// yields nothing, in words.
class DrawingFlattener {
public:
  virtual ~DrawingFlattener() = default;

  virtual Result<FlatDrawing, std::string> flatten(std::string_view file) = 0;
  virtual Result<DrawingSheet, std::string> flattenSheet(std::string_view file) = 0;
};

} // namespace quillery
