#include "base/unicode.h"
#include "export/export_fixes.h"
#include "export/export_validation.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

namespace quillery::test {
namespace {

const std::string kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// A glyph of the name, and one for each character of the text and each of the longer ones.
FontProject projectOf(std::string_view text, const std::string& name,
                      std::vector<std::string> more = {}) {
  FontProject project;
  for (const std::string_view character : characters(text)) more.emplace_back(character);
  GlyphRecord glyph;
  glyph.name = name;
  project.glyphs.emplace_back(glyph);
  for (const std::string& character : more) {
    glyph.name.clear();
    glyph.unicode = character;
    project.glyphs.emplace_back(glyph);
  }
  return project;
}

TEST(ExportValidation, FindsWhatTheFontLacks) {
  const std::string noSpace = "🔴Missing Space Character: Your font doesn't have a space character. "
                              "Text will not display correctly without it.\n";
  const std::string noNotdef =
      "🟡Missing .notdef Glyph: Fonts should have a .notdef glyph for missing "
      "characters. Some apps may show errors without it.\n";
  const auto few = [](int count) {
    return "🔵Incomplete Character Set: Your font has only " + std::to_string(count) +
           " glyphs. Consider adding A-Z at minimum for basic usability.\n";
  };
  const std::string capitals = "🔵Incomplete Uppercase: Missing ";
  const std::string noPunctuation =
      "🔵No Punctuation: Consider adding basic punctuation (. , ! ?) for a more complete font.\n";
  const std::tuple<const char*, FontProject, std::string> rows[] = {
      {"nothing at all", FontProject(), noSpace + noNotdef + few(0)},
      {"complete", projectOf(kAlphabet + " .", "notdef"), ""},
      {"only texts that begin with a space", projectOf("", ".NOTDEF", {"  ", "A."}),
       noSpace + few(3) + capitals + "25 uppercase letters: BCDEFGHIJKLMNOPQRSTUVWXYZ\n"},
      {"an accented capital is not the plain one", projectOf("A\u0301 ", ".notdef", {"BQ"}),
       few(4) + capitals + "25 uppercase letters: ACDEFGHIJKLMNOPQRSTUVWXYZ\n"},
      {"ten glyphs", projectOf("abcdefgh ", "a"), noNotdef + few(10)},
      {"eleven glyphs", projectOf("abcdefghi ", "a"), noNotdef + few(11) + noPunctuation},
      {"25 glyphs", projectOf("abcdefghijklmnopqrstuv ?", "a"), noNotdef + few(25)},
      {"26 glyphs", projectOf("abcdefghijklmnopqrstuvw ,", "a"), noNotdef},
  };
  for (const auto& [name, project, expected] : rows) {
    std::string found;
    for (const ExportWarning& w : validateForExport(project))
      found += std::string(severityMark(w.severity)) + w.title + ": " + w.message + "\n";
    EXPECT_EQ(found, expected) << name;
  }
}

class ExportWarnings : public testing::Test {
protected:
  ScriptedDesktop desktop;
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
};

TEST_F(ExportWarnings, AreListedInAnAlertThatAsksWhetherToGoOn) {
  const auto warnings = validateForExport(projectOf(kAlphabet + ".abc", ".notdef"));
  std::vector<bool> answers;
  for (const auto button : {std::optional<std::size_t>(0), std::optional<std::size_t>(1), {}}) {
    desktop.alertAnswer = button;
    showExportWarningsAlert(manager, warnings, [&](bool answer) { answers.push_back(answer); });
    EXPECT_EQ(desktop.alerts.size(), answers.size()) << "the alert comes before the caller returns";
    desktop.runPosted();
  }
  EXPECT_EQ(answers, (std::vector<bool>{true, false, false}));
  const Alert expected = {"Export Warnings",
                          "The following issues were found:\n\n🔴 Missing Space Character\n"
                          "Your font doesn't have a space character. Text will not display "
                          "correctly without it.\n\nDo you want to continue with export?",
                          Alert::Style::critical,
                          {"Export Anyway", "Cancel"}};
  EXPECT_EQ(desktop.alerts.back(), expected);
  const auto hints = validateForExport(projectOf(" ", ".notdef"));
  EXPECT_EQ(exportWarningsAlert(hints).style, Alert::Style::warning);
}

TEST_F(ExportWarnings, AreFixedByGlyphsAtTheFront) {
  addSpaceGlyph(manager);
  addSpaceGlyph(manager); // a second one is no obstacle
  addNotdefGlyph(manager);
  const auto& glyphs = manager.currentProject().glyphs;
  ASSERT_EQ(glyphs.size(), 3u);
  EXPECT_NE(glyphs[2].id(), glyphs[1].id());

  GlyphRecord expected;
  expected.id = glyphs[1].id();
  expected.unicode = " ";
  expected.name = "space";
  expected.viewBox = {0, 0, 250, 1000};
  expected.advanceWidth = 250;
  expected.leftSideBearing = expected.rightSideBearing = 0;
  EXPECT_EQ(glyphs[1].record(), expected);

  expected.id = glyphs[0].id();
  expected.unicode.reset();
  expected.name = ".notdef";
  expected.svgPath = SharedText("M 50.0 -150.0 L 450.0 -150.0 L 450.0 750.0 L 50.0 750.0 Z");
  expected.viewBox = {0, -200, 500, 1000};
  expected.advanceWidth = 500;
  expected.boundingBox = {50, -150, 400, 900};
  expected.fontPath = {PathCommand::moveTo({50, -150}), PathCommand::lineTo({450, -150}),
                       PathCommand::lineTo({450, 750}), PathCommand::lineTo({50, 750}),
                       PathCommand::closePath()};
  EXPECT_EQ(glyphs[0].record(), expected);

  EXPECT_FALSE(manager.undoManager().canUndo());
  for (const ExportWarning& warning : validateForExport(manager.currentProject()))
    EXPECT_FALSE(warning.fixAction) << warning.title;
}

} // namespace
} // namespace quillery::test
