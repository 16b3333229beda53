#include "svg/path_data_notes.h"

#include <array>
#include <cstddef>
#include <utility>

namespace quillery {
namespace {

enum class Kind : unsigned char {
  other,
  digit,
  point,
  sign,
  exponent,
  separator,
  lineBreak,
  letter
};

constexpr std::array<Kind, 256> kKinds = [] {
  std::array<Kind, 256> kinds{};
  const auto set = [&](std::string_view characters, Kind kind) {
    for (const char c : characters) kinds[static_cast<unsigned char>(c)] = kind;
  };
  set("0123456789", Kind::digit);
  set(".", Kind::point);
  set("+-", Kind::sign);
  set("eE", Kind::exponent);
  set(" ,", Kind::separator);
  set("\n\r\t", Kind::lineBreak);
  set("MmLlCcZzHhVvSsQqTtAa", Kind::letter);
  return kinds;
}();

class Scanner {
public:
  PathDataNotes scan(std::string_view text) {
    for (const char c : text) {
      const Kind kind = kKinds[static_cast<unsigned char>(c)];
      if (kind != Kind::digit || !inNumber_) take(c, kind);
      last_ = kind;
    }
    return notes_;
  }

private:
  void take(char c, Kind kind) {
    switch (kind) {
    case Kind::digit:
      beginNumber();
      break;
    case Kind::point:
      if (inNumber_ && hasPoint_) separate();
      beginNumber();
      hasPoint_ = true;
      break;
    case Kind::sign:
      if (inNumber_ && last_ != Kind::exponent) separate();
      if (last_ != Kind::exponent) beginNumber();
      break;
    case Kind::exponent:
      notes_.exponents = notes_.exponents || inNumber_;
      notes_.unknownCharacters = notes_.unknownCharacters || !inNumber_;
      break;
    case Kind::separator:
      inNumber_ = false;
      break;
    case Kind::lineBreak:
      notes_.lineBreaks = notes_.lineBreaks || inNumber_ || numbers_ % size_ != 0;
      inNumber_ = false;
      break;
    case Kind::letter:
      inNumber_ = false;
      takeLetter(c);
      break;
    case Kind::other:
      notes_.unknownCharacters = true;
    }
  }

  void beginNumber() {
    if (inNumber_) return;
    inNumber_ = true;
    hasPoint_ = false;
    if (last_ == Kind::lineBreak) notes_.lineBreaks = true;
    if (++numbers_ > 2 && command_ == 'M') notes_.linesWithoutLetter = true;
    // The pair of the first move is absolute in either case, and only that.
    if (numbers_ > 2 && isFirst_ && isSmall_) notes_.relative = true;
  }

  void separate() {
    notes_.numbersWithoutSeparators = true;
    inNumber_ = false;
  }

  void takeLetter(char letter) {
    isFirst_ = command_ == 0;
    isSmall_ = letter >= 'a';
    command_ = isSmall_ ? static_cast<char>(letter - 'a' + 'A') : letter;
    numbers_ = 0;
    size_ = command_ == 'C' ? 6 : 2;
    if (isSmall_ && command_ != 'Z' && !(isFirst_ && command_ == 'M')) notes_.relative = true;
    switch (command_) {
    case 'M':
      ++notes_.moves;
      break;
    case 'H':
    case 'V':
      notes_.straightAlongAxis = true;
      break;
    case 'S':
      notes_.smooth = true;
      break;
    case 'Q':
    case 'T':
      notes_.quadratic = true;
      break;
    case 'A':
      notes_.arcs = true;
      break;
    default:
      break;
    }
  }

  PathDataNotes notes_;
  char command_ = 0; // in capitals
  bool isFirst_ = false;
  bool isSmall_ = false;
  bool inNumber_ = false;
  bool hasPoint_ = false;
  std::size_t numbers_ = 0; // of this command
  std::size_t size_ = 2;    // of a group of them
  Kind last_ = Kind::separator;
};

} // namespace

bool PathDataNotes::isPlain() const {
  return !(relative || straightAlongAxis || smooth || quadratic || arcs || linesWithoutLetter ||
           numbersWithoutSeparators || exponents || lineBreaks || unknownCharacters);
}

std::vector<std::string> PathDataNotes::reasons() const {
  std::vector<std::string> reasons;
  for (const auto& [found, words] : {std::pair{relative, "relative commands"},
                                     {straightAlongAxis, "horizontal and vertical lines"},
                                     {smooth, "smooth curves"},
                                     {quadratic, "quadratic curves"},
                                     {arcs, "arcs"},
                                     {linesWithoutLetter, "lines without a letter"},
                                     {numbersWithoutSeparators, "numbers without separators"},
                                     {lineBreaks, "line breaks in the data"},
                                     {exponents, "exponents"},
                                     {unknownCharacters, "unknown characters in the data"}})
    if (found) reasons.emplace_back(words);
  return reasons;
}

PathDataNotes notesOnPathData(std::string_view pathData) {
  return Scanner().scan(pathData);
}

} // namespace quillery
