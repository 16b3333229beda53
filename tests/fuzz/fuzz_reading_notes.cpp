#include "base/unicode.h"
#include "fuzz/fuzzing.h"
#include "svg/plain_path.h"
#include "svg/reading_notes.h"
#include "svg/svg_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillery;
  using test::require;
  const std::string_view text = test::textOf(data, size);
  const ReadingNotes notes = notesOnReading(text);
  const auto taken = SVGParser::findPathData(text);
  require(taken || !notes.reasons.empty(), "a drawing without a path is never passed over");
  if (!taken || !isValidUtf8(text)) return 0;
  const auto plain = readPlainPath(*taken);
  if (plain && hasNothingToNote(text, *taken, plain->outline))
    require(notes.reasons.empty(), "the short way hides no reason");
  return 0;
}
