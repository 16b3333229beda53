#pragma once

#include <string>
#include <vector>

namespace quillery::test {

/// Collects what is printed to standard output while it lives.
class ConsoleCapture {
public:
  ConsoleCapture();
  ~ConsoleCapture();
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;

  std::string text();
  std::vector<std::string> lines();

private:
  int saved_;
  int file_;
};

} // namespace quillery::test
