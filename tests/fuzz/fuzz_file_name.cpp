#include "base/unicode.h"
#include "fuzz/fuzzing.h"
#include "svg/glyph_identity.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillery;
  using test::require;
  const std::string fileName = replaceInvalidUtf8(test::textOf(data, size));
  require(isValidUtf8(fileName), "mended text is valid");
  const std::string name = glyphNameForFileName(fileName);
  require(!name.empty() && isValidUtf8(name), "a name is never empty");
  require(!isAscii(fileName) || fileName.empty() || name == fileName, "plain names stay");
  const auto character = unicodeForFileName(fileName);
  require(!character || (!character->empty() && isValidUtf8(*character)), "a character is a text");
  std::string joined;
  for (const auto part : characters(fileName)) joined += part;
  require(joined == fileName && compareNames(fileName, composed(fileName)) == 0,
          "characters make up the text");
  return 0;
}
