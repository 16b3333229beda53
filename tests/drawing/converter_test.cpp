#include "drawing/converter.h"
#include "drawing/drawing_fields.h"
#include "export/fake_program.h"

#include <gtest/gtest.h>

#include <random>

namespace quillery {
namespace {

using namespace std::chrono_literals;

std::string shownBy(const std::string& program, std::string_view file = "<svg/>") {
  const test::TemporaryFolder folder;
  DrawingConverter converter(test::writeProgram(folder.path() / "program", program),
                             {.time = 60ms});
  const auto flat = converter.flatten(file);
  return flat ? flat.value().pathData.str() : flat.error();
}

// Says as a shell script what a process that draws drawings answers.
std::string answering(const Fields& fields) {
  std::string bytes;
  for (const char c : encodeMessage(fields)) {
    constexpr char kDigits[] = "01234567";
    const auto value = static_cast<unsigned char>(c);
    bytes += {'\\', '0', kDigits[value >> 6], kDigits[(value >> 3) & 7], kDigits[value & 7]};
  }
  return "head -c 18 >/dev/null; printf '%b' '" + bytes + "'; sleep 5";
}

TEST(DrawingConverter, SurvivesWhateverTheProcessDoes) {
  const std::string broken = "it can't be drawn: drawing it took more than 256 MB, or failed";
  EXPECT_EQ(shownBy("exit 0"), broken);
  EXPECT_EQ(shownBy("kill -9 $$"), broken);
  EXPECT_EQ(shownBy("printf '\\377\\377\\377\\377'; cat >/dev/null"), broken) << "too long";
  EXPECT_EQ(shownBy("yes"), broken);
  EXPECT_EQ(shownBy("sleep 60"), "it takes longer than 0 s");
  EXPECT_EQ(shownBy("sleep 60", std::string(3'000'000, ' ')), "it takes longer than 0 s")
      << "that does not read either";
  EXPECT_EQ(shownBy(answering({"refused", "no ink"})), "no ink");
  EXPECT_EQ(shownBy(answering({"done", "0", "0", "nan", "1", "", "M 0 0 Z", "0"})),
            "what was drawn can't be read");
  EXPECT_EQ(shownBy(answering({"done", "0", "0", "1", "1", "", "M 1 2 Z", "0"})), "M 1 2 Z");
  DrawingConverter absent("/nowhere/convert_drawing");
  EXPECT_EQ(absent.flatten("<svg/>").error(), "/nowhere/convert_drawing could not be started");
}

TEST(DrawingFields, ReadWhatTheyWroteAndNothingElse) {
  DrawingSheet sheet;
  sheet.guides = {{DrawingSheet::Guide::Kind::xHeight, -0.1}};
  sheet.lines = {1, 1};
  FlatDrawing drawing{Utf8("M 0 0 L 1e-7 2 Z"), {{0, 1, 2, 3}, -4.5}, {Utf8("ä"), Utf8("")}};
  sheet.letters = {{Utf8("A"), drawing}, {Utf8(""), drawing}};
  Fields fields;
  appendFields(fields, sheet);
  std::size_t at = 0;
  const auto read = readDrawingSheet(fields, at);
  ASSERT_TRUE(read && at == fields.size());
  EXPECT_EQ(read->letters[1].drawing, drawing);
  EXPECT_EQ(read->lines, sheet.lines);
  EXPECT_EQ(read->guides[0].y, -0.1);
  // Fields left out, doubled and garbled: read as something whole, or not at all.
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    Fields garbled = fields;
    std::string& field = garbled[random() % garbled.size()];
    switch (random() % 4) {
    case 0:
      garbled.erase(garbled.begin() + static_cast<std::ptrdiff_t>(random() % garbled.size()));
      break;
    case 1:
      field = std::to_string(random());
      break;
    case 2:
      field += "\xFF";
      break;
    default:
      field = "M";
    }
    at = 0;
    if (const auto other = readDrawingSheet(garbled, at)) {
      std::size_t onLines = 0;
      for (const std::size_t count : other->lines) onLines += count;
      EXPECT_EQ(onLines, other->letters.size());
    }
    std::string message = encodeMessage(garbled);
    message.resize(message.size() - random() % 3);
    decodeFields(std::string_view(message).substr(kLengthBytes));
  }
}

} // namespace
} // namespace quillery
