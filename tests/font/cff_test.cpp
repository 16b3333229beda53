#include "font/cff_dictionary.h"
#include "font/charstring_reader.h"
#include "font/outline_tables.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quillery::font {
namespace {

const Outline kBox = {
    {{50, 0},
     {{false, {}, {}, {550, 0}}, {false, {}, {}, {550, 700}}, {false, {}, {}, {50, 700}}}}};

struct Made {
  std::vector<DescribedGlyph> described;
  GlyphSet glyphs;
  Naming naming;
  OutlineStyle style;

  void add(const char* name, int advance, const Outline& outline) {
    described.push_back({name, std::nullopt, static_cast<double>(advance), outline});
    glyphs.glyphs.push_back({name, nullptr, described.size(), advance});
    for (std::size_t i = 0; i < described.size(); ++i) glyphs.glyphs[i].source = &described[i];
  }
  Result<OutlineTables, FontError> tables() const { return makeCffTables(glyphs, naming, style); }
};

Made family() {
  Made made;
  made.naming.family = "Plain";
  made.naming.style = "Regular";
  made.naming.postscript = "Plain-Regular";
  return made;
}

/// What stands in a CFF table, as far as it is at a known place.
struct Read {
  explicit Read(std::string_view table) {
    std::size_t at = 4;
    names = readIndex(table, at);
    top = readIndex(table, at).at(0);
    strings = readIndex(table, at);
    subroutines = readIndex(table, at);
    charset = at;
    const std::size_t operand = top.find(Bytes("\x11")) - 4; // behind four bytes of an offset
    std::size_t start = 0;
    for (std::size_t i = operand; i < operand + 4; ++i)
      start = start << 8 | static_cast<unsigned char>(top[i]);
    charstrings = readIndex(table, start);
    EXPECT_EQ(start, table.size());
  }
  std::vector<Bytes> names, strings, subroutines, charstrings;
  Bytes top;
  std::size_t charset;
};

TEST(CffTest, theTableHasNamesWidthsAndDrawings) {
  Made made = family();
  made.add(".notdef", 500, {});
  made.add("A", 600, kBox);
  made.add("A.alt", 600, kBox);
  made.add("wide", 65535, {});
  const auto tables = made.tables();
  ASSERT_TRUE(tables);
  EXPECT_EQ(tables.value().boxes[0], std::nullopt);
  EXPECT_EQ(tables.value().boxes[1], (Box{50, 0, 550, 700}));
  EXPECT_EQ(tables.value().tables[1].data, Bytes("\0\0\x50\0\0\x04", 6));
  const Bytes& table = tables.value().tables[0].data;
  const Read read(table);
  EXPECT_EQ(read.names, std::vector<Bytes>{"Plain-Regular"});
  EXPECT_EQ(read.strings, (std::vector<Bytes>{"A.alt", "wide", "1.000", "Plain"}));
  EXPECT_EQ(table.substr(read.charset, 7), Bytes("\0\0\x22\1\x87\1\x88", 7)); // 34, 391, 392
  std::vector<std::optional<int>> widths;
  for (const Bytes& charstring : read.charstrings) {
    CharstringReader reader(read.subroutines);
    reader.read(charstring);
    widths.push_back(reader.width);
    EXPECT_EQ(reader.drawn.size(), widths.size() == 2 || widths.size() == 3 ? 4U : 0U);
  }
  // From the nominal width, which keeps the widest one within 16 bits; the default one is left out.
  EXPECT_EQ(widths,
            (std::vector<std::optional<int>>{500 - 32768, std::nullopt, std::nullopt, 32767}));
}

TEST(CffTest, aDrawingLongerThanACharstringFails) {
  Made made = family();
  Outline outline{{{0, 0}, {}}};
  for (int i = 0; i < 20000; ++i)
    outline[0].segments.push_back(
        {false, {}, {}, {i % 2 * 400.0, 1.0 + i % 7 * 1.0 + i % 3 * 300.0}});
  made.add("scribble", 600, outline);
  const auto tables = made.tables();
  ASSERT_FALSE(tables);
  EXPECT_TRUE(
      tables.error().sentence.starts_with("The drawing of glyph \"scribble\" has too many points"))
      << tables.error().sentence;
}

TEST(CffTest, numbersAreWhatDictionariesHave) {
  EXPECT_EQ(CffDictionary().real(-12.5).op(0x0C02).bytes(), Bytes("\x1E\xE1\x2A\x5F\x0C\x02"));
  EXPECT_EQ(CffDictionary().real(1.0 / 2048).bytes(), Bytes("\x1E\x0A\x00\x04\x88\x28\x12\x5F", 8));
  EXPECT_EQ(CffDictionary().integer(-107).integer(108).integer(-40000).bytes(),
            Bytes("\x20\xF7\x00\x1D\xFF\xFF\x63\xC0", 8));
}

} // namespace
} // namespace quillery::font
