#include "app/command_line.h"
#include "base/utf8.h"
#include "support/console_capture.h"
#include "support/random_projects.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillery::test {
namespace {

// Sends what is written to standard error nowhere while it lives.
class NoErrors {
public:
  NoErrors() : saved_(dup(STDERR_FILENO)) {
    const Descriptor nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC));
    dup2(nowhere.get(), STDERR_FILENO);
  }
  ~NoErrors() { dup2(saved_.get(), STDERR_FILENO); }

private:
  Descriptor saved_;
};

struct Run {
  int status;
  std::string output;
};

Run run(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "quillery");
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  const NoErrors quiet;
  ConsoleCapture console;
  const auto status = runCommandLine(static_cast<int>(argv.size()), argv.data(), {}, {});
  return {static_cast<int>(status), console.text()};
}

class RandomArguments {
public:
  explicit RandomArguments(std::string drawing) : drawing_(std::move(drawing)) {}

  std::vector<std::string> next(const std::string& project) {
    switch (random_() % 5) {
    case 0:
      return with({"import", project, drawing_}, {{"--name", 1}, {"--units-per-em", 1}});
    case 1:
      return with({"metrics", project, random_() % 2 == 0 ? "--all" : text()},
                  {{"--left-side-bearing", 1},
                   {"--right-side-bearing", 1},
                   {"--advance-width", 1},
                   {"--vertical-offset", 1},
                   {"--scale", 1}});
    case 2:
      return with({"kern", project}, {{"--common", 0}, {"--set", 3}, {"--delete", 2}});
    case 3:
      return {"check", project, "--fix"};
    default:
      return {"convert", project, "-o", project};
    }
  }

private:
  std::string pick(std::initializer_list<const char*> from) {
    return from.begin()[random_() % from.size()];
  }
  std::string text() {
    return pick({"A", "V", "", "ä", "A\u0308", "\xff", "\xC3", "\xED\xA0\x80", "a\nb", "\\", "T"});
  }
  std::string number() {
    return pick({"0", "-0", "1", "-5", "2.5", "1e308", "-1e308", "1e-320", "1e400", "inf", "nan",
                 "0x10", "", " 1", "1000", "9223372036854775807", "9223372036854775808", "\xff"});
  }
  std::vector<std::string> with(std::vector<std::string> arguments,
                                const std::vector<std::pair<const char*, int>>& options) {
    for (auto n = random_() % 3; n > 0; --n) {
      const auto& [option, values] = options[random_() % options.size()];
      arguments.emplace_back(option);
      const bool isName = arguments.back() == "--name";
      for (int i = 1; i <= values; ++i)
        arguments.push_back(i < values || values == 2 || isName ? text() : number());
      if (values == 1) { // a value that begins with a dash is no option then
        const std::string value = arguments.back();
        arguments.pop_back();
        arguments.back() += "=" + value;
      }
    }
    return arguments;
  }

  std::mt19937_64 random_{17};
  std::string drawing_;
};

// What the program accepts, it can write, and what it writes, it reads; what it refuses changes
// nothing. Whatever the arguments, and whatever the document says that it can say.
TEST(Entrance, LetsNothingInThatCannotBeWrittenAndReadAgain) {
  // Hundreds of saves, each flushed: in memory where there is a folder for that.
  const fs::path memory = "/dev/shm";
  const TemporaryFolder folder(fs::is_directory(memory) ? memory : fs::temp_directory_path());
  RandomProjects projects;
  RandomArguments arguments(folder.write("A.svg", "<path d=\"M0 0 L30 70\"/>"));
  const std::string file = folder / "p.fontproj";
  const std::string copy = folder / "copy.fontproj";
  std::map<int, int> seen;
  for (int i = 0; i < 400; ++i) {
    const std::string kind = std::to_string(i);
    if (i % 4 == 0) {
      FontProject project = projects.next();
      if (projects.random() % 2 == 0) project.unitsPerEm = -5 * (i % 2);
      if (projects.random() % 2 == 0)
        project.glyphs.insert(project.glyphs.end(), project.glyphs.begin(), project.glyphs.end());
      folder.write("p.fontproj", encoded(project));
    } else if (i % 97 == 1) {
      fs::remove(file);
    }
    const bool existed = fs::exists(file);
    const std::string before = contentOf(file);
    const auto words = arguments.next(file);
    std::string line;
    for (const std::string& word : words) line += escaped(word) + " ";
    SCOPED_TRACE(line);
    const int status = run(words).status;
    ++seen[status];
    if (status >= 2) {
      ASSERT_EQ(fs::exists(file), existed);
      ASSERT_TRUE(contentOf(file) == before);
    } else {
      ASSERT_EQ(run({"convert", file, "-o", copy}).status, 0);
      ASSERT_EQ(run({"convert", copy, "-o", file}).status, 0);
      ASSERT_TRUE(contentOf(file) == contentOf(copy)) << "the second time it reads the same";
    }
    for (const auto& entry : fs::directory_iterator(folder.path()))
      ASSERT_NE(entry.path().extension(), ".tmp");
  }
  for (const int status : {0, 1, 2, 3}) EXPECT_GT(seen[status], 4) << status;
}

