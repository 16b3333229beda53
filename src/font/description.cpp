#include "font/description.h"

#include "base/file.h"
#include "base/json_diagnosis.h"
#include "base/json_slices.h"
#include "base/parallel.h"
#include "base/unicode.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <limits>

namespace quillery::font {

namespace {

namespace dom = simdjson::dom;

// Descriptions beyond this many bytes are parsed in slices of about this size, on several threads:
// a parser takes several times the memory of its text.
constexpr std::size_t kSliceSize = 256 * 1024;

// A record of a name table holds at most 65,535 bytes of UTF-16; no text of a font is longer.
constexpr std::size_t kLongestText = 32767; // characters

// Said of an object by a reader that does not know which object it is.
struct Malformed {
  std::string what;
};

template <typename T> using Reading = Result<T, Malformed>;

Failure<Malformed> malformed(std::string what) {
  return Failure{Malformed{std::move(what)}};
}

// Members of an object, looked up once; of two with the same name the last counts.
template <std::size_t Count>
bool findMembers(const dom::element& value, const std::array<std::string_view, Count>& names,
                 std::array<const dom::element*, Count>& found,
                 std::array<dom::element, Count>& storage) {
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS) return false;
  found.fill(nullptr);
  for (const dom::key_value_pair member : object)
    for (std::size_t i = 0; i < Count; ++i)
      if (member.key == names[i]) {
        storage[i] = member.value;
        found[i] = &storage[i];
        break;
      }
  return true;
}

template <std::size_t Count> class Members {
public:
  explicit Members(const std::array<std::string_view, Count>& names) : names_(names) {}

  Reading<void> look(const dom::element& value) {
    if (!findMembers(value, names_, found_, storage_)) return malformed("is not a JSON object");
    return {};
  }

  bool has(std::size_t i) const { return found_[i] != nullptr; }

  Reading<double> number(std::size_t i) const {
    if (!has(i)) return absent(i);
    double number = 0;
    if (found_[i]->get(number) != simdjson::SUCCESS) return wrong(i, "that is not a number");
    if (!std::isfinite(number)) return wrong(i, "that is not a finite number");
    return number;
  }

  Reading<std::string> text(std::size_t i) const {
    if (!has(i)) return absent(i);
    std::string_view text;
    if (found_[i]->get(text) != simdjson::SUCCESS) return wrong(i, "that is not text");
    if (text.size() > kLongestText) {
      const std::size_t length = scalars(text).size();
      if (length > kLongestText)
        return wrong(i, "of " + grouped(length) + " characters, and a font holds at most " +
                            grouped(kLongestText));
    }
    return std::string(text);
  }

  Reading<dom::array> list(std::size_t i) const {
    if (!has(i)) return absent(i);
    dom::array list;
    if (found_[i]->get(list) != simdjson::SUCCESS) return wrong(i, "that is not a list");
    return list;
  }

private:
  Failure<Malformed> absent(std::size_t i) const {
    return malformed("has no member " + inQuotes(names_[i]));
  }
  Failure<Malformed> wrong(std::size_t i, const std::string& why) const {
    return malformed("has a member " + inQuotes(names_[i]) + " " + why);
  }

  const std::array<std::string_view, Count>& names_;
  std::array<const dom::element*, Count> found_{};
  std::array<dom::element, Count> storage_;
};

// The text that stands under a key of an object in which something else is wrong, quoted.
std::string calledBy(const dom::element& value, std::string_view key) {
  std::string_view name;
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS || object.at_key(key).get(name) != simdjson::SUCCESS ||
      name.empty())
    return {};
  return " " + inQuotes(name);
}

bool readCoordinates(const dom::element& value, Point& point) {
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS) return false;
  unsigned found = 0;
  for (const dom::key_value_pair member : object) {
    const bool isX = member.key == "x", isY = member.key == "y";
    if (!isX && !isY) continue;
    if (member.value.get(isX ? point.x : point.y) != simdjson::SUCCESS) return false;
    found |= isX ? 1U : 2U;
  }
  return found == 3 && isFinite(point);
}

struct CommandKind {
  std::string_view name;
  std::size_t points; // of kPointNames, from the last one on
};
constexpr std::array<CommandKind, 4> kCommandKinds = {
    {{"moveTo", 1}, {"lineTo", 1}, {"curveTo", 3}, {"closePath", 0}}};
constexpr std::array<std::string_view, 3> kPointNames = {"control1", "control2", "point"};
constexpr std::array<std::string_view, 4> kCommandMembers = {"control1", "control2", "point",
                                                             "type"};

