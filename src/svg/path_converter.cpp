#include "svg/path_converter.h"

#include "base/numbers.h"
#include "base/unicode.h"

#include <string>
#include <vector>

namespace quillery::PathConverter {
namespace {

// A letter, or a run of text between letters and spaces that should be a number.
struct Token {
  char command = 0; // 0 for a number; 'x' for a letter that is no command
  std::string_view number;
};

bool isAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char commandOf(char letter) {
  switch (letter) {
  case 'M':
  case 'm':
    return 'M';
  case 'L':
  case 'l':
    return 'L';
  case 'C':
  case 'c':
    return 'C';
  case 'Z':
  case 'z':
    return 'Z';
  default:
    return 'x';
  }
}

// The text with every character outside ASCII replaced by one of the same effect: a letter that is
// no command, a space that counts at the ends of a run only, or something that spoils a number.
std::string foldedToAscii(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (const std::string_view character : characters(text)) {
    if (isAscii(character)) {
      folded += character;
      continue;
    }
    const char32_t first = *firstScalar(character);
    const bool single = scalarText(first) == character;
    folded += isLetter(first) ? 'x' : single && isSpace(first) ? '\t' : '?';
  }
  return folded;
}

// Splits what stands between two letters at its spaces and commas. Tabs count as spaces at the
// ends only; inside they spoil the number that they stand in.
void appendNumbers(std::string_view run, std::vector<Token>& tokens) {
  const auto isSeparator = [](char c) { return c == ' ' || c == ','; };
  const auto isTrimmed = [&](char c) { return isSeparator(c) || c == '\t'; };
  while (!run.empty() && isTrimmed(run.back())) run.remove_suffix(1);
  std::size_t i = 0;
  while (i < run.size() && isTrimmed(run[i])) ++i;
  while (i < run.size()) {
    std::size_t end = i + 1;
    while (end < run.size() && !isSeparator(run[end])) ++end;
    tokens.push_back({0, run.substr(i, end - i)});
    i = end + 1;
    while (i < run.size() && isSeparator(run[i])) ++i;
  }
}

std::vector<Token> tokenize(std::string_view text) {
  std::vector<Token> tokens;
  tokens.reserve(text.size() / 4);
  std::size_t runBegin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isAsciiLetter(text[i])) continue;
    appendNumbers(text.substr(runBegin, i - runBegin), tokens);
    tokens.push_back({commandOf(text[i]), {}});
    runBegin = i + 1;
  }
  appendNumbers(text.substr(runBegin), tokens);
  return tokens;
}

class Interpreter {
public:
  // The text is ASCII and outlives the interpreter.
  explicit Interpreter(std::string_view text) : tokens_(tokenize(text)) {}

  std::vector<PathCommand> run() {
    commands_.reserve(tokens_.size() / 4 + 1);
    char command = 0;
    std::size_t i = 0;
    while (i < tokens_.size()) {
      if (tokens_[i].command != 0) {
        command = tokens_[i].command;
        if (command == 'Z') commands_.push_back(PathCommand::closePath());
        ++i;
      } else {
        i += appendGroup(command, i);
      }
    }
    return std::move(commands_);
  }

private:
  // Reads the numbers of one command from token i; returns how many tokens are done with. A group
  // with a bad number is tried again one token further on.
  std::size_t appendGroup(char command, std::size_t i) {
    PathCommand read;
    if (command == 'M')
      read.kind = PathCommand::Kind::moveTo;
    else if (command == 'L')
      read.kind = PathCommand::Kind::lineTo;
    else if (command == 'C')
      read.kind = PathCommand::Kind::curveTo;
    else
      return 1;
    const std::size_t needed = 2 * read.pointCount();
    if (tokens_.size() - i < needed) return 1;
    for (std::size_t k = 0; k < needed; ++k) {
      const auto number = parseDecimal(tokens_[i + k].number);
      if (!number) return 1;
      (k % 2 == 0 ? read.points[k / 2].x : read.points[k / 2].y) = *number;
    }
    commands_.push_back(read);
    return needed;
  }

  std::vector<Token> tokens_;
  std::vector<PathCommand> commands_;
};

} // namespace

Outline parsePathData(std::string_view pathData) {
  if (isAscii(pathData)) return Interpreter(pathData).run();
  const std::string folded = foldedToAscii(pathData);
  return Interpreter(folded).run();
}

PlacedOutline placeInEm(const Outline& outline, const Rect& viewBox, double unitsPerEm) {
  constexpr double kDrawingUnitsPerEm = 100;
  const double scale = unitsPerEm / kDrawingUnitsPerEm;
  const double left = viewBox.minX();
  const double bottom = viewBox.maxY();
  PlacedOutline placed;
  const PlacedCommands drawn = outline.commands();
  std::vector<PathCommand> commands(drawn.begin(), drawn.end());
  for (PathCommand& command : commands)
    for (std::size_t i = 0; i < command.pointCount(); ++i) {
      Point& p = command.points[i];
      p = {scale * (p.x - left), scale * (bottom - p.y)};
    }
  placed.fontPath = std::move(commands);
  placed.boundingBox = controlBox(placed.fontPath);
  return placed;
}

PlacedOutline convertToFontCoordinates(std::string_view pathData, const Rect& viewBox,
                                       double unitsPerEm) {
  return placeInEm(parsePathData(pathData), viewBox, unitsPerEm);
}

} // namespace quillery::PathConverter
