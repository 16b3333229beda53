#include "base/json_slices.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillery {
namespace {

constexpr std::array<bool, 256> kStructural = [] {
  std::array<bool, 256> structural{};
  for (const char c : {'"', '{', '}', '[', ']', ',', ':'})
    structural[static_cast<unsigned char>(c)] = true;
  return structural;
}();

class Cutter {
public:
  Cutter(std::string_view text, std::initializer_list<std::string_view> members,
         std::size_t sliceSize)
      : text_(text), members_(members), sliceSize_(sliceSize) {}

  bool cut() {
    if (!next() || text_[at_] != '{') return false;
    ++at_;
    while (next()) {
      const char c = text_[at_];
      if (c == '}') return finish();
      if (c == ',') {
        ++at_;
        continue;
      }
      if (c != '"' || !member()) return false;
    }
    return false;
  }

  JsonSlices result;

private:
  // Moves to the next structural byte; false at the end.
  bool next() {
    while (at_ < text_.size() && !kStructural[static_cast<unsigned char>(text_[at_])]) ++at_;
    return at_ < text_.size();
  }

  // From an opening quote to behind the closing one.
  bool skipString() {
    std::size_t from = at_ + 1;
    for (;;) {
      const void* found = std::memchr(text_.data() + from, '"', text_.size() - from);
      if (!found) return false;
      const auto quote = static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
      std::size_t escapes = quote;
      while (text_[escapes - 1] == '\\') --escapes;
      from = quote + 1;
      if ((quote - escapes) % 2 == 0) break;
    }
    at_ = from;
    return true;
  }

  // A name, its colon and its value.
  bool member() {
    const std::size_t nameBegin = at_ + 1;
    if (!skipString()) return false;
    const std::string_view name = text_.substr(nameBegin, at_ - 1 - nameBegin);
    if (name.find('\\') != std::string_view::npos) return false;
    if (!next() || text_[at_] != ':') return false;
    ++at_;
    const std::size_t value = text_.find_first_not_of(" \t\r\n", at_);
    if (value == std::string_view::npos) return false;
    at_ = value;
    const auto sliced = std::find(members_.begin(), members_.end(), name);
    if (sliced == members_.end() || text_[value] != '[') return skipValue();
    const auto which = static_cast<std::size_t>(sliced - members_.begin());
    if ((seen_ & (1U << which)) != 0) return false;
    seen_ |= 1U << which;
    return slice(which);
  }

  // To the comma or bracket behind a value.
  bool skipValue() {
    std::size_t depth = 0;
    while (next()) {
      const char c = text_[at_];
      if (c == '"') {
        if (!skipString()) return false;
        continue;
      }
      if (depth == 0 && (c == ',' || c == '}')) return true;
      if (c == '{' || c == '[')
        ++depth;
      else if ((c == '}' || c == ']') && depth-- == 0)
        return false;
      ++at_;
    }
    return false;
  }

  // Nothing before or behind a comma is an error for the parser to name.
  bool isBlank(std::size_t begin) const {
    const std::string_view items = text_.substr(begin + 1, at_ - begin - 2);
    return items.find_first_not_of(" \t\r\n") == std::string_view::npos;
  }

  bool slice(std::size_t which) {
    result.skeleton.append(text_, copied_, at_ - copied_);
    result.skeleton += "[]";
    std::size_t begin = at_++;
    std::size_t depth = 0;
    while (next()) {
      const char c = text_[at_];
      if (c == '"') {
        if (!skipString()) return false;
        continue;
      }
      ++at_;
      if (c == '{' || c == '[') {
        ++depth;
      } else if (depth == 0 && c == ',') {
        if (at_ - begin < sliceSize_) continue;
        if (isBlank(begin)) return false;
        result.slices.push_back({which, begin, at_});
        begin = at_ - 1;
      } else if (depth == 0 && c == ']') {
        if (text_[begin] == ',' && isBlank(begin)) return false;
        result.slices.push_back({which, begin, at_});
        copied_ = at_;
        return true;
      } else if ((c == '}' || c == ']') && depth-- == 0) {
        return false;
      }
    }
    return false;
  }

  bool finish() {
    result.skeleton.append(text_, copied_);
    return true;
  }

  std::string_view text_;
  std::vector<std::string_view> members_;
  std::size_t sliceSize_;
  std::size_t at_ = 0;
  std::size_t copied_ = 0; // how far the skeleton has the text
  unsigned seen_ = 0;
};

} // namespace

std::optional<JsonSlices> sliceJsonObject(std::string_view text,
                                          std::initializer_list<std::string_view> members,
                                          std::size_t sliceSize) {
  Cutter cutter(text, members, sliceSize);
  if (!cutter.cut()) return std::nullopt;
  return std::move(cutter.result);
}

} // namespace quillery
