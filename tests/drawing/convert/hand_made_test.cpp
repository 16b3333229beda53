#include "base/file.h"
#include "drawing/converter.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <map>
#include <regex>

namespace quillery {
namespace {

// The drawings in tests/drawings, one for each feature. Every conversion is compared with a
// rendering and traced when it differs, so one that is not traced is right.
TEST(HandMadeDrawings, AreConvertedByTheirOwnCurvesOrRefusedInWords) {
  const std::filesystem::path folder = std::filesystem::path(QUILLERY_TESTS) / "drawings";
  const simdjson::padded_string json =
      simdjson::padded_string::load((folder / "expected.json").string());
  simdjson::dom::parser parser;
  const simdjson::dom::element expected = parser.parse(json);
  const auto wordsOf = [&](const char* kind) {
    std::map<std::string, std::string> words;
    for (const auto& [name, pattern] : simdjson::dom::object(expected[kind]))
      words[std::string(name)] = std::string(std::string_view(pattern));
    return words;
  };
  const auto refused = wordsOf("refused"), noted = wordsOf("noted");
  ConversionLimits limits;
#ifdef __SANITIZE_ADDRESS__
  limits.bytes = std::size_t{1} << 46; // the sanitizer keeps a map of all memory
  limits.time *= 5;
#endif
  DrawingConverter converter(QUILLERY_CONVERTER, limits);
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".svg") continue;
    ++count;
    const std::string name = entry.path().filename();
    FileBytes bytes;
    ASSERT_TRUE(readFile(entry.path(), bytes));
    const auto flat = converter.flatten(bytes.view());
    if (const auto words = refused.find(name); words != refused.end()) {
      ASSERT_FALSE(flat) << name;
      EXPECT_TRUE(std::regex_search(flat.error(), std::regex(words->second)))
          << name << ": " << flat.error();
      continue;
    }
    ASSERT_TRUE(flat) << name << ": " << flat.error();
    std::string notes;
    for (const Utf8& note : flat.value().notes) notes += note + "; ";
    EXPECT_EQ(notes.find("traced"), std::string::npos) << name << ": " << notes;
    if (const auto words = noted.find(name); words != noted.end()) {
      EXPECT_TRUE(std::regex_search(notes, std::regex(words->second))) << name << ": " << notes;
    }
  }
  EXPECT_GT(count, 80U);
}

} // namespace
} // namespace quillery
