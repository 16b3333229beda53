#include "base/json_diagnosis.h"
#include "base/json_slices.h"
#include "model/project_file.h"

#include <simdjson.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quillery {

namespace {

namespace dom = simdjson::dom;

// What is wrong with the value being read. The place grows from the inside out while the readers
// return, so that nothing is spent on it while all is well.
struct Fault {
  std::string place;
  std::string reason;

  bool set(std::string_view why) {
    reason = why;
    return false;
  }
  bool in(std::string_view member) {
    if (!place.empty() && place.front() != '[') place.insert(0, ".");
    place.insert(0, member);
    return false;
  }
  bool at(std::size_t index) { return in("[" + std::to_string(index) + "]"); }
};

bool read(const dom::element& value, double& out, Fault& fault) {
  return value.get(out) == simdjson::SUCCESS || fault.set("Expected a number");
}

bool read(const dom::element& value, Finite& out, Fault& fault) {
  double number = 0;
  if (!read(value, number, fault)) return false;
  const auto finite = Finite::of(number);
  if (!finite) return fault.set("The number is too large");
  out = *finite;
  return true;
}

bool read(const dom::element& value, std::int64_t& out, Fault& fault) {
  if (value.get(out) == simdjson::SUCCESS) return true;
  double number = 0;
  constexpr double kExact = 9007199254740992.0; // 2^53; decimals beyond were rounded when parsed
  if (value.get(number) != simdjson::SUCCESS || std::trunc(number) != number ||
      std::fabs(number) > kExact)
    return fault.set("Expected a whole number");
  out = static_cast<std::int64_t>(number);
  return true;
}

bool read(const dom::element& value, std::string_view& out, Fault& fault) {
  return value.get(out) == simdjson::SUCCESS || fault.set("Expected a text");
}

bool read(const dom::element& value, Utf8& out, Fault& fault) {
  std::string_view text;
  if (!read(value, text, fault)) return false;
  auto parsed = Utf8::parse(std::string(text));
  if (!parsed) return fault.set("Expected a text in UTF-8");
  out = *std::move(parsed);
  return true;
}

bool read(const dom::element& value, SharedText& out, Fault& fault) {
  Utf8 text;
  if (!read(value, text, fault)) return false;
  out = SharedText(std::move(text));
  return true;
}

bool read(const dom::element& value, std::optional<Utf8>& out, Fault& fault) {
  if (value.is_null()) {
    out.reset();
    return true;
  }
  return read(value, out.emplace(), fault);
}

bool read(const dom::element& value, Uuid& out, Fault& fault) {
  std::string_view text;
  if (!read(value, text, fault)) return false;
  const auto id = Uuid::parse(text);
  if (!id) return fault.set("Malformed UUID");
  out = *id;
  return true;
}

// Two items of an array, read into a and b.
template <typename T>
bool readTwo(const dom::element& value, T& a, T& b, std::string_view what, Fault& fault) {
  dom::array array;
  if (value.get(array) != simdjson::SUCCESS) return fault.set(what);
  auto item = array.begin();
  const auto end = array.end();
  if (!(item != end)) return fault.set(what);
  if (!read(*item, a, fault)) return fault.at(0);
  ++item;
  if (!(item != end)) return fault.set(what);
  if (!read(*item, b, fault)) return fault.at(1);
  ++item;
  return !(item != end) || fault.set(what);
}

bool read(const dom::element& value, Point& out, Fault& fault) {
  return readTwo(value, out.x, out.y, "Expected a point, [x, y]", fault);
}

bool read(const dom::element& value, Rect& out, Fault& fault) {
  Point origin, size;
  if (!readTwo(value, origin, size, "Expected a rectangle, [[x, y], [width, height]]", fault))
    return false;
  out = {origin.x, origin.y, size.x, size.y};
  return true;
}

bool readPoints(const dom::object& payload, PathCommand& out, Fault& fault) {
  unsigned found = 0;
  for (const dom::key_value_pair member : payload) {
    const std::string_view key = member.key;
    if (key.size() != 2 || key[0] != '_' || key[1] < '0' || key[1] > '2') continue;
    const auto i = static_cast<std::size_t>(key[1] - '0');
    if (i >= out.pointCount()) continue;
    if (!read(member.value, out.points[i], fault)) return fault.in(key);
    found |= 1U << i;
  }
  for (std::size_t i = 0; i < out.pointCount(); ++i)
    if ((found & (1U << i)) == 0)
      return fault.set("The point \"_" + std::to_string(i) + "\" is missing");
  return true;
}

// Bytes of a wrong key that are worth showing.
constexpr std::size_t kMostQuoted = 40;

bool read(const dom::element& value, PathCommand& out, Fault& fault) {
  dom::object command;
  if (value.get(command) != simdjson::SUCCESS) return fault.set("Expected a path command object");
  auto member = command.begin();
  if (!(member != command.end())) return fault.set("Invalid number of keys found, expected one.");
  const std::string_view key = member.key();
  const dom::element payload = member.value();
  ++member;
  if (member != command.end()) return fault.set("Invalid number of keys found, expected one.");

  if (key == "curveTo")
    out.kind = PathCommand::Kind::curveTo;
  else if (key == "lineTo")
    out.kind = PathCommand::Kind::lineTo;
  else if (key == "moveTo")
    out.kind = PathCommand::Kind::moveTo;
  else if (key == "closePath")
    out.kind = PathCommand::Kind::closePath;
  else
    return fault.set("Unknown path command \"" + std::string(key.substr(0, kMostQuoted)) + "\"");

  dom::object points;
  if (payload.get(points) != simdjson::SUCCESS) {
    fault.set("Expected an object with the points");
    return fault.in(key);
  }
  return readPoints(points, out, fault) || fault.in(key);
}

template <typename Item>
bool readAppending(const dom::array& array, std::vector<Item>& out, Fault& fault) {
  for (const dom::element value : array) {
    Item item{};
    if (!read(value, item, fault)) return fault.at(out.size());
    out.push_back(std::move(item));
  }
  return true;
}

template <typename Item>
bool read(const dom::element& value, std::vector<Item>& out, Fault& fault) {
  dom::array array;
  if (value.get(array) != simdjson::SUCCESS) return fault.set("Expected an array");
  out.clear();
  return readAppending(array, out, fault);
}

bool read(const dom::element& value, Outline& out, Fault& fault) {
  dom::array array;
  if (value.get(array) != simdjson::SUCCESS) return fault.set("Expected an array");
  std::vector<PathCommand> commands;
  commands.reserve(array.size());
  if (!readAppending(array, commands, fault)) return false;
  out = Outline(std::move(commands));
  return true;
}

// A member of an object and where its value goes.
template <typename T> struct Member {
  std::string_view name;
  T& out;
  bool required = true;
  bool found = false;
};

template <typename T> Member(std::string_view, T&) -> Member<T>;
template <typename T> Member(std::string_view, T&, bool) -> Member<T>;

template <typename T>
bool readMember(const dom::key_value_pair& pair, Member<T>& member, bool& ok, Fault& fault) {
  if (pair.key != member.name) return false;
  member.found = true;
  ok = read(pair.value, member.out, fault) || fault.in(member.name);
  return true;
}

template <typename T> bool isThere(const Member<T>& member, Fault& fault) {
  if (member.found || !member.required) return true;
  return fault.set("The member \"" + std::string(member.name) + "\" is missing");
}

// Most frequent and largest first: the members are tried in the order given.
template <typename... T>
bool readMembers(const dom::element& value, std::string_view what, Fault& fault,
                 Member<T>... members) {
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS) return fault.set(what);
  for (const dom::key_value_pair pair : object) {
    bool ok = true;
    (void)(readMember(pair, members, ok, fault) || ...);
    if (!ok) return false;
  }
  return (isThere(members, fault) && ...);
}

