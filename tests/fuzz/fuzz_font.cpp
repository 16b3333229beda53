#include "font/compile.h"
#include "font/description.h"
#include "fuzz/fuzzing.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace quillery::test {
namespace {

using namespace quillery::font;

// Descriptions are read from files: this one has no name on the disk.
Result<FontDescription, FontError> read(std::string_view text) {
  static const int file = memfd_create("description", 0);
  require(ftruncate(file, 0) == 0 &&
              pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
          "a file in memory can be written");
  return readDescription("/proc/self/fd/" + std::to_string(file));
}

void requireSentence(const FontError& error) {
  const std::string& sentence = error.sentence;
  require(!sentence.empty() && sentence.back() == '.', "a refusal is a sentence");
  require(sentence.find('\n') == std::string::npos, "on one line");
}

void check(std::string_view text) {
  const auto description = read(text);
  if (!description) return requireSentence(description.error());
  constexpr FontFormat kFormats[] = {FontFormat::otf, FontFormat::ttf, FontFormat::woff,
                                     FontFormat::woff2};
  constexpr std::string_view kStarts[] = {"OTTO", {"\0\1\0\0", 4}, "wOFF", "wOF2"};
  const std::size_t kind = text.size() % 4;
  const auto font = compileFont(description.value(), kFormats[kind], {.brotliQuality = 0});
  if (!font) return requireSentence(font.error());
  const Bytes& file = font.value().file;
  require(file.compare(0, 4, kStarts[kind]) == 0, "a font begins as its format does");
  const auto again = compileFont(description.value(), kFormats[kind], {.brotliQuality = 0});
  require(again.ok() && again.value().file == file, "the same project gives the same bytes");
}

} // namespace
} // namespace quillery::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillery::test::check(quillery::test::textOf(data, size));
  return 0;
}