// What is wrong with a command that could not be read. Slow, and needed once at most.
std::string commandFault(const dom::element& value, std::size_t index) {
  const std::string where = "command number " + std::to_string(index + 1);
  dom::object command;
  if (value.get(command) != simdjson::SUCCESS) return where + " is not a JSON object";
  std::string_view name;
  const bool isText = command.at_key("type").get(name) == simdjson::SUCCESS;
  const auto* kind = std::find_if(kCommandKinds.begin(), kCommandKinds.end(),
                                  [&](const CommandKind& known) { return known.name == name; });
  if (!isText || kind == kCommandKinds.end()) return where + " has no known type";
  for (std::size_t i = kPointNames.size() - kind->points; i < kPointNames.size(); ++i) {
    const std::string said = where + " (" + std::string(name) + ") has ";
    dom::object point;
    if (command.at_key(kPointNames[i]).get(point) != simdjson::SUCCESS)
      return said + "no point " + inQuotes(kPointNames[i]);
    for (const char* axis : {"x", "y"}) {
      double number = 0;
      if (point.at_key(axis).get(number) != simdjson::SUCCESS)
        return said + "a point " + inQuotes(kPointNames[i]) + " whose " + axis + " is not a number";
    }
  }
  return "it cannot be read";
}

class OutlineReader {
public:
  // False for a command that is none.
  bool add(const dom::element& value) {
    std::array<const dom::element*, 4> found{};
    std::array<dom::element, 4> storage;
    std::string_view kind;
    if (!findMembers(value, kCommandMembers, found, storage) || found[3] == nullptr ||
        found[3]->get(kind) != simdjson::SUCCESS)
      return false;
    if (kind == "closePath") {
      isOpen_ = false;
      return true;
    }
    Segment segment;
    if (found[2] == nullptr || !readCoordinates(*found[2], segment.end)) return false;
    if (kind == "moveTo") {
      begin(segment.end);
      return true;
    }
    segment.isCurve = kind == "curveTo";
    if (segment.isCurve) {
      if (found[0] == nullptr || !readCoordinates(*found[0], segment.control1)) return false;
      if (found[1] == nullptr || !readCoordinates(*found[1], segment.control2)) return false;
    } else if (kind != "lineTo") {
      return false;
    }
    if (!isOpen_) begin(hasStart_ ? start_ : segment.isCurve ? segment.control1 : segment.end);
    outline_.back().segments.push_back(segment);
    return true;
  }

  Outline release() && { return std::move(outline_); }

private:
  void begin(Point start) {
    start_ = start;
    hasStart_ = isOpen_ = true;
    outline_.push_back({start, {}});
  }

  Outline outline_;
  Point start_;
  bool hasStart_ = false;
  bool isOpen_ = false;
};

// Why a font can't hold an outline; nothing when it can.
std::optional<std::string> unfitness(const Outline& outline) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double left = kInfinity, right = -kInfinity, bottom = kInfinity, top = -kInfinity;
  const auto reach = [&](Point point) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    bottom = std::min(bottom, point.y);
    top = std::max(top, point.y);
  };
  for (const Contour& contour : outline) {
    reach(contour.start);
    for (const Segment& segment : contour.segments) {
      if (segment.isCurve) {
        reach(segment.control1);
        reach(segment.control2);
      }
      reach(segment.end);
    }
  }
  if (outline.empty()) return std::nullopt;
  const double least = std::min(left, bottom), greatest = std::max(right, top);
  if (least < kLeastCoordinate - 0.5 || greatest >= kGreatestCoordinate + 0.5)
    return "reaches to the coordinate " + plain(-least > greatest ? least : greatest) +
           ", and a font holds " + std::to_string(kLeastCoordinate) + " to " +
           std::to_string(kGreatestCoordinate);
  // Outlines are stored as steps from point to point, and those have 16 bits as well.
  constexpr int kLargestExtent = kGreatestCoordinate - 1;
  for (const auto& [extent, direction] :
       {std::pair(right - left, "wide"), std::pair(top - bottom, "high")})
    if (extent > kLargestExtent)
      return "is " + plain(extent) + " units " + direction + ", and a font holds at most " +
             std::to_string(kLargestExtent);
  return std::nullopt;
}

std::u32string characterText(std::string_view text) {
  const auto read = scalars(text);
  return {read.begin(), read.end()};
}

constexpr std::array<std::string_view, 6> kGlyphMembers = {
    "leftSideBearing", "rightSideBearing", "name", "unicode", "advanceWidth", "fontPath"};

