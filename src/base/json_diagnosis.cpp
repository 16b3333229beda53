#include "base/json_diagnosis.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace quillery {
namespace {

// Lets everything pass and keeps the first error.
struct ErrorFinder : nlohmann::json::json_sax_t {
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return true; }
  bool key(string_t&) override { return true; }
  bool end_object() override { return true; }
  bool start_array(std::size_t) override { return true; }
  bool end_array() override { return true; }
  bool parse_error(std::size_t at, const std::string&,
                   const nlohmann::json::exception& error) override {
    failed = true;
    position = at;
    message = error.what();
    return false;
  }

  bool failed = false;
  std::size_t position = 0; // bytes read, the offending one included
  std::string message;
};

// "[json.exception.parse_error.101] parse error at line 1, column 2: REASON; last read: 'TOKEN'"
// becomes REASON: the place is told apart, and the token may be megabytes.
std::string reasonIn(const std::string& message) {
  std::size_t begin = message.find("] ");
  begin = begin == std::string::npos ? 0 : begin + 2;
  if (message.compare(begin, 11, "parse error") == 0) {
    const std::size_t colon = message.find(": ", begin);
    if (colon != std::string::npos) begin = colon + 2;
  }
  const std::size_t end = message.find("; last read:", begin);
  std::string reason = message.substr(begin, end == std::string::npos ? end : end - begin);
  constexpr std::size_t kMost = 200;
  if (reason.size() > kMost) reason = reason.substr(0, kMost) + "…";
  if (!reason.empty() && reason.front() >= 'a' && reason.front() <= 'z')
    reason.front() = static_cast<char>(reason.front() - 'a' + 'A');
  return reason;
}

} // namespace

Problem diagnoseJson(std::string_view text, std::string_view fallback) {
  ErrorFinder finder;
  nlohmann::json::sax_parse(text.begin(), text.end(), &finder);
  // The finder takes a NUL for the end of the text.
  const std::size_t nul = text.find('\0');
  if (!finder.failed && nul == std::string_view::npos) return {"", std::string(fallback)};
  const std::size_t offset =
      finder.failed ? std::min(finder.position == 0 ? 0 : finder.position - 1, text.size()) : nul;
  const std::string_view before = text.substr(0, offset);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;
  return {"line " + std::to_string(line) + ", byte " + std::to_string(offset - lineStart + 1),
          finder.failed ? reasonIn(finder.message) : "Unexpected NUL byte"};
}

} // namespace quillery
