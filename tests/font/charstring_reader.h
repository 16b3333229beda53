#pragma once

#include "font/bytes.h"
#include "font/rounded_outline.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace quillery::font {

/// Reads Type 2 charstrings as a rasterizer does, for tests, and throws at what breaks the rules.
class CharstringReader {
public:
  /// A point as it was drawn, with what drew it: "m", "l" or "c" for each of a curve's points.
  struct Drawn {
    char kind;
    GridPoint point;
    friend bool operator==(const Drawn&, const Drawn&) = default;
  };

  explicit CharstringReader(std::vector<Bytes> subroutines = {})
      : subroutines_(std::move(subroutines)) {}

  void read(std::string_view charstring) {
    drawn.clear();
    hintMasks.clear();
    width.reset();
    stack_.clear();
    pen_ = {};
    stems = deepest = 0;
    ended_ = seenFirst_ = false;
    run(charstring, 0);
    require(ended_, "there is no endchar");
  }

  std::vector<Drawn> drawn;
  std::optional<int> width;
  std::size_t stems = 0;
  std::vector<Bytes> hintMasks;
  int deepest = 0;

private:
  static void require(bool condition, const char* what) {
    if (!condition) throw std::runtime_error(what);
  }

  void run(std::string_view code, int depth) {
    require(depth <= 10, "calls are too deep");
    deepest = std::max(deepest, depth);
    for (std::size_t i = 0; i < code.size() && !ended_;) {
      const auto byte = [&] { return static_cast<unsigned char>(code.at(i++)); };
      const int b = byte();
      if (b >= 32 && b <= 246) {
        stack_.push_back(b - 139);
      } else if (b >= 247 && b <= 250) {
        stack_.push_back((b - 247) * 256 + byte() + 108);
      } else if (b >= 251 && b <= 254) {
        stack_.push_back(-(b - 251) * 256 - byte() - 108);
      } else if (b == 28) {
        const int high = byte();
        stack_.push_back(static_cast<std::int16_t>(high << 8 | byte()));
      } else if (b == 29) {
        const int count = static_cast<int>(subroutines_.size());
        const int at = stack_.back() + (count < 1240 ? 107 : count < 33900 ? 1131 : 32768);
        stack_.pop_back();
        run(subroutines_.at(static_cast<std::size_t>(at)), depth + 1);
      } else if (b == 11) {
        require(depth > 0 && i == code.size(), "a return stands where nothing ends");
        return;
      } else if (b == 19 || b == 20) {
        first(stack_.size() % 2 == 1);
        stems += stack_.size() / 2;
        stack_.clear();
        hintMasks.push_back(Bytes(code.substr(i, (stems + 7) / 8)));
        i += (stems + 7) / 8;
      } else {
        operate(b);
      }
      require(stack_.size() <= 48, "there are too many operands");
    }
    require(ended_ || depth > 0, "a charstring does not end");
    require(ended_ || (!code.empty() && code.back() == 11), "a subroutine does not return");
  }

  void first(bool hasWidth) {
    if (!seenFirst_ && hasWidth) {
      width = stack_.front();
      stack_.erase(stack_.begin());
    }
    seenFirst_ = true;
  }

  void point(char kind, int dx, int dy) {
    drawn.push_back({kind, pen_ = pen_ + GridPoint{dx, dy}});
  }
  void curve(int a, int b, int c, int d, int e, int f) {
    point('c', a, b);
    point('c', c, d);
    point('c', e, f);
  }