Reading<DescribedGlyph> glyphOf(const dom::element& value) {
  Members members(kGlyphMembers);
  if (const auto looked = members.look(value); !looked) return Failure{looked.error()};
  for (const std::size_t bearing : {0U, 1U}) // the outline is placed by them already
    if (const auto read = members.number(bearing); !read) return Failure{read.error()};
  DescribedGlyph glyph;
  auto name = members.text(2);
  if (!name) return Failure{name.error()};
  glyph.name = std::move(name).value();
  if (members.has(3)) {
    const auto text = members.text(3);
    if (!text) return Failure{text.error()};
    glyph.text = characterText(text.value());
  }
  const auto advance = members.number(4);
  if (!advance) return Failure{advance.error()};
  glyph.advance = advance.value();
  const auto path = members.list(5);
  if (!path) return Failure{path.error()};
  OutlineReader outline;
  std::size_t index = 0;
  for (const dom::element command : path.value()) {
    if (!outline.add(command))
      return malformed("has a malformed outline: " + commandFault(command, index));
    ++index;
  }
  glyph.outline = std::move(outline).release();
  return glyph;
}

Result<DescribedGlyph, FontError> readGlyph(const dom::element& value, std::size_t number) {
  auto glyph = glyphOf(value);
  if (!glyph)
    return Failure{FontError{"Glyph number " + std::to_string(number) + calledBy(value, "name") +
                             " " + glyph.error().what + "."}};
  if (const auto why = unfitness(glyph.value().outline))
    return Failure{
        FontError{"The drawing of " + glyphLabel(glyph.value().name, number) + " " + *why + "."}};
  return std::move(glyph).value();
}

constexpr std::array<std::string_view, 3> kPairMembers = {"leftGlyph", "rightGlyph", "value"};

Reading<DescribedPair> pairOf(const dom::element& value) {
  Members members(kPairMembers);
  if (const auto looked = members.look(value); !looked) return Failure{looked.error()};
  auto left = members.text(0);
  if (!left) return Failure{left.error()};
  auto right = members.text(1);
  if (!right) return Failure{right.error()};
  const auto kerning = members.number(2);
  if (!kerning) return Failure{kerning.error()};
  return DescribedPair{std::move(left).value(), std::move(right).value(), kerning.value()};
}

Result<DescribedPair, FontError> readPair(const dom::element& value, std::size_t number) {
  auto pair = pairOf(value);
  if (pair) return std::move(pair).value();
  return Failure{FontError{"Kerning pair number " + std::to_string(number) +
                           calledBy(value, "leftGlyph") + calledBy(value, "rightGlyph") + " " +
                           pair.error().what + "."}};
}

template <typename Item>
Result<void, FontError> appendItems(const dom::array& list,
                                    Result<Item, FontError> (*read)(const dom::element&,
                                                                    std::size_t),
                                    std::size_t before, std::vector<Item>& items) {
  std::size_t number = before;
  for (const dom::element value : list) {
    auto item = read(value, ++number);
    if (!item) return Failure{item.error()};
    items.push_back(std::move(item).value());
  }
  return {};
}

constexpr std::array<std::string_view, 11> kDescriptionMembers = {
    "name",      "designer",  "version", "copyright", "unitsPerEm",  "ascender",
    "descender", "capHeight", "xHeight", "glyphs",    "kerningPairs"};

Reading<void> readMembers(const Members<11>& members, FontDescription& description) {
  std::array<std::string*, 4> texts = {&description.name, &description.designer,
                                       &description.version, &description.copyright};
  std::array<double*, 5> numbers = {&description.unitsPerEm, &description.ascender,
                                    &description.descender, &description.capHeight,
                                    &description.xHeight};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    auto text = members.text(i);
    if (!text) return Failure{text.error()};
    *texts[i] = std::move(text).value();
  }
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto number = members.number(texts.size() + i);
    if (!number) return Failure{number.error()};
    *numbers[i] = number.value();
  }
  for (const std::size_t list : {9U, 10U})
    if (const auto read = members.list(list); !read) return Failure{read.error()};
  return {};
}

Result<FontDescription, FontError> descriptionOf(const dom::element& root) {
  FontDescription description;
  Members members(kDescriptionMembers);
  auto read = members.look(root);
  if (read) read = readMembers(members, description);
  if (!read) return Failure{FontError{"The font description " + read.error().what + "."}};
  if (const auto glyphs = appendItems(members.list(9).value(), readGlyph, 0, description.glyphs);
      !glyphs)
    return Failure{glyphs.error()};
  if (const auto pairs = appendItems(members.list(10).value(), readPair, 0, description.pairs);
      !pairs)
    return Failure{pairs.error()};
  return description;
}

// Where the first sequence is that is no UTF-8, in text that has one.
std::size_t firstInvalidByte(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (!isValidUtf8(text.substr(at, length))) break;
    at += length;
  }
  return at;
}

