#include "export/fake_program.h"
#include "export/font_generator.h"
#include "support/console_capture.h"
#include "support/scripted_desktop.h"
#include "support/testing.h"

#include <set>
#include <thread>

namespace quillery::test {
namespace {

using namespace testing;

// Knows fontTools while the file python3.fonttools lies beside it; else runs the script with sh.
constexpr const char* kFakePython =
    "[ \"$*\" = '-c import fontTools' ] && exec test -e \"$0.fonttools\"\n"
    "[ \"$1\" = -u ] && script=$2 && shift 2 && . \"$script\"";

class FontGeneratorTest : public Test {
protected:
  FontGenerator generator() { return FontGenerator(desktop, places); }

  // The description of the error, or "done".
  std::string outcomeOf(const fs::path& output) {
    std::vector<std::string> outcomes;
    generator().generateFont(FontProject(), output,
                             [&, mainThread = std::this_thread::get_id()](const auto& result) {
                               EXPECT_EQ(std::this_thread::get_id(), mainThread);
                               outcomes.push_back(result ? "done" : result.error().description);
                             });
    EXPECT_TRUE(outcomes.empty()) << "completed before the call returned";
    desktop.runUntil([&] { return !outcomes.empty(); });
    desktop.runPosted();
    EXPECT_EQ(outcomes.size(), 1u);
    return outcomes.front();
  }

  TemporaryFolder folder;
  TemporaryFiles temporary;
  ScriptedDesktop desktop;
  fs::path python = writeProgram(folder / "python3", kFakePython);
  fs::path packaged = folder / "resources/generate_font/generate_font";
  fs::path script = folder / "resources/generate_font.py";
  GeneratorPlaces places = {folder / "resources", {}, {}, {folder / "absent", python}};
};

TEST_F(FontGeneratorTest, IsFoundWhereTheBestOneLies) {
  const fs::path bundle =
      writeProgram(folder / "resources/generate_font.app/Contents/MacOS/generate_font", "");
  writeProgram(packaged, "");
  folder.write("resources/generate_font.py", "");
  const fs::path fontTools = folder.write("python3.fonttools", "");
  places.developmentExecutable = writeProgram(folder / "development", "");
  places.developmentScript = folder.write("development.py", "");
  const std::string withPython = "Using Python + fontTools";
  const std::pair<fs::path, std::string> rows[] = {
      // what is taken away for the next row
      {bundle, "Using py2app font generator"},
      {packaged, "Using PyInstaller font generator"},
      {places.developmentExecutable, "Using development executable"},
      {script, withPython},
      {places.developmentScript, withPython},
      {fontTools, withPython},
      {python, "fontTools not installed. Run: pip3 install fonttools"},
      {"", "Python 3 not found. Please install Python 3 or use the bundled app version."}};
  ConsoleCapture console;
  for (const auto& [found, message] : rows) {
    const auto availability = generator().checkGeneratorAvailability();
    EXPECT_EQ(availability.message, message);
    EXPECT_EQ(availability.available, message.starts_with("Using"));
    const auto location = generator().findGenerator();
    EXPECT_EQ(location.ok(), message.starts_with("Using") && found != fontTools) << message;
    if (location) {
      const auto& [program, usedScript, usesPython] = location.value();
      EXPECT_EQ(usesPython, message == withPython);
      EXPECT_EQ(program, usesPython ? python : found);
      EXPECT_EQ(usedScript, usesPython ? std::optional(found) : std::nullopt);
    }
    GeneratorPlaces chosen = places;
    chosen.only = GeneratorKind::native;
    EXPECT_EQ(FontGenerator(desktop, chosen).findGenerator().ok(),
              location && !location.value().usesPython);
    chosen.only = GeneratorKind::python;
    const auto scripted = FontGenerator(desktop, chosen).findGenerator();
    EXPECT_TRUE(!scripted || scripted.value().usesPython);
    // What may not be run is passed over like what is absent.
    if (found == packaged)
      fs::permissions(packaged, fs::perms::owner_read);
    else
      fs::remove(found);
  }
}

TEST_F(FontGeneratorTest, TellsHowTheGenerationEnded) {
  const std::string failed = "Font generation failed: ";
  const std::string crashed = failed + "Process crashed with signal 9";
  const std::string exited = failed + "Process exited with code ";
  ConsoleCapture console;
  std::ptrdiff_t kept = 0;
  const auto expect = [&](const std::string& expected, const char* body) {
    EXPECT_EQ(outcomeOf(folder / "font.otf"), expected) << body;
    if (expected != "done") ++kept;
    EXPECT_EQ(temporary.count(), kept) << body;
  };
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"printf complaint >&2", "done", "done"},
      {"printf boom >&2; exit 2", failed + "boom", failed + "boom"},
      {"exit 1", failed, failed},
      {"printf '\\377' >&2; exit 3", exited + "3", exited + "3"},
      {"printf boom >&2; kill -9 $$", crashed, failed + "boom"},
      {"printf '\\377' >&2; kill -9 $$", crashed, exited + "9"},
  };
  for (const auto& [body, fromPackaged, fromPython] : rows) {
    writeProgram(script, body);
    expect(fromPython, body);
    writeProgram(packaged, body);
    expect(fromPackaged, body);
    fs::remove(packaged);
  }
  fs::permissions(python, fs::perms::owner_read);
  expect("Could not run " + python.string() + ": Permission denied", "no right to run Python");
  fs::remove(script);
  expect("Font generator not found. The app may be corrupted.", "no script");
}

TEST_F(FontGeneratorTest, DescribesAProjectOnceForSeveralFonts) {
  writeProgram(packaged, "case \"$2\" in *.bad) exit 1; esac; printf %s \"$1\" >\"$2\"");
  ConsoleCapture console;
  const auto make = [&](const std::vector<fs::path>& fonts) {
    std::set<fs::path> made, refused;
    generator().generateFonts(FontProject(), fonts, [&](const fs::path& font, const auto& result) {
      (result ? made : refused).insert(font);
    });
    desktop.runUntil([&] { return made.size() + refused.size() == fonts.size(); });
    return made;
  };
  const fs::path otf = folder / "a.otf", woff2 = folder / "a.woff2", bad = folder / "a.bad";
  EXPECT_EQ(make({otf, woff2}), (std::set{otf, woff2}));
  EXPECT_EQ(contentOf(otf), contentOf(woff2));
  EXPECT_EQ(temporary.count(), 0);
  EXPECT_EQ(make({otf, bad, woff2}), (std::set{otf, woff2}));
  EXPECT_EQ(temporary.count(), 1) << "what the failed one was told stays";
}

} // namespace
} // namespace quillery::test
