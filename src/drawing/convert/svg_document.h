#pragma once

#include "base/geometry.h"
#include "base/result.h"
#include "base/utf8.h"
#include "drawing/convert/matrix.h"
#include "drawing/convert/xml_tree.h"
#include "model/flat_drawing.h"
#include "project/drawing_flattener.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

/// An SVG document as far as it must be understood before it is drawn: its page, its guides, what
/// is called what.
class SvgDocument {
public:
  /// Reads UTF-8, UTF-16 and what the XML parser knows besides, also when it was compressed.
  static Result<SvgDocument, std::string> parse(std::string_view file);

  /// The page in pixels of 1/96 inch; nothing when the document says nothing of its size.
  const std::optional<Size>& size() const { return size_; }
  /// From pixels of the page, whose corner is (0, 0), to the document's own units.
  const Matrix& userFromPixels() const { return userFromPixels_; }

  /// Something named "baseline" or like another line that letters are set by. It is no ink.
  struct GuideLayer {
    DrawingSheet::Guide::Kind kind;
    std::size_t element;
  };
  const std::vector<GuideLayer>& guideLayers() const { return guideLayers_; }
  /// Guides of the drawing program itself, in the document's units.
  const std::vector<DrawingSheet::Guide>& guides() const { return guides_; }

  /// What the letters of a sheet may be: the outermost groups, layers and shapes that are called
  /// something that names a glyph, and the outermost drawn things besides.
  struct Part {
    std::size_t element;
    Utf8 name; ///< empty when it is called nothing of that kind
  };
  std::vector<Part> parts() const;

  /// What of the document can't be drawn as ink, in words.
  const std::vector<Utf8>& notes() const { return notes_; }
  bool hasText() const { return hasText_; }

  /// The document in a page of its own, `margin` pixels larger on every side, that hides nothing
  /// that lies beside the drawing's page. Guide layers are cut out, unless they are asked for.
  /// The elements `named` can be referred to.
  std::string framed(Size page, double margin, const std::vector<std::size_t>& named = {},
                     bool withGuideLayers = false) const;

  /// "#id" of an element that `framed` was told to name.
  std::string reference(std::size_t element) const;

private:
  const XmlTree::Element& root() const { return tree_.elements.front(); }
  void readSize();
  void readGuides();
  void readNotes();
  Utf8 glyphFileName(std::size_t element) const;

  std::string text_;
  XmlTree tree_;
  std::optional<Size> size_;
  Matrix userFromPixels_;
  std::vector<GuideLayer> guideLayers_;
  std::vector<DrawingSheet::Guide> guides_;
  std::vector<Utf8> notes_;
  bool hasText_ = false;
};

} // namespace quillery
