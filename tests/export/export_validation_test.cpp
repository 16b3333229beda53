#include "base/unicode.h"
#include "export/export_fixes.h"
#include "export/export_validation.h"
#include "support/document.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

const std::string kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// A glyph of the name, and one for each character of the text and each of the longer ones.
FontProject projectOf(std::string_view text, const std::string& name,
                      const std::vector<std::string>& more = {}) {
  FontProject project;
  project.glyphs.push_back(makeGlyph(name));
  for (const auto character : characters(text))
    project.glyphs.push_back(makeGlyph("", std::string(character)));
  for (const std::string& character : more) project.glyphs.push_back(makeGlyph("", character));
  return project;
}

TEST(ExportValidation, FindsWhatTheFontLacks) {
  const std::string noSpace = "🔴Missing Space Character\n";
  const std::string noNotdef = "🟡Missing .notdef Glyph\n";
  const std::string few = "🔵Incomplete Character Set\n";
  const std::string capitals = "🔵Incomplete Uppercase\n25 uppercase letters: ";
  const std::string noPunctuation = "🔵No Punctuation\n";
  const std::tuple<const char*, FontProject, std::string> rows[] = {
      {"nothing at all", FontProject(), noSpace + noNotdef + few},
      {"complete", projectOf(kAlphabet + " .", "notdef"), ""},
      {"only texts that begin with a space", projectOf("", ".NOTDEF", {"  ", "A."}),
       noSpace + few + capitals + "BCDEFGHIJKLMNOPQRSTUVWXYZ\n"},
      {"an accented capital is not the plain one", projectOf("A\u0301 ", ".notdef", {"BQ"}),
       few + capitals + "ACDEFGHIJKLMNOPQRSTUVWXYZ\n"},
      {"ten glyphs", projectOf("abcdefgh ", "a"), noNotdef + few},
      {"eleven glyphs", projectOf("abcdefghi ", "a"), noNotdef + few + noPunctuation},
      {"25 glyphs", projectOf("abcdefghijklmnopqrstuv ?", "a"), noNotdef + few},
      {"26 glyphs", projectOf("abcdefghijklmnopqrstuvw ,", "a"), noNotdef},
  };
  for (const auto& [name, project, expected] : rows) {
    std::string found;
    for (const ExportWarning& w : validateForExport(project))
      found += std::string(severityMark(w.severity)) + w.title + "\n" +
               (w.message.starts_with("Missing ") ? w.message.substr(8) + "\n" : "");
    EXPECT_EQ(found, expected) << name;
  }
}

TEST(ExportWarnings, AreFixedByGlyphsAtTheFront) {
  Document d;
  addSpaceGlyph(d.manager);
  addSpaceGlyph(d.manager); // a second one is no obstacle
  addNotdefGlyph(d.manager);
  EXPECT_EQ(glyphNames(d.project()), ".notdef space space");
  const auto& glyphs = d.project().glyphs;
  EXPECT_NE(glyphs[2].id(), glyphs[1].id());
  EXPECT_EQ(glyphs[1].unicode(), " ");
  EXPECT_EQ(glyphs[1].advanceWidth(), 250);
  EXPECT_EQ(glyphs[1].leftSideBearing() + glyphs[1].rightSideBearing(), 0);
  EXPECT_EQ(glyphs[0].unicode(), std::nullopt);
  EXPECT_EQ(glyphs[0].advanceWidth(), 500);
  EXPECT_EQ(glyphs[0].boundingBox(), (Rect{50, -150, 400, 900}));
  EXPECT_EQ(controlBox(glyphs[0].fontPath()), glyphs[0].boundingBox());
  EXPECT_EQ(glyphs[0].record().svgPath.view(),
            "M 50.0 -150.0 L 450.0 -150.0 L 450.0 750.0 L 50.0 750.0 Z");
  for (const ExportWarning& warning : validateForExport(d.project()))
    EXPECT_FALSE(warning.fixAction) << warning.title;
}

} // namespace
} // namespace quillery::test