bool read(const dom::element& value, Glyph& out, Fault& fault) {
  GlyphRecord g;
  if (!readMembers(value, "Expected a glyph object", fault, Member{"id", g.id},
                   Member{"unicode", g.unicode, false}, Member{"name", g.name},
                   Member{"svgPath", g.svgPath}, Member{"viewBox", g.viewBox},
                   Member{"advanceWidth", g.advanceWidth},
                   Member{"leftSideBearing", g.leftSideBearing},
                   Member{"rightSideBearing", g.rightSideBearing},
                   Member{"verticalOffset", g.verticalOffset}, Member{"scale", g.scale},
                   Member{"boundingBox", g.boundingBox}, Member{"fontPath", g.fontPath}))
    return false;
  out = Glyph(std::move(g));
  return true;
}

bool read(const dom::element& value, KerningPair& p, Fault& fault) {
  return readMembers(value, "Expected a kerning pair object", fault, Member{"id", p.id},
                     Member{"leftGlyph", p.leftGlyph}, Member{"rightGlyph", p.rightGlyph},
                     Member{"value", p.value});
}

bool read(const dom::element& value, FontProject& p, Fault& fault) {
  return readMembers(value, "Expected a project object", fault, Member{"id", p.id},
                     Member{"name", p.name}, Member{"designer", p.designer},
                     Member{"version", p.version}, Member{"copyright", p.copyright},
                     Member{"unitsPerEm", p.unitsPerEm}, Member{"ascender", p.ascender},
                     Member{"descender", p.descender}, Member{"capHeight", p.capHeight},
                     Member{"xHeight", p.xHeight}, Member{"lineGap", p.lineGap},
                     Member{"glyphs", p.glyphs}, Member{"kerningPairs", p.kerningPairs});
}

// Documents up to this size are parsed whole; larger ones in slices of about this size.
constexpr std::size_t kSliceSize = 512 * 1024;

class Decoder {
public:
  explicit Decoder(FileBytes& bytes) : text_(bytes.data()), size_(bytes.size()) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.view().starts_with(kByteOrderMark)) {
      text_ += kByteOrderMark.size();
      size_ -= kByteOrderMark.size();
    }
  }

  Result<FontProject, Problem> decode() {
    FontProject project;
    if (size_ > kSliceSize && decodeSlices(project)) return project;
    if (!fault_.reason.empty()) return Failure{Problem{fault_.place, fault_.reason}};
    project = FontProject();
    return decodeWhole(project);
  }

