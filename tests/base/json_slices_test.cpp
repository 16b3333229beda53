#include "base/json_slices.h"
#include "model/project_file.h"
#include "support/file_bytes.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(SliceJsonObject, LeavesWhatIsNotPlainToTheParser) {
  for (const char* text :
       {"", "[]", "{", R"({"a":[1)", R"({"a":[1}])", R"({"a":[1]]})", R"({"a":["})",
        R"({"a":[1],"a":[2]})", R"({"\u0061":[1]})", R"({"a":[1,]})", R"({"a":[,1]})",
        R"({"a":[ ,1]})", R"({"a":[1,,2]})", R"({"a":[1, ,2]})", R"({"a":[1, 2, ]})", R"({"a" 1})",
        R"({"a":)", R"({1:2})"})
    EXPECT_FALSE(sliceJsonObject(text, {"a", "b"}, 1)) << text;
}

// Large enough that its document is read in several slices.
FontProject largeProject() {
  FontProject project;
  for (int i = 0; i < 1500; ++i) {
    GlyphRecord record = makeGlyph("glyph" + std::to_string(i) + "{\"[,\\",
                                   i % 3 == 0 ? std::nullopt : std::optional<std::string>("\"]}"))
                             .record();
    record.svgPath =
        SharedText(utf8(std::string(static_cast<std::size_t>(i % 300), '\\') + "],[\""));
    record.fontPath = {PathCommand::moveTo({i * 0.5, -1.0 / (i + 1)}), PathCommand::closePath()};
    project.glyphs.emplace_back(record);
    project.kerningPairs.push_back(makePair(record.name, "V", i));
  }
  return project;
}

std::string withSpaces(const std::string& text) {
  std::string result;
  bool inText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] == '"')
      inText = !inText;
    else if (inText && text[i] == '\\')
      result += text[++i];
    else if (!inText && std::string_view("[]{},:").find(text[i]) != std::string_view::npos)
      result += " \r\n\t ";
  }
  return result;
}

std::string replacedLast(std::string text, std::string_view from, std::string_view to) {
  return text.replace(text.rfind(from), from.size(), to);
}

// The error's description; empty when the document decodes to `expected`.
std::string decodedAs(const FontProject& expected, const std::string& text) {
  FileBytes bytes = fileBytesOf(text);
  const auto decoded = decodeProject(bytes);
  EXPECT_TRUE(bytes.view() == text) << "the bytes were changed";
  if (!decoded) return decoded.error().description();
  return decoded.value() == expected ? "" : "another project";
}

TEST(DecodeProject, ReadsLargeDocumentsAsItReadsSmallOnes) {
  const FontProject project = largeProject();
  const std::string text = encoded(project);
  ASSERT_GT(text.size(), 1'100'000U);
  std::string twice = text;
  twice.insert(1, "\"glyphs\" : [], \"kerningPairs\" : [ ],");
  for (const std::string& form :
       {text, "\xEF\xBB\xBF" + text, withSpaces(text),
        replacedLast(text, "\"kerningPairs\"", "\"kerningPair\\u0073\""), // not plain: read whole
        replacedLast(text, "\n}\n", ", \"x\" : 0}"), twice})
    EXPECT_EQ(decodedAs(project, form), "");
  FontProject huge = project;
  huge.kerningPairs.back().value = finite(1e30);
  EXPECT_EQ(decodedAs(huge, replacedLast(text, ": 1499", ": 1" + std::string(30, '0'))), "");
}

TEST(DecodeProject, NamesAFaultFarDownALargeDocument) {
  const FontProject project = largeProject();
  const std::string text = encoded(project);
  const auto error = [&](std::string_view from, std::string_view to) {
    return decodedAs(project, replacedLast(text, from, to));
  };
  EXPECT_EQ(error("\"advanceWidth\" : 600", "\"advanceWidth\" : null"),
            "glyphs[1499].advanceWidth: Expected a number");
  EXPECT_EQ(error("\"leftGlyph\"", "\"left\""),
            "kerningPairs[1499]: The member \"leftGlyph\" is missing");
  const auto line =
      std::count(text.begin(), text.begin() + std::ptrdiff_t(text.rfind("1499")), '\n') + 1;
  EXPECT_TRUE(error("\"value\" : 1499", "\"value\" : 14x9")
                  .starts_with("line " + std::to_string(line) + ", byte 19: Syntax error"));
  // An item that is missing among so much space that the space makes a slice of its own.
  const std::string space(600'000, ' ');
  for (const std::string list : {"\"glyphs\" : [", "\"kerningPairs\" : ["}) {
    EXPECT_EQ(error(list, list + " " + space), "");
    EXPECT_NE(error(list, list + space + ","), "") << list;
  }
  const std::string comma = "\n    },\n    {";
  EXPECT_NE(error(comma, "\n    }," + space + ",\n    {"), "");
  EXPECT_NE(error("\n  ]\n}\n", "," + space + "\n  ]\n}\n"), "");
}

} // namespace
} // namespace quillery::test
