#include "drawing/convert/xml_tree.h"

#include <algorithm>
#include <expat.h>
#include <limits>
#include <memory>

namespace quillery {
namespace {

constexpr std::size_t kMostElements = 500'000;
constexpr std::size_t kDeepest = 1'000;
constexpr std::size_t kMostText = 400;

std::string localName(std::string_view name) {
  if (name.starts_with("xml:")) return std::string(name);
  return std::string(name.substr(name.find(':') + 1)); // npos + 1 is 0
}

struct Reading {
  XML_Parser parser;
  XmlTree tree;
  std::vector<std::size_t> open{};
  std::string problem{};

  void stop(std::string why) {
    problem = std::move(why);
    XML_StopParser(parser, XML_FALSE);
  }

  std::size_t here() const { return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser)); }
  std::size_t tokenLength() const {
    return static_cast<std::size_t>(std::max(0, XML_GetCurrentByteCount(parser)));
  }

  void start(const char* name, const char** attributes) {
    if (tree.elements.size() >= kMostElements) return stop("it has too many elements");
    if (open.size() >= kDeepest) return stop("its groups are nested too deeply");
    XmlTree::Element element;
    element.name = localName(name);
    for (const char** at = attributes; *at != nullptr; at += 2)
      element.attributes.emplace_back(localName(at[0]), at[1]);
    element.parent = open.empty() ? XmlTree::kNone : open.back();
    element.beginByte = here();
    element.nameEndByte = here() + 1 + std::string_view(name).size();
    open.push_back(tree.elements.size());
    tree.elements.push_back(std::move(element));
  }

  void end() {
    XmlTree::Element& element = tree.elements[open.back()];
    element.end = tree.elements.size();
    // A tag that is its own end ends where it begins, by the parser's count.
    element.endByte = here() + tokenLength();
    open.pop_back();
  }

  void text(std::string_view characters) {
    if (open.empty()) return;
    std::string& text = tree.elements[open.back()].text;
    text.append(characters.substr(0, kMostText - std::min(kMostText, text.size())));
  }
};

} // namespace

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kSpace);
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(kSpace) + 1 - begin);
}

std::string_view styleProperty(std::string_view declarations, std::string_view name) {
  std::string_view found;
  while (!declarations.empty()) {
    const std::string_view declaration = declarations.substr(0, declarations.find(';'));
    declarations.remove_prefix(std::min(declarations.size(), declaration.size() + 1));
    const std::size_t colon = declaration.find(':');
    if (colon != declaration.npos && trimmed(declaration.substr(0, colon)) == name)
      found = trimmed(declaration.substr(colon + 1)); // the last one counts
  }
  return found;
}

std::string_view XmlTree::Element::attribute(std::string_view wanted) const {
  for (const auto& [attributeName, value] : attributes)
    if (attributeName == wanted) return value;
  return {};
}

std::string_view XmlTree::Element::style(std::string_view wanted) const {
  const std::string_view declared = styleProperty(attribute("style"), wanted);
  return declared.empty() ? attribute(wanted) : declared;
}

Result<XmlTree, std::string> XmlTree::parse(std::string_view document) {
  if (document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    return Failure{std::string("it is too large")};
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(nullptr), &XML_ParserFree);
  if (!parser) return Failure{std::string("there is not enough memory")};
  Reading reading{parser.get(), {}};
  XML_SetUserData(parser.get(), &reading);
  XML_SetElementHandler(
      parser.get(),
      [](void* data, const char* name, const char** attributes) {
        static_cast<Reading*>(data)->start(name, attributes);
      },
      [](void* data, const char*) { static_cast<Reading*>(data)->end(); });
  XML_SetCharacterDataHandler(parser.get(), [](void* data, const char* text, int length) {
    static_cast<Reading*>(data)->text({text, static_cast<std::size_t>(length)});
  });
  if (XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE) !=
      XML_STATUS_OK) {
    if (!reading.problem.empty()) return Failure{std::move(reading.problem)};
    return Failure{"it is not well-formed XML (line " +
                   std::to_string(XML_GetCurrentLineNumber(parser.get())) + ": " +
                   XML_ErrorString(XML_GetErrorCode(parser.get())) + ")"};
  }
  return std::move(reading.tree);
}

} // namespace quillery