Failure<FontError> notJson(std::string_view text, simdjson::error_code error) {
  const auto failure = [](std::string sentence) { return Failure{FontError{std::move(sentence)}}; };
  if (error == simdjson::MEMALLOC || error == simdjson::CAPACITY)
    return failure("There is not enough memory to make the font.");
  if (!isValidUtf8(text))
    return failure("The font description is not valid UTF-8 (byte " +
                   std::to_string(firstInvalidByte(text)) + ").");
  if (error == simdjson::DEPTH_ERROR)
    return failure("The font description is not one: its brackets nest too deep.");
  const Problem found = diagnoseJson(text, "");
  if (found.place.empty()) // it is JSON after all
    return failure(
        "The font description holds a number that is not finite or has too many digits.");
  std::string reason = found.reason;
  if (reason.find("surrogate") != std::string::npos)
    reason = "a text has half a character in it";
  else if (!reason.empty() && reason.front() >= 'A' && reason.front() <= 'Z')
    reason.front() = static_cast<char>(reason.front() - 'A' + 'a');
  return failure("The font description is not JSON: " + reason + " at " + found.place + ".");
}

// One slice as items of either list. The number of items before it matters to messages only.
struct SliceItems {
  std::vector<DescribedGlyph> glyphs;
  std::vector<DescribedPair> pairs;
};

// Nothing for a slice that is not JSON.
std::optional<Result<SliceItems, FontError>> readSlice(std::string_view text, bool areGlyphs,
                                                       std::size_t before) {
  static thread_local dom::parser parser;
  simdjson::padded_string copy(text);
  copy.data()[0] = '[';
  copy.data()[copy.size() - 1] = ']';
  dom::array list;
  if (parser.parse(copy).get(list) != simdjson::SUCCESS) return std::nullopt;
  SliceItems items;
  const auto done = areGlyphs ? appendItems(list, readGlyph, before, items.glyphs)
                              : appendItems(list, readPair, before, items.pairs);
  if (!done) return Failure{done.error()};
  return items;
}

template <typename Item> void moveInto(std::vector<Item>& all, std::vector<Item>&& items) {
  all.insert(all.end(), std::make_move_iterator(items.begin()),
             std::make_move_iterator(items.end()));
}

Result<FontDescription, FontError> readSlices(std::string_view text, const JsonSlices& cut) {
  dom::parser parser;
  dom::element root;
  if (const auto error = parser.parse(cut.skeleton).get(root); error != simdjson::SUCCESS)
    return notJson(text, error);
  auto read = descriptionOf(root);
  if (!read) return read;
  FontDescription description = std::move(read).value();
  std::optional<Failure<FontError>> failure;
  const auto sliceText = [&](std::size_t i) {
    return text.substr(cut.slices[i].begin, cut.slices[i].end - cut.slices[i].begin);
  };
  produceInOrder(
      cut.slices.size(),
      [&](std::size_t i) { return readSlice(sliceText(i), cut.slices[i].member == 0, 0); },
      [&](std::size_t i, std::optional<Result<SliceItems, FontError>>&& items) {
        const bool areGlyphs = cut.slices[i].member == 0;
        if (items && !*items) // once more, to count from the beginning of the list
          items = readSlice(sliceText(i), areGlyphs,
                            areGlyphs ? description.glyphs.size() : description.pairs.size());
        if (!items || !*items) {
          failure = items ? Failure{items->error()} : notJson(text, simdjson::TAPE_ERROR);
          return false;
        }
        moveInto(description.glyphs, std::move(items->value().glyphs));
        moveInto(description.pairs, std::move(items->value().pairs));
        return true;
      });
  if (failure) return *failure;
  return description;
}

} // namespace

std::string glyphLabel(const std::string& name, std::size_t number) {
  return name.empty() ? "the nameless glyph number " + std::to_string(number)
                      : "glyph " + inQuotes(name);
}

Result<FontDescription, FontError> parseDescription(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.size() > kSliceSize)
    if (const auto cut = sliceJsonObject(text, {"glyphs", "kerningPairs"}, kSliceSize))
      return readSlices(text, *cut);
  dom::parser parser;
  dom::element root;
  const auto error = parser.parse(text.data(), text.size()).get(root);
  if (error != simdjson::SUCCESS) return notJson(text, error);
  return descriptionOf(root);
}

Result<FontDescription, FontError> readDescription(const std::filesystem::path& path) {
  FileBytes bytes;
  if (const auto read = readFile(path, bytes); !read)
    return Failure{FontError{"The font description " + inQuotes(path.string()) +
                             " cannot be read: " + read.error().reason + "."}};
  return parseDescription(bytes.view());
}

} // namespace quillery::font