  void operate(int op) {
    std::vector<int>& s = stack_;
    const auto move = [&](std::size_t operands, int dx, int dy) {
      require(s.size() == operands, "a move has other operands");
      point('m', dx, dy);
    };
    const std::size_t operands = op == 21 ? 2 : op == 4 || op == 22 ? 1 : op == 14 ? 0 : s.size();
    const bool stem = op == 1 || op == 3 || op == 18 || op == 23;
    first(stem ? s.size() % 2 == 1 : s.size() == operands + 1);
    require(op == 14 || !s.empty(), "an operator has no operands");
    std::size_t i = 0;
    const auto left = [&] { return s.size() - i; };
    const auto next = [&] { return s.at(i++); };
    const auto line = [&] {
      const int dx = next();
      point('l', dx, next());
    };
    const auto anyCurve = [&] {
      curve(s.at(i), s.at(i + 1), s.at(i + 2), s.at(i + 3), s.at(i + 4), s.at(i + 5));
      i += 6;
    };
    if (stem) {
      require(s.size() % 2 == 0, "half a stem");
      stems += s.size() / 2;
      i = s.size();
    } else if (op == 21) {
      move(2, s.at(0), s.at(1));
      i = 2;
    } else if (op == 22) {
      move(1, s.at(0), 0);
      i = 1;
    } else if (op == 4) {
      move(1, 0, s.at(0));
      i = 1;
    } else if (op == 14) {
      ended_ = true;
    } else if (op == 5) {
      while (left() > 0) line();
    } else if (op == 6 || op == 7) {
      for (bool horizontal = op == 6; left() > 0; horizontal = !horizontal) {
        const int d = next();
        point('l', horizontal ? d : 0, horizontal ? 0 : d);
      }
    } else if (op == 8 || op == 24) {
      while (left() >= 6) anyCurve();
      if (op == 24) line();
    } else if (op == 25) {
      while (left() > 6) line();
      anyCurve();
    } else if (op == 26 || op == 27) {
      int extra = left() % 4 == 1 ? next() : 0;
      for (; left() >= 4; i += 4, extra = 0) {
        if (op == 27)
          curve(s[i], extra, s[i + 1], s[i + 2], s[i + 3], 0);
        else
          curve(extra, s[i], s[i + 1], s[i + 2], 0, s[i + 3]);
      }
    } else if (op == 30 || op == 31) {
      for (bool horizontal = op == 31; left() >= 4; horizontal = !horizontal) {
        const int last = left() == 5 ? s[i + 4] : 0;
        if (horizontal)
          curve(s[i], 0, s[i + 1], s[i + 2], last, s[i + 3]);
        else
          curve(0, s[i], s[i + 1], s[i + 2], s[i + 3], last);
        i += left() == 5 ? 5 : 4;
      }
    } else {
      require(false, "an unknown operator");
    }
    require(left() == 0, "operands are left over");
    s.clear();
  }

  std::vector<Bytes> subroutines_;
  std::vector<int> stack_;
  GridPoint pen_;
  bool seenFirst_ = false;
  bool ended_ = false;
};

/// The items of the INDEX at `start`, which is moved behind it.
inline std::vector<Bytes> readIndex(std::string_view bytes, std::size_t& start) {
  const auto number = [&](std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (const char byte : bytes.substr(at, size))
      value = value << 8 | static_cast<unsigned char>(byte);
    return value;
  };
  const std::size_t count = number(start, 2);
  if (count == 0) return start += 2, std::vector<Bytes>();
  const std::size_t size = number(start + 2, 1), offsets = start + 3;
  const std::size_t items = offsets + (count + 1) * size - 1;
  std::vector<Bytes> result;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t from = number(offsets + i * size, size);
    result.emplace_back(bytes.substr(items + from, number(offsets + (i + 1) * size, size) - from));
  }
  start = items + number(offsets + count * size, size);
  return result;
}

/// What a rasterizer is to see of a rounded outline.
inline std::vector<CharstringReader::Drawn> drawingOf(const GridOutline& outline) {
  std::vector<CharstringReader::Drawn> drawn;
  for (const GridContour& contour : outline.contours) {
    GridPoint pen = contour.start;
    drawn.push_back({'m', pen});
    for (std::size_t i = contour.first; i < contour.end; ++i) {
      const GridSegment& segment = outline.segments[i];
      if (segment.isCurve) {
        drawn.push_back({'c', pen = pen + segment.toControl1});
        drawn.push_back({'c', pen = pen + segment.toControl2});
      }
      drawn.push_back({segment.isCurve ? 'c' : 'l', pen = pen + segment.toEnd});
    }
  }
  return drawn;
}

} // namespace quillery::font
