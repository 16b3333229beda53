#include "font/description.h"

#include "base/file.h"
#include "base/json_diagnosis.h"
#include "base/json_slices.h"
#include "base/parallel.h"
#include "base/unicode.h"
#include "font/outline_reader.h"

#include <algorithm>
#include <array>

namespace quillery::font {

namespace {

namespace dom = simdjson::dom;

// Descriptions beyond this many bytes are parsed in slices of about this size, on several threads:
// a parser takes several times the memory of its text.
constexpr std::size_t kSliceSize = 256 * 1024;

// The text that stands under a key of an object in which something else is wrong, quoted.
std::string calledBy(const dom::element& value, std::string_view key) {
  std::string_view name;
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS || object.at_key(key).get(name) != simdjson::SUCCESS ||
      name.empty())
    return {};
  return " " + inQuotes(name);
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
  auto outline = readOutline(path.value());
  if (!outline) return Failure{outline.error()};
  glyph.outline = std::move(outline).value();
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
  // Kept from slice to slice: memory of this size goes back to the system each time otherwise.
  static thread_local dom::parser parser;
  static thread_local std::string copy;
  copy.reserve(text.size() + simdjson::SIMDJSON_PADDING);
  copy.assign(text);
  copy.front() = '[';
  copy.back() = ']';
  dom::array list;
  if (parser.parse(copy.data(), copy.size(), false).get(list) != simdjson::SUCCESS)
    return std::nullopt;
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
