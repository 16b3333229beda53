#include "fuzz/fuzzing.h"
#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/projects.h"

namespace quillery::test {
namespace {

// The document with so much space somewhere between its tokens that it is read in slices.
std::string stretched(std::string_view text, std::size_t from) {
  bool inText = false;
  std::size_t place = std::string_view::npos;
  for (std::size_t i = 0; i < text.size() && place == std::string_view::npos; ++i) {
    if (text[i] == '"')
      inText = !inText;
    else if (inText && text[i] == '\\')
      ++i;
    else if (!inText && i >= from &&
             std::string_view("{}[],:").find(text[i]) != std::string_view::npos)
      place = i;
  }
  std::string result(text);
  if (place != std::string_view::npos) result.insert(place, 530'000, ' ');
  return result;
}

void check(std::string_view text, std::size_t from) {
  FileBytes bytes = fileBytesOf(text);
  const auto decoded = decodeProject(bytes);
  require(bytes.view() == text, "the bytes stay");
  if (decoded) {
    const std::string written = encoded(decoded.value());
    FileBytes again = fileBytesOf(written);
    const auto second = decodeProject(again);
    require(second.ok(), "what was written can be read");
    require(second.value() == decoded.value(), "what was written reads as the same project");
    require(encoded(second.value()) == written, "and is written as the same document");
  } else {
    require(!decoded.error().reason.empty(), "a refusal has its reason");
  }
  if (text.size() % (decoded ? 4 : 32) != 0) return; // stretching takes its time
  const std::string longText = stretched(text, from);
  FileBytes longBytes = fileBytesOf(longText);
  const auto longDecoded = decodeProject(longBytes);
  require(longDecoded.ok() == decoded.ok(),
          "space between tokens makes no document and spoils none");
  require(!decoded || longDecoded.value() == decoded.value(), "slices read as the whole");
}

} // namespace
} // namespace quillery::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::size_t from = (static_cast<std::size_t>(data[0]) << 4) + data[1] / 16;
  quillery::test::check(quillery::test::textOf(data + 2, size - 2), from);
  return 0;
}
