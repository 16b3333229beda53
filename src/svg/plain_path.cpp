#include "svg/plain_path.h"

#include "base/numbers.h"

#include <cmath>
#include <vector>

namespace quillery {
namespace {

bool isSeparator(char c) {
  return c == ' ' || c == ',';
}

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

class PlainReader {
public:
  explicit PlainReader(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {
    constexpr std::size_t kUsualLength = 32; // of a command, in characters
    commands_.reserve(text.size() / kUsualLength + 1);
  }

  // False for data that is not plain.
  bool read() {
    skipSeparators();
    while (at_ != end_)
      if (!readCommand(*at_++)) return false;
    return true;
  }

  DrawnPath finish() { return {std::move(commands_), box_.rect(), true}; }

private:
  bool readCommand(char letter) {
    skipSeparators();
    switch (letter) {
    case 'M':
    case 'm':
      return readGroups(PathCommand::Kind::moveTo);
    case 'L':
    case 'l':
      return readGroups(PathCommand::Kind::lineTo);
    case 'C':
    case 'c':
      return readGroups(PathCommand::Kind::curveTo);
    case 'Z':
    case 'z':
      commands_.push_back(PathCommand::closePath());
      return at_ == end_ || isLetter(*at_);
    default:
      return false;
    }
  }

  bool readGroups(PathCommand::Kind kind) {
    while (at_ != end_ && !isLetter(*at_)) {
      PathCommand& command = commands_.emplace_back();
      command.kind = kind;
      const std::size_t count = command.pointCount();
      for (std::size_t i = 0; i < count; ++i) {
        Point& p = command.points[i];
        if (!readNumber(p.x) || !readNumber(p.y)) return false;
        box_.add(p);
      }
    }
    return true;
  }

  bool readNumber(double& value) {
    const char* const behind = readPlainDecimal(at_, end_, value);
    if (!behind || !std::isfinite(value)) return false;
    if (behind != end_ && !isSeparator(*behind) && !isLetter(*behind)) return false;
    at_ = behind;
    skipSeparators();
    return true;
  }

  void skipSeparators() {
    while (at_ != end_ && isSeparator(*at_)) ++at_;
  }

  const char* at_;
  const char* const end_;
  std::vector<PathCommand> commands_;
  DrawnBox box_;
};

} // namespace

std::optional<DrawnPath> readPlainPath(std::string_view pathData) {
  PlainReader reader(pathData);
  if (!reader.read()) return std::nullopt;
  return reader.finish();
}

} // namespace quillery