private:
  // False when the document is to be parsed whole, or with a fault.
  bool decodeSlices(FontProject& project) {
    const auto cut = sliceJsonObject({text_, size_}, {"glyphs", "kerningPairs"}, kSliceSize);
    if (!cut) return false;
    dom::element root;
    if (parser_.parse(cut->skeleton).get(root) != simdjson::SUCCESS) return false;
    if (!read(root, project, fault_)) return false;
    for (const JsonSlices::Slice& slice : cut->slices)
      if (!(slice.member == 0 ? decodeSlice(slice, "glyphs", project.glyphs)
                              : decodeSlice(slice, "kerningPairs", project.kerningPairs)))
        return false;
    return true;
  }

  template <typename Item>
  bool decodeSlice(const JsonSlices::Slice& slice, std::string_view member,
                   std::vector<Item>& out) {
    char* begin = text_ + slice.begin;
    char* last = text_ + slice.end - 1;
    const char first = std::exchange(*begin, '[');
    const char end = std::exchange(*last, ']');
    dom::array items;
    const std::string_view text(begin, slice.end - slice.begin);
    const std::string patched = hasBareMinusZero(text) ? withDecimals(text) : std::string();
    const auto error = patched.empty() ? parser_.parse(begin, text.size(), false).get(items)
                                       : parser_.parse(patched).get(items);
    *begin = first;
    *last = end;
    if (error != simdjson::SUCCESS) return false;
    return readAppending(items, out, fault_) || fault_.in(member);
  }

  Result<FontProject, Problem> decodeWhole(FontProject& project) {
    dom::element root;
    const std::string_view text(text_, size_);
    std::string patched;
    auto error = simdjson::NUMBER_ERROR;
    if (!hasBareMinusZero(text)) error = parser_.parse(text_, size_, false).get(root);
    if (error == simdjson::NUMBER_ERROR) {
      patched = withDecimals(text);
      error = parser_.parse(patched).get(root);
    }
    if (error != simdjson::SUCCESS) {
      if (error == simdjson::DEPTH_ERROR)
        return Failure{Problem{"", "The document is nested deeper than 1024 levels"}};
      return Failure{diagnoseJson(text, simdjson::error_message(error))};
    }
    if (read(root, project, fault_)) return std::move(project);
    return Failure{Problem{fault_.place, fault_.reason}};
  }

  static bool fits64Bits(std::string_view literal) {
    std::int64_t value = 0;
    return std::from_chars(literal.data(), literal.data() + literal.size(), value).ec ==
           std::errc();
  }

  // A "-0" that may be a number without point and exponent, which ids are full of otherwise.
  static bool hasBareMinusZero(std::string_view text) {
    const auto isBoundary = [&](std::size_t at) {
      return at >= text.size() ||
             std::string_view(" \t\r\n,:[]}").find(text[at]) != std::string_view::npos;
    };
    for (std::size_t at = 0; (at = text.find("-0", at)) != std::string_view::npos; ++at)
      if (isBoundary(at + 2) && (at == 0 || isBoundary(at - 1))) return true;
    return false;
  }

  // The parser takes a bare -0 for the integer 0, which has no sign, and refuses whole numbers past
  // 64 bits: written as decimals both are read as they are.
  static std::string withDecimals(std::string_view text) {
    std::string out;
    out.reserve(text.size() + text.size() / 64 + simdjson::SIMDJSON_PADDING);
    bool inString = false;
    std::size_t i = 0;
    while (i < text.size()) {
      const char c = text[i];
      if (inString && c == '\\') {
        out.append(text, i, 2);
        i += 2;
        continue;
      }
      if (c == '"') inString = !inString;
      const bool number = !inString && ((c >= '0' && c <= '9') || c == '-');
      if (!number) {
        out += c;
        ++i;
        continue;
      }
      const std::size_t end = std::min(text.find_first_not_of("0123456789+-.eE", i), text.size());
      const std::string_view literal = text.substr(i, end - i);
      out += literal;
      const bool isWhole = literal.find_first_of(".eE") == std::string_view::npos;
      if (isWhole && (literal == "-0" || !fits64Bits(literal))) out += ".0";
      i = end;
    }
    return out;
  }

  char* text_;
  std::size_t size_;
  dom::parser parser_;
  Fault fault_;
};

} // namespace

Result<FontProject, Problem> decodeProject(FileBytes& bytes) {
  return Decoder(bytes).decode();
}

Result<FontProject, Problem> readProjectFile(const std::filesystem::path& path) {
  FileBytes bytes;
  if (const auto done = readFile(path, bytes); !done) return Failure{done.error()};
  auto project = decodeProject(bytes);
  if (!project) return Failure{Problem{path.string(), project.error().description()}};
  return std::move(project).value();
}

} // namespace quillery