TEST(Entrance, TellsWrongArgumentsAndTakesEmptyOnes) {
  const TemporaryFolder folder;
  const std::string file = folder.write("p.fontproj", encoded(FontProject()));
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"kern", file, "--set", "\xff", "V", "-80"},
        {"kern", file, "--filter", "\xff"},
        {"import", folder / "new.fontproj", "A.svg", "--name", "a\xC0"},
        {"import", folder / "new.fontproj", "A.svg", "--units-per-em", "0"},
        {"import", folder / "new.fontproj", "A.svg", "--units-per-em=-5"},
        {"metrics", file, "--all", "--scale", "0"},
        {"metrics", file, "--all", "--scale=-1"},
        {"metrics", file, "--all", "--advance-width", "1e999"},
        {"metrics", file, "\xff"},
        {"preview", file, "--text", "\xff", "-o", folder / "x.svg"},
        {"preview", file, "--text", "A", "--size", "0", "-o", folder / "x.svg"}})
    EXPECT_EQ(run(words).status, 2) << escaped(words[2]) << escaped(words.back());
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1) << "nothing was written";
  EXPECT_EQ(run({"preview", file, "--text=", "-o", folder / "x.svg"}).status, 0);
  FontProject noEm;
  noEm.unitsPerEm = 0;
  const std::string flat = folder.write("flat.fontproj", encoded(noEm));
  for (const char* picture : {"y.svg", "y.json", "y.pdf"}) {
    EXPECT_EQ(run({"preview", flat, "--text", "A", "-o", folder / picture}).status, 3) << picture;
    EXPECT_FALSE(fs::exists(folder / picture));
  }
  EXPECT_EQ(escaped("a\xff\n\u00E4\xE2\x82"), "a\\xFF\\x0A\u00E4\\xE2\\x82");
}

TEST(Entrance, PrintsTablesThatProgramsRead) {
  const TemporaryFolder folder;
  FontProject project;
  project.glyphs = {makeGlyph("A", "A\u0308"), makeGlyph("tab\there\\")};
  project.kerningPairs = {makePair("A", "quote\"", -0.5)};
  const std::string file = folder.write("p.fontproj", encoded(project));
  EXPECT_EQ(run({"metrics", file, "--tsv"}).output,
            "glyph\tcharacter\tadvanceWidth\tleftSideBearing\trightSideBearing\tverticalOffset\t"
            "scale\nA\t\u00C4\t600\t50\t50\t0\t1\ntab\\there\\\\\t\t600\t50\t50\t0\t1\n");
  EXPECT_EQ(run({"kern", file, "--json"}).output,
            "[\n  {\"left\": \"A\", \"right\": \"quote\\\"\", \"value\": -0.5}\n]\n");
  EXPECT_THAT(
      run({"check", file, "--json"}).output,
      ::testing::StartsWith("[\n  {\"severity\": \"critical\", \"title\": \"Missing Space"));
  EXPECT_EQ(run({"kern", file, "--json", "--tsv"}).status, 2);
  EXPECT_THAT(run({"kern", file}).output, ::testing::EndsWith("A quote\" -0.5\n"));
}

} // namespace
} // namespace quillery::test
