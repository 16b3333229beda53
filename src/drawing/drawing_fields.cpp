#include "drawing/drawing_fields.h"

#include "base/finite.h"
#include "base/numbers.h"

#include <charconv>

namespace quillery {
namespace {

std::optional<std::string_view> next(const Fields& fields, std::size_t& at) {
  if (at >= fields.size()) return std::nullopt;
  return fields[at++];
}

std::optional<double> nextNumber(const Fields& fields, std::size_t& at) {
  const auto text = next(fields, at);
  const auto value = text ? Finite::parse(std::string(*text)) : std::nullopt;
  return value ? std::optional(static_cast<double>(*value)) : std::nullopt;
}

std::optional<std::size_t> nextCount(const Fields& fields, std::size_t& at) {
  const auto text = next(fields, at);
  std::size_t count = 0;
  if (!text || text->empty()) return std::nullopt;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), count);
  if (error != std::errc() || end != text->data() + text->size()) return std::nullopt;
  // Every one takes a field at least.
  return count <= fields.size() - at ? std::optional(count) : std::nullopt;
}

std::optional<Utf8> nextText(const Fields& fields, std::size_t& at) {
  const auto text = next(fields, at);
  return text ? Utf8::parse(std::string(*text)) : std::nullopt;
}

bool isPathData(std::string_view text) {
  return text.starts_with('M') &&
         text.find_first_not_of("MLCZ0123456789.-+e ") == std::string_view::npos;
}

} // namespace

void appendFields(Fields& fields, const FlatDrawing& drawing) {
  const Rect& page = drawing.artboard.page;
  for (const double value : {page.x, page.y, page.width, page.height})
    fields.push_back(formatShortest(value));
  fields.push_back(drawing.artboard.baseline ? formatShortest(*drawing.artboard.baseline) : "");
  fields.push_back(drawing.pathData.str());
  fields.push_back(std::to_string(drawing.notes.size()));
  for (const Utf8& note : drawing.notes) fields.push_back(note.str());
}

void appendFields(Fields& fields, const DrawingSheet& sheet) {
  fields.push_back(std::to_string(sheet.guides.size()));
  for (const auto& guide : sheet.guides) {
    fields.push_back(std::to_string(static_cast<int>(guide.kind)));
    fields.push_back(formatShortest(guide.y));
  }
  fields.push_back(std::to_string(sheet.lines.size()));
  for (const std::size_t count : sheet.lines) fields.push_back(std::to_string(count));
  fields.push_back(std::to_string(sheet.letters.size()));
  for (const auto& letter : sheet.letters) {
    fields.push_back(letter.name.str());
    appendFields(fields, letter.drawing);
  }
}

std::optional<FlatDrawing> readFlatDrawing(const Fields& fields, std::size_t& at) {
  FlatDrawing drawing;
  Rect& page = drawing.artboard.page;
  for (double* value : {&page.x, &page.y, &page.width, &page.height}) {
    const auto read = nextNumber(fields, at);
    if (!read) return std::nullopt;
    *value = *read;
  }
  if (!(page.width > 0 && page.height > 0)) return std::nullopt;
  if (at < fields.size() && fields[at].empty()) {
    ++at;
  } else {
    const auto baseline = nextNumber(fields, at);
    if (!baseline) return std::nullopt;
    drawing.artboard.baseline = *baseline;
  }
  auto pathData = nextText(fields, at);
  if (!pathData || !isPathData(*pathData)) return std::nullopt;
  drawing.pathData = *std::move(pathData);
  const auto notes = nextCount(fields, at);
  for (std::size_t i = 0; notes && i < *notes; ++i) {
    auto note = nextText(fields, at);
    if (!note) return std::nullopt;
    drawing.notes.push_back(*std::move(note));
  }
  return notes ? std::optional(std::move(drawing)) : std::nullopt;
}

std::optional<DrawingSheet> readDrawingSheet(const Fields& fields, std::size_t& at) {
  using Guide = DrawingSheet::Guide;
  DrawingSheet sheet;
  const auto guides = nextCount(fields, at);
  for (std::size_t i = 0; guides && i < *guides; ++i) {
    const auto kind = nextNumber(fields, at);
    const auto y = nextNumber(fields, at);
    if (!kind || !y || *kind < 0 || *kind > static_cast<double>(Guide::Kind::descender))
      return std::nullopt;
    sheet.guides.push_back({static_cast<Guide::Kind>(static_cast<int>(*kind)), *y});
  }
  const auto lines = guides ? nextCount(fields, at) : std::nullopt;
  std::size_t onLines = 0;
  for (std::size_t i = 0; lines && i < *lines; ++i) {
    const auto count = nextCount(fields, at);
    if (!count) return std::nullopt;
    sheet.lines.push_back(*count);
    onLines += *count;
  }
  const auto letters = lines ? nextCount(fields, at) : std::nullopt;
  if (!letters || onLines != *letters) return std::nullopt;
  for (std::size_t i = 0; i < *letters; ++i) {
    auto name = nextText(fields, at);
    auto drawing = name ? readFlatDrawing(fields, at) : std::nullopt;
    if (!drawing) return std::nullopt;
    sheet.letters.push_back({*std::move(name), *std::move(drawing)});
  }
  return sheet;
}

} // namespace quillery
