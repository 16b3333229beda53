#pragma once

#include "base/result.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillery {

/// An XML document as a flat list of its elements, in the order of their start tags.
struct XmlTree {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  struct Element {
    /// Without its namespace prefix, as are the names of attributes but for "xml:".
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    /// The characters directly within, up to a few hundred bytes.
    std::string text;
    std::size_t parent = kNone;
    /// One behind the last element within this one.
    std::size_t end = 0;
    /// The bytes of the document from its start tag to the end of its end tag, and where the name
    /// in its start tag ends.
    std::size_t beginByte = 0;
    std::size_t nameEndByte = 0;
    std::size_t endByte = 0;

    /// Empty when there is none.
    std::string_view attribute(std::string_view name) const;
    /// A property of the style attribute, or the attribute of that name; empty when there is none.
    std::string_view style(std::string_view name) const;
  };

  std::vector<Element> elements;

  /// Reads a document; the error says what is wrong with it. Entities that the document declares
  /// are expanded within the parser's own limits, and nothing outside the document is opened.
  static Result<XmlTree, std::string> parse(std::string_view document);
};

/// One property of a style declaration ("fill:red;stroke:none"); empty when there is none.
std::string_view styleProperty(std::string_view declarations, std::string_view name);

/// A text without the white space of XML at its ends.
std::string_view trimmed(std::string_view text);

} // namespace quillery
